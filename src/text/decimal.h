#pragma once

#include <cfloat>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>

/// Numbers with "." as the decimal point, the same under all regional settings:
///
///     number   = ["+" | "-"] (digits ["." [digits]] | "." digits) [exponent]
///     exponent = ("e" | "E") ["+" | "-"] digits
///
/// No blanks, no grouping, ASCII digits only. A plain decimal, such as a platform::Decimal, has neither "+"
/// nor an exponent, and digits on both sides of its point.
namespace dralo::text {

/// The parts of a number's text; they point into that text.
struct DecimalParts {
  bool is_negative = false;
  std::string_view whole;     ///< The digits before the decimal point.
  std::string_view fraction;  ///< Those behind it.
  bool has_exponent = false;
  int exponent = 0;  ///< At most 100,000,000 above or below 0, whatever the text says.
};

/// Nothing when `text` is no number as above.
std::optional<DecimalParts> SplitDecimal(std::string_view text);

/// Whether `text` is a plain decimal.
bool IsPlainDecimal(std::string_view text);

/// The exact number that `text` spells, in its shortest plain form. White space around it is ignored;
/// "007.50" and "75e-1" yield "7.5". Nothing when it is no number, has more than 400 digits, or has its
/// decimal point as far from its digits.
std::optional<std::string> ParseDecimal(std::string_view text);

/// The shortest plain decimal that reads back as `number`. Nothing for infinities and not-a-number.
std::optional<std::string> DecimalText(double number);

/// The number 0.`digits` times ten to the power of `point` in its shortest plain form; "0" for every zero.
/// Nothing when it would have more than 1000 digits.
std::optional<std::string> ExpandDecimal(bool is_negative, std::string_view digits, std::int64_t point);

/// Takes the digits, if there are any, from the front of `rest`.
std::string_view TakeDigits(std::string_view& rest);

/// Takes an exponent from the front of `rest`; 0 if there is none. Nothing when it has no digits.
std::optional<int> TakeExponent(std::string_view& rest);

/// Reads what std::from_chars() reads, but faster and only from a plain decimal of up to 15 characters behind
/// its sign: a double holds such an integer and such a power of ten exactly, so their quotient is the nearest
/// number. False for other texts, numbers too.
bool ReadShortDecimal(std::string_view text, double& number);

/// The number that the complete `text` spells, as std::from_chars() reads it: without "+". Nothing when it is
/// no number or does not fit.
template <class Number>
std::optional<Number> ParseNumber(std::string_view text) {
  Number number{};
  if constexpr (std::is_same_v<Number, double> && FLT_EVAL_METHOD == 0) {
    if (ReadShortDecimal(text, number)) return number;
  }
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc{} && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

}  // namespace dralo::text
