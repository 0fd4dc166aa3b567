#pragma once

#include <cstdint>

#include "dralo/recordset.h"
#include "state/render.h"

namespace dralo::views {

/// Writes the one-record view: each record of the page, beginning with the recordset's current row, as a
/// table of labels and values with its buttons above. Without a record only the buttons that need none are
/// written. `rows` becomes the number of records written. Failures are reported in ErrorMessage; what was
/// written stays.
void MakeFormGrid(state::Render& render, platform::Recordset& recordset, std::int32_t& rows);

}  // namespace dralo::views
