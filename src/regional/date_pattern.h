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

/// Writes short date, blank, long time, without the time at midnight and without the date on the zero date.
/// `to` has room for MaxGeneralSize() bytes; returns the end.
char* WriteGeneral(const LocaleFacts& facts, const platform::DateTime& time, char* to);
std::size_t MaxGeneralSize(const LocaleFacts& facts);

/// Appends `time` in the pattern.
void AppendTime(const DateTimePattern& pattern, const platform::DateTime& time, std::string& to);

/// A date-time form with numbers, names and literal texts. A DateTimePattern writes as much of it as it can;
/// the class adds what needs a locale's names or a calendar.
class DatePattern {
 public:
  /// `facts` must outlive the pattern; `rule` must not have a 0.
  DatePattern(const LocaleFacts& facts, platform::WeekRule rule) : facts_(&facts), rule_(rule) {}

  /// Sets the pattern of a page, in any letter case: d dd ddd dddd ddddd dddddd w ww m mm mmm mmmm q y yy
  /// yyyy h hh n nn s ss ttttt c, "/" and ":", AM/PM am/pm A/P a/p AMPM; m after h is the minute. Texts in
  /// quotation marks, characters behind "\" and all others stand for themselves.
  void AddPattern(std::string_view pattern);

  /// Adds a pattern of a locale.
  void AddRuns(const std::vector<PatternRun>& runs);

  void Write(const platform::DateTime& time, std::string& to) const;

 private:
  enum class Kind : std::uint8_t {
    kPlain,      ///< What a DateTimePattern writes.
    kCount,      ///< A number that the calendar must find.
    kShortYear,  ///< Two digits.
    kMonthName,
    kDayName,
    kGeneral
  };

  struct Token {
    Kind kind = Kind::kPlain;
    Interval part = Interval::kDay;
    DateTimePattern plain = {};
    const std::string* names = nullptr;  ///< The first of the names of the months or the days.
  };

  void Parse(std::string_view pattern, DateTimePart hour);
  bool TakeDayHalf(std::string_view& rest);
  void AddLetters(char letter, int width);
  void AddDay(int width);
  void AddMonth(int width);
  void AddRun(const PatternRun& run);

  /// The pattern of the last token; a plain one is added unless the last is plain.
  DateTimePattern& Plain();
  void AddNumber(DateTimePart part, int width);
  void AddCount(Interval part) { Add({.kind = Kind::kCount, .part = part}); }
  void AddMonthName(const std::array<std::string, 12>& names);
  void AddDayName(const std::array<std::string, 7>& names);
  void Add(Token token);
  void Put(const Token& token, const platform::DateTime& time, std::string& to) const;

  const LocaleFacts* facts_;
  platform::WeekRule rule_;
  std::vector<Token> tokens_;
  DateTimePart hour_ = DateTimePart::kHour24;  ///< The form in which hours are written.
  bool has_day_half_ = false;
  bool follows_hour_ = false;  ///< The last part added is the hour.
};

}  // namespace dralo::regional
