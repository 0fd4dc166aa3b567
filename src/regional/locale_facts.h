#pragma once

#include <array>
#include <string>
#include <vector>

#include "regional/boolean_words.h"
#include "regional/date_order.h"
#include "regional/date_time_pattern.h"
#include "regional/pattern_run.h"

namespace dralo::regional {

/// The spelling of a month (1 to 12) or of a half of the day (0 morning, 1 afternoon), as
/// text::PlainWhiteSpace() returns it.
struct Spelling {
  std::string text;
  int number = 0;
};

/// Names for use in dates, January and Sunday first.
struct DateNames {
  std::array<std::string, 12> months;
  std::array<std::string, 12> short_months;        ///< As within a date, perhaps with a full stop.
  std::array<std::string, 12> short_months_alone;  ///< As used alone, without a full stop.
  std::array<std::string, 7> days;
  std::array<std::string, 7> short_days;
  std::array<std::string, 7> short_days_alone;
};

/// What is known about a locale, so that ICU need not be asked for each text. Numbers are in Latin digits and
/// dates in the Gregorian calendar, even where people of the locale use others.
struct LocaleFacts {
  DateTimePattern short_date;     ///< Numbers only, four digits of the year; without direction marks.
  DateTimePattern long_time;      ///< Hour, minute and second with ":" between; blanks are ordinary ones.
  DateTimePattern date_and_time;  ///< Both with a blank between.
  DateOrder date_order = DateOrder::kMonthDayYear;
  char time_separator = ':';  ///< What people of the locale write between hour and minute: ":" or ".".

  /// Full and short names in the forms for use within a date and alone, in small and capital letters, without
  /// a full stop at the end; then the English ones. The longest come first.
  std::vector<Spelling> months;
  std::vector<Spelling> day_halves;

  /// What the locale's dates have between and after the parts, such as "de" in "3 de mayo de 2024" and "年".
  std::vector<std::string> date_words;

  char decimal_point = '.';
  std::string grouping;          ///< Between groups of three digits.
  bool groups_in_pairs = false;  ///< Groups above the lowest have two digits: "12,34,567".

  /// The texts around a number, the currency sign included; "-" for every minus sign.
  struct Affixes {
    std::string prefix;
    std::string suffix;
  };
  Affixes negative_number;
  std::array<Affixes, 2> percent;   ///< Of zero and above, and of negative numbers.
  std::array<Affixes, 2> currency;  ///< Likewise.
  int currency_digits = 2;          ///< After the decimal point.

  std::vector<PatternRun> long_date;    ///< With the name of the weekday.
  std::vector<PatternRun> medium_date;  ///< With a short name of the month, in most locales.
  std::string date_separator;           ///< Between the numbers of a short date.
  DateNames names;
  std::array<std::string, 2> day_half_names;  ///< Morning and afternoon.
  BooleanWords boolean_words;

  int first_day_of_week = 1;   ///< 1 Sunday to 7 Saturday.
  int days_in_first_week = 1;  ///< The first week of the year has at least this many of its days.
};

/// Asks ICU about `locale`, a name that ChooseLocale() has returned. Throws platform::Error when ICU fails.
LocaleFacts ReadLocaleFacts(const std::string& locale);

}  // namespace dralo::regional
