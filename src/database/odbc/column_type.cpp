#include "database/odbc/column_type.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <cstdint>

#include "database/key_comparison.h"
#include "text/ascii.h"

namespace dralo::database::odbc {

namespace {

using platform::TypeCode;

/// Longer values than this are rare enough to be fetched one by one.
constexpr std::size_t kMaxCellBytes = 1024;

constexpr std::size_t kNumberBytes = 512;  ///< A number in decimal, however exact.
constexpr std::size_t kDateBytes = 48;
constexpr std::size_t kUuidBytes = 48;
constexpr SQLULEN kMaxDeclaredSize = 10'000'000;  ///< Larger ones stand for "any length".

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

Kind ColumnKind(const DriverType& type, Dialect dialect) {
  const bool has_text_dates = dialect == Dialect::kPostgreSql || dialect == Dialect::kSqlite;
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
      return {TypeCode::kDbDate, has_text_dates ? Reading::kDateText : Reading::kDate};
    case SQL_TYPE_TIME:
      return {TypeCode::kDbTime, Reading::kTimeText};
    case SQL_TYPE_TIMESTAMP:
      return {TypeCode::kDbTimestamp, has_text_dates ? Reading::kDateText : Reading::kTimestamp};
    case SQL_GUID:
      return {TypeCode::kGuid, dialect == Dialect::kPostgreSql ? Reading::kSmallLetters : Reading::kText};
    default:
      return TextOrBytesKind(type.type);
  }
}

/// SQLite's driver goes by some of the declared types only, and its numbers may be of any kind.
void CorrectSqlite(Kind& kind, const DriverType& type) {
  const auto starts = [&](std::string_view name) { return text::StartsWithAscii(type.name, name); };
  if (starts("DECIMAL") || starts("NUMERIC")) kind = {TypeCode::kNumeric, Reading::kNumber};
  if (starts("MONEY") || starts("CURRENCY")) kind = {TypeCode::kCurrency, Reading::kNumber};
  if (starts("TIME") && !starts("TIMESTAMP")) kind = {TypeCode::kDbTime, Reading::kTimeText};
  if (starts("BLOB")) kind = {TypeCode::kLongVarBinary, Reading::kBytes};
  if (kind.reading == Reading::kInteger || kind.reading == Reading::kDouble) kind.reading = Reading::kNumber;
}

bool IsText(TypeCode type) { return type == TypeCode::kWideChar || type == TypeCode::kVarWideChar; }

/// Of the texts of other types PostgreSQL's driver makes a size up: four characters for eight bits.
bool HasMadeUpSize(const DriverType& type, Dialect dialect) {
  constexpr std::string_view kSized[] = {"varchar", "bpchar", "char", "name"};
  return dialect == Dialect::kPostgreSql && std::ranges::find(kSized, type.name) == std::end(kSized);
}

std::int64_t DefinedSize(TypeCode type, SQLULEN size) {
  const bool is_sized = IsText(type) || type == TypeCode::kBinary || type == TypeCode::kVarBinary;
  return is_sized && size < kMaxDeclaredSize ? static_cast<std::int64_t>(size) : 0;
}

Reader ReaderOf(Reading reading, const Column& column) {
  const auto size = static_cast<std::size_t>(column.defined_size);
  std::size_t needed = 0;
  switch (reading) {
    case Reading::kInteger:
    case Reading::kDouble:
      return {reading, sizeof(SQLBIGINT), true};
    case Reading::kBoolean:
      return {reading, 1, true};
    case Reading::kDate:
      return {reading, sizeof(SQL_DATE_STRUCT), true};
    case Reading::kTimestamp:
      return {reading, sizeof(SQL_TIMESTAMP_STRUCT), true};
    case Reading::kDateText:
    case Reading::kTimeText:
      return {reading, kDateBytes, true};
    case Reading::kDoubleText:
    case Reading::kDecimal:
    case Reading::kMoney:
    case Reading::kNumber:
      return {reading, kNumberBytes, true};
    case Reading::kText:
    case Reading::kSmallLetters:
      needed = column.type == TypeCode::kGuid ? kUuidBytes : size == 0 ? 0 : size * 4 + 1;
      break;
    case Reading::kWideText:
      needed = size == 0 ? 0 : (size * 2 + 1) * sizeof(SQLWCHAR);
      break;
    case Reading::kBytes:
      return {reading, 0, false};
  }
  const bool is_bounded = needed > 0 && needed <= kMaxCellBytes;
  return {reading, is_bounded ? needed : kMaxCellBytes, is_bounded};
}

platform::KeyComparison PostgreSqlComparison(TypeCode type) {
  switch (type) {
    case TypeCode::kBoolean:
      return SameBoolean;
    case TypeCode::kCurrency:
      return SameMoney;
    case TypeCode::kSingle:
      return SameReal;
    case TypeCode::kDouble:
    case TypeCode::kNumeric:
    case TypeCode::kDecimal:
      return SameUnlimited;
    default:
      return nullptr;
  }
}

platform::KeyComparison SqliteComparison(TypeCode type, std::string_view declared) {
  if (declared.empty()) return SameOfAnyKind;
  if (type == TypeCode::kDbDate || type == TypeCode::kDbTimestamp) return SameMoment;
  return type == TypeCode::kDbTime ? SameTimeOfDay : nullptr;
}

/// Where the database does not find a value by its text.
platform::KeyComparison ComparisonOf(Dialect dialect, TypeCode type, std::string_view declared) {
  switch (dialect) {
    case Dialect::kPostgreSql:
      return PostgreSqlComparison(type);
    case Dialect::kMariaDb:
      return type == TypeCode::kSingle ? SamePrintedNumber : nullptr;
    case Dialect::kSqlite:
      return SqliteComparison(type, declared);
    default:
      return nullptr;
  }
}

}  // namespace

Reader SetType(Column& column, const DriverType& type, Dialect dialect, bool speaks_utf8) {
  Kind kind = ColumnKind(type, dialect);
  if (dialect == Dialect::kSqlite) CorrectSqlite(kind, type);
  if (dialect == Dialect::kPostgreSql && type.name == "money") kind = {TypeCode::kCurrency, Reading::kMoney};
  if (kind.reading == Reading::kText && !speaks_utf8) kind.reading = Reading::kWideText;
  if (kind.type == TypeCode::kVarWideChar && type.size >= kMaxDeclaredSize)
    kind.type = TypeCode::kLongVarWideChar;
  column.type = kind.type;
  column.has_declared_type = true;
  column.comparison = ComparisonOf(dialect, kind.type, type.name);
  column.defined_size = HasMadeUpSize(type, dialect) ? 0 : DefinedSize(kind.type, type.size);
  if (kind.type == TypeCode::kDbDate) column.time_parts = TimeParts::kDate;
  if (kind.type == TypeCode::kDbTime) column.time_parts = TimeParts::kTime;
  if (dialect == Dialect::kSqlite && kind.type == TypeCode::kInteger) column.holds_64_bits = true;
  return ReaderOf(kind.reading, column);
}

}  // namespace dralo::database::odbc
