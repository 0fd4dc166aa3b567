#include "database/sqlite/declared_type.h"

#include <charconv>
#include <string>

#include "database/key_comparison.h"
#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::database::sqlite {

namespace {

using platform::TypeCode;

struct NamedType {
  std::string_view name;
  TypeCode type;
  TimeParts time_parts = TimeParts::kDateAndTime;
};

// clang-format off
constexpr NamedType kNamedTypes[] = {
  {"BIGINT",    TypeCode::kBigInt},
  {"BIT",       TypeCode::kBoolean},
  {"BLOB",      TypeCode::kLongVarBinary},
  {"BOOL",      TypeCode::kBoolean},
  {"BOOLEAN",   TypeCode::kBoolean},
  {"CHAR",      TypeCode::kVarWideChar},
  {"CLOB",      TypeCode::kLongVarWideChar},
  {"CURRENCY",  TypeCode::kCurrency},
  {"DATE",      TypeCode::kDate, TimeParts::kDate},
  {"DATETIME",  TypeCode::kDate},
  {"DECIMAL",   TypeCode::kNumeric},
  {"DOUBLE",    TypeCode::kDouble},
  {"FLOAT",     TypeCode::kDouble},
  {"INT",       TypeCode::kInteger},
  {"INTEGER",   TypeCode::kInteger},
  {"MEMO",      TypeCode::kLongVarWideChar},
  {"MONEY",     TypeCode::kCurrency},
  {"NCHAR",     TypeCode::kVarWideChar},
  {"NUMERIC",   TypeCode::kNumeric},
  {"NVARCHAR",  TypeCode::kVarWideChar},
  {"REAL",      TypeCode::kDouble},
  {"SMALLINT",  TypeCode::kSmallInt},
  {"TEXT",      TypeCode::kLongVarWideChar},
  {"TIME",      TypeCode::kDbTime, TimeParts::kTime},
  {"TIMESTAMP", TypeCode::kDate},
  {"TINYINT",   TypeCode::kTinyInt},
  {"UUID",      TypeCode::kGuid},
  {"VARCHAR",   TypeCode::kVarWideChar},
};

/// SQLite's rules of affinity, in their order.
constexpr NamedType kContainedTypes[] = {
  {"INT",  TypeCode::kInteger},
  {"CHAR", TypeCode::kVarWideChar},
  {"CLOB", TypeCode::kLongVarWideChar},
  {"TEXT", TypeCode::kLongVarWideChar},
  {"BLOB", TypeCode::kLongVarBinary},
  {"REAL", TypeCode::kDouble},
  {"FLOA", TypeCode::kDouble},
  {"DOUB", TypeCode::kDouble},
};
// clang-format on

const NamedType* Find(std::string_view name) {
  for (const NamedType& type : kNamedTypes) {
    if (type.name == name) return &type;
  }
  for (const NamedType& type : kContainedTypes) {
    if (name.find(type.name) != name.npos) return &type;
  }
  return nullptr;
}

/// Dates and times are stored as texts, several of which may spell the same one.
platform::KeyComparison ComparisonOf(TypeCode type) {
  if (type == TypeCode::kDate) return SameMoment;
  return type == TypeCode::kDbTime ? SameTimeOfDay : nullptr;
}

/// The number after the first "(", or 0.
std::int64_t SizeIn(std::string_view declared) {
  const auto open = declared.find('(');
  if (open == declared.npos) return 0;
  const auto digits = text::TrimAsciiSpace(declared.substr(open + 1));
  std::int64_t size = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), size);
  return size > 0 ? size : 0;
}

}  // namespace

void SetDeclaredType(Column& column, std::string_view declared) {
  std::string name(text::TrimAsciiSpace(declared.substr(0, declared.find('('))));
  for (char& c : name) c = text::ToUpper(c);
  const NamedType* type = Find(name);
  column.comparison = type ? ComparisonOf(type->type) : SameOfAnyKind;
  if (!type) return;
  column.type = type->type;
  column.has_declared_type = true;
  column.time_parts = type->time_parts;
  column.holds_64_bits = type->type == TypeCode::kInteger;
  if (type->type == TypeCode::kVarWideChar) column.defined_size = SizeIn(declared);
}

}  // namespace dralo::database::sqlite
