#pragma once

#include <string>
#include <string_view>

#include "cells/cell_function.h"
#include "platform/field.h"
#include "state/render.h"

namespace dralo::cells {

/// The format function of a column, read once per rendering.
class FormatFunction {
 public:
  /// Takes the column's format text as it stands now.
  FormatFunction(const state::Render& render, int column);

  /// See GetFormatCellString().
  std::string_view CellText(state::Render& render, platform::Field& field);

 private:
  CellFunction function_;  ///< Empty when the text makes no function; `failure_` says why.
  std::string failure_;
  std::string text_;
};

/// The text of a cell whose column has a format function; never empty: "&nbsp;" stands for what is empty or
/// blank and for what cannot be formatted, which is reported in ErrorMessage. Values are not escaped. Valid
/// until the next call for the column, the record moves or `render.scratch` changes.
std::string_view GetFormatCellString(state::Render& render, platform::Field& field, int column);

}  // namespace dralo::cells
