#include "driver/render_driver.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <memory>
#include <string>

#include "driver/page_frame.h"
#include "driver/posted_change.h"
#include "driver/query.h"
#include "driver/shown_records.h"
#include "driver/spreadsheet_download.h"
#include "editing/edit_form.h"
#include "html/html_writer.h"
#include "settings/field_lists.h"
#include "state/current_mode.h"
#include "state/hidden_state.h"
#include "state/links.h"
#include "state/primary_key_value_list.h"
#include "state/render.h"
#include "state/request_state.h"
#include "text/letter_case.h"
#include "text/list.h"
#include "views/data_grid.h"
#include "views/form_grid.h"

namespace dralo::driver {
namespace {

namespace key = state::key;
using platform::Recordset;
using state::Render;

/// What one pass decides on its way.
struct Pass {
  state::Mode mode = state::Mode::kGrid;
  BarPlacement bar;
  ShownRecords records;
};

/// In the one-record view a page holds several records only when the page asked for a form with several.
std::int32_t RecordsOnPage(const Render& render) {
  if (render.form_view && !text::ContainsWord(render.settings.DisplayType, "FORM")) return 1;
  return render.settings.RecordsPerPage;
}

void SelectView(Render& render, Pass& pass) {
  pass.mode = state::CurrentMode(render.settings, &render.keys, render.Regional());
  render.form_view = pass.mode != state::Mode::kGrid;
  render.records_on_page = RecordsOnPage(render);
}

void SelectRecord(Render& render) {
  const bool last = render.keys.WasPressed(key::kLast);
  if (last) CountRecords(render, true);
  state::ApplyPagingButtons(render);
  if (last && render.settings.RecordCount >= 0) CutLastPageToLimit(render);
  if (render.form_view && render.keys.Has(key::kBookmark))
    render.current_record = std::max(render.bookmark, 1);
}

/// The number of the last record that can be shown, as far as it is known.
std::int32_t KnownEnd(const settings::Settings& settings) {
  const std::int32_t limit = settings.RecordsMaxLimit;
  return settings.RecordCount < 0 ? limit : std::min(settings.RecordCount, limit);
}

/// The number of the page's last record if all its places were taken.
std::int64_t PageEnd(const Render& render) {
  return std::int64_t{render.current_record} + render.records_on_page - 1;
}

/// What the bar above the records says about the rows below it; only asked for with a known count.
void ExpectRows(Render& render) {
  const std::int32_t end = KnownEnd(render.settings);
  const bool has_rows = render.current_record <= end;
  render.settings.FromRow = has_rows ? render.current_record : 0;
  render.settings.ToRow =
      has_rows ? static_cast<std::int32_t>(std::min<std::int64_t>(PageEnd(render), end)) : 0;
  render.is_last_page = PageEnd(render) >= end;
}

void SetRows(Render& render, const Pass& pass, std::int32_t rows) {
  settings::Settings& settings = render.settings;
  settings.FromRow = rows == 0 ? 0 : render.current_record;
  settings.ToRow = rows == 0 ? 0 : render.current_record + (rows - 1);
  const bool is_counted = settings.RecordCount >= 0;
  const bool is_at_end = !is_counted && !pass.records.is_addressed_by_key && pass.records.main->Eof();
  render.is_last_page = is_at_end || PageEnd(render) >= KnownEnd(settings);
}

std::int32_t PutGrid(Render& render, const Pass& pass) {
  PutAddButtonRow(render);
  PutGridTableOpening(render, views::DisplayedGridColumns(render.settings, *pass.records.main));
  std::int32_t rows = 0;
  views::MakeDataGrid(render, *pass.records.main, rows);
  PutTableClosing(render);
  return rows;
}

std::int32_t PutForm(Render& render, const Pass& pass) {
  PutFormTableOpening(render);
  std::int32_t rows = 0;
  if (pass.mode == state::Mode::kFormView) {
    views::MakeFormGrid(render, pass.records.Shown(), rows);
  } else {
    editing::RenderEditForm(render, pass.records.Shown(), rows);
  }
  PutTableClosing(render);
  return rows;
}

bool HasKeys(const Render& render) { return !text::TrimBlanks(render.settings.EditPrimaryKeys).empty(); }

/// What must be posted with the edit form, so that a save, failed or not, comes back to the same record.
/// Empty unless a record is edited.
std::string KeyOfEditedRecord(Render& render, const Pass& pass) {
  if (pass.mode != state::Mode::kFormEdit || !HasKeys(render)) return {};
  const bool stays = render.settings.last_save_failed && render.keys.Has(key::kPrimaryKey);
  if (pass.records.is_addressed_by_key || stays) return std::string(render.keys.Value(key::kPrimaryKey));
  Recordset& shown = pass.records.Shown();
  if (shown.Eof()) return {};
  state::PrimaryKeyValueList keys(render.settings, shown);
  if (!keys.Read(render.settings)) return {};
  return keys.Plain();
}

void PutPage(Render& render, Pass& pass) {
  const int span =
      settings::GridColumnSpan(render.settings, static_cast<int>(pass.records.Shown().Fields().size()));
  const bool count_known = render.settings.RecordCount >= 0;
  if (count_known) ExpectRows(render);
  const std::string shown_key = KeyOfEditedRecord(render, pass);
  PutOpening(render, pass.records.sql);
  PutHeaderRow(render, pass.bar.top && count_known, span);
  SetRows(render, pass, render.form_view ? PutForm(render, pass) : PutGrid(render, pass));
  state::PutHiddenState(render);
  if (pass.mode == state::Mode::kFormEdit && HasKeys(render)) state::PutHiddenKey(render, shown_key);
  if (pass.bar.bottom) PutNavigationBar(render, span);
  CloseShownRecords(render, pass.records);
  PutClosing(render);
}

void ReportFailure(settings::Settings& settings, std::string_view description, const std::string& sql) {
  settings.ErrorMessage.append(description).append(" in WriteHTMLTable.<br>");
  if (settings.DisplayDebug) settings.ErrorMessage.append("sql='").append(sql).append("'<br>");
}

void RunSteps(Render& render, Pass& pass) {
  state::ReadRequestState(render);
  SelectView(render, pass);
  pass.bar = NavigationBarPlacement(render.settings);
  pass.records.sql = StatementText(render.settings);
  CountRecords(render, render.settings.CountRecords);
  SelectRecord(render);
  OpenShownRecords(render, pass.mode, pass.records);
  render.state_query_tail = state::StateQueryTail(render);
  PutPage(render, pass);
}

void RenderView(Render& render) {
  Pass pass;
  try {
    RunSteps(render, pass);
  } catch (const std::exception& error) {
    ReportFailure(render.settings, error.what(), pass.records.sql);
  }
  try {
    render.out.Flush();  // What was written before a failure stays on the page.
  } catch (const std::exception& error) {
    ReportFailure(render.settings, error.what(), pass.records.sql);
  }
}

}  // namespace

void WriteHtmlTable(settings::Settings& settings, platform::Environment& environment,
                    platform::PageContext& page, std::vector<platform::Variant>& current_record) {
  const platform::Request& request = page.GetRequest();
  const state::RequestKeys keys(request, settings.Tag);
  html::HtmlWriter out(page.GetResponse());
  Render render{.settings = settings,
                .environment = environment,
                .keys = keys,
                .out = out,
                .script_name = request.ServerVariable("SCRIPT_NAME"),
                .current_record_values = current_record};
  settings.last_save_failed = false;
  if (keys.WasPressed(key::kToExcel)) return SendSpreadsheet(render, page.GetResponse());
  CarryOutPostedChange(render, page);
  RenderView(render);
}

}  // namespace dralo::driver
