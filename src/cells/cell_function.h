#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "cells/format_arguments.h"
#include "cells/format_input.h"

namespace dralo::cells {

/// A format function with its arguments, ready for many cells. The result stands in `to`, whose content is
/// replaced, or in the input, or is a constant. Throws std::exception when the value does not suit the
/// function.
using CellFunction = std::function<std::string_view(FormatInput& input, std::string& to)>;

/// Writes this message into the cells in place of the value.
inline CellFunction WrongCount(std::string_view function) {
  return [text = std::string("Invalid number of arguments to ").append(function)](
             FormatInput&, std::string&) -> std::string_view { return text; };
}

}  // namespace dralo::cells
