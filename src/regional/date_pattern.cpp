#include "regional/date_pattern.h"

#include <algorithm>

#include "regional/digits.h"
#include "regional/pattern_literal.h"
#include "text/ascii.h"

namespace dralo::regional {
using platform::DateTime;

char* WriteGeneral(const LocaleFacts& facts, const DateTime& time, char* to) {
  if (time.HasZeroDate()) return facts.long_time.Write(time, to);
  return (time.IsMidnight() ? facts.short_date : facts.date_and_time).Write(time, to);
}

std::size_t MaxGeneralSize(const LocaleFacts& facts) { return facts.date_and_time.MaxSize(); }

void AppendTime(const DateTimePattern& pattern, const DateTime& time, std::string& to) {
  const std::size_t size = to.size();
  to.resize(size + pattern.MaxSize());
  const char* end = pattern.Write(time, to.data() + size);
  to.resize(static_cast<std::size_t>(end - to.data()));
}

void DatePattern::AddPattern(std::string_view pattern) {
  Parse(pattern, DateTimePart::kHour24);
  if (!has_day_half_) return;
  tokens_.clear();
  Parse(pattern, DateTimePart::kHour12);
}

void DatePattern::Parse(std::string_view pattern, DateTimePart hour) {
  hour_ = hour;
  follows_hour_ = false;
  while (!pattern.empty()) {
    std::string literal;
    if (TakeLiteral(pattern, literal)) {
      Plain().AddLiteral(literal);
      continue;
    }
    if (TakeDayHalf(pattern)) continue;
    const char letter = text::ToLower(pattern[0]);
    std::size_t width = 1;
    while (width < pattern.size() && text::ToLower(pattern[width]) == letter) ++width;
    if (std::string_view("cdwmqyhnst/").find(letter) != std::string_view::npos) {
      AddLetters(letter, static_cast<int>(width));
    } else {
      Plain().AddLiteral(pattern.substr(0, width));
    }
    pattern.remove_prefix(width);
  }
}

DateTimePattern& DatePattern::Plain() {
  if (tokens_.empty() || tokens_.back().kind != Kind::kPlain) tokens_.emplace_back();
  return tokens_.back().plain;
}

void DatePattern::AddNumber(DateTimePart part, int width) {
  Plain().Add(part, width);
  follows_hour_ = part == hour_;
}

void DatePattern::Add(Token token) {
  tokens_.push_back(std::move(token));
  follows_hour_ = false;
}

void DatePattern::AddMonthName(const std::array<std::string, 12>& names) {
  Add({.kind = Kind::kMonthName, .names = names.data()});
}

/// The names begin with Sunday.
void DatePattern::AddDayName(const std::array<std::string, 7>& names) {
  Add({.kind = Kind::kDayName, .names = names.data()});
}

bool DatePattern::TakeDayHalf(std::string_view& rest) {
  const auto take = [&](std::string_view letters, std::string_view morning, std::string_view afternoon) {
    if (!text::StartsWithAscii(rest, letters)) return false;
    rest.remove_prefix(letters.size());
    Plain().AddDayHalf(morning, afternoon);
    has_day_half_ = true;
    follows_hour_ = false;
    return true;
  };
  if (take("AMPM", facts_->day_half_names[0], facts_->day_half_names[1])) return true;
  return rest.starts_with('a') ? take("AM/PM", "am", "pm") || take("A/P", "a", "p")
                               : take("AM/PM", "AM", "PM") || take("A/P", "A", "P");
}

void DatePattern::AddLetters(char letter, int width) {
  switch (letter) {
    case 'c':
      return Add({.kind = Kind::kGeneral});
    case 'd':
      return AddDay(width);
    case 'w':
      return AddCount(width == 1 ? Interval::kWeekday : Interval::kWeek);
    case 'm':
      return width <= 2 && follows_hour_ ? AddNumber(DateTimePart::kMinute, width) : AddMonth(width);
    case 'q':
      return AddCount(Interval::kQuarter);
    case 'y':
      if (width == 1) return AddCount(Interval::kDayOfYear);
      return width == 2 ? Add({.kind = Kind::kShortYear}) : AddNumber(DateTimePart::kYear, 4);
    case 'h':
      return AddNumber(hour_, std::min(width, 2));
    case 'n':
      return AddNumber(DateTimePart::kMinute, std::min(width, 2));
    case 's':
      return AddNumber(DateTimePart::kSecond, std::min(width, 2));
    case 't':
      return width == 5 ? Add({.plain = facts_->long_time})
                        : Plain().AddLiteral(std::string(static_cast<std::size_t>(width), 't'));
    default:
      for (; width > 0; --width) Plain().AddLiteral(facts_->date_separator);
  }
}

void DatePattern::AddDay(int width) {
  switch (width) {
    case 1:
    case 2:
      return AddNumber(DateTimePart::kDay, width);
    case 3:
      return AddDayName(facts_->names.short_days_alone);
    case 4:
      return AddDayName(facts_->names.days);
    case 5:
      return Add({.plain = facts_->short_date});
    default:
      return AddRuns(facts_->long_date);
  }
}

void DatePattern::AddMonth(int width) {
  if (width <= 2) return AddNumber(DateTimePart::kMonth, width);
  AddMonthName(width == 3 ? facts_->names.short_months_alone : facts_->names.months);
}

void DatePattern::AddRuns(const std::vector<PatternRun>& runs) {
  for (const PatternRun& run : runs) AddRun(run);
}

void DatePattern::AddRun(const PatternRun& run) {
  switch (run.letter) {
    case '\0':
      return Plain().AddLiteral(run.text);
    case 'd':
      return AddNumber(DateTimePart::kDay, run.width);
    case 'y':
      return AddNumber(DateTimePart::kYear, 4);
    case 'M':
    case 'L':
      if (run.width <= 2) return AddNumber(DateTimePart::kMonth, run.width);
      return AddMonthName(run.width == 3 ? facts_->names.short_months : facts_->names.months);
    case 'E':
    case 'c':
      return AddDayName(run.width <= 3 ? facts_->names.short_days : facts_->names.days);
    default:
      return;
  }
}

void DatePattern::Write(const DateTime& time, std::string& to) const {
  for (const Token& token : tokens_) Put(token, time, to);
}

void DatePattern::Put(const Token& token, const DateTime& time, std::string& to) const {
  switch (token.kind) {
    case Kind::kPlain:
      AppendTime(token.plain, time, to);
      break;
    case Kind::kCount:
      to += std::to_string(Part(token.part, time, rule_));
      break;
    case Kind::kShortYear:
      to.append(&kDigitPairs[2 * static_cast<std::size_t>(time.year % 100)], 2);
      break;
    case Kind::kMonthName:
      to += token.names[time.month - 1];
      break;
    case Kind::kDayName:
      to += token.names[Part(Interval::kWeekday, time, {}) - 1];
      break;
    case Kind::kGeneral: {
      const std::size_t size = to.size();
      to.resize(size + MaxGeneralSize(*facts_));
      to.resize(static_cast<std::size_t>(WriteGeneral(*facts_, time, to.data() + size) - to.data()));
      break;
    }
  }
}

}  // namespace dralo::regional
