#pragma once

#include <cstdint>

#include "platform/recordset.h"
#include "shell/render.h"

namespace dralo::editing {

/// Writes the edit form of the recordset's current row, or the add form. `rows` counts the records written.
/// Not available in this version: reports that in ErrorMessage and writes nothing.
void RenderEditForm(shell::Render& render, platform::Recordset& recordset, std::int32_t& rows);

}  // namespace dralo::editing
