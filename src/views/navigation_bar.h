#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "state/render.h"

namespace dralo::views {

/// The row with the paging buttons, the record counter, the way back to the list and the export button.
/// `column_span` is GridColumnSpan(), `class_suffix` goes behind the CSS class of its cells, `last_record` is
/// the number that the page's first record must be below for the last-page button to work (-1: it never
/// does).
std::string NavigationBar(const state::Render& render, int column_span, std::string_view class_suffix,
                          std::int32_t last_record);

/// The label and the select. For an empty RecordsPerPageOptions its default is taken.
std::string RecordsPerPageSelect(state::Render& render);

}  // namespace dralo::views
