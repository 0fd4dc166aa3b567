#pragma once

#include <string_view>

#include "platform/field.h"
#include "shell/render.h"

namespace dralo::cells {

/// The text of a cell whose column has a format function. Format functions are not evaluated in this version:
/// the standard text is returned, and ErrorMessage says so once. Valid as that of GetStdDbFieldString().
std::string_view GetFormatCellString(shell::Render& render, platform::Field& field, int column);

}  // namespace dralo::cells
