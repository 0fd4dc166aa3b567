#include "driver/shown_records.h"

#include <algorithm>
#include <exception>

#include "driver/query.h"
#include "editing/primary_keys.h"
#include "settings/guard.h"
#include "settings/open_connection.h"
#include "text/list.h"

namespace dralo::driver {
namespace {

namespace key = state::key;
using platform::Recordset;
using settings::Settings;
using state::Render;

/// Setting `sql` copies it into the form's statements, but a command is nothing to address records in.
bool HasStatement(const Settings& settings, const std::string& statement) {
  const bool is_command_copy = settings.has_stored_procedure && statement == settings.sql;
  return !text::TrimBlanks(statement).empty() && !is_command_copy;
}

bool IsPagingRequest(const state::RequestKeys& keys) {
  return std::ranges::any_of(
      std::initializer_list<std::string_view>{key::kFirst, key::kPrevious, key::kNext, key::kLast},
      [&](std::string_view button) { return keys.WasPressed(button); });
}

bool IsText(const Settings& settings) {
  return !settings.has_stored_procedure && !settings.has_supplied_recordset;
}

/// The statement that gives the fields of the form.
const std::string& FormStatement(const Settings& settings, state::Mode mode) {
  return mode == state::Mode::kFormView ? settings.FormSQL : settings.EditSQL;
}

bool IsAddressedByKey(const Render& render, state::Mode mode) {
  const Settings& settings = render.settings;
  return render.form_view && mode != state::Mode::kFormAdd && render.keys.Has(key::kPrimaryKey) &&
         !IsPagingRequest(render.keys) && render.change != settings::Change::kDeleted &&
         HasStatement(settings, FormStatement(settings, mode));
}

std::shared_ptr<Recordset> OpenOneRecord(const Render& render, const std::string& sql) {
  auto recordset = platform::Create<Recordset>(render.environment, "ADODB.Recordset");
  recordset->Open(sql, settings::OpenConnection(render.settings));
  return recordset;
}

/// Opens the view's own records and goes to the current one.
void OpenAtCurrentRecord(Render& render, state::Mode mode, const std::string& statement,
                         ShownRecords& records) {
  const Settings& settings = render.settings;
  const bool last = render.keys.WasPressed(key::kLast);
  records.sql = IsText(settings) ? OrderedSql(settings, statement) : StatementText(settings);
  records.main = OpenMainRecordset(render, records.sql, last ? 0 : PageRecordLimit(render));
  MoveToCurrentRecord(render, *records.main);
  if (mode == state::Mode::kFormEdit) records.main->TakeTypesOfRow();
}

/// Returns whether the posted key addresses the record to show, which is open then.
bool OpenByPostedKey(Render& render, state::Mode mode, ShownRecords& records) {
  const Settings& settings = render.settings;
  if (!IsAddressedByKey(render, mode)) return false;
  const std::string sql = editing::GetSqlPK(render, FormStatement(settings, mode));
  if (sql.empty()) return false;
  records.sql = sql;
  auto record = OpenOneRecord(render, sql);
  // A save may have changed the key, or taken the record out of the statement.
  if (render.change == settings::Change::kSaved && record->Eof()) return false;
  // What is paged through is there for the bar; it is not moved, for the number says nothing about the
  // record.
  records.main = IsText(settings) ? record : OpenMainRecordset(render, settings.sql, 0);
  records.sql = sql;
  records.keyed = std::move(record);
  records.is_addressed_by_key = true;
  return true;
}

/// The same after a failed save, whose key may be one that the database does not take.
bool OpenByFailedKey(Render& render, state::Mode mode, ShownRecords& records) {
  try {
    return OpenByPostedKey(render, mode, records);
  } catch (const std::exception& error) {
    settings::ReportError(render.settings, error.what(), "WriteHTMLTable.");
    records = {};
    return false;
  }
}

/// A form with a statement of its own has other fields than the statement that is paged through: shows the
/// record of the same key in it.
void OpenInFormStatement(Render& render, const std::string& form_statement, ShownRecords& records) {
  const Settings& settings = render.settings;
  const bool has_keys = !text::TrimBlanks(settings.EditPrimaryKeys).empty();
  if (!render.form_view || render.records_on_page != 1 || !has_keys) return;
  if (!HasStatement(settings, form_statement) || records.main->Eof()) return;
  const std::string sql = editing::GetSqlPK(render, form_statement, records.main.get());
  if (sql.empty()) return;
  records.keyed = OpenOneRecord(render, sql);
  // Without a count only the record behind the current one tells whether there is a next page.
  if (settings.RecordCount < 0) records.main->MoveNext();
}

/// What was typed comes back in the fields of the form's own statement, whatever became of its record.
void OpenFieldsOnly(const Render& render, const std::string& form_statement, ShownRecords& records) {
  if (records.keyed != nullptr || !HasStatement(render.settings, form_statement)) return;
  records.keyed = platform::Create<Recordset>(render.environment, "ADODB.Recordset");
  records.keyed->SetMaxRecords(1);
  records.keyed->Open(form_statement, settings::OpenConnection(render.settings));
  if (!records.keyed->Eof()) records.keyed->MoveNext();
}

/// The form needs the fields alone: it is shown also where the statement cannot be added to.
void OpenNewRecord(const Render& render, ShownRecords& records) {
  records.sql = render.settings.EditSQL;
  records.main = platform::Create<Recordset>(render.environment, "ADODB.Recordset");
  records.main->SetMaxRecords(1);
  records.main->SetCursorLocation(platform::CursorLocation::kClient);
  records.main->Open(records.sql, settings::OpenConnection(render.settings), platform::CursorType::kKeyset,
                     platform::LockType::kOptimistic);
  try {
    records.main->AddNew();
    records.is_added = true;
  } catch (const std::exception& error) {
    if (render.settings.last_save_failed) return;  // Which said so.
    settings::ReportError(render.settings, error.what(), "WriteHTMLTable.");
  }
}

}  // namespace

void OpenShownRecords(Render& render, state::Mode mode, ShownRecords& records) {
  const Settings& settings = render.settings;
  if (mode == state::Mode::kFormAdd) return OpenNewRecord(render, records);
  const bool has_failed = settings.last_save_failed;
  if (has_failed ? OpenByFailedKey(render, mode, records) : OpenByPostedKey(render, mode, records)) return;
  const std::string& form_statement = FormStatement(settings, mode);
  const bool only_form = IsText(settings) && settings.sql.empty() && render.form_view;
  const std::string& statement = only_form ? form_statement : settings.sql;
  OpenAtCurrentRecord(render, mode, statement, records);
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
