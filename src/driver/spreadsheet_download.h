#pragma once

#include "dralo/response.h"
#include "state/render.h"

namespace dralo::driver {

/// Answers with the whole result as a spreadsheet file instead of the page, and ends the page. Records are
/// sent as they are read, so that memory does not grow with their number. Failures are reported in
/// ErrorMessage under WriteExcelTable; what was written before one stays, and the page is not ended. Throws
/// platform::Error when part of the page was sent already.
void SendSpreadsheet(state::Render& render, platform::Response& response);

}  // namespace dralo::driver
