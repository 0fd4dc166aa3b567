#pragma once

#include <string_view>

#include "state/render.h"

namespace dralo::state {

/// Writes a value or a name so that the attribute between double quotes holds exactly it: on a hardened page
/// with every character of markup replaced, else as html::PutAttributeText() does.
void PutInAttribute(html::HtmlWriter& out, const Render& render, std::string_view text);

/// The same for the content of a textarea.
void PutInTextarea(html::HtmlWriter& out, const Render& render, std::string_view text);

/// Writes a value or a name into the text of the page, which pages that are not hardened write as it is.
void PutInText(html::HtmlWriter& out, const Render& render, std::string_view text);

}  // namespace dralo::state
