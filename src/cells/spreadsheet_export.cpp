#include "cells/spreadsheet_export.h"

#include "shell/guard.h"

namespace dralo::cells {

void WriteExcelTable(shell::Render& render, platform::Response&) {
  shell::ReportError(render.settings, "The spreadsheet export is not available in this version",
                     "WriteExcelTable");
}

}  // namespace dralo::cells
