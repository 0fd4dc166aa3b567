#pragma once

#include <string>
#include <string_view>

#include "cells/cell_function.h"
#include "cells/value_form.h"
#include "dralo/field.h"
#include "state/render.h"

namespace dralo::cells {

/// The format function of a column, parsed once per rendering.
class FormatFunction {
 public:
  /// Reads the column's format text; a missing one is reported. The function's result is plain text, which is
  /// written in the given form.
  FormatFunction(state::Render& render, int column, ValueForm form);

  /// The text of a cell; never empty: "&nbsp;" stands for what is empty or blank and for what cannot be
  /// formatted, which is reported in ErrorMessage. Valid until the next call, the record moves or a scratch
  /// of `render` changes.
  std::string_view CellText(state::Render& render, platform::Field& field);

 private:
  std::string_view UnknownFunctionText(state::Render& render, platform::Field& field);

  ValueForm form_;
  CellFunction function_;     ///< Empty when the text names no function; `failure_` says why.
  std::string unknown_name_;  ///< Of a function that does not exist; else empty.
  std::string failure_;
  std::string text_;
};

}  // namespace dralo::cells
