#include "database/mariadb/column_type.h"

#include <utility>

#include "database/key_comparison.h"

namespace dralo::database::mariadb {

namespace {

using platform::TypeCode;

constexpr unsigned kBinaryCharacterSet = 63;
constexpr unsigned kBytesPerCharacter = 4;             ///< In the character set of the connection.
constexpr std::int64_t kMaxDeclaredSize = 10'000'000;  ///< Larger ones mean "any length".

struct Kind {
  TypeCode type;
  Reading reading;
};

bool Has(const MYSQL_FIELD& field, unsigned flag) { return (field.flags & flag) != 0; }

Kind Integer(const MYSQL_FIELD& field, TypeCode with_sign, TypeCode without_sign) {
  return {Has(field, UNSIGNED_FLAG) ? without_sign : with_sign, Reading::kInteger};
}

Kind TextOrBytes(const MYSQL_FIELD& field, TypeCode text, TypeCode bytes) {
  if (field.charsetnr == kBinaryCharacterSet) return {bytes, Reading::kBytes};
  return {text, Reading::kText};
}

Kind KindOfNumber(const MYSQL_FIELD& field) {
  switch (field.type) {
    case MYSQL_TYPE_TINY:
      return Integer(field, TypeCode::kTinyInt, TypeCode::kUnsignedTinyInt);
    case MYSQL_TYPE_SHORT:
    case MYSQL_TYPE_YEAR:
      return Integer(field, TypeCode::kSmallInt, TypeCode::kUnsignedSmallInt);
    case MYSQL_TYPE_LONGLONG:
      if (Has(field, UNSIGNED_FLAG)) return {TypeCode::kUnsignedBigInt, Reading::kUnsigned};
      return {TypeCode::kBigInt, Reading::kInteger};
    case MYSQL_TYPE_FLOAT:
      return {TypeCode::kSingle, Reading::kSingle};
    case MYSQL_TYPE_DOUBLE:
      return {TypeCode::kDouble, Reading::kDouble};
    case MYSQL_TYPE_DECIMAL:
    case MYSQL_TYPE_NEWDECIMAL:
      return {TypeCode::kNumeric, Reading::kDecimal};
    default:
      return Integer(field, TypeCode::kInteger, TypeCode::kUnsignedInt);
  }
}

/// For a JSON document MySQL has a type of its own; as a text it has the character set "binary".
Kind KindOfOther(const MYSQL_FIELD& field) {
  switch (field.type) {
    case MYSQL_TYPE_BIT:
      if (field.length == 1) return {TypeCode::kBoolean, Reading::kBoolean};
      return {TypeCode::kBinary, Reading::kBytes};
    case MYSQL_TYPE_DATE:
    case MYSQL_TYPE_NEWDATE:
      return {TypeCode::kDbDate, Reading::kDateTime};
    case MYSQL_TYPE_DATETIME:
    case MYSQL_TYPE_TIMESTAMP:
      return {TypeCode::kDbTimestamp, Reading::kDateTime};
    case MYSQL_TYPE_TIME:
      return {TypeCode::kDbTime, Reading::kTime};
    case MYSQL_TYPE_JSON:
      return {TypeCode::kLongVarWideChar, Reading::kText};
    case MYSQL_TYPE_GEOMETRY:
      return {TypeCode::kLongVarBinary, Reading::kBytes};
    case MYSQL_TYPE_NULL:
      return {TypeCode::kVarWideChar, Reading::kText};
    case MYSQL_TYPE_STRING:
      return TextOrBytes(field, TypeCode::kWideChar, TypeCode::kBinary);
    case MYSQL_TYPE_VARCHAR:
    case MYSQL_TYPE_VAR_STRING:
      return TextOrBytes(field, TypeCode::kVarWideChar, TypeCode::kVarBinary);
    default:
      return TextOrBytes(field, TypeCode::kLongVarWideChar, TypeCode::kLongVarBinary);
  }
}

bool IsNumber(const MYSQL_FIELD& field) {
  return field.type == MYSQL_TYPE_NEWDECIMAL || field.type == MYSQL_TYPE_YEAR ||
         (field.type <= MYSQL_TYPE_INT24 && field.type != MYSQL_TYPE_NULL &&
          field.type != MYSQL_TYPE_TIMESTAMP);
}

std::int64_t DefinedSize(TypeCode type, const MYSQL_FIELD& field) {
  const bool is_text = type == TypeCode::kWideChar || type == TypeCode::kVarWideChar;
  const bool is_sized = is_text || type == TypeCode::kBinary || type == TypeCode::kVarBinary;
  const auto size = static_cast<std::int64_t>(field.length / (is_text ? kBytesPerCharacter : 1));
  return is_sized && size < kMaxDeclaredSize ? size : 0;
}

/// A timestamp accepts Null, which makes it the present moment.
bool IsNullable(const MYSQL_FIELD& field) {
  if (Has(field, AUTO_INCREMENT_FLAG)) return false;
  return !Has(field, NOT_NULL_FLAG) || field.type == MYSQL_TYPE_TIMESTAMP;
}

/// The server also gives names of tables and columns for expressions, which are not real ones.
void AddOrigin(const MYSQL_FIELD& field, Column& column) {
  if (field.org_table_length == 0 || field.org_name_length == 0) return;
  column.origin_database = field.db;
  column.origin_table = field.org_table;
  column.origin = field.org_name;
  column.is_numbered = Has(field, AUTO_INCREMENT_FLAG);
}

Column DescribeColumn(const MYSQL_FIELD& field, TypeCode type) {
  Column column;
  column.name = field.name;
  column.type = type;
  column.has_declared_type = true;
  column.is_nullable = IsNullable(field);
  column.defined_size = DefinedSize(type, field);
  if (type == TypeCode::kDbDate) column.time_parts = TimeParts::kDate;
  if (type == TypeCode::kDbTime) column.time_parts = TimeParts::kTime;
  if (type == TypeCode::kSingle) column.comparison = SamePrintedNumber;
  AddOrigin(field, column);
  return column;
}

}  // namespace

Description Describe(const MYSQL_FIELD* fields, unsigned count) {
  Description description;
  Columns columns;
  for (unsigned i = 0; i < count; ++i) {
    const Kind kind = IsNumber(fields[i]) ? KindOfNumber(fields[i]) : KindOfOther(fields[i]);
    columns.push_back(DescribeColumn(fields[i], kind.type));
    description.readers.push_back({kind.reading, fields[i].decimals});
  }
  description.columns = std::make_shared<const Columns>(std::move(columns));
  return description;
}

Description DescribeTexts(const MYSQL_FIELD* fields, unsigned count) {
  Description description;
  Columns columns;
  for (unsigned i = 0; i < count; ++i) {
    columns.push_back(
        {.name = fields[i].name, .type = TypeCode::kLongVarWideChar, .has_declared_type = true});
    description.readers.push_back({});
  }
  description.columns = std::make_shared<const Columns>(std::move(columns));
  return description;
}

}  // namespace dralo::database::mariadb
