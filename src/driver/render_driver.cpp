#include "driver/render_driver.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <utility>

#include "driver/hardened_frame.h"
#include "driver/outcome_address.h"
#include "driver/page_frame.h"
#include "driver/posted_change.h"
#include "driver/query.h"
#include "driver/refused_post.h"
#include "driver/requested_order.h"
#include "driver/shown_records.h"
#include "driver/spreadsheet_download.h"
#include "editing/edit_form.h"
#include "html/html_writer.h"
#include "platform/statement_clock.h"
#include "settings/field_lists.h"
#include "state/current_mode.h"
#include "state/error_log.h"
#include "state/hidden_state.h"
#include "state/links.h"
#include "state/primary_key_value_list.h"
#include "state/render.h"
#include "state/request_state.h"
#include "text/blanks.h"
#include "views/button_bar.h"
#include "views/data_grid.h"
#include "views/form_grid.h"

namespace dralo::driver {
namespace {

namespace key = state::key;
using platform::Recordset;
using state::Render;

/// The one-record view shows several records on a page only when DisplayType is "form".
std::int32_t RecordsOnPage(const Render& render) {
  const bool is_single =
      state::IsForm(render.view.mode) && render.settings.display != settings::DisplayKind::kForm;
  return is_single ? 1 : render.view.page_size;
}

void SelectView(Render& render) {
  render.view.mode =
      state::CurrentMode(render.settings, &render.keys, render.Regional(), render.outcome.has_failed_to_save);
  render.view.records_on_page = RecordsOnPage(render);
}

void SelectRecord(Render& render) {
  const bool last = render.keys.WasPressed(key::kLast);
  if (last) CountRecords(render, true);
  state::ApplyPagingButtons(render);
  if (last && render.outcome.record_count >= 0) CutLastPageToLimit(render);
  if (state::IsForm(render.view.mode) && render.keys.Has(key::kBookmark))
    render.view.current_record = std::max(render.view.bookmark, 1);
}

/// The number of the last record that can be shown, as far as that is known.
std::int32_t KnownEnd(const Render& render) {
  const std::int32_t limit = render.settings.RecordsMaxLimit;
  return render.outcome.record_count < 0 ? limit : std::min(render.outcome.record_count, limit);
}

/// The number of the page's last record if the page is full.
std::int64_t PageEnd(const Render& render) {
  return std::int64_t{render.view.current_record} + render.view.records_on_page - 1;
}

/// Sets what the bar above the records says about the rows below it; called only with a known count.
void ExpectRows(Render& render) {
  const std::int32_t end = KnownEnd(render);
  const bool has_rows = render.view.current_record <= end;
  render.outcome.from_row = has_rows ? render.view.current_record : 0;
  render.outcome.to_row =
      has_rows ? static_cast<std::int32_t>(std::min<std::int64_t>(PageEnd(render), end)) : 0;
  render.outcome.is_last_page = PageEnd(render) >= end;
}

void SetRows(Render& render, const ShownRecords& records, std::int32_t rows) {
  render.outcome.from_row = rows == 0 ? 0 : render.view.current_record;
  render.outcome.to_row = rows == 0 ? 0 : render.view.current_record + (rows - 1);
  const bool is_counted = render.outcome.record_count >= 0;
  const bool is_at_end = !is_counted && !records.is_addressed_by_key && records.main->Eof();
  render.outcome.is_last_page = is_at_end || PageEnd(render) >= KnownEnd(render);
}

std::int32_t PutGrid(Render& render, const ShownRecords& records) {
  if (render.settings.Hardened && !render.outcome.status_message.empty()) {
    views::PutButtonBarStart(render);
    views::PutButtonBarEnd(render, render.outcome.status_message);
  }
  PutAddButtonRow(render);
  PutGridTableOpening(render, views::DisplayedGridColumns(render.settings, *records.main));
  std::int32_t rows = 0;
  views::MakeDataGrid(render, *records.main, rows);
  PutTableClosing(render);
  return rows;
}

std::int32_t PutForm(Render& render, const ShownRecords& records) {
  PutFormTableOpening(render);
  std::int32_t rows = 0;
  if (render.view.mode == state::Mode::kFormView) {
    views::MakeFormGrid(render, records.Shown(), rows);
  } else {
    editing::RenderEditForm(render, records.Shown(), rows);
  }
  PutTableClosing(render);
  return rows;
}

bool HasKeys(const Render& render) { return !text::IsBlank(render.settings.EditPrimaryKeys); }

/// The posted key. Hardened pages do not change it, because blanks may belong to it.
std::string PostedKey(const Render& render) {
  return std::string(render.settings.Hardened ? render.keys.Untrimmed(key::kPrimaryKey).value_or("")
                                              : render.keys.Value(key::kPrimaryKey));
}

/// The key that must be posted with the edit form, so that a save, failed or not, comes back to the same
/// record. On a plain page empty, on a hardened one nothing, when no record with a key is edited.
std::optional<std::string> KeyOfEditedRecord(Render& render, const ShownRecords& records) {
  std::optional<std::string> none = render.settings.Hardened ? std::nullopt : std::optional<std::string>("");
  if (render.view.mode != state::Mode::kFormEdit || !HasKeys(render)) return none;
  const bool stays = render.outcome.has_failed_to_save && render.keys.Has(key::kPrimaryKey);
  if (records.is_addressed_by_key || stays) return PostedKey(render);
  Recordset& shown = records.Shown();
  if (shown.Eof()) return none;
  state::PrimaryKeyValueList keys(render.settings, shown);
  if (!keys.Read(render.Errors())) return none;
  return keys.Plain();
}

void PutPage(Render& render, ShownRecords& records) {
  const int span =
      settings::GridColumnSpan(render.settings, static_cast<int>(records.Shown().Fields().size()));
  const bool count_known = render.outcome.record_count >= 0;
  if (count_known) ExpectRows(render);
  const auto shown_key = KeyOfEditedRecord(render, records);
  PutOpening(render, records.sql);
  PutHeaderRow(render, render.settings.bar.top && count_known, span);
  SetRows(render, records,
          state::IsForm(render.view.mode) ? PutForm(render, records) : PutGrid(render, records));
  state::PutHiddenState(render);
  const bool edits = render.view.mode == state::Mode::kFormEdit && HasKeys(render);
  if (edits && shown_key) state::PutHiddenKey(render, *shown_key);
  if (render.settings.bar.bottom) PutNavigationBar(render, span);
  CloseShownRecords(render, records);
  PutClosing(render);
}

/// When the page cannot be opened, its records are counted all the same. If that fails too, the failure of
/// the count is the one to report, as if it had come first.
void OpenRecords(Render& render, ShownRecords& records) {
  const std::int32_t asked_record = render.view.current_record;
  try {
    SelectRecord(render);
    OpenShownRecords(render, records);
  } catch (const std::exception&) {
    if (records.counting == Counting::kNone) throw;
    const std::int32_t selected_record = std::exchange(render.view.current_record, asked_record);
    std::string statement = std::exchange(records.sql, StatementText(render));
    if (records.counting == Counting::kFailed) throw;
    CountRecords(render, true);
    render.view.current_record = selected_record;
    records.sql = std::move(statement);
    throw;
  }
}

/// A form shows what only one visitor may see: no cache may store it.
void ForbidStoring(const Render& render, platform::Response& response) {
  if (!render.settings.Hardened || !state::IsForm(render.view.mode)) return;
  if (response.HasUnsentHeaders()) response.AddHeader("Cache-Control", "no-store");
}

/// A refused post has a status of its own.
void AnswerNotFound(const Render& render, platform::Response& response) {
  constexpr int kNotFound = 404;
  if (!render.outcome.has_no_such_record || render.outcome.is_refused) return;
  if (response.HasUnsentHeaders()) response.SetStatus(kNotFound);
}

/// One link for each record and each column, those to the add form and to the list, and some in templates.
std::size_t LinksOnPage(const Render& render, const ShownRecords& records) {
  constexpr std::size_t kOthers = 4;
  return static_cast<std::size_t>(std::max<std::int32_t>(render.view.records_on_page, 1)) +
         records.Shown().Fields().size() + kOthers;
}

void RunSteps(Render& render, platform::Response& response, ShownRecords& records) {
  state::ReadRequestState(render);
  TakeRequestedOrder(render);
  SelectView(render);
  ForbidStoring(render, response);
  records.sql = StatementText(render);
  if (CanCountBeside(render)) records.counting = Counting::kWanted;
  CountRecords(render, render.view.is_counted && records.counting == Counting::kNone);
  OpenRecords(render, records);
  AnswerNotFound(render, response);
  render.links = LinksOnPage(render, records);
  render.state_query_tail = state::StateQueryTail(render);
  PutPage(render, records);
}

void RenderView(Render& render, platform::Response& response) {
  ShownRecords records;
  // Not Guarded(): pages with DisplayDebug show the statement that is in use at the failure.
  const auto guarded = [&](auto step) {
    try {
      step();
    } catch (const std::exception& error) {
      render.Errors().AddStatement(error.what(), "WriteHTMLTable", records.sql, render.settings.DisplayDebug);
    }
  };
  guarded([&] { RunSteps(render, response, records); });
  guarded([&] { render.out.Flush(); });  // What was written before a failure stays on the page.
}

/// The time limit for all further statements of a hardened page together. A download has none, because it
/// lasts as long as the visitor takes to read it.
std::optional<platform::StatementClock> NewClock(const Render& render) {
  const settings::Settings& settings = render.settings;
  if (!settings.Hardened || settings.DrConnection == nullptr) return std::nullopt;
  const auto& connection = settings.DrConnection->Connection();
  const int seconds = connection == nullptr ? 0 : connection->QueryTimeoutS();
  if (seconds == 0) return std::nullopt;
  return std::optional<platform::StatementClock>(std::in_place, std::chrono::seconds(seconds));
}

void Receive(Render& render, platform::PageContext& page) {
  CarryOutPostedChange(render, page);
  if (render.settings.Hardened) RedirectToOutcome(render, page.GetResponse());
}

void Answer(Render& render, platform::PageContext& page) {
  if (render.keys.WasPressed(key::kToExcel)) return SendSpreadsheet(render, page.GetResponse());
  const auto show = [&] {
    TakeOutcomeOfAddress(render);
    RenderView(render, page.GetResponse());
  };
  {
    const auto clock = NewClock(render);
    Receive(render, page);
    if (!render.outcome.has_failed_to_save) return show();
  }
  // What was typed comes back, however long the save has taken.
  const auto clock = NewClock(render);
  show();
}

}  // namespace

void ReceivePost(Render& render, platform::PageContext& page) {
  const bool is_download = render.keys.WasPressed(key::kToExcel);
  if (!is_download && PrepareHardenedFrame(render) && AnswersUnderHost(render, page.GetResponse())) {
    const auto clock = NewClock(render);
    Receive(render, page);
  }
  state::LogLines(render.environment, render.outcome.error_detail);
}

void WriteHtmlTable(Render& render, platform::PageContext& page) {
  if (PrepareHardenedFrame(render) && AnswersUnderHost(render, page.GetResponse())) Answer(render, page);
  state::LogLines(render.environment, render.outcome.error_detail);
}

}  // namespace dralo::driver
