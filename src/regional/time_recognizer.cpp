#include "regional/time_recognizer.h"

#include "regional/digits.h"
#include "regional/spellings.h"
#include "text/ascii.h"

namespace dralo::regional {
namespace {

/// A time of day as it was typed.
struct Clock {
  int hour = 0;
  int minute = 0;
  int second = 0;
  int nanosecond = 0;
  bool has_minute = false;
};

void SkipBlanks(std::string_view& rest) {
  while (rest.starts_with(' ')) rest.remove_prefix(1);
}

bool TakeHour(std::string_view& rest, int& hour) {
  int digits = 0;
  return TakeNumber(rest, 2, hour, digits);
}

/// Takes the separator that `rest` starts with and the two digits that must follow it.
bool TakeSixtieth(std::string_view& rest, int& value) {
  int digits = 0;
  rest.remove_prefix(1);
  return TakeNumber(rest, 2, value, digits) && digits == 2;
}

void TakeFraction(std::string_view& rest, int& nanosecond) {
  if (rest.size() < 2 || (rest[0] != '.' && rest[0] != ',') || !text::IsDigit(rest[1])) return;
  rest.remove_prefix(1);
  for (int unit = 100'000'000; StartsWithDigit(rest); rest.remove_prefix(1), unit /= 10) {
    nanosecond += (rest[0] - '0') * unit;
  }
}

bool TakeClock(std::string_view& rest, bool dots_separate, Clock& clock) {
  if (!TakeHour(rest, clock.hour)) return false;
  if (rest.empty() || !(rest[0] == ':' || (rest[0] == '.' && dots_separate))) return true;
  const char separator = rest[0];
  clock.has_minute = true;
  if (!TakeSixtieth(rest, clock.minute)) return false;
  if (!rest.starts_with(separator)) return true;
  if (!TakeSixtieth(rest, clock.second)) return false;
  TakeFraction(rest, clock.nanosecond);
  return true;
}

}  // namespace

TimeRecognizer::TimeRecognizer(const LocaleFacts& facts)
    : day_halves_(facts.day_halves), dots_separate_(facts.time_separator == '.') {}

bool TimeRecognizer::Take(std::string_view& rest, bool dots_separate, platform::DateTime& time) const {
  int half = TakeDayHalf(rest);
  SkipBlanks(rest);
  Clock clock;
  if (!TakeClock(rest, dots_separate, clock)) return false;
  if (half < 0) {
    SkipBlanks(rest);
    half = TakeDayHalf(rest);
  }
  if (half < 0 && !clock.has_minute) return false;
  if (half >= 0) {
    if (clock.hour > 12) return false;
    clock.hour = clock.hour % 12 + 12 * half;
  }
  time.hour = static_cast<std::uint8_t>(clock.hour);
  time.minute = static_cast<std::uint8_t>(clock.minute);
  time.second = static_cast<std::uint8_t>(clock.second);
  time.nanosecond = static_cast<std::uint32_t>(clock.nanosecond);
  return time.IsValid();
}

int TimeRecognizer::TakeDayHalf(std::string_view& rest) const {
  const Spelling* half = FindSpelling(day_halves_, rest);
  if (half == nullptr) return -1;
  rest.remove_prefix(half->text.size());
  if (rest.starts_with('.')) rest.remove_prefix(1);
  return half->number;
}

}  // namespace dralo::regional
