#pragma once

#include "cells/cell_function.h"

namespace dralo::cells {

/// Positions and lengths count characters. The functions throw platform::Error when an argument is not valid.
CellFunction Replace(const FormatArguments& arguments);
CellFunction Left(const FormatArguments& arguments);
CellFunction Right(const FormatArguments& arguments);
CellFunction Mid(const FormatArguments& arguments);
CellFunction UpperCase(const FormatArguments& arguments);
CellFunction LowerCase(const FormatArguments& arguments);
CellFunction InitCaps(const FormatArguments& arguments);
CellFunction InitCapsAll(const FormatArguments& arguments);
CellFunction Length(const FormatArguments& arguments);

}  // namespace dralo::cells
