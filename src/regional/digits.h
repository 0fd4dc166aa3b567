#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "text/ascii.h"

namespace dralo::regional {

inline bool StartsWithDigit(std::string_view text) { return !text.empty() && text::IsDigit(text[0]); }

/// "00", "01" to "99".
inline constexpr std::array<char, 200> kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

/// Writes the two digits of `value`, which is below 100, and returns their end.
inline char* WritePair(std::uint64_t value, char* to) {
  std::memcpy(to, &kDigitPairs[2 * value], 2);
  return to + 2;
}

/// Writes `value` so that it ends at `end`, and returns its start, at most twenty bytes before. Written
/// backwards, the number of digits need not be known.
inline char* WriteBackward(std::uint64_t value, char* end) {
  for (; value >= 100; value /= 100) WritePair(value % 100, end -= 2);
  if (value >= 10) {
    WritePair(value, end -= 2);
  } else {
    *--end = static_cast<char>('0' + value);
  }
  return end;
}

/// Takes the number that `rest` starts with. False when there is none, or when it has more than `max_digits`
/// digits (at most 9).
inline bool TakeNumber(std::string_view& rest, int max_digits, int& value, int& digits) {
  value = 0;
  for (digits = 0; StartsWithDigit(rest); ++digits) {
    if (digits == max_digits) return false;
    value = value * 10 + (rest[0] - '0');
    rest.remove_prefix(1);
  }
  return digits > 0;
}

}  // namespace dralo::regional
