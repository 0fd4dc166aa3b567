#pragma once

#include <string>
#include <string_view>

#include "html/html_writer.h"
#include "state/render.h"

namespace dralo::editing {

/// The statement that yields the options of a lookup definition ("field,table,link,display,order,1"): the
/// value to store and the text to show.
std::string LookupStatement(std::string_view definition);

/// Whether an empty choice is among the options.
bool AllowsNoChoice(std::string_view definition);

/// Writes the select list of a lookup definition ("field,table,link,display,order,1"), with `value` selected.
/// `attribute` is written as it is behind "<select ", for instance "disabled ". Returns false, and has
/// written nothing, when the lookup's statement fails; the failure is reported in ErrorMessage. On a hardened
/// page the stored value always is an option, and a list of more than 1,000 options is not written: it
/// returns false for that too.
bool PutLookupSelect(html::HtmlWriter& out, state::Render& render, html::Joined input_name,
                     std::string_view attribute, std::string_view definition, std::string_view value);

}  // namespace dralo::editing
