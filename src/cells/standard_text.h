#pragma once

#include <string_view>

#include "cells/value_form.h"
#include "dralo/field.h"
#include "platform/field_kind.h"
#include "settings/settings.h"
#include "state/render.h"

namespace dralo::cells {

/// The cell text of the field's current value for HTML; never empty: "&nbsp;" stands for what is empty or
/// blank. Memos are cut to MemoFieldLimit unless they are markup, dates follow the regional settings, binary
/// values are never shown. The value is written in the given form; what is added for HTML follows it
/// unescaped. Failures are reported in ErrorMessage. Valid until the record moves or a scratch of `render`
/// changes.
std::string_view GetStdDbFieldString(state::Render& render, platform::Field& field, ValueForm form);

/// The same for a field whose kind is known: that of its type.
std::string_view GetStdDbFieldString(state::Render& render, platform::Field& field, platform::FieldKind kind,
                                     ValueForm form);

/// Whether the escaped cells of such fields are their values and nothing else, so that a writer can escape
/// them while it copies them: see ShownValue(). Numbers have no markup, and cut memos an ending.
bool IsShownWhole(const settings::Settings& settings, platform::FieldKind kind);

/// The value that GetStdDbFieldString() escapes, for a field of which IsShownWhole() is true; "" where that
/// shows "&nbsp;". Valid as long.
std::string_view ShownValue(state::Render& render, platform::Field& field, platform::FieldKind kind);

/// What stands for a value that is empty or blank.
inline constexpr std::string_view kBlankCell = "&nbsp;";

/// The same text without anything added for HTML: memos in full, and "" for what is empty.
std::string_view GetStdDbFieldStringRaw(state::Render& render, platform::Field& field);

/// As GetStdDbFieldStringRaw(), but throws platform::Error instead of reporting failures. In `scratch`, in
/// the record or a constant: valid until either changes.
std::string_view ReadRawText(const platform::Formatting& formatting, platform::Field& field,
                             std::string& scratch);

/// The same for a value of a field of that type which is not in a record.
std::string_view RawText(const platform::Formatting& formatting, platform::TypeCode type,
                         const platform::VariantView& value, std::string& scratch);

}  // namespace dralo::cells
