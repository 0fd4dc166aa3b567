#include "database/sqlite/declared_type.h"

#include <charconv>
#include <string_view>

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
  {"BOOL",      TypeCode::kBoolean},
  {"BOOLEAN",   TypeCode::kBoolean},
  {"CURRENCY",  TypeCode::kCurrency},
  {"DATE",      TypeCode::kDate, TimeParts::kDate},
  {"DATETIME",  TypeCode::kDate},
  {"DECIMAL",   TypeCode::kNumeric},
  {"MEMO",      TypeCode::kLongVarWideChar},
  {"MONEY",     TypeCode::kCurrency},
  {"NUMERIC",   TypeCode::kNumeric},
  {"SMALLINT",  TypeCode::kSmallInt},
  {"TIME",      TypeCode::kDbTime, TimeParts::kTime},
  {"TIMESTAMP", TypeCode::kDate},
  {"TINYINT",   TypeCode::kTinyInt},
  {"UUID",      TypeCode::kGuid},
};

/// SQLite's rules of affinity, in their order: the type of a name that has one of these in it.
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
    if (text::EqualAscii(type.name, name)) return &type;
  }
  for (const NamedType& type : kContainedTypes) {
    if (text::ContainsAscii(name, type.name)) return &type;
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
  const NamedType* type = Find(text::TrimAsciiSpace(declared.substr(0, declared.find('('))));
  column.comparison = type ? ComparisonOf(type->type) : SameOfAnyKind;
  if (!type) return;
  column.type = type->type;
  column.has_declared_type = true;
  column.time_parts = type->time_parts;
  column.holds_64_bits = type->type == TypeCode::kInteger;
  if (type->type == TypeCode::kVarWideChar) column.defined_size = SizeIn(declared);
}

}  // namespace dralo::database::sqlite
