#include "cells/format_functions.h"

#include "cells/standard_text.h"
#include "shell/guard.h"

namespace dralo::cells {

std::string_view GetFormatCellString(shell::Render& render, platform::Field& field, int /*column*/) {
  constexpr std::string_view kDescription = "Format functions are not available in this version";
  if (render.settings.ErrorMessage.find(kDescription) == std::string::npos) {
    shell::ReportError(render.settings, kDescription, "GetFormatCellString");
  }
  return GetStdDbFieldString(render, field);
}

}  // namespace dralo::cells
