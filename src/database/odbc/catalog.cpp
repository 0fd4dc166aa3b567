#include "database/odbc/catalog.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <array>
#include <map>

#include "database/odbc/wide_text.h"

namespace dralo::database::odbc {

namespace {

/// The names that a catalog function takes; an empty one is left out.
class Arguments {
 public:
  Arguments(const Link& link, const TableName& name)
      : schema_(ToWide(name.schema)), table_(ToWide(name.table)), has_schemas_(link.HasSchemas()) {}

  SQLWCHAR* Catalog() { return has_schemas_ ? nullptr : Start(schema_); }
  SQLWCHAR* Schema() { return has_schemas_ ? Start(schema_) : nullptr; }
  SQLWCHAR* Table() { return Start(table_); }

 private:
  static SQLWCHAR* Start(std::u16string& text) {
    return text.empty() ? nullptr : reinterpret_cast<SQLWCHAR*>(text.data());
  }

  std::u16string schema_;
  std::u16string table_;
  bool has_schemas_;
};

/// The value in the row on which `statement` stands; Null is "".
std::string TextAt(SQLHSTMT statement, SQLUSMALLINT column) {
  std::array<SQLWCHAR, 512> text{};
  SQLLEN size = SQL_NULL_DATA;
  const SQLRETURN code = SQLGetData(statement, column, SQL_C_WCHAR, text.data(), sizeof text, &size);
  if (!SQL_SUCCEEDED(code) || size == SQL_NULL_DATA) return {};
  return ToNarrow(reinterpret_cast<const char16_t*>(text.data()));
}

int NumberAt(SQLHSTMT statement, SQLUSMALLINT column) {
  SQLINTEGER number = 0;
  SQLLEN size = SQL_NULL_DATA;
  const SQLRETURN code = SQLGetData(statement, column, SQL_C_SLONG, &number, 0, &size);
  return SQL_SUCCEEDED(code) && size != SQL_NULL_DATA ? number : 0;
}

/// Calls the catalog function, then `on_row` for every row that it yields.
template <class Ask, class OnRow>
void ForEachRow(const Link& link, const TableName& name, Ask&& ask, OnRow&& on_row) {
  const StatementHandle statement = link.NewStatement();
  Arguments arguments(link, name);
  link.Require(ask(statement.Get(), arguments), statement.Get(), {});
  while (SQL_SUCCEEDED(SQLFetch(statement.Get()))) on_row(statement.Get());
}

}  // namespace

Names PrimaryKey(const Link& link, const TableName& name) {
  std::map<int, std::string> columns;
  const auto ask = [](SQLHSTMT statement, Arguments& names) {
    return SQLPrimaryKeysW(statement, names.Catalog(), SQL_NTS, names.Schema(), SQL_NTS, names.Table(),
                           SQL_NTS);
  };
  ForEachRow(link, name, ask, [&](SQLHSTMT row) {
    const std::string column = TextAt(row, 4);
    columns[NumberAt(row, 5)] = column;
  });
  Names key;
  for (auto& [place, column] : columns) key.push_back(column);
  return key;
}

std::vector<Names> UniqueIndexes(const Link& link, const TableName& name) {
  std::map<std::string, std::map<int, std::string>> indexes;
  const auto ask = [](SQLHSTMT statement, Arguments& names) {
    return SQLStatisticsW(statement, names.Catalog(), SQL_NTS, names.Schema(), SQL_NTS, names.Table(),
                          SQL_NTS, SQL_INDEX_UNIQUE, SQL_QUICK);
  };
  ForEachRow(link, name, ask, [&](SQLHSTMT row) {
    const int is_not_unique = NumberAt(row, 4);
    const std::string index = TextAt(row, 6);
    const int type = NumberAt(row, 7);
    const int place = NumberAt(row, 8);
    const std::string column = TextAt(row, 9);
    const std::string filter = TextAt(row, 13);
    if (type != SQL_TABLE_STAT && is_not_unique == 0)
      indexes[index][place] = filter.empty() ? column : std::string{};
  });
  std::vector<Names> all;
  for (const auto& [index, columns] : indexes) {
    Names& names = all.emplace_back();
    for (const auto& [place, column] : columns) names.push_back(column);
  }
  return all;
}

Names RequiredColumns(const Link& link, const TableName& name) {
  Names required;
  const auto ask = [](SQLHSTMT statement, Arguments& names) {
    return SQLColumnsW(statement, names.Catalog(), SQL_NTS, names.Schema(), SQL_NTS, names.Table(), SQL_NTS,
                       nullptr, 0);
  };
  ForEachRow(link, name, ask, [&](SQLHSTMT row) {
    const std::string table = TextAt(row, 3);
    const std::string column = TextAt(row, 4);
    if (table == name.table && NumberAt(row, 11) == SQL_NO_NULLS) required.push_back(column);
  });
  return required;
}

}  // namespace dralo::database::odbc
