#include "regional/date_time_pattern.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "regional/digits.h"

namespace dralo::regional {
namespace {

using platform::DateTime;

/// Digits of the widest number that a part can hold, a year of "-32768", whatever its width.
constexpr std::size_t kMaxNumberSize = 6;

/// The values of the parts of a date-time, indexed by DateTimePart.
using Values = std::array<int, 7>;

/// The hours of a day on a clock with twelve.
constexpr std::array<std::uint8_t, 24> kHours12 = {12, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11,
                                                   12, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};

Values ValuesOf(const DateTime& time) {
  const int hour12 = kHours12[time.hour % kHours12.size()];
  return {time.day, time.month, time.year, time.hour, hour12, time.minute, time.second};
}

char* WriteNumber(int value, int width, char* to) {
  const auto number = static_cast<unsigned>(value);
  if (number <= 99 && width <= 2) {
    if (width == 2 || number >= 10) return WritePair(number, to);
    *to = static_cast<char>('0' + number);
    return to + 1;
  }
  if (number <= 9999 && width == 4) return WritePair(number % 100, WritePair(number / 100, to));
  return std::to_chars(to, to + kMaxNumberSize, value).ptr;
}

}  // namespace

void DateTimePattern::Add(DateTimePart part, int width) {
  tokens_.push_back({Kind::kNumber, part, static_cast<std::uint8_t>(width), 0, {}});
  max_size_ += kMaxNumberSize;
}

void DateTimePattern::Add(const DateTimePattern& pattern) {
  tokens_.insert(tokens_.end(), pattern.tokens_.begin(), pattern.tokens_.end());
  max_size_ += pattern.max_size_;
}

void DateTimePattern::AddLiteral(std::string_view text) {
  max_size_ += text.size();
  if (!tokens_.empty() && tokens_.back().kind == Kind::kNumber && tokens_.back().text_size == 0) {
    const std::string_view piece = text.substr(0, kTextSize);
    std::ranges::copy(piece, tokens_.back().text.begin());
    tokens_.back().text_size = static_cast<std::uint8_t>(piece.size());
    text.remove_prefix(piece.size());
  }
  AddText(Kind::kLiteral, text);
}

void DateTimePattern::AddDayHalf(std::string_view morning, std::string_view afternoon) {
  AddText(Kind::kMorning, morning);
  AddText(Kind::kAfternoon, afternoon);
  max_size_ += std::max(morning.size(), afternoon.size());
}

void DateTimePattern::AddText(Kind kind, std::string_view text) {
  for (; !text.empty(); text.remove_prefix(std::min(kTextSize, text.size()))) {
    const std::string_view piece = text.substr(0, kTextSize);
    Token token{kind, DateTimePart::kDay, 0, static_cast<std::uint8_t>(piece.size()), {}};
    std::copy(piece.begin(), piece.end(), token.text.begin());
    tokens_.push_back(token);
  }
}

char* DateTimePattern::Write(const DateTime& time, char* to) const {
  const Values values = ValuesOf(time);
  const Kind other_half = time.hour < 12 ? Kind::kAfternoon : Kind::kMorning;
  for (const Token& token : tokens_) {
    if (token.kind == other_half) continue;
    if (token.kind == Kind::kNumber)
      to = WriteNumber(values[static_cast<std::size_t>(token.part)], token.width, to);
    std::memcpy(to, token.text.data(), kTextSize);
    to += token.text_size;
  }
  return to;
}

}  // namespace dralo::regional
