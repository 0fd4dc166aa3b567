#include "database/date_text.h"

#include <array>

#include "text/ascii.h"

namespace dralo::database {

namespace {

using platform::DateTime;

/// Takes exactly so many digits from the front of `rest`; -1 when they are not there.
template <std::size_t kDigits>
int TakeNumber(std::string_view& rest) {
  if (rest.size() < kDigits) return -1;
  int number = 0;
  for (std::size_t at = 0; at < kDigits; ++at) {
    if (!text::IsDigit(rest[at])) return -1;
    number = number * 10 + (rest[at] - '0');
  }
  rest.remove_prefix(kDigits);
  return number;
}

bool Take(std::string_view& rest, char expected) {
  if (rest.empty() || rest.front() != expected) return false;
  rest.remove_prefix(1);
  return true;
}

bool TakeFraction(std::string_view& rest, DateTime& time) {
  if (rest.empty() || !text::IsDigit(rest.front())) return false;
  std::uint32_t place = 100'000'000;
  for (; !rest.empty() && text::IsDigit(rest.front()); rest.remove_prefix(1), place /= 10) {
    time.nanosecond += static_cast<std::uint32_t>(rest.front() - '0') * place;
  }
  return true;
}

bool TakeTime(std::string_view& rest, DateTime& time) {
  const int hour = TakeNumber<2>(rest);
  if (hour < 0 || hour > 23 || !Take(rest, ':')) return false;
  const int minute = TakeNumber<2>(rest);
  if (minute < 0 || minute > 59) return false;
  time.hour = static_cast<std::uint8_t>(hour);
  time.minute = static_cast<std::uint8_t>(minute);
  if (!Take(rest, ':')) return true;
  const int second = TakeNumber<2>(rest);
  if (second < 0 || second > 59) return false;
  time.second = static_cast<std::uint8_t>(second);
  return !Take(rest, '.') || TakeFraction(rest, time);
}

bool TakeDate(std::string_view& rest, DateTime& time) {
  const int year = TakeNumber<4>(rest);
  if (year < 0 || !Take(rest, '-')) return false;
  const int month = TakeNumber<2>(rest);
  if (month < 0 || !Take(rest, '-')) return false;
  const int day = TakeNumber<2>(rest);
  if (day < 0) return false;
  time.year = static_cast<std::int16_t>(year);
  time.month = static_cast<std::uint8_t>(month);
  time.day = static_cast<std::uint8_t>(day);
  return time.IsValid();
}

void AppendNumber(std::string& text, std::uint32_t number, int digits) {
  std::array<char, 9> reversed{};
  for (int i = 0; i < digits; ++i, number /= 10)
    reversed[static_cast<std::size_t>(i)] = static_cast<char>('0' + number % 10);
  text.append(reversed.rend() - digits, reversed.rend());
}

}  // namespace

std::optional<DateTime> ParseIsoDateTime(std::string_view text) {
  DateTime time;
  if (!TakeDate(text, time)) return std::nullopt;
  if (text.empty()) return time;
  if (!Take(text, ' ') && !Take(text, 'T')) return std::nullopt;
  if (!TakeTime(text, time)) return std::nullopt;
  Take(text, 'Z');
  return text.empty() ? std::optional(time) : std::nullopt;
}

std::optional<DateTime> ParseTimeOfDay(std::string_view text) {
  DateTime time;
  return TakeTime(text, time) && text.empty() ? std::optional(time) : std::nullopt;
}

std::string DateText(const DateTime& time) {
  std::string text;
  AppendNumber(text, static_cast<std::uint32_t>(time.year), 4);
  text += '-';
  AppendNumber(text, time.month, 2);
  text += '-';
  AppendNumber(text, time.day, 2);
  return text;
}

std::string TimeText(const DateTime& time) {
  std::string text;
  AppendNumber(text, time.hour, 2);
  text += ':';
  AppendNumber(text, time.minute, 2);
  text += ':';
  AppendNumber(text, time.second, 2);
  if (time.nanosecond == 0) return text;
  text += '.';
  AppendNumber(text, time.nanosecond, 9);
  while (text.back() == '0') text.pop_back();
  return text;
}

std::string DateTimeText(const DateTime& time) { return DateText(time) + ' ' + TimeText(time); }

std::string PlainText(const DateTime& time) {
  if (time.HasZeroDate()) return TimeText(time);
  const bool is_date = time.IsMidnight() && time.nanosecond == 0;
  return is_date ? DateText(time) : DateTimeText(time);
}

std::string StoredText(const platform::DateTime& time, TimeParts parts) {
  switch (parts) {
    case TimeParts::kDate:
      return DateText(time);
    case TimeParts::kTime:
      return TimeText(time);
    default:
      return DateTimeText(time);
  }
}

}  // namespace dralo::database
