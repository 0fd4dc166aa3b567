#pragma once

#include <string_view>

#include "state/render.h"

namespace dralo::state {

/// Writes a value or a name for an attribute between double quotes, which then holds exactly that text: on a
/// hardened page every character of markup is replaced, else as in html::PutAttributeText().
void PutInAttribute(html::HtmlWriter& out, const Render& render, std::string_view text);

/// The same for the content of a textarea.
void PutInTextarea(html::HtmlWriter& out, const Render& render, std::string_view text);

/// Writes a value or a name into the text of the page. Pages that are not hardened write it as it is.
void PutInText(html::HtmlWriter& out, const Render& render, std::string_view text);

}  // namespace dralo::state
