#include "editing/field_value.h"

#include <algorithm>
#include <string>
#include <utility>

#include "dralo/type_code.h"
#include "platform/field_kind.h"
#include "text/blanks.h"
#include "text/decimal.h"

namespace dralo::editing {
namespace {

using platform::TypeCode;
using platform::Variant;
using Value = std::variant<Variant, Refusal>;

Value EmptyValue(const SchemaField& field) {
  return field.is_nullable ? Value(Variant(platform::Null{})) : Value(Refusal::kRequired);
}

/// Reads the number in the locale's form: the database layer knows no locale for numbers and would take the
/// "." of "1.000" for a decimal point.
Value WholeNumber(const platform::Formatting& regional, std::string_view posted) {
  auto number = regional.RecognizeNumber(posted);
  if (!number) return Refusal::kNoNumber;
  return Variant(*std::move(number));
}

/// The same, but a text that is no number is left to the database layer, which says why it refuses it.
Value BigWholeNumber(const platform::Formatting& regional, std::string_view posted) {
  auto number = regional.RecognizeNumber(posted);
  return number ? Variant(*std::move(number)) : Variant(std::string(posted));
}

Value NumberWithFraction(std::string_view posted) {
  std::string number(posted);
  std::ranges::replace(number, ',', '.');
  if (!text::SplitDecimal(text::TrimBlanks(number))) return Refusal::kNoNumber;
  // A column without a type would store a text as a text.
  return text::IsPlainDecimal(number) ? Variant(platform::Decimal{std::move(number)})
                                      : Variant(std::move(number));
}

Value Date(const platform::Formatting& regional, const SchemaField& field, std::string_view posted) {
  if (posted == "0") return EmptyValue(field);
  const auto date = regional.RecognizeDate(posted);
  return date ? Value(Variant(*date)) : Value(Refusal::kNoDate);
}

}  // namespace

Value FieldValue(const platform::Formatting& regional, const SchemaField& field, std::string_view posted) {
  const platform::FieldKind kind = platform::KindOf(field.type);
  if (kind == platform::FieldKind::kBoolean) return Variant(!posted.empty());
  if (posted.empty()) return EmptyValue(field);
  const bool is_big = field.type == TypeCode::kBigInt || field.type == TypeCode::kUnsignedBigInt;
  if (kind == platform::FieldKind::kWholeNumber) {
    return is_big ? BigWholeNumber(regional, posted) : WholeNumber(regional, posted);
  }
  if (platform::IsFractionalFieldType(field.type)) return NumberWithFraction(posted);
  if (field.type == TypeCode::kDate) return Date(regional, field, posted);
  return Variant(std::string(posted));
}

}  // namespace dralo::editing
