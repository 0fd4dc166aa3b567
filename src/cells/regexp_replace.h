#pragma once

#include <string_view>

#include "cells/cell_function.h"
#include "platform/environment.h"

namespace dralo::cells {

/// REGEXPREPLACE from its whole text: "/pattern/flags", the delimiter, the replacement. A "/" in the pattern
/// is written "\/"; flags are i, g and m. If no delimiter follows the flags, a comma is one; if there is none
/// either, the replacement is empty. Throws platform::Error when the pattern is no regular expression.
CellFunction RegExpReplace(platform::Environment& environment, std::string_view text,
                           std::string_view delimiter);

}  // namespace dralo::cells
