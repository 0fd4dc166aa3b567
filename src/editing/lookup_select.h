#pragma once

#include <string_view>

#include "html/html_writer.h"
#include "state/render.h"

namespace dralo::editing {

/// Writes the select list of a lookup definition ("field,table,link,display,order,1"), with `value` selected.
/// `attribute` stands behind "<select " as it is, such as "disabled ". Returns false, and has written
/// nothing, when the lookup's statement fails; the failure is reported in ErrorMessage.
bool PutLookupSelect(html::HtmlWriter& out, state::Render& render, html::Joined input_name,
                     std::string_view attribute, std::string_view definition, std::string_view value);

}  // namespace dralo::editing
