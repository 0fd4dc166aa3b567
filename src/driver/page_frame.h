#pragma once

#include <string_view>

#include "state/render.h"

/// The parts of the page around the grid or form, in the order in which they are written.
namespace dralo::driver {

/// The comment, the outer table, the statement when debugging, and the form's opening tag.
void PutOpening(const state::Render& render, std::string_view final_sql);

/// The header row with the select for the page size and, when `bar` is set, the navigation bar.
void PutHeaderRow(state::Render& render, bool bar, int column_span);

/// The row with the add button, when records may be added.
void PutAddButtonRow(const state::Render& render);

/// The opening tags of the grid's table and of the table around a form.
void PutGridTableOpening(const state::Render& render, int displayed_columns);
void PutFormTableOpening(const state::Render& render);

/// The end of either table and of its row.
void PutTableClosing(const state::Render& render);

/// The navigation bar for the present state.
void PutNavigationBar(const state::Render& render, int column_span);

/// The select for the page size when it stands at the bottom, the footer text, and the end of the form and
/// the outer table.
void PutClosing(state::Render& render);

}  // namespace dralo::driver
