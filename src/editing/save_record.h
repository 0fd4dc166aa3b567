#pragma once

#include <string>

#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

/// Saves the posted form: as a new record when it says so, else to the record that its key inputs address.
/// `schema` is that of EditSQL; `statement` becomes the one that was last in use. A value that does not suit
/// its field is reported in the edit status message, a recordset that does not open or cannot be written in
/// ErrorMessage; throws platform::Error for every other failure.
///
/// Fields of an existing record that still show what was posted are left alone, so that saving an untouched
/// form changes nothing, whatever its texts lose on the way through the page. The one exception is a boolean
/// that is Null: its unticked box makes it False, unless conflicts are detected.
///
/// Lets through what OnSave and OnSaved throw; nothing is saved then.
bool SaveRecord(state::Render& render, const QuerySchema& schema, std::string& statement);

}  // namespace dralo::editing
