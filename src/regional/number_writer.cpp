#include "regional/number_writer.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "regional/digits.h"
#include "regional/scratch.h"
#include "text/decimal.h"

namespace dralo::regional {
namespace {

constexpr std::size_t kMaxIntegerSize = 20;
constexpr std::size_t kMaxDoubleSize = 32;
constexpr int kSignificantDigits = 15;
constexpr int kSmallestPlainExponent = -5;

std::string_view Written(const char* start, const char* end) {
  return {start, static_cast<std::size_t>(end - start)};
}

std::uint64_t Magnitude(std::int64_t number) {
  const auto bits = static_cast<std::uint64_t>(number);
  return number < 0 ? 0 - bits : bits;
}

/// `ten_thousandths` / 10000, written so that it ends before `end`.
std::string_view TenThousandths(std::int64_t ten_thousandths, char decimal_point, char* end) {
  const std::uint64_t magnitude = Magnitude(ten_thousandths);
  const std::uint64_t fraction = magnitude % 10'000;
  char* start = end;
  if (fraction != 0) {
    start = end - 4;
    WritePair(fraction % 100, WritePair(fraction / 100, start));
    while (end[-1] == '0') --end;
    *--start = decimal_point;
  }
  start = WriteBackward(magnitude / 10'000, start);
  if (ten_thousandths < 0) *--start = '-';
  return Written(start, end);
}

/// A finite number, not zero, as `digits`[0] . `digits`[1]... times ten to the power of `exponent`.
struct Scientific {
  bool is_negative = false;
  char digits[kSignificantDigits] = {};
  int count = 0;  ///< Of digits, without zeros at the end.
  int exponent = 0;
};

Scientific Split(double number) {
  char text[kMaxDoubleSize];
  const char* end = std::to_chars(text, text + sizeof text, std::abs(number), std::chars_format::scientific,
                                  kSignificantDigits - 1)
                        .ptr;
  Scientific result;
  result.is_negative = number < 0;
  result.digits[0] = text[0];
  std::memcpy(result.digits + 1, text + 2, kSignificantDigits - 1);
  result.count = kSignificantDigits;
  while (result.count > 1 && result.digits[result.count - 1] == '0') --result.count;
  const char* exponent = text + 1 + kSignificantDigits + 1;
  std::from_chars(*exponent == '+' ? exponent + 1 : exponent, end, result.exponent);
  return result;
}

char* WriteDigits(const char* digits, int count, char* to) {
  return std::copy_n(digits, std::max(count, 0), to);
}

char* WriteWithExponent(const Scientific& number, char decimal_point, char* to) {
  *to++ = number.digits[0];
  if (number.count > 1) *to++ = decimal_point;
  to = WriteDigits(number.digits + 1, number.count - 1, to);
  *to++ = 'E';
  *to++ = number.exponent < 0 ? '-' : '+';
  const int exponent = std::abs(number.exponent);
  if (exponent < 10) *to++ = '0';
  return std::to_chars(to, to + 3, exponent).ptr;
}

char* WritePlain(const Scientific& number, char decimal_point, char* to) {
  const int whole = number.exponent + 1;
  if (whole <= 0) {
    *to++ = '0';
    *to++ = decimal_point;
    return WriteDigits(number.digits, number.count, std::fill_n(to, -whole, '0'));
  }
  to = WriteDigits(number.digits, std::min(whole, number.count), to);
  if (whole >= number.count) return std::fill_n(to, whole - number.count, '0');
  *to++ = decimal_point;
  return WriteDigits(number.digits + whole, number.count - whole, to);
}

/// Whether a text begins and ends with a digit other than zero, as most decimals do: they have no needless
/// zeros and no sign, and what is no decimal stays as it is anyway.
bool HasNothingNeedless(std::string_view decimal) {
  const auto is_digit_but_zero = [](char c) { return '1' <= c && c <= '9'; };
  return !decimal.empty() && is_digit_but_zero(decimal.front()) && is_digit_but_zero(decimal.back());
}

}  // namespace

std::string_view NumberWriter::Write(std::int64_t number, std::string& scratch) const {
  char* end = Room(scratch, kMaxIntegerSize) + kMaxIntegerSize;
  char* start = WriteBackward(Magnitude(number), end);
  if (number < 0) *--start = '-';
  return Written(start, end);
}

std::string_view NumberWriter::Write(double number, std::string& scratch) const {
  char* start = Room(scratch, kMaxDoubleSize);

  // A fast way for most numbers, which have few decimals. When the division gives exactly the same number,
  // the digits are those of the integer: up to 15 of them, and two such decimals never have the same nearest
  // double.
  const double scaled = number * 1e4;
  if (std::abs(scaled) < 1e15) {
    const auto ten_thousandths = static_cast<std::int64_t>(scaled + (scaled < 0 ? -0.5 : 0.5));
    if (static_cast<double>(ten_thousandths) / 1e4 == number) {
      return TenThousandths(ten_thousandths, decimal_point_, start + kMaxDoubleSize);
    }
  }
  if (std::isnan(number)) return "NaN";
  if (std::isinf(number)) return number < 0 ? "-Infinity" : "Infinity";

  const Scientific parts = Split(number);
  char* to = start;
  if (parts.is_negative) *to++ = '-';
  const bool is_plain = parts.exponent >= kSmallestPlainExponent && parts.exponent < kSignificantDigits;
  return Written(
      start, is_plain ? WritePlain(parts, decimal_point_, to) : WriteWithExponent(parts, decimal_point_, to));
}

std::string_view NumberWriter::Write(platform::DecimalView number, std::string& scratch) const {
  if (decimal_point_ == '.' && HasNothingNeedless(number.text)) return number.text;
  const auto parts = text::SplitDecimal(number.text);
  if (!parts || parts->has_exponent) return number.text;
  const std::string_view whole =
      parts->whole.substr(std::min(parts->whole.find_first_not_of('0'), parts->whole.size()));
  const std::string_view fraction = parts->fraction.substr(0, parts->fraction.find_last_not_of('0') + 1);
  if (whole.empty() && fraction.empty()) return "0";
  if (!parts->is_negative && fraction.empty()) return whole;

  char* start = Room(scratch, whole.size() + fraction.size() + 3);
  char* to = start;
  if (parts->is_negative) *to++ = '-';
  if (whole.empty()) *to++ = '0';
  to = std::copy(whole.begin(), whole.end(), to);
  if (!fraction.empty()) *to++ = decimal_point_;
  return Written(start, std::copy(fraction.begin(), fraction.end(), to));
}

}  // namespace dralo::regional
