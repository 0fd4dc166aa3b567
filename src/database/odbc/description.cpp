#include "database/odbc/description.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <array>
#include <utility>

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

/// The text ends at its zero, because some drivers count that, and others count characters instead of bytes.
std::string TextAttribute(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT attribute) {
  std::array<SQLWCHAR, kMaxNameUnits> text{};
  SQLSMALLINT bytes = 0;
  const SQLRETURN code = SQLColAttributeW(statement, column, attribute, text.data(),
                                          static_cast<SQLSMALLINT>(sizeof text), &bytes, nullptr);
  return SQL_SUCCEEDED(code) ? ToNarrow(reinterpret_cast<const char16_t*>(text.data())) : std::string{};
}

/// A column that the database numbers is never Null. Some drivers still call it nullable, meaning that Null
/// may be written to it.
bool IsNullable(SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT type, SQLSMALLINT described) {
  if (described == SQL_NO_NULLS) return false;
  return !IsInteger(type) || NumberAttribute(statement, number, SQL_DESC_AUTO_UNIQUE_VALUE) != SQL_TRUE;
}

void DropOriginsOfGivenNames(std::string_view text, Columns& columns) {
  for (const std::string& name : GivenNames(text)) {
    for (Column& column : columns) {
      if (text::EqualAscii(column.name, name)) column.origin.clear();
    }
  }
}

SQLRETURN DescribeColumn(SQLHSTMT statement, SQLUSMALLINT number, std::string& name, DriverType& type,
                         SQLSMALLINT& nullable) {
  std::array<SQLWCHAR, kMaxNameUnits> text{};
  SQLSMALLINT size = 0;
  SQLSMALLINT digits = 0;
  const SQLRETURN code =
      SQLDescribeColW(statement, number, text.data(), static_cast<SQLSMALLINT>(text.size()), &size,
                      &type.type, &type.size, &digits, &nullable);
  name = ToNarrow(reinterpret_cast<const char16_t*>(text.data()));
  return code;
}

void AddOrigin(SQLHSTMT statement, SQLUSMALLINT number, Column& column) {
  column.origin = TextAttribute(statement, number, SQL_DESC_BASE_COLUMN_NAME);
  column.origin_table = TextAttribute(statement, number, SQL_DESC_BASE_TABLE_NAME);
  if (column.origin.empty() || column.origin_table.empty()) {
    column.origin.clear();
    column.origin_table.clear();
    return;
  }
  column.origin_database = TextAttribute(statement, number, SQL_DESC_SCHEMA_NAME);
  if (column.origin_database.empty()) {
    column.origin_database = TextAttribute(statement, number, SQL_DESC_CATALOG_NAME);
  }
}

}  // namespace

SQLSMALLINT CountColumns(const Link& link, SQLHSTMT statement, std::string_view text) {
  SQLSMALLINT count = 0;
  link.Require(SQLNumResultCols(statement, &count), statement, text);
  return count;
}

Description Describe(const Link& link, SQLHSTMT statement, std::string_view text, bool wants_origins) {
  Description description;
  Columns columns;
  const SQLSMALLINT count = CountColumns(link, statement, text);
  columns.reserve(static_cast<std::size_t>(count));
  for (SQLUSMALLINT number = 1; std::cmp_less_equal(number, count); ++number) {
    Column& column = columns.emplace_back();
    SQLSMALLINT nullable = SQL_NULLABLE_UNKNOWN;
    DriverType type;
    link.Require(DescribeColumn(statement, number, column.name, type, nullable), statement, text);
    type.is_unsigned =
        IsInteger(type.type) && NumberAttribute(statement, number, SQL_DESC_UNSIGNED) == SQL_TRUE;
    const std::string type_name = TextAttribute(statement, number, SQL_DESC_TYPE_NAME);
    type.name = type_name;
    description.readings.push_back(SetType(column, type, link.GetDialect()));
    column.is_nullable = IsNullable(statement, number, type.type, nullable);
    if (!wants_origins) continue;
    AddOrigin(statement, number, column);
    column.is_numbered = NumberAttribute(statement, number, SQL_DESC_AUTO_UNIQUE_VALUE) == SQL_TRUE;
  }
  if (wants_origins && link.GetDialect().confuses_given_names) DropOriginsOfGivenNames(text, columns);
  description.columns = std::make_shared<const Columns>(std::move(columns));
  return description;
}

}  // namespace dralo::database::odbc
