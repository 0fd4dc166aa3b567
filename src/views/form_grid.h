#pragma once

#include <cstdint>

#include "dralo/recordset.h"
#include "state/render.h"

namespace dralo::views {

/// Writes the one-record view: each record of the page, from the recordset's current row on, as a table of
/// labels and values with its buttons above; without a record the buttons that need none. `rows` counts the
/// records written. Failures are reported in ErrorMessage; what was written stays.
void MakeFormGrid(state::Render& render, platform::Recordset& recordset, std::int32_t& rows);

}  // namespace dralo::views
