#include "regional/number_recognizer.h"

#include <utility>

#include "text/decimal.h"
#include "text/white_space.h"

namespace dralo::regional {
namespace {

constexpr std::string_view kApostrophe = "\u2019";

/// Takes a sign from `rest` and returns whether it is a minus.
bool TakeSign(std::string_view& rest) {
  for (const std::string_view sign : {"-", "\u2212", "+"}) {
    if (!rest.starts_with(sign)) continue;
    rest.remove_prefix(sign.size());
    return sign != "+";
  }
  return false;
}

std::size_t TakeDigits(std::string_view& rest, std::string& digits) {
  const std::string_view taken = text::TakeDigits(rest);
  digits += taken;
  return taken.size();
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

/// Takes the digits before the decimal point from `rest` to `digits`. False when they are not grouped as in
/// the locale.
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
  const auto exponent = text::TakeExponent(rest);
  if (digits.empty() || !exponent || !rest.empty()) return std::nullopt;
  auto decimal = text::ExpandDecimal(is_negative, digits, whole + *exponent);
  return decimal ? std::optional(platform::Decimal{*std::move(decimal)}) : std::nullopt;
}

}  // namespace dralo::regional
