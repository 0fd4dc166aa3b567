#include "database/conversion.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

#include "database/date_text.h"
#include "platform/field_kind.h"
#include "text/ascii.h"
#include "text/boolean_text.h"
#include "text/characters.h"
#include "text/decimal.h"
#include "text/iso_date.h"
#include "text/white_space.h"

namespace dralo::database {

namespace {

using platform::Bytes;
using platform::BytesView;
using platform::DateTime;
using platform::Decimal;
using platform::DecimalView;
using platform::FieldKind;
using platform::Formatting;
using platform::Null;
using platform::TypeCode;
using platform::Variant;
using platform::VariantView;

struct Range {
  std::int64_t lowest;
  std::int64_t highest;
};

template <class Integer>
constexpr Range RangeOf() {
  return {std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()};
}

Range IntegerRange(const Column& column) {
  if (column.holds_64_bits) return RangeOf<std::int64_t>();
  switch (column.type) {
    case TypeCode::kTinyInt:
      return RangeOf<std::int8_t>();
    case TypeCode::kUnsignedTinyInt:
      return RangeOf<std::uint8_t>();
    case TypeCode::kSmallInt:
      return RangeOf<std::int16_t>();
    case TypeCode::kUnsignedSmallInt:
      return RangeOf<std::uint16_t>();
    case TypeCode::kInteger:
      return RangeOf<std::int32_t>();
    case TypeCode::kUnsignedInt:
      return RangeOf<std::uint32_t>();
    default:
      return RangeOf<std::int64_t>();
  }
}

/// The plain text of the number that `value` is or spells.
struct ToDecimalText {
  std::optional<std::string> operator()(bool flag) const { return flag ? "1" : "0"; }
  std::optional<std::string> operator()(std::int64_t number) const { return std::to_string(number); }
  std::optional<std::string> operator()(double number) const { return text::DecimalText(number); }
  std::optional<std::string> operator()(DecimalView decimal) const {
    return text::ParseDecimal(decimal.text);
  }
  std::optional<std::string> operator()(std::string_view text) const { return text::ParseDecimal(text); }
  template <class Other>
  std::optional<std::string> operator()(const Other&) const {
    return std::nullopt;
  }
};

std::string ToInteger(const Column& column, const VariantView& value, Variant& converted) {
  const auto text = std::visit(ToDecimalText{}, value);
  if (!text) return "is not a number";
  if (text->find('.') != text->npos) return "is not a whole number";
  const auto number = text::ParseNumber<std::int64_t>(*text);
  const Range range = IntegerRange(column);
  if (!number || *number < range.lowest || *number > range.highest) {
    return "is not between " + std::to_string(range.lowest) + " and " + std::to_string(range.highest);
  }
  converted = *number;
  return "";
}

std::string ToDecimal(const VariantView& value, Variant& converted) {
  auto text = std::visit(ToDecimalText{}, value);
  if (!text) return "is not a number";
  converted = Decimal{*std::move(text)};
  return "";
}

std::string ToDouble(const VariantView& value, Variant& converted) {
  if (const double* same = std::get_if<double>(&value)) {
    converted = *same;
    return "";
  }
  const auto text = std::visit(ToDecimalText{}, value);
  if (!text) return "is not a number";
  const auto number = text::ParseNumber<double>(*text);
  if (!number) return "is too large";
  converted = *number;
  return "";
}

std::string ToBoolean(const VariantView& value, Variant& converted) {
  const auto* text = std::get_if<std::string_view>(&value);
  for (const bool flag : {false, true}) {
    if (!text || !text::EqualAscii(text::TrimAsciiSpace(*text), text::BooleanText(flag))) continue;
    converted = flag;
    return "";
  }
  const auto number = std::visit(ToDecimalText{}, value);
  if (number != "0" && number != "1" && number != "-1") return "is neither True nor False";
  converted = number != "0";
  return "";
}

std::optional<DateTime> RecognizeDate(std::string_view text, const Formatting* formatting) {
  text = text::TrimAsciiSpace(text);
  if (auto time = text::ParseIsoDateTime(text)) return time;
  if (auto time = text::ParseTimeOfDay(text)) return time;
  return formatting ? formatting->RecognizeDate(text) : std::nullopt;
}

std::string ToDate(const Column& column, const VariantView& value, const Formatting* formatting,
                   Variant& converted) {
  std::optional<DateTime> time;
  if (const auto* same = std::get_if<DateTime>(&value)) time = *same;
  if (const auto* text = std::get_if<std::string_view>(&value)) time = RecognizeDate(*text, formatting);
  if (!time || !time->IsValid()) return "is not a date";
  if (column.time_parts == TimeParts::kDate) time = DateTime{time->year, time->month, time->day};
  if (column.time_parts == TimeParts::kTime) {
    const DateTime zero_date;
    time->year = zero_date.year;
    time->month = zero_date.month;
    time->day = zero_date.day;
  }
  converted = *time;
  return "";
}

struct ToText {
  std::optional<std::string> operator()(std::string_view text) const { return std::string(text); }
  std::optional<std::string> operator()(bool flag) const { return std::string(text::BooleanText(flag)); }
  std::optional<std::string> operator()(const DateTime& time) const { return PlainText(time); }
  std::optional<std::string> operator()(Null) const { return std::nullopt; }
  std::optional<std::string> operator()(BytesView) const { return std::nullopt; }
  template <class Number>
  std::optional<std::string> operator()(const Number& number) const {
    return ToDecimalText{}(number);
  }
};

std::string ToSizedText(const Column& column, const VariantView& value, Variant& converted) {
  auto text = std::visit(ToText{}, value);
  if (!text) return "is not text";
  if (column.defined_size > 0 && std::cmp_greater(text::CountCharacters(*text), column.defined_size)) {
    return "is longer than " + std::to_string(column.defined_size) + " characters";
  }
  converted = *std::move(text);
  return "";
}

std::string ToBytes(const VariantView& value, Variant& converted) {
  if (const auto* bytes = std::get_if<BytesView>(&value)) {
    converted = Bytes(bytes->data, bytes->data + bytes->size);
  } else if (const auto* text = std::get_if<std::string_view>(&value)) {
    converted = Bytes(text->begin(), text->end());
  } else {
    return "is not binary";
  }
  return "";
}

}  // namespace

std::string Convert(const Column& column, const VariantView& value, const Formatting* formatting,
                    Variant& converted) {
  if (IsNull(value)) {
    converted = Null{};
    return "";
  }
  if (!column.has_declared_type) {
    converted = Own(value);
    return "";
  }
  switch (platform::KindOf(column.type)) {
    case FieldKind::kWholeNumber:
      return column.type == TypeCode::kUnsignedBigInt ? ToDecimal(value, converted)
                                                      : ToInteger(column, value, converted);
    case FieldKind::kExactNumber:
      return ToDecimal(value, converted);
    case FieldKind::kFloatingPoint:
      return ToDouble(value, converted);
    case FieldKind::kBoolean:
      return ToBoolean(value, converted);
    case FieldKind::kDate:
    case FieldKind::kTime:
      return ToDate(column, value, formatting, converted);
    case FieldKind::kBinary:
    case FieldKind::kLongBinary:
      return ToBytes(value, converted);
    case FieldKind::kText:
    case FieldKind::kMemo:
    case FieldKind::kGuid:
      break;
  }
  return ToSizedText(column, value, converted);
}

}  // namespace dralo::database
