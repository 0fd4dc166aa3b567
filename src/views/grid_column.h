#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cells/free_format.h"
#include "platform/field.h"
#include "platform/recordset.h"
#include "shell/render.h"

namespace dralo::views {

/// Rows of a page alternate, and with them classes and attributes; the first row is odd.
enum RowParity : std::size_t { kOdd = 0, kEven = 1 };

constexpr std::string_view ParityWord(RowParity parity) { return parity == kOdd ? "odd" : "even"; }

/// What all cells of a shown column have in common, found out once per page.
struct GridColumn {
  int number = 0;  ///< Counted from 1, hidden fields included.
  platform::Field* field = nullptr;
  bool is_numeric = false;
  bool has_format_function = false;
  bool is_linked = false;              ///< The standard text leads to the one-record view.
  std::int16_t suppress_position = 0;  ///< In GridFieldsSupressDup, from 1; 0 when repeated values are shown.
  std::array<std::string, 2> start;    ///< By RowParity: the cell's tag from behind the row number in its id.
  std::string open;                    ///< From behind the row's cell attributes to the text.
  std::string close;                   ///< What follows the text.
  std::optional<cells::FreeFormatCell> free_format;
};

/// What the grid shows in each row.
struct GridColumns {
  GridColumns(const shell::Render& render, platform::Recordset& recordset);

  std::array<std::string, 2> index_start;  ///< GridColumn::start of the column with the row numbers.
  std::vector<GridColumn> shown;           ///< The shown columns in their order.
};

}  // namespace dralo::views
