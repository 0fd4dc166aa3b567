#include "settings/statement_parameters.h"

#include <algorithm>
#include <string>

#include "settings/open_connection.h"
#include "text/sql_piece.h"

namespace dralo::settings {

Parameters FormParameters(const Settings& settings) {
  const bool is_copy = settings.FormSqlParameters.empty() && settings.FormSQL == settings.sql;
  return is_copy ? settings.SqlParameters : settings.FormSqlParameters;
}

Parameters EditParameters(const Settings& settings) {
  if (!settings.EditSqlParameters.empty()) return settings.EditSqlParameters;
  if (settings.EditSQL == settings.FormSQL) return FormParameters(settings);
  if (settings.EditSQL == settings.sql) return settings.SqlParameters;
  return {};
}

Parameters EditParametersOf(const Settings& settings, std::string_view beginning) {
  const Parameters all = EditParameters(settings);
  return all.empty() ? all : all.first(std::min(all.size(), text::CountSqlParameters(beginning)));
}

void OpenWithParameters(platform::Recordset& recordset, const Settings& settings, std::string_view sql,
                        Parameters parameters, platform::CursorType cursor, platform::LockType lock) {
  if (parameters.empty()) return recordset.Open(sql, OpenConnection(settings), cursor, lock);
  platform::Command command;
  command.active_connection = OpenConnection(settings);
  command.command_text = sql;
  command.parameters.assign(parameters.begin(), parameters.end());
  recordset.Open(command, cursor, lock);
}

}  // namespace dralo::settings
