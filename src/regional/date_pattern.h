#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/value_formatting.h"
#include "regional/calendar.h"
#include "regional/locale_facts.h"

namespace dralo::regional {

/// What date patterns take from a locale.
struct DateTexts {
  explicit DateTexts(const LocaleFacts& facts);

  /// Short date, blank, long time; midnight drops the time, the zero date the date. `to` has room for
  /// MaxGeneralSize() bytes; returns the end.
  char* WriteGeneral(const platform::DateTime& time, char* to) const;
  std::size_t MaxGeneralSize() const { return short_date.MaxSize() + 1 + long_time.MaxSize(); }

  static void Put(const DateTimePattern& pattern, const platform::DateTime& time, std::string& to);

  DateTimePattern short_date;
  DateTimePattern long_time;
  std::vector<PatternRun> long_date;
  std::vector<PatternRun> medium_date;
  std::string date_separator;
  DateNames names;
  std::array<std::string, 2> day_half_names;
};

/// A date-time form with numbers, names and literal texts: a DateTimePattern where that is enough, and what
/// needs a locale's names or a calendar.
class DatePattern {
 public:
  /// `texts` must outlive the pattern; `rule` has no 0 in it.
  DatePattern(const DateTexts& texts, platform::WeekRule rule) : texts_(&texts), rule_(rule) {}

  /// Sets the pattern of a page, in any letter case: d dd ddd dddd ddddd dddddd w ww m mm mmm mmmm q y yy
  /// yyyy h hh n nn s ss ttttt c, "/" and ":", AM/PM am/pm A/P a/p AMPM; m behind h is the minute. Texts in
  /// quotation marks, characters behind "\" and all others stand for themselves.
  void AddPattern(std::string_view pattern);

  /// Adds a pattern of a locale.
  void AddRuns(const std::vector<PatternRun>& runs);

  void Write(const platform::DateTime& time, std::string& to) const;

 private:
  enum class Kind : std::uint8_t {
    kPlain,      ///< What a DateTimePattern writes.
    kCount,      ///< A number that is counted by the calendar.
    kShortYear,  ///< Two digits.
    kMonth,      ///< Names from here on.
    kShortMonth,
    kShortMonthAlone,
    kWeekday,
    kShortWeekday,
    kShortWeekdayAlone,
    kGeneral
  };

  struct Token {
    Kind kind = Kind::kPlain;
    Interval part = Interval::kDay;
    DateTimePattern plain = {};
  };

  void Parse(std::string_view pattern, DateTimePart hour);
  bool TakeDayHalf(std::string_view& rest);
  void AddLetters(char letter, int width);
  void AddDay(int width);
  void AddMonth(int width);
  void AddRun(const PatternRun& run);

  /// The plain token at the end.
  DateTimePattern& Plain();
  void AddNumber(DateTimePart part, int width);
  void AddCount(Interval part) { Add({Kind::kCount, part}); }
  void Add(Token token);
  void Put(const Token& token, const platform::DateTime& time, std::string& to) const;

  const DateTexts* texts_;
  platform::WeekRule rule_;
  std::vector<Token> tokens_;
  DateTimePart hour_ = DateTimePart::kHour24;  ///< As which hours are written.
  bool has_day_half_ = false;
  bool follows_hour_ = false;  ///< The last part added is the hour.
};

}  // namespace dralo::regional
