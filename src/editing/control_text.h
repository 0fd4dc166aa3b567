#pragma once

#include <string>
#include <string_view>

#include "dralo/field.h"
#include "dralo/variant.h"
#include "state/render.h"

namespace dralo::editing {

/// The text that an input control of the edit form shows for the field's current value, before any escaping:
/// memos in full length, dates in the regional form, "" for Null, for binary values and for other values of
/// blanks only. The update engine compares what was posted with it, so that saving an unchanged form changes
/// nothing. In `scratch`, in the record or a constant; valid until either changes. Throws platform::Error
/// when the value cannot be read; a memo that cannot be read is "".
std::string_view ControlText(const state::Render& render, platform::Field& field, std::string& scratch);

/// The same; `is_iso_day` says that the control holds the day of a date alone, in ISO form.
std::string_view ControlText(const state::Render& render, platform::Field& field, bool is_iso_day,
                             std::string& scratch);

/// The same for a value of a field of that type which is not in a record.
std::string_view ControlText(const state::Render& render, platform::TypeCode type,
                             const platform::VariantView& value, std::string& scratch);

/// Whether the checkbox of a field with that value is ticked.
bool IsTicked(const platform::VariantView& value);

/// Whether `posted` is what a browser posts for a control that showed `shown` and was not touched. On the way
/// through the page every line break becomes CRLF, or vanishes from a one-line input; NUL and bytes that are
/// no UTF-8 become replacement characters. Both texts are compared in that form.
bool IsUntouched(std::string_view posted, std::string_view shown, bool is_one_line);

/// The text in the form in which IsUntouched() compares it.
std::string AsHeldByControl(std::string_view text, bool is_one_line);

}  // namespace dralo::editing
