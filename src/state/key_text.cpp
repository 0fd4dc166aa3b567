#include "state/key_text.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <variant>

#include "dralo/type_code.h"
#include "platform/field_kind.h"
#include "text/decimal.h"
#include "text/iso_date.h"

namespace dralo::state {
namespace {

using platform::DateTime;

struct KeyTextWriter {
  platform::TypeCode type;
  std::string& scratch;

  std::string_view operator()(platform::Null /*value*/) const { return {}; }
  std::string_view operator()(platform::BytesView /*value*/) const { return {}; }
  std::string_view operator()(std::string_view text) const { return text; }
  std::string_view operator()(platform::DecimalView decimal) const { return decimal.text; }
  std::string_view operator()(bool flag) const { return flag ? "1" : "0"; }
  std::string_view operator()(std::int64_t number) const { return Digits(number); }
  std::string_view operator()(double number) const { return Digits(number); }

  std::string_view operator()(const DateTime& time) const {
    scratch.clear();
    const bool is_time_of_day = type == platform::TypeCode::kDbTime;
    is_time_of_day ? text::PutTimeOfDay(time, scratch) : text::PutDateTime(time, scratch);
    return scratch;
  }

  std::string_view Digits(auto number) const {
    std::array<char, 32> written{};
    const char* end = std::to_chars(written.begin(), written.end(), number).ptr;
    return scratch.assign(written.data(), static_cast<std::size_t>(end - written.data()));
  }
};

/// A value that `text` may be the key text of; Null when the type has none.
platform::Variant Candidate(const platform::Formatting& formatting, platform::TypeCode type,
                            std::string_view text) {
  using platform::Variant;
  const platform::FieldKind kind = platform::KindOf(type);
  const bool is_double = kind == platform::FieldKind::kFloatingPoint;
  if (kind == platform::FieldKind::kBoolean) return Variant(text == "1");
  if (kind == platform::FieldKind::kTime || kind == platform::FieldKind::kDate) {
    const auto time = formatting.RecognizeDate(text);
    return time ? Variant(*time) : Variant();
  }
  if (!platform::IsNumericFieldType(type)) return Variant(std::string(text));
  if (text.find_first_not_of("+-.0123456789e") != text.npos) return {};  // Such as "nan".
  if (const auto integer = text::ParseNumber<std::int64_t>(text); integer && !is_double)
    return Variant(*integer);
  const auto number = text::ParseNumber<double>(text);
  const bool is_decimal = number && !is_double && text.find('e') == text.npos;
  if (is_decimal) return Variant(platform::Decimal{std::string(text)});
  return number ? Variant(*number) : Variant();
}

}  // namespace

platform::Variant KeyValue(const platform::Formatting& formatting, platform::TypeCode type,
                           std::string_view text) {
  platform::Variant value = Candidate(formatting, type, text);
  std::string scratch;
  const bool is_exact = std::visit(KeyTextWriter{type, scratch}, platform::View(value)) == text;
  return is_exact ? value : platform::Variant(std::string(text));
}

std::string_view KeyText(platform::Field& field, std::string& scratch) {
  return KeyText(field.Value(), field.Type(), scratch);
}

std::string_view KeyText(const platform::VariantView& value, platform::TypeCode type, std::string& scratch) {
  return std::visit(KeyTextWriter{type, scratch}, value);
}

}  // namespace dralo::state
