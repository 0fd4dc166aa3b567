#pragma once

#include <cstdint>
#include <string_view>

#include "platform/value_formatting.h"

namespace dralo::regional {

/// The parts of a date-time that can be counted and added.
enum class Interval : std::uint8_t {
  kYear,
  kQuarter,
  kMonth,
  kDayOfYear,
  kDay,
  kWeekday,
  kWeek,
  kHour,
  kMinute,
  kSecond
};

/// The interval that the text names. Throws platform::Error when it names none.
Interval ReadInterval(std::string_view text);

/// See platform::ValueFormatting::DateAdd().
platform::DateTime Add(Interval interval, std::int64_t number, const platform::DateTime& time);

/// The part of a date-time. `rule` must not have a 0.
int Part(Interval interval, const platform::DateTime& time, platform::WeekRule rule);

}  // namespace dralo::regional
