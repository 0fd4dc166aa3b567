#pragma once

#include "dralo/recordset.h"
#include "state/render.h"

namespace dralo::views {

/// Copies the values of the recordset's current row, for CurrentRecord. A value that cannot be read becomes
/// Null; the place that shows it reports the failure.
void KeepCurrentRecord(state::Render& render, platform::Recordset& recordset);

}  // namespace dralo::views
