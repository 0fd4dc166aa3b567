#pragma once

#include "platform/response.h"
#include "shell/render.h"

namespace dralo::cells {

/// Sends the whole result as a spreadsheet download instead of the page.
/// Not available in this version: reports that in ErrorMessage and leaves the page as it is.
void WriteExcelTable(shell::Render& render, platform::Response& response);

}  // namespace dralo::cells
