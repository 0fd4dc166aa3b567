#include "database/mariadb/column_type.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

#include "database/key_comparison.h"

namespace dralo::database::mariadb {

namespace {

using platform::TypeCode;

constexpr unsigned kBinaryCharacterSet = 63;
constexpr unsigned kBytesPerCharacter = 4;             ///< In the character set of the connection.
constexpr std::int64_t kMaxDeclaredSize = 10'000'000;  ///< Larger ones mean "any length".

bool Has(const MYSQL_FIELD& field, unsigned flag) { return (field.flags & flag) != 0; }

struct Kind {
  TypeCode type;
  Reading reading;
};

/// The other kind is that of an integer without a sign, of several bits, or of a text that holds bytes.
struct KindsOfType {
  enum_field_types type;
  Kind usual;
  std::optional<Kind> other = {};
};

constexpr Kind kLongText = {TypeCode::kLongVarWideChar, Reading::kText};
constexpr Kind kLongBytes = {TypeCode::kLongVarBinary, Reading::kBytes};

constexpr KindsOfType Integer(enum_field_types type, TypeCode with_sign, TypeCode without_sign) {
  return {type, {with_sign, Reading::kInteger}, Kind{without_sign, Reading::kInteger}};
}

constexpr KindsOfType Text(enum_field_types type, TypeCode text, TypeCode bytes) {
  return {type, {text, Reading::kText}, Kind{bytes, Reading::kBytes}};
}

/// For a JSON document MySQL has a type of its own; as a text it has the character set "binary".
constexpr KindsOfType kKinds[] = {
    Integer(MYSQL_TYPE_TINY, TypeCode::kTinyInt, TypeCode::kUnsignedTinyInt),
    Integer(MYSQL_TYPE_SHORT, TypeCode::kSmallInt, TypeCode::kUnsignedSmallInt),
    Integer(MYSQL_TYPE_YEAR, TypeCode::kSmallInt, TypeCode::kUnsignedSmallInt),
    Integer(MYSQL_TYPE_INT24, TypeCode::kInteger, TypeCode::kUnsignedInt),
    Integer(MYSQL_TYPE_LONG, TypeCode::kInteger, TypeCode::kUnsignedInt),
    {MYSQL_TYPE_LONGLONG,
     {TypeCode::kBigInt, Reading::kInteger},
     Kind{TypeCode::kUnsignedBigInt, Reading::kUnsigned}},
    {MYSQL_TYPE_FLOAT, {TypeCode::kSingle, Reading::kSingle}},
    {MYSQL_TYPE_DOUBLE, {TypeCode::kDouble, Reading::kDouble}},
    {MYSQL_TYPE_DECIMAL, {TypeCode::kNumeric, Reading::kDecimal}},
    {MYSQL_TYPE_NEWDECIMAL, {TypeCode::kNumeric, Reading::kDecimal}},
    {MYSQL_TYPE_BIT, {TypeCode::kBoolean, Reading::kBoolean}, Kind{TypeCode::kBinary, Reading::kBytes}},
    {MYSQL_TYPE_DATE, {TypeCode::kDbDate, Reading::kDateTime}},
    {MYSQL_TYPE_NEWDATE, {TypeCode::kDbDate, Reading::kDateTime}},
    {MYSQL_TYPE_DATETIME, {TypeCode::kDbTimestamp, Reading::kDateTime}},
    {MYSQL_TYPE_TIMESTAMP, {TypeCode::kDbTimestamp, Reading::kDateTime}},
    {MYSQL_TYPE_TIME, {TypeCode::kDbTime, Reading::kTime}},
    {MYSQL_TYPE_JSON, kLongText},
    {MYSQL_TYPE_GEOMETRY, kLongBytes},
    {MYSQL_TYPE_NULL, {TypeCode::kVarWideChar, Reading::kText}},
    Text(MYSQL_TYPE_STRING, TypeCode::kWideChar, TypeCode::kBinary),
    Text(MYSQL_TYPE_VARCHAR, TypeCode::kVarWideChar, TypeCode::kVarBinary),
    Text(MYSQL_TYPE_VAR_STRING, TypeCode::kVarWideChar, TypeCode::kVarBinary),
};

bool IsOfOtherKind(const MYSQL_FIELD& field, Reading usual) {
  if (usual == Reading::kInteger) return Has(field, UNSIGNED_FLAG);
  if (usual == Reading::kBoolean) return field.length != 1;
  return field.charsetnr == kBinaryCharacterSet;
}

Kind KindOfColumn(const MYSQL_FIELD& field) {
  const auto* const found = std::ranges::find(kKinds, field.type, &KindsOfType::type);
  const KindsOfType kinds =
      found != std::end(kKinds) ? *found : KindsOfType{field.type, kLongText, kLongBytes};
  return kinds.other && IsOfOtherKind(field, kinds.usual.reading) ? *kinds.other : kinds.usual;
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

void AddDetails(const MYSQL_FIELD& field, Column& column) {
  column.is_nullable = IsNullable(field);
  column.defined_size = DefinedSize(column.type, field);
  if (column.type == TypeCode::kDbDate) column.time_parts = TimeParts::kDate;
  if (column.type == TypeCode::kDbTime) column.time_parts = TimeParts::kTime;
  if (column.type == TypeCode::kSingle) column.comparison = SamePrintedNumber;
  AddOrigin(field, column);
}

}  // namespace

Description Describe(const MYSQL_FIELD* fields, unsigned count, bool are_texts) {
  Description description;
  Columns columns;
  for (const MYSQL_FIELD& field : std::span(fields, count)) {
    const Kind kind = are_texts ? kLongText : KindOfColumn(field);
    columns.push_back({.name = field.name, .type = kind.type, .has_declared_type = true});
    if (!are_texts) AddDetails(field, columns.back());
    description.readers.push_back({kind.reading, field.decimals});
  }
  description.columns = std::make_shared<const Columns>(std::move(columns));
  return description;
}

}  // namespace dralo::database::mariadb
