#include "driver/query.h"

#include <algorithm>
#include <limits>

#include "driver/record_count.h"
#include "settings/open_connection.h"
#include "state/request_state.h"

namespace dralo::driver {
namespace {

using platform::CursorType;
using platform::LockType;
using platform::Recordset;

std::shared_ptr<Recordset> NewRecordset(platform::Environment& environment) {
  return platform::Create<Recordset>(environment, "ADODB.Recordset");
}

/// Commands cannot be wrapped into a counting query: the rows are walked.
std::int32_t CountCommandRows(const state::Render& render) {
  const auto recordset = NewRecordset(render.environment);
  OpenCommand(*recordset, render.settings, CursorType::kStatic, LockType::kReadOnly);
  std::int32_t rows = 0;
  for (; !recordset->Eof() && rows < std::numeric_limits<std::int32_t>::max(); recordset->MoveNext()) ++rows;
  recordset->Close();
  return rows;
}

}  // namespace

void CountRecords(state::Render& render, bool wanted) {
  settings::Settings& settings = render.settings;
  if (settings.RecordCount >= 1) return;
  settings.RecordCount = -1;
  if (!wanted || settings.has_supplied_recordset) return;
  if (settings.has_stored_procedure) {
    settings.RecordCount = CountCommandRows(render);
  } else if (!settings.sql.empty()) {
    settings.RecordCount = RecordCount(render.environment, settings::OpenConnection(settings), settings.sql);
  }
}

const std::string& StatementText(const settings::Settings& settings) {
  const bool is_command = settings.has_stored_procedure && !settings.has_supplied_recordset;
  return is_command ? settings.StoredProcCommand->command_text : settings.sql;
}

std::string OrderedSql(const settings::Settings& settings, std::string sql) {
  if (settings.OrderByFields.empty()) return sql;
  sql.append(" ORDER BY ").append(settings.OrderByFields);
  if (settings.OrderByDesc) sql += " DESC ";
  return sql;
}

void OpenCommand(Recordset& recordset, const settings::Settings& settings, CursorType cursor, LockType lock) {
  const platform::Command& command = *settings.StoredProcCommand;
  platform::Command bound;
  bound.active_connection =
      command.active_connection ? command.active_connection : settings::OpenConnection(settings);
  bound.command_text = command.command_text;
  bound.command_type = command.command_type;
  bound.parameters = command.parameters;
  recordset.Open(bound, cursor, lock);
}

std::int64_t PageRecordLimit(const state::Render& render) {
  const std::int64_t page_end = std::int64_t{render.current_record} + render.settings.RecordsPerPage;
  return std::max<std::int64_t>(std::min<std::int64_t>(page_end, render.settings.RecordsMaxLimit), 1);
}

std::shared_ptr<Recordset> OpenMainRecordset(state::Render& render, const std::string& sql,
                                             std::int64_t record_limit) {
  const settings::Settings& settings = render.settings;
  if (settings.has_supplied_recordset) return settings.ADORecordset;
  auto recordset = NewRecordset(render.environment);
  if (settings.has_stored_procedure) {
    OpenCommand(*recordset, settings, CursorType::kForwardOnly, LockType::kOptimistic);
    return recordset;
  }
  recordset->SetMaxRecords(record_limit);
  recordset->Open(sql, settings::OpenConnection(settings), CursorType::kForwardOnly, LockType::kReadOnly);
  return recordset;
}

void CutLastPageToLimit(state::Render& render) {
  settings::Settings& settings = render.settings;
  const std::int32_t limit = std::max(settings.RecordsMaxLimit, 0);
  if (settings.RecordCount <= limit) return;
  settings.RecordCount = limit;
  if (render.current_record > limit) state::ApplyPagingButtons(render);
}

void MoveToCurrentRecord(state::Render& render, Recordset& recordset) {
  if (render.current_record == 1) return;
  const std::int32_t count = render.settings.RecordCount;
  if (count >= 0) render.current_record = std::max(std::min(render.current_record, count), 1);
  const std::int32_t position = std::min(render.current_record, render.settings.RecordsMaxLimit);
  if (position > 1) recordset.Move(position - 1);
}

}  // namespace dralo::driver
