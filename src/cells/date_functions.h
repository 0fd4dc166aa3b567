#pragma once

#include "cells/cell_function.h"

namespace dralo::cells {

/// The functions throw platform::Error when an argument is not valid.
CellFunction FormatDateTime(const FormatArguments& arguments);
CellFunction DateAdd(const FormatArguments& arguments);
CellFunction DatePart(const FormatArguments& arguments);

/// FORMAT, which is for numbers and texts too.
CellFunction Format(const FormatArguments& arguments);

}  // namespace dralo::cells
