#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "dralo/date_time.h"

namespace dralo::regional {

/// In which order a locale writes a date in numbers.
enum class DateOrder : std::uint8_t { kMonthDayYear, kDayMonthYear, kYearMonthDay };

/// One of the three things that a date consists of: a number, or a month that was given by its name.
struct DatePart {
  int value = 0;
  int digits = 0;  ///< As typed; 0 for a month's name.
};

using DateParts = std::array<DatePart, 3>;

/// The day that three numbers mean where people write in `order`, at midnight. Days and months have one or
/// two digits, years two or four. When `order` gives no day of the calendar, the other orders are tried that
/// have the year where it must be: where the four digits are, else where `order` has it. Their day counts if
/// it is the only one.
std::optional<platform::DateTime> DayOfNumbers(const DateParts& parts, DateOrder order);

/// The day that two numbers and a month's name mean. `order` matters only when no year has four digits and
/// the name stands between the numbers.
std::optional<platform::DateTime> DayWithName(const DateParts& parts, DateOrder order);

}  // namespace dralo::regional
