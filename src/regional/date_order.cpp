#include "regional/date_order.h"

namespace dralo::regional {
namespace {

using platform::DateTime;

/// Two digits mean the hundred years from 1930 to 2029.
int FullYear(const DatePart& year) {
  if (year.digits != 2) return year.value;
  return year.value < 30 ? 2000 + year.value : 1900 + year.value;
}

std::optional<DateTime> Day(const DatePart& year, const DatePart& month, const DatePart& day) {
  const bool has_right_digits =
      (year.digits == 2 || year.digits == 4) && month.digits <= 2 && day.digits >= 1 && day.digits <= 2;
  if (!has_right_digits) return std::nullopt;
  DateTime time;
  time.year = static_cast<std::int16_t>(FullYear(year));
  time.month = static_cast<std::uint8_t>(month.value);
  time.day = static_cast<std::uint8_t>(day.value);
  return time.IsValid() ? std::optional(time) : std::nullopt;
}

std::optional<DateTime> DayInOrder(const DateParts& parts, DateOrder order) {
  switch (order) {
    case DateOrder::kMonthDayYear:
      return Day(parts[2], parts[0], parts[1]);
    case DateOrder::kDayMonthYear:
      return Day(parts[2], parts[1], parts[0]);
    case DateOrder::kYearMonthDay:
      return Day(parts[0], parts[1], parts[2]);
  }
  return std::nullopt;
}

std::size_t YearPlace(DateOrder order) { return order == DateOrder::kYearMonthDay ? 0 : 2; }

}  // namespace

std::optional<DateTime> DayOfNumbers(const DateParts& parts, DateOrder order) {
  if (const auto day = DayInOrder(parts, order)) return day;
  std::optional<DateTime> only;
  for (const DateOrder other :
       {DateOrder::kMonthDayYear, DateOrder::kDayMonthYear, DateOrder::kYearMonthDay}) {
    const std::size_t year = YearPlace(other);
    if (parts[year].digits != 4 && year != YearPlace(order)) continue;
    const auto day = DayInOrder(parts, other);
    if (day && only && *day != *only) return std::nullopt;
    if (day) only = day;
  }
  return only;
}

std::optional<DateTime> DayWithName(const DateParts& parts, DateOrder order) {
  const std::size_t name = parts[0].digits == 0 ? 0 : parts[1].digits == 0 ? 1 : 2;
  const DatePart& first = parts[name == 0 ? 1 : 0];
  const DatePart& second = parts[name == 2 ? 1 : 2];
  if (first.digits == 4) return Day(first, parts[name], second);
  if (second.digits == 4) return Day(second, parts[name], first);
  if (name == 2) return std::nullopt;
  const bool year_is_first = name == 1 && order == DateOrder::kYearMonthDay;
  return year_is_first ? Day(first, parts[name], second) : Day(second, parts[name], first);
}

}  // namespace dralo::regional
