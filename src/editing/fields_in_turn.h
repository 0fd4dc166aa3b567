#pragma once

#include "dralo/recordset.h"
#include "editing/posted_key.h"
#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

/// Gives the fields of the record on which `recordset` stands what was posted, one after the other, until the
/// first that does not fit: then the status message tells, and false comes back. `key` is that of an update,
/// nullptr for a new record. Throws platform::Error when a value cannot be stored.
bool AssignInTurn(state::Render& render, const QuerySchema& schema, platform::Recordset& recordset,
                  const PostedKey* key);

}  // namespace dralo::editing
