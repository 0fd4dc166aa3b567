#pragma once

#include <string>
#include <string_view>

#include "cells/cell_function.h"
#include "cells/value_form.h"
#include "dralo/field.h"
#include "state/render.h"

namespace dralo::cells {

/// The format function of a column, read once per rendering.
class FormatFunction {
 public:
  /// Takes the column's format text; that there is none is reported. What the function makes of a value is
  /// text, written in that form.
  FormatFunction(state::Render& render, int column, ValueForm form);

  /// The text of a cell; never empty: "&nbsp;" stands for what is empty or blank and for what cannot be
  /// formatted, which is reported in ErrorMessage. Valid until the next call, the record moves or a scratch
  /// of `render` changes.
  std::string_view CellText(state::Render& render, platform::Field& field);

 private:
  std::string_view UnknownFunctionText(state::Render& render, platform::Field& field);

  ValueForm form_;
  CellFunction function_;     ///< Empty when the text makes no function; `failure_` says why.
  std::string unknown_name_;  ///< Of a function that there is not; else empty.
  std::string failure_;
  std::string text_;
};

}  // namespace dralo::cells
