#include "editing/strict_key.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/field_kind.h"
#include "state/key_text.h"
#include "text/ascii.h"
#include "text/decimal.h"

namespace dralo::editing {
namespace {

using platform::FieldKind;
using platform::Variant;

/// Only unsigned numbers may exceed 64 bits with a sign.
std::optional<Variant> WholeNumber(std::string_view text, bool is_unsigned) {
  const std::size_t most_digits = is_unsigned ? 20 : 19;
  const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
  if (digits.empty() || digits.size() > most_digits || !std::ranges::all_of(digits, text::IsDigit)) return {};
  const auto number = text::ParseNumber<std::int64_t>(text);
  if (number) return Variant(*number);
  return is_unsigned ? std::optional<Variant>(platform::Decimal{std::string(text)}) : std::nullopt;
}

/// The value whose key text is exactly `text`.
std::optional<Variant> StrictValue(const platform::Formatting& formatting, platform::TypeCode type,
                                   std::string_view text) {
  switch (platform::KindOf(type)) {
    case FieldKind::kWholeNumber:
      return WholeNumber(text, type == platform::TypeCode::kUnsignedBigInt);
    case FieldKind::kBoolean:
      return text == "0" || text == "1" ? std::optional<Variant>(text == "1") : std::nullopt;
    case FieldKind::kExactNumber:
    case FieldKind::kFloatingPoint:
    case FieldKind::kDate:
    case FieldKind::kTime: {
      Variant value = state::KeyValue(formatting, type, text);
      const bool is_none = IsNull(platform::View(value)) || std::holds_alternative<std::string>(value);
      return is_none ? std::nullopt : std::optional(std::move(value));
    }
    case FieldKind::kBinary:
    case FieldKind::kLongBinary:
      return std::nullopt;
    default:
      // Most databases keep no zero bytes in texts, and answer them with an error.
      if (text.find('\0') != text.npos) return std::nullopt;
      return Variant(std::string(text));
  }
}

}  // namespace

std::optional<KeyTerm> StrictKeyTerm(const platform::Formatting& formatting, const platform::Field& field,
                                     std::string_view name, std::string_view text) {
  if (!field.HasDeclaredType()) return KeyTerm{field.BoundComparison(name), std::string(text)};
  const auto value = StrictValue(formatting, field.Type(), text);
  const platform::KeyComparison comparison = field.Comparison();
  // Only these types have key texts that are no numbers: NaN and the infinities.
  const bool may_be_unlimited = platform::IsFractionalFieldType(field.Type());
  if (comparison != nullptr && (value || may_be_unlimited)) {
    if (std::string condition = comparison(name, text); !condition.empty()) return KeyTerm{condition, {}};
  }
  if (!value) return std::nullopt;
  return KeyTerm{field.BoundComparison(name), value};
}

}  // namespace dralo::editing
