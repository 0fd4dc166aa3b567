#include "text/decimal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::text {
namespace {

/// Takes a sign from the front of `rest` if there is one, and returns whether it is a minus.
bool TakeSign(std::string_view& rest) {
  const bool is_negative = rest.starts_with('-');
  if (is_negative || rest.starts_with('+')) rest.remove_prefix(1);
  return is_negative;
}

}  // namespace

std::string_view TakeDigits(std::string_view& rest) {
  std::size_t count = 0;
  while (count < rest.size() && IsDigit(rest[count])) ++count;
  const std::string_view digits = rest.substr(0, count);
  rest.remove_prefix(count);
  return digits;
}

std::optional<int> TakeExponent(std::string_view& rest) {
  if (!StartsWithAscii(rest, "E")) return 0;
  rest.remove_prefix(1);
  const bool is_negative = TakeSign(rest);
  const std::string_view digits = TakeDigits(rest);
  if (digits.empty()) return std::nullopt;
  constexpr int kMaxExponent = 100'000'000;
  int exponent = 0;
  for (const char digit : digits) exponent = std::min(exponent * 10 + (digit - '0'), kMaxExponent);
  return is_negative ? -exponent : exponent;
}

std::optional<DecimalParts> SplitDecimal(std::string_view text) {
  std::optional<DecimalParts> parts(std::in_place);
  parts->is_negative = TakeSign(text);
  parts->whole = TakeDigits(text);
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    parts->fraction = TakeDigits(text);
  }
  bool is_number = !parts->whole.empty() || !parts->fraction.empty();
  if (!text.empty()) {
    const auto exponent = TakeExponent(text);
    is_number = is_number && exponent && text.empty();
    parts->has_exponent = true;
    parts->exponent = exponent.value_or(0);
  }
  if (!is_number) parts.reset();
  return parts;
}

bool IsPlainDecimal(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  if (TakeDigits(text).empty()) return false;
  if (text.empty()) return true;
  if (text.front() != '.') return false;
  text.remove_prefix(1);
  return !TakeDigits(text).empty() && text.empty();
}

bool ReadShortDecimal(std::string_view text, double& number) {
  constexpr std::size_t kMostDigits = 15;
  static constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6, 1e7,
                                            1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};
  const bool is_negative = text.starts_with('-');
  if (is_negative) text.remove_prefix(1);
  if (text.empty() || text.size() > kMostDigits || text.back() == '.') return false;
  std::int64_t digits = 0;
  std::size_t decimals = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (IsDigit(text[at])) {
      digits = digits * 10 + (text[at] - '0');
    } else if (text[at] == '.' && decimals == 0 && at > 0) {
      decimals = text.size() - at - 1;
    } else {
      return false;
    }
  }
  const double magnitude = static_cast<double>(digits) / kPowersOfTen[decimals];
  number = is_negative ? -magnitude : magnitude;
  return true;
}

std::optional<std::string> ExpandDecimal(bool is_negative, std::string_view digits, std::int64_t point) {
  constexpr std::int64_t kMaxDigits = 1000;
  const std::size_t zeros = std::min(digits.find_first_not_of('0'), digits.size());
  digits.remove_prefix(zeros);
  point -= static_cast<std::int64_t>(zeros);
  digits = digits.substr(0, digits.find_last_not_of('0') + 1);
  if (digits.empty()) return "0";

  const auto count = static_cast<std::int64_t>(digits.size());
  const std::int64_t result_digits = std::max(count, point) + std::max<std::int64_t>(0, 1 - point);
  if (result_digits > kMaxDigits) return std::nullopt;

  std::string text;
  text.reserve(static_cast<std::size_t>(result_digits) + 2);
  if (is_negative) text += '-';
  if (point <= 0) {
    text.append("0.").append(static_cast<std::size_t>(-point), '0').append(digits);
  } else if (point >= count) {
    text.append(digits).append(static_cast<std::size_t>(point - count), '0');
  } else {
    const auto whole = static_cast<std::size_t>(point);
    text.append(digits.substr(0, whole)).append(1, '.').append(digits.substr(whole));
  }
  return text;
}

std::optional<std::string> ParseDecimal(std::string_view text) {
  constexpr std::size_t kMaxDigits = 400;
  const auto parts = SplitDecimal(TrimAsciiSpace(text));
  if (!parts || parts->whole.size() + parts->fraction.size() > kMaxDigits) return std::nullopt;
  if (std::abs(parts->exponent) > static_cast<int>(kMaxDigits)) return std::nullopt;
  const std::string digits = std::string(parts->whole).append(parts->fraction);
  return ExpandDecimal(parts->is_negative, digits, static_cast<int>(parts->whole.size()) + parts->exponent);
}

std::optional<std::string> DecimalText(double number) {
  if (!std::isfinite(number)) return std::nullopt;
  // The smallest number has 343 digits after the point, the largest 309 before it.
  std::array<char, 800> text;
  const char* end = std::to_chars(text.begin(), text.end(), number, std::chars_format::fixed).ptr;
  return ParseDecimal(std::string_view(text.data(), static_cast<std::size_t>(end - text.data())));
}

}  // namespace dralo::text
