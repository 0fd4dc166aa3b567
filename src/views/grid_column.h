#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "dralo/recordset.h"
#include "state/render.h"
#include "views/shown_column.h"

namespace dralo::views {

/// What all cells of a shown column have in common; made once per page.
struct GridColumn : ShownColumn {
  bool is_numeric = false;
  bool is_unbroken = false;            ///< Its text stays on one line.
  bool is_linked = false;              ///< The standard text leads to the one-record view.
  std::int16_t suppress_position = 0;  ///< In GridFieldsSupressDup, from 1; 0 when repeated values are shown.
  std::string_view attributes = {};    ///< Of its data cells; valid as long as the settings.
};

/// The columns that the grid shows, in their order.
std::vector<GridColumn> GridColumns(state::Render& render, platform::Recordset& recordset);

}  // namespace dralo::views
