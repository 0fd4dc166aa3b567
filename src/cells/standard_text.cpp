#include "cells/standard_text.h"

#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <variant>

#include "settings/error_report.h"
#include "text/blanks.h"
#include "text/characters.h"

namespace dralo::cells {
namespace {

/// The text of a value as a date. One that the database layer could not read as a date may still spell one in
/// the locale's form.
std::string_view DateText(const platform::Formatting& formatting, const platform::VariantView& value,
                          std::string& scratch) {
  if (const auto* date = std::get_if<platform::DateTime>(&value))
    return date->IsValid() ? formatting.Text(value, scratch) : std::string_view();
  const auto* text = std::get_if<std::string_view>(&value);
  const auto date = text == nullptr ? std::nullopt : formatting.RecognizeDate(*text);
  return date ? formatting.Text(*date, scratch) : std::string_view();
}

/// The text of a long field; empty when it cannot be read.
std::string_view GetMemoFieldText(const platform::Formatting& formatting, platform::Field& field,
                                  std::string& scratch) {
  try {
    return formatting.Text(field.Value(), scratch);
  } catch (const std::exception&) {
    // With some drivers a second read succeeds.
  }
  try {
    return text::TrimBlanks(formatting.Text(field.Value(), scratch));
  } catch (const std::exception&) {
    return {};
  }
}

/// The complete text of the value without anything added for HTML; empty for what cannot be shown. Each
/// cell is worth a copy of this function.
[[gnu::always_inline]] inline std::string_view WholeText(const platform::Formatting& formatting,
                                                         platform::Field& field, platform::FieldKind kind,
                                                         std::string& scratch) {
  switch (kind) {
    case platform::FieldKind::kMemo:
      return GetMemoFieldText(formatting, field, scratch);
    case platform::FieldKind::kDate:
      return DateText(formatting, field.Value(), scratch);
    case platform::FieldKind::kLongBinary:
      return {};
    default:
      return formatting.Text(field.Value(), scratch);
  }
}

bool KeepsBlanks(platform::TypeCode type) {
  return platform::IsMemoFieldType(type) || platform::IsDateFieldType(type);
}

/// `text`, which may be in the scratch itself, followed by `ending`.
std::string_view WithEnding(state::Render& render, std::string_view text, std::string_view ending) {
  render.scratch.assign(text);
  return render.scratch.append(ending);
}

/// The memo as cells show it under a MemoFieldLimit of 0 or more.
std::string_view LimitedMemo(state::Render& render, std::string_view memo, ValueForm form) {
  if (memo.empty() || render.settings.MemoFieldLimit == 0) return {};
  if (state::IsForm(render.view.mode)) return WithEnding(render, InForm(render, memo, form), kBlankCell);
  const auto limit = static_cast<std::size_t>(render.settings.MemoFieldLimit);
  const std::size_t bytes = text::BytesOfCharacters(memo, limit);
  if (bytes == memo.size()) return WithEnding(render, InForm(render, memo, form), kBlankCell);
  return WithEnding(render, InForm(render, memo.substr(0, bytes), form), "...");
}

constexpr bool IsNumeric(platform::FieldKind kind) {
  using platform::FieldKind;
  return kind == FieldKind::kWholeNumber || kind == FieldKind::kExactNumber ||
         kind == FieldKind::kFloatingPoint || kind == FieldKind::kBoolean;
}

/// The cell text of a field for numbers. What was made of a number or of a truth value has no markup; but
/// some databases also keep texts in such fields.
[[gnu::always_inline]] inline std::string_view NumericText(state::Render& render, platform::Field& field,
                                                           ValueForm form) {
  const platform::VariantView value = field.Value();
  const std::string_view text = render.Regional().Text(value, render.scratch);
  const bool has_no_markup = std::holds_alternative<std::int64_t>(value) ||
                             std::holds_alternative<double>(value) || std::holds_alternative<bool>(value) ||
                             std::holds_alternative<platform::Null>(value);
  return has_no_markup ? text : InForm(render, text, form);
}

/// Apart, so that the texts that do not fail keep no name in memory.
[[gnu::noinline]] void ReportFailure(state::Render& render, const platform::Field& field,
                                     std::string_view function, const char* what) {
  std::string name(function);
  name.append(". oField.Name=").append(field.Name());
  render.Errors().Add(what, name);
}

/// body(), with failures reported as those of `function` on the field; empty when it fails. Each cell is
/// worth a copy of this function too.
template <class Body>
[[gnu::always_inline]] inline std::string_view GuardedText(state::Render& render, platform::Field& field,
                                                           std::string_view function, Body&& body) {
  // Not Guarded(): here the name is put together only for a failure.
  try {
    return body();
  } catch (const std::exception& error) {
    ReportFailure(render, field, function, error.what());
  }
  return {};
}

}  // namespace

std::string_view GetStdDbFieldString(state::Render& render, platform::Field& field, ValueForm form) {
  const std::string_view text = GuardedText(render, field, "GetStdDbFieldString", [&] {
    return GetStdDbFieldString(render, field, platform::KindOf(field.Type()), form);
  });
  return text.empty() ? kBlankCell : text;
}

std::string_view GetStdDbFieldString(state::Render& render, platform::Field& field, platform::FieldKind kind,
                                     ValueForm form) {
  const std::string_view text = GuardedText(render, field, "GetStdDbFieldString", [&] {
    if (IsNumeric(kind)) return NumericText(render, field, form);
    const std::string_view whole = WholeText(render.Regional(), field, kind, render.scratch);
    const bool limited = kind == platform::FieldKind::kMemo && render.settings.MemoFieldLimit >= 0 &&
                         form != ValueForm::kMarkup;
    return limited ? LimitedMemo(render, whole, form) : InForm(render, whole, form);
  });
  return text::IsBlank(text) ? kBlankCell : text;
}

bool IsShownWhole(const settings::Settings& settings, platform::FieldKind kind) {
  return !IsNumeric(kind) && (kind != platform::FieldKind::kMemo || settings.MemoFieldLimit < 0);
}

std::string_view ShownValue(state::Render& render, platform::Field& field, platform::FieldKind kind) {
  const std::string_view value = GuardedText(render, field, "GetStdDbFieldString", [&] {
    return WholeText(render.Regional(), field, kind, render.scratch);
  });
  return text::IsBlank(value) ? std::string_view() : value;
}

std::string_view GetStdDbFieldStringRaw(state::Render& render, platform::Field& field) {
  return GuardedText(render, field, "GetStdDbFieldStringRaw",
                     [&] { return ReadRawText(render.Regional(), field, render.scratch); });
}

std::string_view ReadRawText(const platform::Formatting& formatting, platform::Field& field,
                             std::string& scratch) {
  const platform::TypeCode type = field.Type();
  const std::string_view text = WholeText(formatting, field, platform::KindOf(type), scratch);
  return KeepsBlanks(type) || !text::IsBlank(text) ? text : std::string_view();
}

std::string_view RawText(const platform::Formatting& formatting, platform::TypeCode type,
                         const platform::VariantView& value, std::string& scratch) {
  if (type == platform::TypeCode::kLongVarBinary) return {};
  const std::string_view text = platform::IsDateFieldType(type) ? DateText(formatting, value, scratch)
                                                                : formatting.Text(value, scratch);
  return KeepsBlanks(type) || !text::IsBlank(text) ? text : std::string_view();
}

}  // namespace dralo::cells
