#pragma once

#include "dralo/recordset.h"
#include "editing/posted_key.h"
#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

/// Gives the fields of the record on which `recordset` stands what was posted, one after the other. At the
/// first value that does not fit it stops, says why in the status message and returns false. `key` is that of
/// an update, nullptr for a new record. Throws platform::Error when a value cannot be stored.
bool AssignInTurn(state::Render& render, const QuerySchema& schema, platform::Recordset& recordset,
                  const PostedKey* key);

}  // namespace dralo::editing
