#include "driver/shown_records.h"

#include <algorithm>
#include <exception>

#include "driver/query.h"
#include "driver/record_count.h"
#include "editing/primary_keys.h"
#include "editing/shown_key.h"
#include "settings/error_report.h"
#include "settings/statement_parameters.h"
#include "state/primary_key_value_list.h"
#include "text/blanks.h"

namespace dralo::driver {
namespace {

namespace key = state::key;
using platform::Recordset;
using settings::Settings;
using state::Render;

bool IsPagingRequest(const state::RequestKeys& keys) {
  return std::ranges::any_of(
      std::initializer_list<std::string_view>{key::kFirst, key::kPrevious, key::kNext, key::kLast},
      [&](std::string_view button) { return keys.WasPressed(button); });
}

bool IsText(const Settings& settings) {
  return !settings.has_stored_procedure && !settings.has_supplied_recordset;
}

/// The statement that gives the fields of the form.
const std::string& FormStatement(const Render& render) {
  return render.view.mode == state::Mode::kFormView ? render.settings.FormSQL : render.settings.EditSQL;
}

/// Whether the request names a key. On a hardened page an empty text may be one.
bool NamesKey(const Render& render) {
  return render.settings.Hardened ? render.keys.Untrimmed(key::kPrimaryKey).has_value()
                                  : render.keys.Has(key::kPrimaryKey);
}

bool IsAddressedByKey(const Render& render) {
  return state::IsForm(render.view.mode) && render.view.mode != state::Mode::kFormAdd && NamesKey(render) &&
         !IsPagingRequest(render.keys) && render.outcome.change != state::Change::kDeleted &&
         state::CanAddressRecords(render, FormStatement(render));
}

settings::Parameters FormStatementParameters(const Render& render) {
  return render.view.mode == state::Mode::kFormView ? settings::FormParameters(render.settings)
                                                    : settings::EditParameters(render.settings);
}

std::shared_ptr<Recordset> OpenOneRecord(const Render& render, const std::string& sql) {
  auto recordset = platform::Create<Recordset>(render.environment, "ADODB.Recordset");
  settings::OpenWithParameters(*recordset, render.settings, sql, FormStatementParameters(render));
  return recordset;
}

/// When the current record lies after the last one, the page is opened once more, at its end.
void OpenCounted(Render& render, ShownRecords& records) {
  records.main = NewRecordset(render.environment);
  records.main->SetMaxRecords(PageRecordLimit(render, true));
  const auto& parameters = render.settings.SqlParameters;
  records.main->SetCounting(RecordCountStatement(render.view.sql), parameters);
  settings::OpenWithParameters(*records.main, render.settings, records.sql, parameters);
  MoveToCurrentRecord(render, *records.main);
  records.counting = Counting::kFailed;
  render.outcome.record_count = CountOf(render.environment, platform::View(records.main->Counted()));
  records.counting = Counting::kNone;
  if (render.view.current_record <= std::max(render.outcome.record_count, 1)) return;
  records.main->Close();
  records.main = OpenMainRecordset(render, records.sql, parameters, PageRecordLimit(render, true));
  MoveToCurrentRecord(render, *records.main);
}

/// Opens the view's own records and goes to the current one.
void OpenAtCurrentRecord(Render& render, const std::string& statement, settings::Parameters parameters,
                         ShownRecords& records) {
  const Settings& settings = render.settings;
  const bool last = render.keys.WasPressed(key::kLast);
  records.sql = IsText(settings) ? OrderedSql(render.view, statement) : StatementText(render);
  if (records.counting == Counting::kWanted) return OpenCounted(render, records);
  records.main =
      OpenMainRecordset(render, records.sql, parameters, last ? 0 : PageRecordLimit(render, false));
  MoveToCurrentRecord(render, *records.main);
  if (render.view.mode == state::Mode::kFormEdit) records.main->TakeTypesOfRow();
}

/// The same on a hardened page: a key that is none, or that belongs to a record outside the page's `sql`,
/// shows a form without a record.
bool OpenByNamedKey(Render& render, ShownRecords& records) {
  records.sql = FormStatement(render);
  auto record = editing::OpenRecordOfKey(render, records.sql, FormStatementParameters(render),
                                         editing::RequestedKey(render), true);
  const bool is_saved = render.outcome.change == state::Change::kSaved;
  if (record->Eof() && is_saved) return false;
  render.outcome.has_no_such_record = record->Eof();
  if (record->Eof() && !render.outcome.has_failed_to_save) render.Errors().AddNoSuchRecord();
  records.main = IsText(render.settings) ? record : OpenMainRecordset(render, render.view.sql, {}, 0);
  records.keyed = std::move(record);
  records.is_addressed_by_key = true;
  return true;
}

/// Whether the posted key addresses the record to show, which is then open.
bool OpenByPostedKey(Render& render, ShownRecords& records) {
  if (!IsAddressedByKey(render)) return false;
  if (render.settings.Hardened) return OpenByNamedKey(render, records);
  const std::string sql = editing::GetSqlPK(render, FormStatement(render), FormStatementParameters(render));
  if (sql.empty()) return false;
  records.sql = sql;
  auto record = OpenOneRecord(render, sql);
  // A save may have changed the key, or taken the record out of the statement.
  if (render.outcome.change == state::Change::kSaved && record->Eof()) return false;
  // The bar needs the recordset that is paged through. That stays at its start: the record number says
  // nothing about a record that was found by its key.
  records.main = IsText(render.settings) ? record : OpenMainRecordset(render, render.view.sql, {}, 0);
  records.sql = sql;
  records.keyed = std::move(record);
  records.is_addressed_by_key = true;
  return true;
}

/// The same after a failed save, whose key the database may not accept.
bool OpenByFailedKey(Render& render, ShownRecords& records) {
  try {
    return OpenByPostedKey(render, records);
  } catch (const std::exception& error) {
    render.Errors().Add(error.what(), "WriteHTMLTable.");
    records = {};
    return false;
  }
}

/// The record of `statement` that has the key of the record on which `shown` stands; nullptr when the key
/// addresses none.
std::shared_ptr<Recordset> OpenShownRecord(Render& render, const std::string& statement, Recordset& shown) {
  const settings::Parameters parameters = FormStatementParameters(render);
  if (render.settings.Hardened) {
    return editing::OpenRecordOfKey(render, statement, parameters, editing::KeyOf(render, shown), false);
  }
  const std::string sql = editing::GetSqlPK(render, statement, parameters, &shown);
  return sql.empty() ? nullptr : OpenOneRecord(render, sql);
}

/// A form with a statement of its own has other fields than the statement that is paged through: opens the
/// record with the same key in it.
void OpenInFormStatement(Render& render, const std::string& form_statement, ShownRecords& records) {
  const bool has_keys = !text::IsBlank(render.settings.EditPrimaryKeys);
  if (!state::IsForm(render.view.mode) || render.view.records_on_page != 1 || !has_keys) return;
  if (!state::CanAddressRecords(render, form_statement) || records.main->Eof()) return;
  records.keyed = OpenShownRecord(render, form_statement, *records.main);
  if (records.keyed == nullptr) return;
  // Without a count only the record after the current one tells whether there is a next page.
  if (render.outcome.record_count < 0) records.main->MoveNext();
}

/// After a failed save the form shows what was typed in the fields of its own statement, even when the record
/// is gone.
void OpenFieldsOnly(const Render& render, const std::string& form_statement, ShownRecords& records) {
  if (records.keyed != nullptr || !state::CanAddressRecords(render, form_statement)) return;
  records.keyed = platform::Create<Recordset>(render.environment, "ADODB.Recordset");
  records.keyed->SetMaxRecords(1);
  settings::OpenWithParameters(*records.keyed, render.settings, form_statement,
                               FormStatementParameters(render));
  if (!records.keyed->Eof()) records.keyed->MoveNext();
}

/// The form needs only the fields: it is shown also when records cannot be added to the statement.
void OpenNewRecord(Render& render, ShownRecords& records) {
  records.sql = render.settings.EditSQL;
  records.main = platform::Create<Recordset>(render.environment, "ADODB.Recordset");
  records.main->SetMaxRecords(1);
  records.main->SetCursorLocation(platform::CursorLocation::kClient);
  settings::OpenWithParameters(*records.main, render.settings, records.sql,
                               settings::EditParameters(render.settings), platform::CursorType::kKeyset,
                               platform::LockType::kOptimistic);
  try {
    records.main->AddNew();
    records.is_added = true;
  } catch (const std::exception& error) {
    if (render.outcome.has_failed_to_save) return;  // The save has reported it already.
    render.Errors().Add(error.what(), "WriteHTMLTable.");
  }
}

}  // namespace

bool CanCountBeside(const Render& render) {
  return render.view.mode == state::Mode::kGrid && render.outcome.record_count < 1 &&
         render.view.is_counted && IsText(render.settings) && !render.view.sql.empty() &&
         !render.keys.WasPressed(key::kLast);
}

void OpenShownRecords(Render& render, ShownRecords& records) {
  if (render.view.mode == state::Mode::kFormAdd) return OpenNewRecord(render, records);
  const bool has_failed = render.outcome.has_failed_to_save;
  if (has_failed ? OpenByFailedKey(render, records) : OpenByPostedKey(render, records)) return;
  const std::string& form_statement = FormStatement(render);
  const bool only_form =
      IsText(render.settings) && render.view.sql.empty() && state::IsForm(render.view.mode);
  const std::string& statement = only_form ? form_statement : render.view.sql;
  OpenAtCurrentRecord(render, statement,
                      only_form ? FormStatementParameters(render) : render.settings.SqlParameters, records);
  if (form_statement == statement) return;
  OpenInFormStatement(render, form_statement, records);
  if (has_failed) OpenFieldsOnly(render, form_statement, records);
}

void CloseShownRecords(const Render& render, ShownRecords& records) {
  if (records.is_added) records.main->CancelUpdate();
  if (records.is_added || !render.settings.has_supplied_recordset) records.main->Close();
  if (records.keyed != nullptr) records.keyed->Close();
}

}  // namespace dralo::driver
