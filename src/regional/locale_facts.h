#pragma once

#include <string>
#include <vector>

#include "regional/date_order.h"
#include "regional/date_time_pattern.h"

namespace dralo::regional {

/// A spelling of a month (1 to 12) or of a half of the day (0 morning, 1 afternoon), blanks plain
/// (PlainBlanks).
struct Spelling {
  std::string text;
  int number = 0;
};

/// What is known about a locale, so that ICU need not be asked for each text. Numbers are in Latin digits and
/// dates in the Gregorian calendar, also where people of the locale use others.
struct LocaleFacts {
  DateTimePattern short_date;  ///< Numbers only, four digits of the year; without direction marks.
  DateTimePattern long_time;   ///< Hour, minute and second, ":" between them; blanks are ordinary ones.
  DateOrder date_order = DateOrder::kMonthDayYear;
  char time_separator = ':';  ///< What people of the locale write between hour and minute: ":" or ".".

  /// Full and short names in the forms for use within a date and alone, and in small and capital letters,
  /// without a full stop at the end; then the English ones. The longest stand first.
  std::vector<Spelling> months;
  std::vector<Spelling> day_halves;

  /// What the locale's dates have between and after the parts, such as "de" in "3 de mayo de 2024" and "年".
  std::vector<std::string> date_words;

  char decimal_point = '.';
  std::string grouping;          ///< Between groups of three digits.
  bool groups_in_pairs = false;  ///< Groups above the lowest have two digits: "12,34,567".
};

/// Asks ICU about `locale`, a name that ChooseLocale() gave. Throws platform::Error when ICU fails.
LocaleFacts ReadLocaleFacts(const std::string& locale);

}  // namespace dralo::regional
