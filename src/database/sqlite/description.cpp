#include "database/sqlite/description.h"

#include <string>
#include <string_view>
#include <utility>

#include "database/sqlite/declared_type.h"
#include "database/sqlite/row_number.h"

namespace dralo::database::sqlite {

namespace {

const char* TextOrEmpty(const char* text) { return text ? text : ""; }

/// Remembers the last table, because neighbouring columns usually come from the same one.
class RowNumberFinder {
 public:
  explicit RowNumberFinder(sqlite3* connection) : connection_(connection) {}

  bool IsRowNumber(const Column& column) {
    if (column.origin_table != table_ || column.origin_database != database_) {
      database_ = column.origin_database;
      table_ = column.origin_table;
      row_number_ = RowNumberColumn(connection_, database_, table_);
    }
    return column.origin == row_number_;
  }

 private:
  sqlite3* connection_;
  std::string database_;
  std::string table_;
  std::string row_number_;
};

bool IsNotNull(sqlite3* connection, const Column& column) {
  int is_not_null = 0;
  sqlite3_table_column_metadata(connection, column.origin_database.c_str(), column.origin_table.c_str(),
                                column.origin.c_str(), nullptr, nullptr, &is_not_null, nullptr, nullptr);
  return is_not_null != 0;
}

Column DescribeColumn(sqlite3_stmt* statement, int index, RowNumberFinder& row_numbers) {
  Column column;
  column.name = TextOrEmpty(sqlite3_column_name(statement, index));
  column.origin_database = TextOrEmpty(sqlite3_column_database_name(statement, index));
  column.origin_table = TextOrEmpty(sqlite3_column_table_name(statement, index));
  column.origin = TextOrEmpty(sqlite3_column_origin_name(statement, index));
  SetDeclaredType(column, TextOrEmpty(sqlite3_column_decltype(statement, index)));
  if (!column.origin.empty()) {
    column.is_nullable = !row_numbers.IsRowNumber(column) && !IsNotNull(sqlite3_db_handle(statement), column);
  }
  return column;
}

}  // namespace

Description Describe(sqlite3_stmt* statement) {
  Description description;
  Columns columns;
  RowNumberFinder row_numbers(sqlite3_db_handle(statement));
  const int count = sqlite3_column_count(statement);
  columns.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const Column& column = columns.emplace_back(DescribeColumn(statement, i, row_numbers));
    description.readers.push_back(column.has_declared_type ? ReaderOf(column.type) : Reader::kStored);
    description.has_declared_types = description.has_declared_types && column.has_declared_type;
  }
  description.columns = std::make_shared<const Columns>(std::move(columns));
  description.prepared_again = PreparedAgain(statement);
  return description;
}

int PreparedAgain(sqlite3_stmt* statement) {
  return sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0);
}

}  // namespace dralo::database::sqlite
