#pragma once

#include <cstdint>
#include <span>

#include "state/render.h"
#include "views/grid_column.h"

namespace dralo::views {

/// Writes the row with the names of the columns, their sort links and sort arrows; `bookmark` is the record
/// number in the links.
void PutGridHeader(state::Render& render, std::span<const GridColumn> columns, std::int32_t bookmark);

}  // namespace dralo::views
