#include "database/odbc/description.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <array>
#include <utility>

#include "database/odbc/catalog.h"
#include "database/odbc/column_type.h"
#include "database/odbc/wide_text.h"
#include "database/select_list.h"
#include "text/ascii.h"

namespace dralo::database::odbc {

namespace {

constexpr std::size_t kMaxNameUnits = 512;

SQLLEN NumberAttribute(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT attribute) {
  SQLLEN number = 0;
  SQLColAttributeW(statement, column, attribute, nullptr, 0, nullptr, &number);
  return number;
}

bool IsInteger(SQLSMALLINT type) {
  return type == SQL_TINYINT || type == SQL_SMALLINT || type == SQL_INTEGER || type == SQL_BIGINT;
}

/// A column that the database numbers is never Null, though some drivers mean by "nullable" that Null may be
/// written to it. In SQLite it is the primary key of the declared type INTEGER.
bool IsNullable(const Link& link, SQLHSTMT statement, SQLUSMALLINT number, const DriverType& type,
                SQLSMALLINT described) {
  if (link.GetDialect() == Dialect::kSqlite) {
    if (NumberAttribute(statement, number, SQL_DESC_NULLABLE) == SQL_NO_NULLS) return false;
    const TableName table{{}, TextAttribute(link, statement, number, SQL_DESC_BASE_TABLE_NAME)};
    return type.type != SQL_INTEGER || table.table.empty() ||
           NumberedColumn(link, table) != TextAttribute(link, statement, number, SQL_DESC_BASE_COLUMN_NAME);
  }
  if (described == SQL_NO_NULLS) return false;
  const bool may_be_numbered = link.GetDialect() == Dialect::kMariaDb && IsInteger(type.type);
  return !may_be_numbered || NumberAttribute(statement, number, SQL_DESC_AUTO_UNIQUE_VALUE) != SQL_TRUE;
}

bool IsUnsigned(const Link& link, SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT type) {
  const bool is_told =
      link.GetDialect() == Dialect::kPostgreSql ? type == SQL_INTEGER : link.GetDialect() != Dialect::kSqlite;
  return is_told && IsInteger(type) && NumberAttribute(statement, number, SQL_DESC_UNSIGNED) == SQL_TRUE;
}

std::string TypeName(const Link& link, SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT type) {
  const bool is_told_apart = type == SQL_FLOAT || type == SQL_CHAR || type == SQL_VARCHAR ||
                             type == SQL_WCHAR || type == SQL_WVARCHAR;
  const bool is_needed =
      link.GetDialect() == Dialect::kSqlite || (link.GetDialect() == Dialect::kPostgreSql && is_told_apart);
  return is_needed ? TextAttribute(link, statement, number, SQL_DESC_TYPE_NAME) : std::string{};
}

/// SQLite's driver takes a name that the query gave to a field for that of a column.
void DropOriginsOfGivenNames(std::string_view text, Columns& columns) {
  for (const std::string& name : GivenNames(text)) {
    for (Column& column : columns) {
      if (text::EqualAscii(column.name, name)) column.origin.clear();
    }
  }
}

SQLRETURN DescribeColumn(const Link& link, SQLHSTMT statement, SQLUSMALLINT number, std::string& name,
                         DriverType& type, SQLSMALLINT& nullable) {
  std::array<SQLWCHAR, kMaxNameUnits> text{};
  SQLSMALLINT size = 0;
  SQLSMALLINT digits = 0;
  const auto room = static_cast<SQLSMALLINT>(text.size());
  SQLRETURN code = SQL_SUCCESS;
  if (link.IsNarrow()) {
    code = SQLDescribeCol(statement, number, reinterpret_cast<SQLCHAR*>(text.data()), room, &size, &type.type,
                          &type.size, &digits, &nullable);
    name = reinterpret_cast<const char*>(text.data());
  } else {
    code = SQLDescribeColW(statement, number, text.data(), room, &size, &type.type, &type.size, &digits,
                           &nullable);
    name = ToNarrow(reinterpret_cast<const char16_t*>(text.data()));
  }
  return code;
}

void AddOrigin(const Link& link, SQLHSTMT statement, SQLUSMALLINT number, Column& column) {
  column.origin = TextAttribute(link, statement, number, SQL_DESC_BASE_COLUMN_NAME);
  column.origin_table = TextAttribute(link, statement, number, SQL_DESC_BASE_TABLE_NAME);
  if (column.origin.empty() || column.origin_table.empty()) {
    column.origin.clear();
    column.origin_table.clear();
    return;
  }
  column.origin_database = TextAttribute(link, statement, number, SQL_DESC_SCHEMA_NAME);
  if (column.origin_database.empty()) {
    column.origin_database = TextAttribute(link, statement, number, SQL_DESC_CATALOG_NAME);
  }
}

}  // namespace

SQLSMALLINT CountColumns(const Link& link, SQLHSTMT statement, std::string_view text) {
  SQLSMALLINT count = 0;
  link.Require(SQLNumResultCols(statement, &count), statement, text);
  return count;
}

/// Some drivers count the terminating zero, others characters instead of bytes, so it is looked for.
std::string TextAttribute(const Link& link, SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT attribute) {
  std::array<SQLWCHAR, kMaxNameUnits> text{};
  SQLSMALLINT bytes = 0;
  const auto room = static_cast<SQLSMALLINT>(sizeof text);
  if (link.IsNarrow()) {
    const SQLRETURN code = SQLColAttribute(statement, column, attribute, text.data(), room, &bytes, nullptr);
    return SQL_SUCCEEDED(code) ? reinterpret_cast<const char*>(text.data()) : std::string{};
  }
  const SQLRETURN code = SQLColAttributeW(statement, column, attribute, text.data(), room, &bytes, nullptr);
  return SQL_SUCCEEDED(code) ? ToNarrow(reinterpret_cast<const char16_t*>(text.data())) : std::string{};
}

Description Describe(const Link& link, SQLHSTMT statement, std::string_view text, bool wants_origins,
                     SQLUSMALLINT first) {
  Description description;
  Columns columns;
  const SQLSMALLINT count = CountColumns(link, statement, text);
  columns.reserve(static_cast<std::size_t>(count));
  for (SQLUSMALLINT number = first; std::cmp_less_equal(number, count); ++number) {
    Column& column = columns.emplace_back();
    SQLSMALLINT nullable = SQL_NULLABLE_UNKNOWN;
    DriverType type;
    link.Require(DescribeColumn(link, statement, number, column.name, type, nullable), statement, text);
    type.is_unsigned = IsUnsigned(link, statement, number, type.type);
    const std::string type_name = TypeName(link, statement, number, type.type);
    type.name = type_name;
    description.readers.push_back(SetType(column, type, link.GetDialect(), link.SpeaksUtf8()));
    column.is_nullable = IsNullable(link, statement, number, type, nullable);
    if (!wants_origins) continue;
    AddOrigin(link, statement, number, column);
    column.is_numbered = NumberAttribute(statement, number, SQL_DESC_AUTO_UNIQUE_VALUE) == SQL_TRUE;
  }
  if (wants_origins && link.GetDialect() == Dialect::kSqlite) DropOriginsOfGivenNames(text, columns);
  description.columns = std::make_shared<const Columns>(std::move(columns));
  return description;
}

}  // namespace dralo::database::odbc
