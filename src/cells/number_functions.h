#pragma once

#include "cells/cell_function.h"

namespace dralo::cells {

/// The functions throw platform::Error when an argument is not valid.
CellFunction FormatNumber(const FormatArguments& arguments, platform::NumberKind kind);
CellFunction Round(const FormatArguments& arguments);
CellFunction Abs(const FormatArguments& arguments);

}  // namespace dralo::cells
