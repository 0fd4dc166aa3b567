#pragma once

#include "dralo/recordset.h"
#include "editing/posted_key.h"
#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

/// Whether anything can forbid the delete of a record; the record must then be read first.
bool ChecksDeletes(const settings::Settings& settings);

/// Whether the record that `key` addresses may be deleted; true when there is none. When it may not, because
/// OnDelete has refused it or somebody has changed it since the form was made, the outcome says so, and the
/// form comes back with what is stored now: posted once more, it deletes the changed record. Throws
/// platform::Error when the record cannot be read, and lets through what OnDelete throws.
bool MayDelete(state::Render& render, const QuerySchema& schema, const PostedKey& key);

/// The same for the record on which `record` stands.
bool MayDelete(state::Render& render, const QuerySchema& schema, platform::Recordset& record);

}  // namespace dralo::editing
