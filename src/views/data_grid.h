#pragma once

#include <cstdint>

#include "dralo/recordset.h"
#include "state/render.h"

namespace dralo::views {

/// How many columns of the recordset the grid really shows, the row-number column included.
int DisplayedGridColumns(const settings::Settings& settings, platform::Recordset& recordset);

/// Writes the header row and the rows of one page, beginning with the recordset's current row. `rows` becomes
/// the number of rows written. Failures are reported in ErrorMessage; rows already written stay.
void MakeDataGrid(state::Render& render, platform::Recordset& recordset, std::int32_t& rows);

}  // namespace dralo::views
