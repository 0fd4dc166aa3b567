#pragma once

#include <string>
#include <string_view>

#include "cells/cell_function.h"
#include "dralo/field.h"
#include "state/render.h"

namespace dralo::cells {

/// The format function of a column, read once per rendering.
class FormatFunction {
 public:
  /// Takes the column's format text; that there is none is reported.
  FormatFunction(state::Render& render, int column);

  /// The text of a cell; never empty: "&nbsp;" stands for what is empty or blank and for what cannot be
  /// formatted, which is reported in ErrorMessage. Values are not escaped. Valid until the next call, the
  /// record moves or `render.scratch` changes.
  std::string_view CellText(state::Render& render, platform::Field& field);

 private:
  CellFunction function_;  ///< Empty when the text makes no function; `failure_` says why.
  std::string failure_;
  std::string text_;
};

}  // namespace dralo::cells
