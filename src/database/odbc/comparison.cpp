#include "database/odbc/comparison.h"

#include "dralo/type_code.h"

namespace dralo::database::odbc {

namespace {

using platform::TypeCode;

bool IsComparedAsText(TypeCode type) {
  return type == TypeCode::kWideChar || type == TypeCode::kVarWideChar || type == TypeCode::kLongVarWideChar;
}

/// Documents (json, xml) have no order, and addresses (inet) as "text" another form than they are read in;
/// concat() writes every type as it is read. Padded texts lose their blanks as "text".
std::string SameInPostgreSql(TypeCode type, const std::string& column) {
  if (type == TypeCode::kSingle) return column + " = CAST(? AS real)";
  if (type == TypeCode::kCurrency) return column + " = CAST(CAST(? AS numeric) AS money)";
  if (type == TypeCode::kVarWideChar || type == TypeCode::kLongVarWideChar) {
    return "concat(" + column + ") = CAST(? AS text)";
  }
  if (type == TypeCode::kWideChar) return "CAST(" + column + " AS bpchar) = CAST(? AS bpchar)";
  return column + " = ?";
}

/// A text compares without regard to letter case and accents; a single number has another last digit than the
/// double that it is read as; bits (BIT(8)) compare as a number.
std::string SameInMariaDb(TypeCode type, const std::string& column) {
  if (type == TypeCode::kSingle) return "CAST(" + column + " AS CHAR) = CAST(? AS CHAR)";
  if (type == TypeCode::kBinary) return "CAST(" + column + " AS BINARY) = ?";
  if (!IsComparedAsText(type)) return column + " = ?";
  return "CAST(CONVERT(" + column + " USING utf8mb4) AS BINARY) = CAST(CONVERT(? USING utf8mb4) AS BINARY)";
}

/// MariaDB keeps days that are in no calendar, such as 0000-00-00, which are read as Null.
std::string NoDayInMariaDb(const std::string& column) {
  return "(" + column + " IS NULL OR YEAR(" + column + ") = 0 OR MONTH(" + column + ") = 0 OR DAYOFMONTH(" +
         column + ") NOT BETWEEN 1 AND DAYOFMONTH(LAST_DAY(DATE_FORMAT(" + column + ", '%Y-%m-01'))))";
}

/// SQLite's driver reads numbers as the texts that SQLite makes of them, with 15 digits.
std::string SameInSqlite(TypeCode type, const std::string& column) {
  if (type == TypeCode::kDouble || type == TypeCode::kNumeric || type == TypeCode::kCurrency) {
    return "CAST(" + column + " AS TEXT) IS CAST(? AS TEXT)";
  }
  return column + " COLLATE BINARY IS ?";
}

std::string SameInSqlServer(TypeCode type, const std::string& column) {
  if (IsComparedAsText(type)) {
    return "CAST(" + column + " AS nvarchar(max)) COLLATE Latin1_General_BIN2 = CAST(? AS nvarchar(max))";
  }
  if (type == TypeCode::kLongVarBinary) return "CAST(" + column + " AS varbinary(max)) = ?";
  return column + " = ?";
}

std::string SameInOracle(TypeCode type, const std::string& column) {
  const bool is_long = type == TypeCode::kLongVarWideChar || type == TypeCode::kLongVarBinary;
  return is_long ? "DBMS_LOB.COMPARE(" + column + ", ?) = 0" : column + " = ?";
}

}  // namespace

std::string NoValue(Dialect dialect, const Column& column, const std::string& quoted_column) {
  const bool is_date = column.type == TypeCode::kDbDate || column.type == TypeCode::kDbTimestamp;
  return dialect == Dialect::kMariaDb && is_date ? NoDayInMariaDb(quoted_column) : quoted_column + " IS NULL";
}

std::string SameValue(Dialect dialect, const Column& column, const std::string& quoted_column) {
  switch (dialect) {
    case Dialect::kPostgreSql:
      return SameInPostgreSql(column.type, quoted_column);
    case Dialect::kMariaDb:
      return SameInMariaDb(column.type, quoted_column);
    case Dialect::kSqlite:
      return SameInSqlite(column.type, quoted_column);
    case Dialect::kSqlServer:
      return SameInSqlServer(column.type, quoted_column);
    case Dialect::kOracle:
      return SameInOracle(column.type, quoted_column);
    default:
      return quoted_column + " = ?";
  }
}

}  // namespace dralo::database::odbc
