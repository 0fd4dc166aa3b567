#include "regional/number_recognizer.h"

#include <algorithm>

#include "regional/digits.h"
#include "text/white_space.h"

namespace dralo::regional {
namespace {

constexpr int kMaxDigits = 1000;
constexpr std::string_view kApostrophe = "\u2019";

/// Takes the sign from `rest`: whether it is a minus.
bool TakeSign(std::string_view& rest) {
  for (const std::string_view sign : {"-", "\u2212", "+"}) {
    if (!rest.starts_with(sign)) continue;
    rest.remove_prefix(sign.size());
    return sign != "+";
  }
  return false;
}

std::size_t TakeDigits(std::string_view& rest, std::string& digits) {
  const std::size_t count = std::min(rest.find_first_not_of("0123456789"), rest.size());
  digits += rest.substr(0, count);
  rest.remove_prefix(count);
  return count;
}

/// Takes an exponent if there is one. False when it has no digits.
bool TakeExponent(std::string_view& rest, int& exponent) {
  exponent = 0;
  if (rest.empty() || (rest[0] != 'e' && rest[0] != 'E')) return true;
  rest.remove_prefix(1);
  const bool is_negative = rest.starts_with('-');
  if (is_negative || rest.starts_with('+')) rest.remove_prefix(1);
  if (!StartsWithDigit(rest)) return false;
  // Far above what the number of digits allows, and far below overflow.
  constexpr int kMaxExponent = 100'000'000;
  for (; StartsWithDigit(rest); rest.remove_prefix(1)) {
    exponent = std::min(exponent * 10 + (rest[0] - '0'), kMaxExponent);
  }
  if (is_negative) exponent = -exponent;
  return true;
}

/// The number 0.`digits` times ten to the power of `point`.
std::optional<platform::Decimal> Expand(bool is_negative, std::string_view digits, std::int64_t point) {
  const std::size_t zeros = std::min(digits.find_first_not_of('0'), digits.size());
  digits.remove_prefix(zeros);
  point -= static_cast<std::int64_t>(zeros);
  digits = digits.substr(0, digits.find_last_not_of('0') + 1);
  if (digits.empty()) return platform::Decimal{"0"};

  const auto count = static_cast<std::int64_t>(digits.size());
  const std::int64_t result_digits = std::max(count, point) + std::max<std::int64_t>(0, 1 - point);
  if (result_digits > kMaxDigits) return std::nullopt;

  platform::Decimal number;
  number.text.reserve(static_cast<std::size_t>(result_digits) + 2);
  if (is_negative) number.text += '-';
  if (point <= 0) {
    number.text.append("0.").append(static_cast<std::size_t>(-point), '0').append(digits);
  } else if (point >= count) {
    number.text.append(digits).append(static_cast<std::size_t>(point - count), '0');
  } else {
    const auto whole = static_cast<std::size_t>(point);
    number.text.append(digits.substr(0, whole)).append(1, '.').append(digits.substr(whole));
  }
  return number;
}

}  // namespace

NumberRecognizer::NumberRecognizer(const LocaleFacts& facts)
    : decimal_point_(facts.decimal_point),
      grouping_(facts.grouping),
      groups_by_blank_(text::WhiteSpaceSize(facts.grouping) != 0),
      groups_in_pairs_(facts.groups_in_pairs) {}

std::size_t NumberRecognizer::GroupingSize(std::string_view text) const {
  if (groups_by_blank_) return text::WhiteSpaceSize(text);
  if (!grouping_.empty() && text.starts_with(grouping_)) return grouping_.size();
  return grouping_ == kApostrophe && text.starts_with('\'') ? 1 : 0;
}

/// Takes the digits before the decimal point from `rest` to `digits`. False when their groups are none of the
/// locale.
bool NumberRecognizer::TakeWhole(std::string_view& rest, std::string& digits) const {
  std::size_t group = TakeDigits(rest, digits);
  bool is_first = true;
  while (const std::size_t separator = GroupingSize(rest)) {
    const bool is_complete =
        is_first ? group >= 1 && group <= 3 : group == 3 || (groups_in_pairs_ && group == 2);
    if (!is_complete) return false;
    rest.remove_prefix(separator);
    group = TakeDigits(rest, digits);
    is_first = false;
  }
  return is_first || group == 3;
}

std::optional<platform::Decimal> NumberRecognizer::Recognize(std::string_view text) const {
  std::string_view rest = text::TrimWhiteSpace(text);
  const bool is_negative = TakeSign(rest);
  std::string digits;
  if (!TakeWhole(rest, digits)) return std::nullopt;
  const auto whole = static_cast<std::int64_t>(digits.size());
  if (rest.starts_with(decimal_point_)) {
    rest.remove_prefix(1);
    TakeDigits(rest, digits);
  }
  int exponent = 0;
  if (digits.empty() || !TakeExponent(rest, exponent) || !rest.empty()) return std::nullopt;
  return Expand(is_negative, digits, whole + exponent);
}

}  // namespace dralo::regional
