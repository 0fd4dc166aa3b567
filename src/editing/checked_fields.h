#pragma once

#include "dralo/recordset.h"
#include "editing/posted_key.h"
#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

/// Whether a save checks all fields before it writes, and tells of each what is wrong with it. Other saves
/// stop at the first field that is wrong.
bool ChecksAllFields(const settings::Settings& settings);

/// Gives the fields of a new record, on which `recordset` stands, what was posted for them. False when at
/// least one value was refused: the outcome has the notes. `schema` is that of EditSQL. Throws
/// platform::Error when a value cannot be read or the table was changed meanwhile.
bool AssignToNewRecord(state::Render& render, const QuerySchema& schema, platform::Recordset& recordset);

/// The same for an existing record, on which `recordset` stands, found by `key`. Where conflicts are
/// detected, fields that the visitor has not touched keep what the database has, and so do keys.
bool AssignToRecord(state::Render& render, const QuerySchema& schema, platform::Recordset& recordset,
                    const PostedKey& key);

}  // namespace dralo::editing
