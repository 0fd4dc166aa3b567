#include "cells/format_input.h"

#include <charconv>
#include <exception>

#include "cells/standard_text.h"
#include "dralo/error.h"
#include "platform/field_kind.h"
#include "text/blanks.h"

namespace dralo::cells {

FormatInput::FormatInput(state::Render& render, platform::Field& field) : render_(render), field_(field) {
  if (!TakeDirectly()) value_ = GetStdDbFieldStringRaw(render, field);
}

/// Takes a value directly when its text would spell the same value: a date, a whole number or a boolean. A
/// failure is left to GetStdDbFieldStringRaw(), which reports it.
bool FormatInput::TakeDirectly() {
  const platform::TypeCode type = field_.Type();
  const bool is_date = platform::IsDateFieldType(type);
  if (!is_date && !platform::IsNumericFieldType(type)) return false;
  try {
    value_ = field_.Value();
    if (!is_date) {
      const bool is_kept =
          std::holds_alternative<std::int64_t>(value_) || std::holds_alternative<bool>(value_);
      if (!is_kept) value_ = Regional().Text(value_, render_.scratch);
      return true;
    }
    auto* date = std::get_if<platform::DateTime>(&value_);
    if (date == nullptr || !date->IsValid()) return false;
    date->nanosecond = 0;  // Texts of dates have no fractions of a second.
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

bool FormatInput::IsBlank() const {
  const auto* text = std::get_if<std::string_view>(&value_);
  return text != nullptr && text::IsBlank(*text);
}

std::string_view FormatInput::Text() {
  if (const auto* text = std::get_if<std::string_view>(&value_)) return *text;
  return Regional().Text(value_, render_.scratch);
}

platform::DecimalView FormatInput::Number() {
  if (const auto* number = std::get_if<std::int64_t>(&value_)) {
    const char* end = std::to_chars(digits_.data(), digits_.data() + digits_.size(), *number).ptr;
    return {{digits_.data(), static_cast<std::size_t>(end - digits_.data())}};
  }
  if (const auto* flag = std::get_if<bool>(&value_)) return {*flag ? "-1" : "0"};
  const auto* text = std::get_if<std::string_view>(&value_);
  auto number = text == nullptr ? std::nullopt : Regional().RecognizeNumber(*text);
  if (!number) throw platform::Error("The value is no number");
  number_ = std::move(number->text);
  return {number_};
}

platform::DateTime FormatInput::Date() {
  if (const auto* date = std::get_if<platform::DateTime>(&value_)) return *date;
  const auto* text = std::get_if<std::string_view>(&value_);
  const auto date = text == nullptr ? std::nullopt : Regional().RecognizeDate(*text);
  if (!date) throw platform::Error("The value is no date");
  return *date;
}

}  // namespace dralo::cells
