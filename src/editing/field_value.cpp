#include "editing/field_value.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "platform/type_code.h"
#include "text/blanks.h"

namespace dralo::editing {
namespace {

using platform::TypeCode;
using platform::Variant;
using Value = std::variant<Variant, Refusal>;

/// Takes digits from the front of `rest`. Returns how many.
std::size_t TakeDigits(std::string_view& rest) {
  const std::size_t count = std::min(rest.find_first_not_of("0123456789"), rest.size());
  rest.remove_prefix(count);
  return count;
}

bool IsDigit(char c) { return '0' <= c && c <= '9'; }

void TakeSign(std::string_view& rest) {
  if (rest.starts_with('-') || rest.starts_with('+')) rest.remove_prefix(1);
}

/// Whether the text is a number with "." as its decimal point, perhaps with an exponent.
bool IsPlainNumber(std::string_view text) {
  std::string_view rest = text::TrimBlanks(text);
  TakeSign(rest);
  std::size_t digits = TakeDigits(rest);
  if (rest.starts_with('.')) {
    rest.remove_prefix(1);
    digits += TakeDigits(rest);
  }
  if (digits == 0) return false;
  if (!rest.starts_with('e') && !rest.starts_with('E')) return rest.empty();
  rest.remove_prefix(1);
  TakeSign(rest);
  return TakeDigits(rest) > 0 && rest.empty();
}

Value EmptyValue(const SchemaField& field) {
  return field.is_nullable ? Value(Variant(platform::Null{})) : Value(Refusal::kRequired);
}

/// The number that the text spells in the locale's form, because the database layer, which knows no locale
/// for numbers, takes the "." of "1.000" for a decimal point.
Value WholeNumber(const platform::Formatting& regional, std::string_view posted) {
  auto number = regional.RecognizeNumber(posted);
  if (!number) return Refusal::kNoNumber;
  return Variant(*std::move(number));
}

/// The same for types whose texts are not tested here.
Value BigWholeNumber(const platform::Formatting& regional, std::string_view posted) {
  auto number = regional.RecognizeNumber(posted);
  return number ? Variant(*std::move(number)) : Variant(std::string(posted));
}

Value NumberWithFraction(std::string_view posted) {
  std::string number(posted);
  std::ranges::replace(number, ',', '.');
  if (!IsPlainNumber(number)) return Refusal::kNoNumber;
  // A column without a type would keep a text as one.
  const std::size_t first = number.starts_with('-') ? 1 : 0;
  const bool is_decimal = number.find_first_not_of(".0123456789", first) == number.npos &&
                          IsDigit(number[first]) && IsDigit(number.back());
  return is_decimal ? Variant(platform::Decimal{std::move(number)}) : Variant(std::move(number));
}

Value Date(const platform::Formatting& regional, const SchemaField& field, std::string_view posted) {
  if (posted == "0") return EmptyValue(field);
  if (!regional.RecognizeDate(posted)) return Refusal::kNoDate;
  return Variant(std::string(posted));
}

}  // namespace

Value FieldValue(const platform::Formatting& regional, const SchemaField& field, std::string_view posted) {
  if (field.type == TypeCode::kBoolean) return Variant(!posted.empty());
  if (posted.empty()) return EmptyValue(field);
  switch (field.type) {
    case TypeCode::kSmallInt:
    case TypeCode::kInteger:
    case TypeCode::kTinyInt:
    case TypeCode::kUnsignedTinyInt:
    case TypeCode::kUnsignedSmallInt:
    case TypeCode::kUnsignedInt:
      return WholeNumber(regional, posted);
    case TypeCode::kBigInt:
    case TypeCode::kUnsignedBigInt:
      return BigWholeNumber(regional, posted);
    case TypeCode::kSingle:
    case TypeCode::kDouble:
    case TypeCode::kCurrency:
    case TypeCode::kDecimal:
    case TypeCode::kNumeric:
    case TypeCode::kVarNumeric:
      return NumberWithFraction(posted);
    case TypeCode::kDate:
      return Date(regional, field, posted);
    default:
      return Variant(std::string(posted));
  }
}

}  // namespace dralo::editing
