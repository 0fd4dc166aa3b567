#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "cells/free_format.h"
#include "platform/field.h"
#include "platform/recordset.h"
#include "shell/render.h"

namespace dralo::views {

/// What all cells of a shown column have in common, found out once per page.
struct GridColumn {
  int number = 0;  ///< Counted from 1, hidden fields included.
  platform::Field* field = nullptr;
  bool is_numeric = false;
  bool is_unbroken = false;  ///< Its text stays on one line.
  bool has_format_function = false;
  bool is_linked = false;              ///< The standard text leads to the one-record view.
  std::int16_t suppress_position = 0;  ///< In GridFieldsSupressDup, from 1; 0 when repeated values are shown.
  std::string_view attributes = {};    ///< Of its data cells; valid as long as the settings.
  std::optional<cells::FreeFormatCell> free_format = {};
};

/// The columns that the grid shows, in their order.
std::vector<GridColumn> GridColumns(const shell::Render& render, platform::Recordset& recordset);

}  // namespace dralo::views
