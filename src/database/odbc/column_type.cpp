#include "database/odbc/column_type.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <cstdint>

namespace dralo::database::odbc {

namespace {

using platform::TypeCode;

constexpr SQLULEN kMaxDeclaredSize = 10'000'000;  ///< Larger ones mean "any length".

struct Kind {
  TypeCode type;
  Reading reading;
};

Kind IntegerKind(const DriverType& type, TypeCode with_sign, TypeCode without_sign) {
  return {type.is_unsigned ? without_sign : with_sign, Reading::kInteger};
}

Kind TextOrBytesKind(SQLSMALLINT type) {
  switch (type) {
    case SQL_CHAR:
    case SQL_WCHAR:
      return {TypeCode::kWideChar, Reading::kText};
    case SQL_LONGVARCHAR:
    case SQL_WLONGVARCHAR:
      return {TypeCode::kLongVarWideChar, Reading::kText};
    case SQL_BINARY:
      return {TypeCode::kBinary, Reading::kBytes};
    case SQL_VARBINARY:
      return {TypeCode::kVarBinary, Reading::kBytes};
    case SQL_LONGVARBINARY:
      return {TypeCode::kLongVarBinary, Reading::kBytes};
    default:
      return {TypeCode::kVarWideChar, Reading::kText};
  }
}

Kind ColumnKind(const DriverType& type) {
  switch (type.type) {
    case SQL_BIT:
      return {TypeCode::kBoolean, Reading::kBoolean};
    case SQL_TINYINT:
      return IntegerKind(type, TypeCode::kTinyInt, TypeCode::kUnsignedTinyInt);
    case SQL_SMALLINT:
      return IntegerKind(type, TypeCode::kSmallInt, TypeCode::kUnsignedSmallInt);
    case SQL_INTEGER:
      return IntegerKind(type, TypeCode::kInteger, TypeCode::kUnsignedInt);
    case SQL_BIGINT:
      // Half of the unsigned numbers do not fit into 64 bits with a sign.
      return type.is_unsigned ? Kind{TypeCode::kUnsignedBigInt, Reading::kDecimal}
                              : Kind{TypeCode::kBigInt, Reading::kInteger};
    case SQL_REAL:
      return {TypeCode::kSingle, Reading::kDoubleText};
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return {TypeCode::kDouble, Reading::kDouble};
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return {TypeCode::kNumeric, Reading::kDecimal};
    case SQL_TYPE_DATE:
      return {TypeCode::kDbDate, Reading::kDate};
    case SQL_TYPE_TIME:
      return {TypeCode::kDbTime, Reading::kTime};
    case SQL_TYPE_TIMESTAMP:
      return {TypeCode::kDbTimestamp, Reading::kDate};
    case SQL_GUID:
      return {TypeCode::kGuid, Reading::kUuid};
    default:
      return TextOrBytesKind(type.type);
  }
}

bool IsText(TypeCode type) { return type == TypeCode::kWideChar || type == TypeCode::kVarWideChar; }

/// The driver makes up the sizes of other types: four characters for eight bits.
bool HasDeclaredSize(const DriverType& type, const Dialect& dialect) {
  return dialect.sized_types.empty() ||
         std::ranges::find(dialect.sized_types, type.name) != dialect.sized_types.end();
}

std::int64_t DefinedSize(TypeCode type, SQLULEN size) {
  const bool is_sized = IsText(type) || type == TypeCode::kBinary || type == TypeCode::kVarBinary;
  return is_sized && size < kMaxDeclaredSize ? static_cast<std::int64_t>(size) : 0;
}

}  // namespace

bool IsInteger(SQLSMALLINT type) {
  return type == SQL_TINYINT || type == SQL_SMALLINT || type == SQL_INTEGER || type == SQL_BIGINT;
}

Reading SetType(Column& column, const DriverType& type, const Dialect& dialect) {
  const bool is_money = !dialect.money.empty() && type.name == dialect.money;
  Kind kind = is_money ? Kind{TypeCode::kCurrency, Reading::kMoney} : ColumnKind(type);
  if (kind.type == TypeCode::kVarWideChar && type.size >= kMaxDeclaredSize)
    kind.type = TypeCode::kLongVarWideChar;
  column.type = kind.type;
  column.has_declared_type = true;
  column.comparison = RuleOf(dialect.types, kind.type).comparison;
  column.defined_size = HasDeclaredSize(type, dialect) ? DefinedSize(kind.type, type.size) : 0;
  if (kind.type == TypeCode::kDbDate) column.time_parts = TimeParts::kDate;
  if (kind.type == TypeCode::kDbTime) column.time_parts = TimeParts::kTime;
  return kind.reading;
}

}  // namespace dralo::database::odbc
