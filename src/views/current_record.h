#pragma once

#include "dralo/recordset.h"
#include "state/render.h"

namespace dralo::views {

/// Copies the values of the recordset's current row, for CurrentRecord. A value that cannot be read becomes
/// Null: where it is shown, it is reported.
void KeepCurrentRecord(state::Render& render, platform::Recordset& recordset);

}  // namespace dralo::views
