#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/render.h"

namespace dralo::views {

/// The row with the paging buttons, the record counter, the way back to the list and the export button.
/// `column_span` is GridColumnSpan(), `class_suffix` goes behind the CSS class of its cells, `last_record` is
/// the number that the page's first record must be below for the last-page button to work (-1: it never
/// does). Reads FromRow, ToRow, Render::current_record, records_on_page and is_last_page.
std::string NavigationBar(const shell::Render& render, int column_span, std::string_view class_suffix,
                          std::int32_t last_record);

/// Whether the records-per-page select is written on this page: asked for, placed "top" or "bottom", and the
/// page is a grid or shows more than one record.
bool ShowsRecordsPerPageSelect(const shell::Render& render);

/// The label and the select. An empty RecordsPerPageOptions is set back to its default first.
std::string RecordsPerPageSelect(const shell::Render& render);

}  // namespace dralo::views
