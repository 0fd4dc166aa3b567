#pragma once

#include <cstdint>

#include "platform/recordset.h"
#include "shell/render.h"

namespace dralo::views {

/// Writes the one-record view: each record of the page as label and value rows. `rows` counts the records
/// written. Not available in this version: reports that in ErrorMessage and writes nothing.
void MakeFormGrid(shell::Render& render, platform::Recordset& recordset, std::int32_t& rows);

}  // namespace dralo::views
