#include "driver/render_driver.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <memory>
#include <string>

#include "driver/current_mode.h"
#include "driver/hidden_state.h"
#include "driver/page_frame.h"
#include "driver/query.h"
#include "driver/request_state.h"
#include "driver/spreadsheet_download.h"
#include "editing/edit_form.h"
#include "editing/primary_keys.h"
#include "editing/update_engine.h"
#include "shell/render.h"
#include "util/html_writer.h"
#include "util/letter_case.h"
#include "util/list.h"
#include "views/data_grid.h"
#include "views/field_lists.h"
#include "views/form_grid.h"
#include "views/links.h"

namespace dralo::driver {
namespace {

namespace key = shell::key;
using platform::Recordset;
using shell::Render;

/// What one pass decides on its way.
struct Pass {
  Mode mode = Mode::kGrid;
  BarPlacement bar;
  std::string final_sql;  ///< For the debug row and debug messages.
  std::shared_ptr<Recordset> main;
  std::shared_ptr<Recordset> keyed;  ///< The record that a primary key addresses; else none.

  Recordset& Shown() const { return keyed != nullptr ? *keyed : *main; }
};

/// In the one-record view a page holds several records only when the page asked for a form with several.
std::int32_t RecordsOnPage(const Render& render) {
  if (render.form_view && !util::ContainsWord(render.settings.DisplayType, "FORM")) return 1;
  return render.settings.RecordsPerPage;
}

bool HasStatement(const shell::Settings& settings, const std::string& statement) {
  const bool is_command_copy = settings.has_stored_procedure && statement == settings.sql;
  return !util::TrimBlanks(statement).empty() && !is_command_copy;
}

bool IsPagingRequest(const shell::RequestKeys& keys) {
  return std::ranges::any_of(
      std::initializer_list<std::string_view>{key::kFirst, key::kPrevious, key::kNext, key::kLast},
      [&](std::string_view button) { return keys.WasPressed(button); });
}

/// Whether the posted key, not the record number, says which record is shown.
bool IsAddressedByKey(const Render& render, Mode mode) {
  const shell::Settings& settings = render.settings;
  return render.form_view && mode != Mode::kFormAdd && render.keys.Has(key::kPrimaryKey) &&
         !IsPagingRequest(render.keys) &&
         (HasStatement(settings, settings.FormSQL) || HasStatement(settings, settings.EditSQL));
}

void SelectView(Render& render, Pass& pass) {
  pass.mode = CurrentMode(render.settings, &render.keys, render.Regional());
  render.form_view = pass.mode != Mode::kGrid;
  render.records_on_page = RecordsOnPage(render);
}

void SelectRecord(Render& render) {
  const bool last = render.keys.WasPressed(key::kLast);
  if (last) CountRecords(render, true);
  ApplyPagingButtons(render);
  if (last && render.settings.RecordCount >= 0) CutLastPageToLimit(render);
  if (render.form_view && render.keys.Has(key::kBookmark))
    render.current_record = std::max(render.bookmark, 1);
}

/// The statement that selects the record that the posted key addresses; empty when there is none.
std::string KeyedSql(Render& render, const Pass& pass) {
  if (!IsAddressedByKey(render, pass.mode)) return {};
  const bool editing = pass.mode == Mode::kFormEdit;
  return editing::GetSqlPK(render, editing ? render.settings.EditSQL : render.settings.FormSQL);
}

void OpenRecords(Render& render, Pass& pass) {
  const shell::Settings& settings = render.settings;
  const bool last = render.keys.WasPressed(key::kLast);
  pass.final_sql = settings.sql;
  if (const std::string keyed_sql = KeyedSql(render, pass); !keyed_sql.empty()) {
    pass.final_sql = keyed_sql;
    pass.keyed = platform::Create<Recordset>(render.environment, "ADODB.Recordset");
    pass.keyed->Open(keyed_sql, OpenConnection(settings));
    pass.main = pass.keyed;
    return;
  }
  const bool is_text = !settings.has_stored_procedure && !settings.has_supplied_recordset;
  if (is_text && settings.sql.empty() && render.form_view) {
    pass.final_sql = pass.mode == Mode::kFormEdit ? settings.EditSQL : settings.FormSQL;
  }
  if (is_text) pass.final_sql = OrderedSql(settings, pass.final_sql);
  pass.main = OpenMainRecordset(render, pass.final_sql, last ? 0 : PageRecordLimit(render));
  MoveToCurrentRecord(render, *pass.main);
}

/// The number of the last record that can be shown, as far as it is known.
std::int32_t KnownEnd(const shell::Settings& settings) {
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
  shell::Settings& settings = render.settings;
  settings.FromRow = rows == 0 ? 0 : render.current_record;
  settings.ToRow = rows == 0 ? 0 : render.current_record + (rows - 1);
  const bool is_counted = settings.RecordCount >= 0;
  render.is_last_page =
      PageEnd(render) >= KnownEnd(settings) || (!is_counted && pass.keyed == nullptr && pass.main->Eof());
}

std::int32_t PutGrid(Render& render, const Pass& pass) {
  PutAddButtonRow(render);
  PutGridTableOpening(render, views::DisplayedGridColumns(render.settings, *pass.main));
  std::int32_t rows = 0;
  views::MakeDataGrid(render, *pass.main, rows);
  PutTableClosing(render);
  return rows;
}

std::int32_t PutForm(Render& render, const Pass& pass) {
  PutFormTableOpening(render);
  std::int32_t rows = 0;
  if (pass.mode == Mode::kFormView) {
    views::MakeFormGrid(render, pass.Shown(), rows);
  } else {
    editing::RenderEditForm(render, pass.Shown(), rows);
  }
  PutTableClosing(render);
  return rows;
}

void PutPage(Render& render, const Pass& pass) {
  const int span = views::GridColumnSpan(render.settings, static_cast<int>(pass.Shown().Fields().size()));
  const bool count_known = render.settings.RecordCount >= 0;
  if (count_known) ExpectRows(render);
  PutOpening(render, pass.final_sql);
  PutHeaderRow(render, pass.bar.top && count_known, span);
  SetRows(render, pass, render.form_view ? PutForm(render, pass) : PutGrid(render, pass));
  PutHiddenState(render);
  if (pass.bar.bottom) PutNavigationBar(render, span);
  if (!render.settings.has_supplied_recordset) pass.main->Close();
  if (pass.keyed != nullptr) pass.keyed->Close();
  PutClosing(render);
}

void ReportFailure(shell::Settings& settings, std::string_view description, const std::string& sql) {
  settings.ErrorMessage.append(description).append(" in WriteHTMLTable.<br>");
  if (settings.DisplayDebug) settings.ErrorMessage.append("sql='").append(sql).append("'<br>");
}

void RunSteps(Render& render, Pass& pass) {
  ReadRequestState(render);
  SelectView(render, pass);
  pass.bar = NavigationBarPlacement(render.settings);
  pass.final_sql = render.settings.sql;
  CountRecords(render, render.settings.CountRecords);
  SelectRecord(render);
  OpenRecords(render, pass);
  render.state_query_tail = views::StateQueryTail(render);
  PutPage(render, pass);
}

void RenderView(Render& render) {
  Pass pass;
  try {
    RunSteps(render, pass);
  } catch (const std::exception& error) {
    ReportFailure(render.settings, error.what(), pass.final_sql);
  }
  try {
    render.out.Flush();  // What was written before a failure stays on the page.
  } catch (const std::exception& error) {
    ReportFailure(render.settings, error.what(), pass.final_sql);
  }
}

}  // namespace

void WriteHtmlTable(shell::Settings& settings, platform::Environment& environment,
                    platform::PageContext& page, std::vector<platform::Variant>& current_record) {
  const platform::Request& request = page.GetRequest();
  const shell::RequestKeys keys(request, settings.Tag);
  util::HtmlWriter out(page.GetResponse());
  Render render{.settings = settings,
                .environment = environment,
                .keys = keys,
                .out = out,
                .script_name = request.ServerVariable("SCRIPT_NAME"),
                .current_record_values = current_record};
  settings.last_save_failed = false;
  if (keys.WasPressed(key::kToExcel)) return SendSpreadsheet(render, page.GetResponse());
  if (settings.EditPerformUpdates && (keys.Has(key::kFormUpdate) || keys.Has(key::kFormDelete))) {
    settings.last_save_failed = !editing::UpdateRecord(render);
  }
  RenderView(render);
}

}  // namespace dralo::driver
