#pragma once

#include <chrono>
#include <compare>
#include <cstdint>

namespace dralo::platform {

/// A calendar date (proleptic Gregorian) with a time of day, without a time zone. The zero date at midnight
/// until it is set. A plain value: nothing checks it but IsValid().
struct DateTime {
  std::int16_t year = 1899;      ///< 1 to 9999
  std::uint8_t month = 12;       ///< 1 to 12
  std::uint8_t day = 30;         ///< 1 to 31
  std::uint8_t hour = 0;         ///< 0 to 23
  std::uint8_t minute = 0;       ///< 0 to 59
  std::uint8_t second = 0;       ///< 0 to 59
  std::uint32_t nanosecond = 0;  ///< 0 to 999,999,999

  /// By time, as long as both are valid.
  friend constexpr auto operator<=>(const DateTime&, const DateTime&) = default;

  /// The zero date, 30 December 1899, stands for "no date": a pure time of day.
  constexpr bool HasZeroDate() const { return year == 1899 && month == 12 && day == 30; }

  /// Midnight stands for "no time"; less than a second after midnight still does.
  constexpr bool IsMidnight() const { return hour == 0 && minute == 0 && second == 0; }

  /// Whether the parts name a day of the calendar, in the years 1 to 9999, and a time of day.
  constexpr bool IsValid() const {
    return year >= 1 && year <= 9999 && hour <= 23 && minute <= 59 && second <= 59 &&
           nanosecond < 1'000'000'000 &&
           std::chrono::year_month_day{std::chrono::year{year}, std::chrono::month{month},
                                       std::chrono::day{day}}
               .ok();
  }
};

}  // namespace dralo::platform

namespace dralo {

using platform::DateTime;

}  // namespace dralo
