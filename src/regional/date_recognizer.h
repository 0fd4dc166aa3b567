#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dralo/date_time.h"
#include "regional/date_order.h"
#include "regional/locale_facts.h"
#include "regional/time_recognizer.h"

namespace dralo::regional {

/// Reads dates and times as people of a locale type them: a date, a date and a time, or a time alone (on the
/// zero date); blanks around them are ignored.
///
/// - In numbers, with ".", "/" or "-", the same one twice; before a year of four digits also a blank, as in
///   "3/5 2024". A year of four digits stands first or last, one of two digits (00 to 29 is 2000 to 2029, 30
///   to 99 is 1930 to 1999) where the locale has it. The locale's order holds; when it gives no day of the
///   calendar, or has the year elsewhere, another order does if only one day comes of it: "13/5/2024" is 13
///   May everywhere, "3/5/2024" is none where the year comes first. A year that stands first is always
///   followed by the month.
/// - With a month's name, full or short, in the locale's language or English, also without blanks:
///   "5 May 2024", "May 5, 2024", "05MAY2024", "5. Mai 2024", "5 de mayo de 2024". With the words of the
///   locale's own dates: "2024年5月3日".
/// - In ISO form, "2024-05-03" alone or with "T10:30:00.5" and perhaps "Z", which changes nothing.
/// - Times are those of TimeRecognizer; after a date, "." may stand for ":" where the locale writes that.
///
/// Weekdays, a month without day or year, and offsets from UTC are not read.
class DateRecognizer {
 public:
  explicit DateRecognizer(const LocaleFacts& facts);

  /// Nothing when `text` is no date, or names no day of the calendar or no time of the day.
  std::optional<platform::DateTime> Recognize(std::string_view text) const;

 private:
  /// What stands between two parts, or after the last.
  struct Gap {
    char mark = '\0';  ///< The first of "./-,", or '\0'.
    bool has_blank = false;
    bool has_word = false;
  };

  struct Spelled {
    DateParts parts;
    std::array<Gap, 3> gaps;  ///< Each after its part.
  };

  std::optional<platform::DateTime> RecognizeFromDate(std::string_view text) const;
  std::optional<platform::DateTime> RecognizeTimeAlone(std::string_view text) const;
  std::optional<platform::DateTime> Day(const Spelled& date) const;
  bool TakeSpelled(std::string_view& rest, Spelled& date) const;
  bool TakePart(std::string_view& rest, DatePart& part) const;
  Gap TakeGap(std::string_view& rest) const;
  bool TakeWord(std::string_view& rest) const;
  static bool IsNumericForm(const Spelled& date);
  static bool IsIsoDate(const Spelled& date);

  std::vector<Spelling> months_;
  std::vector<std::string> date_words_;
  DateOrder order_;
  TimeRecognizer time_;
};

}  // namespace dralo::regional
