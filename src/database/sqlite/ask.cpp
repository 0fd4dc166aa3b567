#include "database/sqlite/ask.h"

#include "database/sqlite/error.h"
#include "database/sqlite/statement.h"

namespace dralo::database::sqlite {

TextRows Ask(sqlite3* connection, std::string_view text, std::initializer_list<std::string_view> parameters) {
  const auto statement = Statement::Prepare(connection, text);
  sqlite3_stmt* handle = statement->Handle();
  int index = 0;
  for (const std::string_view value : parameters) {
    sqlite3_bind_text64(handle, ++index, value.data(), value.size(), SQLITE_STATIC, SQLITE_UTF8);
  }
  TextRows rows;
  int code = SQLITE_ROW;
  while ((code = sqlite3_step(handle)) == SQLITE_ROW) {
    auto& row = rows.emplace_back();
    for (int i = 0; i < sqlite3_column_count(handle); ++i) {
      const auto* value = reinterpret_cast<const char*>(sqlite3_column_text(handle, i));
      row.emplace_back(value ? value : "");
    }
  }
  if (code != SQLITE_DONE) ThrowError(connection, text);
  return rows;
}

}  // namespace dralo::database::sqlite
