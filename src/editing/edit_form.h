#pragma once

#include <cstdint>

#include "dralo/recordset.h"
#include "state/render.h"

namespace dralo::editing {

/// Writes the edit form of the recordset's current record, keeps the record's values for CurrentRecord and
/// goes to the next record; or writes the add form, for which the recordset only tells the fields and is not
/// moved. `rows` becomes the number of records written, 1 or 0: without a record there is only the row of
/// buttons, or after a failed save the form with what was posted. Failures are reported in ErrorMessage; what
/// was written stays written.
void RenderEditForm(state::Render& render, platform::Recordset& recordset, std::int32_t& rows);

}  // namespace dralo::editing
