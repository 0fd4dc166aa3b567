#include "database/odbc/catalog.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <map>
#include <type_traits>

#include "database/odbc/quote.h"
#include "database/odbc/wide_text.h"

namespace dralo::database::odbc {

namespace {

/// The names that a catalog function takes, in the form that the driver does; an empty one is not given.
template <class Unit>
class Arguments {
 public:
  Arguments(const Link& link, const TableName& name) {
    const bool has_catalogs_only = link.GetDialect() == Dialect::kMariaDb;
    const bool has_neither = link.GetDialect() == Dialect::kSqlite;
    if (has_catalogs_only) catalog_ = Convert(name.schema);
    if (!has_catalogs_only && !has_neither) schema_ = Convert(name.schema);
    table_ = Convert(name.table);
  }

  Unit* Catalog() { return Start(catalog_); }
  Unit* Schema() { return Start(schema_); }
  Unit* Table() { return Start(table_); }

 private:
  using Text = std::basic_string<std::conditional_t<sizeof(Unit) == 1, char, char16_t>>;

  static Text Convert(const std::string& name) {
    if constexpr (sizeof(Unit) == 1) {
      return name;
    } else {
      return ToWide(name);
    }
  }

  static Unit* Start(Text& text) { return text.empty() ? nullptr : reinterpret_cast<Unit*>(text.data()); }

  Text catalog_;
  Text schema_;
  Text table_;
};

using Narrow = Arguments<SQLCHAR>;
using Wide = Arguments<SQLWCHAR>;

/// The value in the row that `statement` stands on; Null is "".
std::string TextAt(const Link& link, SQLHSTMT statement, SQLUSMALLINT column) {
  std::array<SQLWCHAR, 512> text{};
  SQLLEN size = SQL_NULL_DATA;
  const SQLSMALLINT type = link.IsNarrow() ? SQL_C_CHAR : SQL_C_WCHAR;
  const SQLRETURN code = SQLGetData(statement, column, type, text.data(), sizeof text, &size);
  if (!SQL_SUCCEEDED(code) || size == SQL_NULL_DATA) return {};
  if (link.IsNarrow()) return reinterpret_cast<const char*>(text.data());
  return ToNarrow(reinterpret_cast<const char16_t*>(text.data()));
}

int NumberAt(SQLHSTMT statement, SQLUSMALLINT column) {
  SQLINTEGER number = 0;
  SQLLEN size = SQL_NULL_DATA;
  const SQLRETURN code = SQLGetData(statement, column, SQL_C_SLONG, &number, 0, &size);
  return SQL_SUCCEEDED(code) && size != SQL_NULL_DATA ? number : 0;
}

/// Calls the catalog function in one of its forms, then `on_row` for every row that it yields.
template <class AskNarrow, class AskWide, class OnRow>
void ForEachRow(const Link& link, const TableName& name, AskNarrow&& ask_narrow, AskWide&& ask_wide,
                OnRow&& on_row) {
  const StatementHandle statement = link.NewStatement();
  SQLRETURN code = SQL_SUCCESS;
  if (link.IsNarrow()) {
    Narrow arguments(link, name);
    code = ask_narrow(statement.Get(), arguments);
  } else {
    Wide arguments(link, name);
    code = ask_wide(statement.Get(), arguments);
  }
  link.Require(code, statement.Get(), {});
  while (SQL_SUCCEEDED(SQLFetch(statement.Get()))) on_row(statement.Get());
}

}  // namespace

Names PrimaryKey(const Link& link, const TableName& name) {
  std::map<int, std::string> columns;
  const auto narrow = [](SQLHSTMT statement, Narrow& names) {
    return SQLPrimaryKeys(statement, names.Catalog(), SQL_NTS, names.Schema(), SQL_NTS, names.Table(),
                          SQL_NTS);
  };
  const auto wide = [](SQLHSTMT statement, Wide& names) {
    return SQLPrimaryKeysW(statement, names.Catalog(), SQL_NTS, names.Schema(), SQL_NTS, names.Table(),
                           SQL_NTS);
  };
  ForEachRow(link, name, narrow, wide, [&](SQLHSTMT row) {
    const std::string column = TextAt(link, row, 4);
    columns[NumberAt(row, 5)] = column;
  });
  Names key;
  for (auto& [place, column] : columns) key.push_back(column);
  return key;
}

std::vector<Names> UniqueIndexes(const Link& link, const TableName& name) {
  std::map<std::string, std::map<int, std::string>> indexes;
  const auto narrow = [](SQLHSTMT statement, Narrow& names) {
    return SQLStatistics(statement, names.Catalog(), SQL_NTS, names.Schema(), SQL_NTS, names.Table(), SQL_NTS,
                         SQL_INDEX_UNIQUE, SQL_QUICK);
  };
  const auto wide = [](SQLHSTMT statement, Wide& names) {
    return SQLStatisticsW(statement, names.Catalog(), SQL_NTS, names.Schema(), SQL_NTS, names.Table(),
                          SQL_NTS, SQL_INDEX_UNIQUE, SQL_QUICK);
  };
  ForEachRow(link, name, narrow, wide, [&](SQLHSTMT row) {
    const int is_not_unique = NumberAt(row, 4);
    const std::string index = TextAt(link, row, 6);
    const int type = NumberAt(row, 7);
    const int place = NumberAt(row, 8);
    const std::string column = TextAt(link, row, 9);
    const std::string filter = TextAt(link, row, 13);
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
  const auto narrow = [](SQLHSTMT statement, Narrow& names) {
    return SQLColumns(statement, names.Catalog(), SQL_NTS, names.Schema(), SQL_NTS, names.Table(), SQL_NTS,
                      nullptr, 0);
  };
  const auto wide = [](SQLHSTMT statement, Wide& names) {
    return SQLColumnsW(statement, names.Catalog(), SQL_NTS, names.Schema(), SQL_NTS, names.Table(), SQL_NTS,
                       nullptr, 0);
  };
  ForEachRow(link, name, narrow, wide, [&](SQLHSTMT row) {
    const std::string table = TextAt(link, row, 3);
    const std::string column = TextAt(link, row, 4);
    if (table == name.table && NumberAt(row, 11) == SQL_NO_NULLS) required.push_back(column);
  });
  return required;
}

std::optional<std::string> NumberedColumn(const Link& link, const TableName& name) {
  if (link.GetDialect() != Dialect::kSqlite) return std::nullopt;
  const Names key = PrimaryKey(link, name);
  if (key.size() != 1) return std::nullopt;
  const std::int64_t is_integer =
      link.AskNumber("SELECT COUNT(*) FROM pragma_table_info(" + Quote(name.table, "'") +
                     ") WHERE name = " + Quote(key.front(), "'") + " AND type = 'INTEGER' COLLATE NOCASE");
  return is_integer > 0 ? std::optional(key.front()) : std::nullopt;
}

}  // namespace dralo::database::odbc
