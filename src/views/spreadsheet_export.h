#pragma once

#include "dralo/recordset.h"
#include "state/render.h"

namespace dralo::views {

/// Writes the records from the current one on, at most RecordsMaxLimit of them, as an HTML table that
/// spreadsheet programs open: the columns that the grid shows, with their attributes, and a header row when
/// DisplayHeader is set. Templates are not applied, format functions only with ApplyCellFormattingToExcel. On
/// a hardened page a value that a spreadsheet would take for a formula gets an apostrophe in front. Each
/// record is written as soon as it is read. Throws platform::Error when one cannot be read; the records
/// before it are written by then.
void WriteExcelTable(state::Render& render, platform::Recordset& recordset);

}  // namespace dralo::views
