#include "regional/date_pattern.h"

#include <algorithm>
#include <chrono>

#include "regional/digits.h"
#include "regional/pattern_literal.h"
#include "regional/spellings.h"
#include "text/ascii.h"

namespace dralo::regional {
namespace {

using platform::DateTime;

void PutNumber(int value, int width, std::string& to) {
  char digits[24];
  char* const end = digits + sizeof digits;
  char* start = WriteBackward(static_cast<std::uint64_t>(value), end);
  while (end - start < width) *--start = '0';
  to.append(start, static_cast<std::size_t>(end - start));
}

std::size_t WeekdayOf(const DateTime& time) {
  const std::chrono::year_month_day day{std::chrono::year{time.year}, std::chrono::month{time.month},
                                        std::chrono::day{time.day}};
  return std::chrono::weekday{std::chrono::sys_days{day}}.c_encoding();
}

}  // namespace

DateTexts::DateTexts(const LocaleFacts& facts)
    : short_date(facts.short_date),
      long_time(facts.long_time),
      long_date(facts.long_date),
      medium_date(facts.medium_date),
      date_separator(facts.date_separator),
      names(facts.names),
      day_half_names(facts.day_half_names) {}

void DateTexts::Put(const DateTimePattern& pattern, const DateTime& time, std::string& to) {
  const std::size_t size = to.size();
  to.resize(size + pattern.MaxSize());
  const char* end = pattern.Write(time, to.data() + size);
  to.resize(static_cast<std::size_t>(end - to.data()));
}

void DateTexts::PutGeneral(const DateTime& time, std::string& to) const {
  const bool has_date = !time.HasZeroDate();
  const bool has_time = !time.IsMidnight() || !has_date;
  if (has_date) Put(short_date, time, to);
  if (has_date && has_time) to += ' ';
  if (has_time) Put(long_time, time, to);
}

void DatePattern::AddPattern(std::string_view pattern) {
  while (!pattern.empty()) {
    std::string literal;
    if (TakeLiteral(pattern, literal)) {
      AddLiteral(literal);
      continue;
    }
    if (TakeDayHalf(pattern)) continue;
    const char letter = text::ToLower(pattern[0]);
    std::size_t width = 1;
    while (width < pattern.size() && text::ToLower(pattern[width]) == letter) ++width;
    if (std::string_view("cdwmqyhnst/").find(letter) != std::string_view::npos) {
      AddLetters(letter, static_cast<int>(width));
    } else {
      AddLiteral(pattern.substr(0, width));
    }
    pattern.remove_prefix(width);
  }
  if (HasDayHalf()) CountHoursToTwelve();
}

void DatePattern::AddLiteral(std::string_view text) {
  tokens_.push_back({.kind = Kind::kLiteral, .text = std::string(text)});
}

bool DatePattern::TakeDayHalf(std::string_view& rest) {
  if (text::StartsWithAscii(rest, "AMPM")) {
    tokens_.push_back(
        {.kind = Kind::kDayHalf, .text = texts_->day_half_names[0] + "/" + texts_->day_half_names[1]});
    rest.remove_prefix(4);
    return true;
  }
  for (const std::string_view halves : {"AM/PM", "A/P"}) {
    if (!text::StartsWithAscii(rest, halves)) continue;
    const bool is_small = rest[0] == 'a';
    std::string text(halves);
    if (is_small)
      for (char& c : text) c = text::ToLower(c);
    tokens_.push_back({.kind = Kind::kDayHalf, .text = std::move(text)});
    rest.remove_prefix(halves.size());
    return true;
  }
  return false;
}

void DatePattern::AddLetters(char letter, int width) {
  switch (letter) {
    case 'c':
      return AddName(Kind::kGeneral);
    case 'd':
      return AddDay(width);
    case 'w':
      return AddNumber(width == 1 ? Interval::kWeekday : Interval::kWeek, 1);
    case 'm':
      return width <= 2 && FollowsHour() ? AddNumber(Interval::kMinute, width) : AddMonth(width);
    case 'q':
      return AddNumber(Interval::kQuarter, 1);
    case 'y':
      if (width == 1) return AddNumber(Interval::kDayOfYear, 1);
      return width == 2 ? AddName(Kind::kShortYear) : AddNumber(Interval::kYear, 4);
    case 'h':
      return AddNumber(Interval::kHour, std::min(width, 2));
    case 'n':
      return AddNumber(Interval::kMinute, std::min(width, 2));
    case 's':
      return AddNumber(Interval::kSecond, std::min(width, 2));
    case 't':
      return width == 5 ? AddName(Kind::kLongTime)
                        : AddLiteral(std::string(static_cast<std::size_t>(width), 't'));
    default:
      for (; width > 0; --width) AddLiteral(texts_->date_separator);
  }
}

void DatePattern::AddDay(int width) {
  switch (width) {
    case 1:
    case 2:
      return AddNumber(Interval::kDay, width);
    case 3:
      return AddName(Kind::kShortWeekdayAlone);
    case 4:
      return AddName(Kind::kWeekday);
    case 5:
      return AddName(Kind::kShortDate);
    default:
      return AddRuns(texts_->long_date);
  }
}

void DatePattern::AddMonth(int width) {
  if (width <= 2) return AddNumber(Interval::kMonth, width);
  AddName(width == 3 ? Kind::kShortMonthAlone : Kind::kMonth);
}

void DatePattern::AddRuns(const std::vector<PatternRun>& runs) {
  for (const PatternRun& run : runs) AddRun(run);
}

void DatePattern::AddRun(const PatternRun& run) {
  switch (run.letter) {
    case '\0':
      return AddLiteral(run.text);
    case 'd':
      return AddNumber(Interval::kDay, run.width);
    case 'y':
      return AddNumber(Interval::kYear, 4);
    case 'M':
    case 'L':
      if (run.width <= 2) return AddNumber(Interval::kMonth, run.width);
      return AddName(run.width == 3 ? Kind::kShortMonth : Kind::kMonth);
    case 'E':
    case 'c':
      return AddName(run.width <= 3 ? Kind::kShortWeekday : Kind::kWeekday);
    default:
      return;
  }
}

bool DatePattern::FollowsHour() const {
  const auto last = std::find_if(tokens_.rbegin(), tokens_.rend(),
                                 [](const Token& token) { return token.kind != Kind::kLiteral; });
  return last != tokens_.rend() && last->kind == Kind::kNumber && last->part == Interval::kHour;
}

bool DatePattern::HasDayHalf() const {
  return std::any_of(tokens_.begin(), tokens_.end(),
                     [](const Token& token) { return token.kind == Kind::kDayHalf; });
}

void DatePattern::CountHoursToTwelve() {
  for (Token& token : tokens_) {
    if (token.kind == Kind::kNumber && token.part == Interval::kHour) token.kind = Kind::kHour12;
  }
}

void DatePattern::Write(const DateTime& time, std::string& to) const {
  for (const Token& token : tokens_) Put(token, time, to);
}

void DatePattern::Put(const Token& token, const DateTime& time, std::string& to) const {
  const DateNames& names = texts_->names;
  const auto month = static_cast<std::size_t>(time.month - 1);
  switch (token.kind) {
    case Kind::kLiteral:
      to += token.text;
      break;
    case Kind::kNumber:
      PutNumber(Part(token.part, time, rule_), token.width, to);
      break;
    case Kind::kHour12:
      PutNumber((time.hour + 11) % 12 + 1, token.width, to);
      break;
    case Kind::kShortYear:
      PutNumber(time.year % 100, 2, to);
      break;
    case Kind::kMonth:
      to += names.months[month];
      break;
    case Kind::kShortMonth:
      to += names.short_months[month];
      break;
    case Kind::kShortMonthAlone:
      to += names.short_months_alone[month];
      break;
    case Kind::kWeekday:
      to += names.days[WeekdayOf(time)];
      break;
    case Kind::kShortWeekday:
      to += names.short_days[WeekdayOf(time)];
      break;
    case Kind::kShortWeekdayAlone:
      to += names.short_days_alone[WeekdayOf(time)];
      break;
    case Kind::kDayHalf: {
      const std::size_t slash = token.text.find('/');
      to += time.hour < 12 ? token.text.substr(0, slash) : token.text.substr(slash + 1);
      break;
    }
    case Kind::kGeneral:
      texts_->PutGeneral(time, to);
      break;
    case Kind::kShortDate:
      DateTexts::Put(texts_->short_date, time, to);
      break;
    case Kind::kLongTime:
      DateTexts::Put(texts_->long_time, time, to);
      break;
  }
}

}  // namespace dralo::regional
