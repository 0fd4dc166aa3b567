#include "database/decimal_text.h"

#include <array>
#include <charconv>
#include <cmath>

#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::database {

namespace {

constexpr std::size_t kMaxDigits = 400;

/// Removes the digits from the front of `rest` and returns them.
std::string_view TakeDigits(std::string_view& rest) {
  std::size_t count = 0;
  while (count < rest.size() && text::IsDigit(rest[count])) ++count;
  const auto digits = rest.substr(0, count);
  rest.remove_prefix(count);
  return digits;
}

/// Removes an exponent such as "e-3" from the front of `rest`; 0 when there is none.
/// Nothing when it is malformed or far beyond what a number can have.
std::optional<int> TakeExponent(std::string_view& rest) {
  if (rest.empty() || text::ToUpper(rest.front()) != 'E') return 0;
  rest.remove_prefix(1);
  if (rest.starts_with('+') && !rest.starts_with("+-")) rest.remove_prefix(1);
  int exponent = 0;
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), exponent);
  if (error != std::errc{} || std::abs(exponent) > static_cast<int>(kMaxDigits)) return std::nullopt;
  rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
  return exponent;
}

/// The number whose digits are `digits`, of which `whole` stand before the decimal point.
std::string Plain(bool is_negative, std::string digits, std::ptrdiff_t whole) {
  if (whole < 0) digits.insert(0, static_cast<std::size_t>(-whole), '0');
  if (whole > static_cast<std::ptrdiff_t>(digits.size())) digits.resize(static_cast<std::size_t>(whole), '0');
  const auto split = static_cast<std::size_t>(whole < 0 ? 0 : whole);
  std::string_view before = std::string_view(digits).substr(0, split);
  std::string_view after = std::string_view(digits).substr(split);
  while (!before.empty() && before.front() == '0') before.remove_prefix(1);
  while (!after.empty() && after.back() == '0') after.remove_suffix(1);
  if (before.empty() && after.empty()) return "0";
  std::string text(is_negative ? "-" : "");
  text += before.empty() ? "0" : before;
  if (!after.empty()) text.append(".").append(after);
  return text;
}

}  // namespace

bool IsPlainDecimal(std::string_view text) {
  if (!text.empty() && text.front() == '-') text.remove_prefix(1);
  if (TakeDigits(text).empty()) return false;
  if (text.empty()) return true;
  if (text.front() != '.') return false;
  text.remove_prefix(1);
  return !TakeDigits(text).empty() && text.empty();
}

std::optional<std::string> ParseDecimal(std::string_view text) {
  std::string_view rest = text::TrimAsciiSpace(text);
  const bool is_negative = !rest.empty() && rest.front() == '-';
  if (is_negative || (!rest.empty() && rest.front() == '+')) rest.remove_prefix(1);
  std::string digits(TakeDigits(rest));
  const auto whole = static_cast<std::ptrdiff_t>(digits.size());
  if (!rest.empty() && rest.front() == '.') {
    rest.remove_prefix(1);
    digits += TakeDigits(rest);
  }
  const auto exponent = TakeExponent(rest);
  if (digits.empty() || digits.size() > kMaxDigits || !exponent || !rest.empty()) return std::nullopt;
  return Plain(is_negative, std::move(digits), whole + *exponent);
}

std::optional<std::string> DecimalText(double number) {
  if (!std::isfinite(number)) return std::nullopt;
  std::array<char, 800>
      text;  // The smallest number has 343 digits after the point, the largest 309 before it.
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
  return ParseDecimal(std::string_view(text.data(), static_cast<std::size_t>(end - text.data())));
}

}  // namespace dralo::database
