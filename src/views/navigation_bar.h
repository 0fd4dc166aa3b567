#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "state/render.h"

namespace dralo::views {

/// The row with the paging buttons, the record counter, the way back to the list and the export button.
/// `column_span` is GridColumnSpan(). `class_suffix` is appended to the CSS class of its cells. The last-page
/// button works while the number of the page's first record is below `last_record`; -1: never.
std::string NavigationBar(const state::Render& render, int column_span, std::string_view class_suffix,
                          std::int32_t last_record);

/// The label and the select. The default stands in for a blank RecordsPerPageOptions.
std::string RecordsPerPageSelect(state::Render& render);

}  // namespace dralo::views
