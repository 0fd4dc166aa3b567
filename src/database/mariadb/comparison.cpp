#include "database/mariadb/comparison.h"

#include "dralo/type_code.h"

namespace dralo::database::mariadb {

using platform::TypeCode;

/// Texts compare without regard to letter case and accents; a single-precision number has other last digits
/// than the double that it is read as; bits (BIT(8)) compare as a number.
std::string SameValue(const Column& column, const std::string& quoted_column) {
  switch (column.type) {
    case TypeCode::kSingle:
      return "CAST(" + quoted_column + " AS CHAR) = CAST(? AS CHAR)";
    case TypeCode::kBinary:
      return "CAST(" + quoted_column + " AS BINARY) = ?";
    case TypeCode::kWideChar:
    case TypeCode::kVarWideChar:
    case TypeCode::kLongVarWideChar:
      return "CAST(CONVERT(" + quoted_column +
             " USING utf8mb4) AS BINARY) = CAST(CONVERT(? USING utf8mb4) AS BINARY)";
    default:
      return quoted_column + " = ?";
  }
}

/// Dates that no calendar has, such as 0000-00-00, are stored, and read as Null.
std::string NoValue(const Column& column, const std::string& quoted_column) {
  const bool is_date = column.type == TypeCode::kDbDate || column.type == TypeCode::kDbTimestamp;
  if (!is_date) return quoted_column + " IS NULL";
  return "(" + quoted_column + " IS NULL OR YEAR(" + quoted_column + ") = 0 OR MONTH(" + quoted_column +
         ") = 0 OR DAYOFMONTH(" + quoted_column + ") NOT BETWEEN 1 AND DAYOFMONTH(LAST_DAY(DATE_FORMAT(" +
         quoted_column + ", '%Y-%m-01'))))";
}

}  // namespace dralo::database::mariadb
