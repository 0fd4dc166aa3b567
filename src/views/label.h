#pragma once

#include <string>
#include <string_view>

#include "settings/field_lists.h"
#include "state/render.h"

namespace dralo::views {

/// The label for the page: on a hardened page the name of a field is escaped, while a text that the page has
/// set is markup. Valid as long as the label and `scratch`.
std::string_view LabelText(const state::Render& render, const settings::ColumnLabel& label,
                           std::string& scratch);

}  // namespace dralo::views
