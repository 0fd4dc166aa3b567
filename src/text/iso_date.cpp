#include "text/iso_date.h"

#include <array>
#include <charconv>

#include "text/ascii.h"
#include "text/word.h"

namespace dralo::text {
namespace {

using platform::DateTime;

/// Takes exactly kDigits digits from the front of `rest`; -1 when they are not there.
template <std::size_t kDigits>
int TakeNumber(std::string_view& rest) {
  if (rest.size() < kDigits) return -1;
  int number = 0;
  for (std::size_t at = 0; at < kDigits; ++at) {
    if (!IsDigit(rest[at])) return -1;
    number = number * 10 + (rest[at] - '0');
  }
  rest.remove_prefix(kDigits);
  return number;
}

/// Eight bytes with digits where `form` has zeros and its other bytes elsewhere, taken from the front of
/// `rest` all at once.
struct TwoDigitNumbers {
  explicit constexpr TwoDigitNumbers(std::string_view form) {
    for (std::size_t at = kWordBytes; at-- > 0;) {
      const bool is_digit = form[at] == '0';
      form_ = form_ << 8 | static_cast<unsigned char>(form[at]);
      // Digits have no bits here, also not when six is added to them.
      wrong_ = wrong_ << 8 | (is_digit ? 0xF0 : 0xFF);
      six_ = six_ << 8 | (is_digit ? 6 : 0);
    }
  }

  /// False when other bytes are there. In `numbers` the byte of a first digit becomes the number of both.
  bool Take(std::string_view& rest, Word& numbers) const {
    if (rest.size() < kWordBytes) return false;
    const Word digits = WordAt(rest.data()) ^ form_;
    if (((digits | (digits + six_)) & wrong_) != 0) return false;
    numbers = digits * 10 + (digits >> 8);
    rest.remove_prefix(kWordBytes);
    return true;
  }

 private:
  Word form_ = 0;
  Word wrong_ = 0;
  Word six_ = 0;
};

constexpr int NumberAt(Word numbers, unsigned first_digit) {
  return static_cast<int>(numbers >> (8 * first_digit) & 0xFF);
}

bool Take(std::string_view& rest, char expected) {
  if (rest.empty() || rest.front() != expected) return false;
  rest.remove_prefix(1);
  return true;
}

bool TakeFraction(std::string_view& rest, DateTime& time) {
  if (rest.empty() || !IsDigit(rest.front())) return false;
  std::uint32_t place = 100'000'000;
  for (; !rest.empty() && IsDigit(rest.front()); rest.remove_prefix(1), place /= 10) {
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
  static constexpr TwoDigitNumbers kYearAndMonth("0000-00-");
  Word numbers = 0;
  if (!kYearAndMonth.Take(rest, numbers)) return false;
  const int day = TakeNumber<2>(rest);
  if (day < 0) return false;
  time.year = static_cast<std::int16_t>(NumberAt(numbers, 0) * 100 + NumberAt(numbers, 2));
  time.month = static_cast<std::uint8_t>(NumberAt(numbers, 5));
  time.day = static_cast<std::uint8_t>(day);
  return time.IsValid();
}

/// Appends `number`, filled up with leading zeros to `digits` digits.
void PutPadded(unsigned number, std::size_t digits, std::string& to) {
  std::array<char, 10> written{};
  const char* end = std::to_chars(written.begin(), written.end(), number).ptr;
  const auto size = static_cast<std::size_t>(end - written.data());
  if (size < digits) to.append(digits - size, '0');
  to.append(written.data(), size);
}

}  // namespace

bool ParseIsoDateTime(std::string_view text, DateTime& time) {
  if (!TakeDate(text, time)) return false;
  if (text.empty()) return true;
  if (!Take(text, ' ') && !Take(text, 'T')) return false;
  if (!TakeTime(text, time)) return false;
  Take(text, 'Z');
  return text.empty();
}

std::optional<DateTime> ParseIsoDateTime(std::string_view text) {
  DateTime time;
  return ParseIsoDateTime(text, time) ? std::optional(time) : std::nullopt;
}

std::optional<DateTime> ParseTimeOfDay(std::string_view text) {
  DateTime time;
  return TakeTime(text, time) && text.empty() ? std::optional(time) : std::nullopt;
}

void PutDate(const DateTime& time, std::string& to) {
  PutPadded(static_cast<unsigned>(time.year), 4, to);
  to += '-';
  PutPadded(time.month, 2, to);
  to += '-';
  PutPadded(time.day, 2, to);
}

void PutTimeOfDay(const DateTime& time, std::string& to) {
  PutPadded(time.hour, 2, to);
  to += ':';
  PutPadded(time.minute, 2, to);
  to += ':';
  PutPadded(time.second, 2, to);
  if (time.nanosecond == 0) return;
  to += '.';
  PutPadded(time.nanosecond, 9, to);
  to.erase(to.find_last_not_of('0') + 1);
}

void PutDateTime(const DateTime& time, std::string& to) {
  PutDate(time, to);
  if (time.IsMidnight() && time.nanosecond == 0) return;
  to += ' ';
  PutTimeOfDay(time, to);
}

}  // namespace dralo::text
