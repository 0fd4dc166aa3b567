#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "regional/date_order.h"
#include "regional/date_time_pattern.h"

namespace dralo::regional {

/// A piece of a locale's date or time pattern: one letter repeated, such as "MM", or what stands between.
struct PatternRun {
  char letter = '\0';  ///< '\0' for a literal.
  int width = 0;       ///< How often the letter is repeated.
  std::string text;    ///< Of a literal: without quotes and direction marks, every blank as " ".
};

std::vector<PatternRun> SplitPattern(std::string_view pattern);

/// The pattern of numbers for `runs`, with four digits of the year.
DateTimePattern ShortDate(const std::vector<PatternRun>& runs);

DateOrder OrderOf(const std::vector<PatternRun>& runs);

/// Hour, minute and second with ":" between, whatever the locale has there: a time of day with dots, such as
/// "10.11.12" in Danish, would be read as a date when it comes back. The locale decides between 12 and 24
/// hours and where the half of the day stands.
DateTimePattern LongTime(const std::vector<PatternRun>& runs, std::string_view morning,
                         std::string_view afternoon);

/// "." where the locale writes that between hour and minute, else ":".
char TimeSeparatorOf(const std::vector<PatternRun>& runs);

/// The text between the first two numbers of a short date, without blanks: "/", "." or "-".
std::string DateSeparatorOf(const std::vector<PatternRun>& runs);

/// Adds to `words` the words between and after the parts of a date.
void AddDateWords(const std::vector<PatternRun>& runs, std::vector<std::string>& words);

}  // namespace dralo::regional
