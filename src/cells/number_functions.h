#pragma once

#include "cells/cell_function.h"

namespace dralo::cells {

/// The functions throw platform::Error when an argument is none.
CellFunction FormatCurrency(const FormatArguments& arguments);
CellFunction FormatNumber(const FormatArguments& arguments);
CellFunction FormatPercent(const FormatArguments& arguments);
CellFunction Round(const FormatArguments& arguments);
CellFunction Abs(const FormatArguments& arguments);

}  // namespace dralo::cells
