#include "driver/spreadsheet_download.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string_view>

#include "driver/query.h"
#include "driver/requested_order.h"
#include "settings/error_report.h"
#include "state/error_log.h"
#include "state/request_state.h"
#include "views/spreadsheet_export.h"

namespace dralo::driver {
namespace {

constexpr std::string_view kRenderer = "WriteExcelTable";

/// Opens the records and moves to the first. If the query fails, it fails here, while a page can still be
/// written.
std::shared_ptr<platform::Recordset> OpenRecords(const state::Render& render) {
  const std::int64_t limit = std::max(render.settings.RecordsMaxLimit, 1);
  std::shared_ptr<platform::Recordset> recordset = OpenMainRecordset(
      render, OrderedSql(render.view, render.view.sql), render.settings.SqlParameters, limit);
  static_cast<void>(recordset->Eof());
  return recordset;
}

void SendRecords(state::Render& render, platform::Response& response) {
  const std::shared_ptr<platform::Recordset> recordset = OpenRecords(render);
  response.SetContentType("application/vnd.ms-excel");
  response.AddHeader("content-disposition", "attachment; filename=DraloExcelExport.xls");
  views::WriteExcelTable(render, *recordset);
  render.out.Flush();
  if (!render.settings.has_supplied_recordset) recordset->Close();
}

}  // namespace

void SendSpreadsheet(state::Render& render, platform::Response& response) {
  response.Clear();
  render.out.SetPieceBytes(html::HtmlWriter::kDownloadBytes);
  const bool is_complete = settings::Guarded(render.Errors(), kRenderer, false, [&] {
    state::ReadRequestState(render);
    TakeRequestedOrder(render);
    SendRecords(render, response);
    state::LogLines(render.environment, render.outcome.error_detail);
    response.End();
    return true;
  });
  // What was written before a failure stays in the response.
  if (!is_complete) settings::Guarded(render.Errors(), kRenderer, [&] { render.out.Flush(); });
}

}  // namespace dralo::driver
