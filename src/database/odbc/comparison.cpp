#include "database/odbc/comparison.h"

#include "platform/type_code.h"

namespace dralo::database::odbc {

namespace {

using platform::TypeCode;

bool IsComparedAsText(TypeCode type) {
  return type == TypeCode::kWideChar || type == TypeCode::kVarWideChar || type == TypeCode::kLongVarWideChar;
}

/// Documents (json, xml) have no order; padded texts lose their blanks as "text".
std::string SameInPostgreSql(TypeCode type, const std::string& column) {
  if (type == TypeCode::kSingle) return column + " = CAST(? AS real)";
  if (type == TypeCode::kVarWideChar || type == TypeCode::kLongVarWideChar) {
    return "CAST(" + column + " AS text) = CAST(? AS text)";
  }
  if (type == TypeCode::kWideChar) return column + " = CAST(? AS character)";
  return column + " = ?";
}

/// A text compares without regard to letter case and accents; a single number has another last digit than the
/// double that it is read as.
std::string SameInMariaDb(TypeCode type, const std::string& column) {
  if (type == TypeCode::kSingle) return "CAST(" + column + " AS CHAR) = CAST(? AS CHAR)";
  if (!IsComparedAsText(type)) return column + " = ?";
  return "CAST(CONVERT(" + column + " USING utf8mb4) AS BINARY) = CAST(CONVERT(? USING utf8mb4) AS BINARY)";
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

std::string SameValue(Dialect dialect, const Column& column, const std::string& quoted_column) {
  switch (dialect) {
    case Dialect::kPostgreSql:
      return SameInPostgreSql(column.type, quoted_column);
    case Dialect::kMariaDb:
      return SameInMariaDb(column.type, quoted_column);
    case Dialect::kSqlite:
      return quoted_column + " COLLATE BINARY IS ?";
    case Dialect::kSqlServer:
      return SameInSqlServer(column.type, quoted_column);
    case Dialect::kOracle:
      return SameInOracle(column.type, quoted_column);
    default:
      return quoted_column + " = ?";
  }
}

}  // namespace dralo::database::odbc
