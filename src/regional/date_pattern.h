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

  /// Short date, blank, long time; midnight drops the time, the zero date the date.
  void PutGeneral(const platform::DateTime& time, std::string& to) const;
  static void Put(const DateTimePattern& pattern, const platform::DateTime& time, std::string& to);

  DateTimePattern short_date;
  DateTimePattern long_time;
  std::vector<PatternRun> long_date;
  std::vector<PatternRun> medium_date;
  std::string date_separator;
  DateNames names;
  std::array<std::string, 2> day_half_names;
};

/// A date-time form with numbers, names and literal texts.
class DatePattern {
 public:
  /// `texts` must outlive the pattern; `rule` has no 0 in it.
  DatePattern(const DateTexts& texts, platform::WeekRule rule) : texts_(&texts), rule_(rule) {}

  /// Adds a pattern of a page: d dd ddd dddd ddddd dddddd w ww m mm mmm mmmm q y yy yyyy h hh n nn s ss ttttt
  /// c,
  /// "/" and ":", AM/PM am/pm A/P a/p AMPM, in any letter case; m behind h is the minute. Texts in quotation
  /// marks, characters behind "\" and all others stand for themselves.
  void AddPattern(std::string_view pattern);

  /// Adds a pattern of a locale.
  void AddRuns(const std::vector<PatternRun>& runs);

  void Write(const platform::DateTime& time, std::string& to) const;

 private:
  enum class Kind : std::uint8_t {
    kLiteral,
    kNumber,     ///< A part, filled with zeros up to `width` digits.
    kHour12,     ///< Likewise.
    kShortYear,  ///< Two digits.
    kMonth,      ///< Names from here on.
    kShortMonth,
    kShortMonthAlone,
    kWeekday,
    kShortWeekday,
    kShortWeekdayAlone,
    kDayHalf,  ///< Morning and afternoon in `text`, "/" between.
    kGeneral,
    kShortDate,
    kLongTime
  };

  struct Token {
    Kind kind = Kind::kLiteral;
    Interval part = Interval::kDay;
    int width = 1;
    std::string text = {};
  };

  void AddLiteral(std::string_view text);
  void AddNumber(Interval part, int width) { tokens_.push_back({Kind::kNumber, part, width}); }
  void AddName(Kind kind) { tokens_.push_back({kind}); }
  bool TakeDayHalf(std::string_view& rest);
  void AddLetters(char letter, int width);
  void AddDay(int width);
  void AddMonth(int width);
  void AddRun(const PatternRun& run);
  bool FollowsHour() const;
  bool HasDayHalf() const;
  void CountHoursToTwelve();
  void Put(const Token& token, const platform::DateTime& time, std::string& to) const;

  const DateTexts* texts_;
  platform::WeekRule rule_;
  std::vector<Token> tokens_;
};

}  // namespace dralo::regional
