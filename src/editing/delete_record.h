#pragma once

#include <string>

#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

/// Deletes the record that the posted key inputs address, with DeleteSQL. `schema` is that of EditSQL;
/// `statement` is left as the one in use. A failure of the statement is told in the edit status message. That
/// it found no record is told in ErrorMessage, and the record counts as deleted; when it found several, all
/// is undone. Throws platform::Error for this and every other failure.
bool DeleteRecord(state::Render& render, const QuerySchema& schema, std::string& statement);

}  // namespace dralo::editing
