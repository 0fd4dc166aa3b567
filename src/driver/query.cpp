#include "driver/query.h"

#include <algorithm>
#include <limits>

#include "driver/record_count.h"
#include "settings/open_connection.h"
#include "settings/statement_parameters.h"
#include "state/request_state.h"

namespace dralo::driver {
namespace {

using platform::CursorType;
using platform::LockType;
using platform::Recordset;

/// A command cannot stand in a counting query, so its rows are counted one by one.
std::int32_t CountCommandRows(const state::Render& render) {
  const auto recordset = NewRecordset(render.environment);
  OpenCommand(*recordset, render.settings, CursorType::kStatic, LockType::kReadOnly);
  std::int32_t rows = 0;
  for (; !recordset->Eof() && rows < std::numeric_limits<std::int32_t>::max(); recordset->MoveNext()) ++rows;
  recordset->Close();
  return rows;
}

}  // namespace

std::shared_ptr<Recordset> NewRecordset(platform::Environment& environment) {
  return platform::Create<Recordset>(environment, "ADODB.Recordset");
}

void CountRecords(state::Render& render, bool wanted) {
  const settings::Settings& settings = render.settings;
  if (render.outcome.record_count >= 1) return;
  render.outcome.record_count = -1;
  if (!wanted || settings.has_supplied_recordset) return;
  if (settings.has_stored_procedure) {
    render.outcome.record_count = CountCommandRows(render);
  } else if (!render.view.sql.empty()) {
    render.outcome.record_count =
        RecordCount(render.environment, settings, render.view.sql, settings.SqlParameters);
  }
}

const std::string& StatementText(const state::Render& render) {
  const settings::Settings& settings = render.settings;
  const bool is_command = settings.has_stored_procedure && !settings.has_supplied_recordset;
  return is_command ? settings.StoredProcCommand->command_text : render.view.sql;
}

std::string OrderedSql(const state::ViewState& view, std::string sql) {
  if (view.order_by.empty()) return sql;
  sql.append(" ORDER BY ").append(view.order_by);
  if (view.is_descending) sql += " DESC ";
  return sql;
}

void OpenCommand(Recordset& recordset, const settings::Settings& settings, CursorType cursor, LockType lock) {
  const platform::Command& command = *settings.StoredProcCommand;
  platform::Command bound;
  bound.active_connection =
      command.active_connection ? command.active_connection : settings::OpenConnection(settings);
  bound.command_text = command.command_text;
  bound.command_type = command.command_type;
  bound.parameters = command.parameters.empty() ? settings.SqlParameters : command.parameters;
  recordset.Open(bound, cursor, lock);
}

std::int64_t PageRecordLimit(const state::Render& render, bool is_counted) {
  const std::int64_t behind_page = std::int64_t{render.view.current_record} + render.view.page_size;
  const std::int64_t last = is_counted ? behind_page - 1 : behind_page;
  return std::max<std::int64_t>(std::min<std::int64_t>(last, render.settings.RecordsMaxLimit), 1);
}

std::shared_ptr<Recordset> OpenMainRecordset(const state::Render& render, const std::string& sql,
                                             settings::Parameters parameters, std::int64_t record_limit) {
  const settings::Settings& settings = render.settings;
  if (settings.has_supplied_recordset) return settings.ADORecordset;
  auto recordset = NewRecordset(render.environment);
  if (settings.has_stored_procedure) {
    OpenCommand(*recordset, settings, CursorType::kForwardOnly, LockType::kOptimistic);
    return recordset;
  }
  recordset->SetMaxRecords(record_limit);
  settings::OpenWithParameters(*recordset, settings, sql, parameters);
  return recordset;
}

void CutLastPageToLimit(state::Render& render) {
  const std::int32_t limit = std::max(render.settings.RecordsMaxLimit, 0);
  if (render.outcome.record_count <= limit) return;
  render.outcome.record_count = limit;
  if (render.view.current_record > limit) state::ApplyPagingButtons(render);
}

void MoveToCurrentRecord(state::Render& render, Recordset& recordset) {
  if (render.view.current_record == 1) return;
  const std::int32_t count = render.outcome.record_count;
  if (count >= 0) render.view.current_record = std::max(std::min(render.view.current_record, count), 1);
  const std::int32_t position = std::min(render.view.current_record, render.settings.RecordsMaxLimit);
  if (position > 1) recordset.Move(position - 1);
}

}  // namespace dralo::driver
