#include "regional/calendar.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::regional {
namespace {

using platform::DateTime;
using platform::WeekRule;
namespace chrono = std::chrono;

/// A greater number of any interval leads out of the years 1 to 9999; up to it nothing overflows.
constexpr std::int64_t kMaxNumber = 400'000'000'000;

constexpr std::int64_t kSecondsOfDay = 86'400;

constexpr auto kIntervals = std::to_array<std::pair<std::string_view, Interval>>({
    {"yyyy", Interval::kYear},
    {"q", Interval::kQuarter},
    {"m", Interval::kMonth},
    {"y", Interval::kDayOfYear},
    {"d", Interval::kDay},
    {"w", Interval::kWeekday},
    {"ww", Interval::kWeek},
    {"h", Interval::kHour},
    {"n", Interval::kMinute},
    {"s", Interval::kSecond},
});

[[noreturn]] void ThrowOutside() { throw platform::Error("The date is outside the years 1 to 9999"); }

chrono::sys_days Days(const DateTime& time) {
  return chrono::year_month_day{chrono::year{time.year}, chrono::month{time.month}, chrono::day{time.day}};
}

chrono::sys_days FirstOfYear(int year) {
  return chrono::year_month_day{chrono::year{year}, chrono::January, chrono::day{1}};
}

std::int64_t SecondsOf(const DateTime& time) {
  const int of_day = (time.hour * 60 + time.minute) * 60 + time.second;
  return std::int64_t{Days(time).time_since_epoch().count()} * kSecondsOfDay + of_day;
}

DateTime AddSeconds(std::int64_t seconds, const DateTime& time) {
  static const std::int64_t first = SecondsOf(DateTime{1, 1, 1});
  static const std::int64_t last = SecondsOf(DateTime{9999, 12, 31, 23, 59, 59, 0});
  const std::int64_t sum = SecondsOf(time) + seconds;
  if (sum < first || sum > last) ThrowOutside();
  const auto days = chrono::floor<chrono::days>(chrono::sys_seconds{chrono::seconds{sum}});
  const auto rest = static_cast<int>(sum - std::int64_t{days.time_since_epoch().count()} * kSecondsOfDay);
  const chrono::year_month_day day{days};
  return {static_cast<std::int16_t>(static_cast<int>(day.year())),
          static_cast<std::uint8_t>(static_cast<unsigned>(day.month())),
          static_cast<std::uint8_t>(static_cast<unsigned>(day.day())),
          static_cast<std::uint8_t>(rest / 3600),
          static_cast<std::uint8_t>(rest / 60 % 60),
          static_cast<std::uint8_t>(rest % 60),
          time.nanosecond};
}

DateTime AddMonths(std::int64_t months, const DateTime& time) {
  const std::int64_t sum = std::int64_t{time.year} * 12 + (time.month - 1) + months;
  if (sum < 12 || sum >= 120'000) ThrowOutside();  // The years 1 to 9999.
  DateTime result = time;
  result.year = static_cast<std::int16_t>(sum / 12);
  result.month = static_cast<std::uint8_t>(sum % 12 + 1);
  const chrono::year_month_day_last last{chrono::year{result.year},
                                         chrono::month_day_last{chrono::month{result.month}}};
  result.day = std::min(result.day, static_cast<std::uint8_t>(static_cast<unsigned>(last.day())));
  return result;
}

/// The place of the day in a week that begins with `first_day`: 0 to 6.
int PlaceInWeek(chrono::sys_days day, int first_day) {
  const int weekday = static_cast<int>(chrono::weekday{day}.c_encoding());
  return (weekday - (first_day - 1) + 7) % 7;
}

/// The day that the first week of the year begins with; it may lie in the year before.
chrono::sys_days FirstWeek(int year, WeekRule rule) {
  const chrono::sys_days first = FirstOfYear(year);
  const int place = PlaceInWeek(first, rule.first_day);
  const int most_outside = rule.first_week == 1 ? 6 : rule.first_week == 2 ? 3 : 0;
  return first + chrono::days{place <= most_outside ? -place : 7 - place};
}

int Week(const DateTime& time, WeekRule rule) {
  const chrono::sys_days day = Days(time);
  int year = time.year;
  if (day < FirstWeek(year, rule)) {
    --year;
  } else if (rule.first_week != 1 && day >= FirstWeek(year + 1, rule)) {
    ++year;
  }
  return static_cast<int>((day - FirstWeek(year, rule)).count() / 7) + 1;
}

}  // namespace

Interval ReadInterval(std::string_view text) {
  for (const auto& [name, interval] : kIntervals) {
    if (text::EqualAscii(text, name)) return interval;
  }
  throw platform::Error("The interval is none of yyyy, q, m, y, d, w, ww, h, n and s");
}

DateTime Add(Interval interval, std::int64_t number, const DateTime& time) {
  if (number > kMaxNumber || number < -kMaxNumber) ThrowOutside();
  switch (interval) {
    case Interval::kYear:
      return AddMonths(12 * number, time);
    case Interval::kQuarter:
      return AddMonths(3 * number, time);
    case Interval::kMonth:
      return AddMonths(number, time);
    case Interval::kDayOfYear:
    case Interval::kDay:
    case Interval::kWeekday:
      return AddSeconds(number * kSecondsOfDay, time);
    case Interval::kWeek:
      return AddSeconds(number * 7 * kSecondsOfDay, time);
    case Interval::kHour:
      return AddSeconds(number * 3600, time);
    case Interval::kMinute:
      return AddSeconds(number * 60, time);
    case Interval::kSecond:
      break;
  }
  return AddSeconds(number, time);
}

int Part(Interval interval, const DateTime& time, WeekRule rule) {
  switch (interval) {
    case Interval::kYear:
      return time.year;
    case Interval::kQuarter:
      return (time.month - 1) / 3 + 1;
    case Interval::kMonth:
      return time.month;
    case Interval::kDayOfYear:
      return static_cast<int>((Days(time) - FirstOfYear(time.year)).count()) + 1;
    case Interval::kDay:
      return time.day;
    case Interval::kWeekday:
      return PlaceInWeek(Days(time), rule.first_day) + 1;
    case Interval::kWeek:
      return Week(time, rule);
    case Interval::kHour:
      return time.hour;
    case Interval::kMinute:
      return time.minute;
    case Interval::kSecond:
      break;
  }
  return time.second;
}

}  // namespace dralo::regional
