#pragma once

#include <cstdint>

#include "dralo/type_code.h"
#include "editing/edit_rules.h"
#include "html/html_writer.h"

namespace dralo::editing {

// Writes the rules of a field as attributes of its control, so that browsers check them before the form is
// posted. Each attribute follows a blank; without rules nothing is written.

/// For a textarea.
void PutTextRules(html::HtmlWriter& out, const EditRules& rules);

/// For an input of a day.
void PutDayRules(html::HtmlWriter& out, const EditRules& rules);

/// For any other input, of a field of that type.
void PutInputRules(html::HtmlWriter& out, const EditRules& rules, platform::TypeCode type);

/// The greatest length of an input's text; `defined` is the size of its field in characters, 0 for no limit.
std::int64_t MaxLength(const EditRules& rules, std::int64_t defined);

}  // namespace dralo::editing
