#include "database/postgresql/column_type.h"

#include <algorithm>

#include "database/key_comparison.h"
#include "database/postgresql/type_oid.h"
#include "text/ascii.h"

namespace dralo::database::postgresql {

namespace {

using platform::TypeCode;

constexpr int kNameSize = 63;

/// Texts that are no numbers, "nan" and "-inf", stand in quotes; numbers are found as usual.
std::string SameNumber(std::string_view name, std::string_view text) {
  const std::string_view letters = text.substr(text.starts_with('-') ? 1 : 0);
  if (letters.empty() || !std::ranges::all_of(letters, text::IsLetter)) return {};
  return std::string(name).append("='").append(text).append("'");
}

std::string SameSingle(std::string_view name, std::string_view text) {
  const std::string special = SameNumber(name, text);
  return special.empty() ? SameReal(name, text) : special;
}

struct Kind {
  Oid oid;
  TypeCode type;
  Reader reader;
  platform::KeyComparison comparison = nullptr;
};

// clang-format off
constexpr Kind kKinds[] = {
    {type_oid::kSmallInt, TypeCode::kSmallInt, ReadInteger},
    {type_oid::kInteger, TypeCode::kInteger, ReadInteger},
    {type_oid::kBigInt, TypeCode::kBigInt, ReadInteger},
    {type_oid::kOid, TypeCode::kUnsignedInt, ReadInteger},
    {type_oid::kReal, TypeCode::kSingle, ReadReal, SameSingle},
    {type_oid::kDouble, TypeCode::kDouble, ReadReal, SameNumber},
    {type_oid::kNumeric, TypeCode::kNumeric, ReadNumeric, SameNumber},
    {type_oid::kMoney, TypeCode::kCurrency, ReadAmount, SameMoney},
    {type_oid::kBoolean, TypeCode::kBoolean, ReadBoolean, SameBoolean},
    {type_oid::kDate, TypeCode::kDbDate, ReadDay},
    {type_oid::kTime, TypeCode::kDbTime, ReadTime},
    {type_oid::kTimestamp, TypeCode::kDbTimestamp, ReadDay},
    {type_oid::kTimestampWithZone, TypeCode::kDbTimestamp, ReadZonedDay},
    {type_oid::kUuid, TypeCode::kGuid, ReadText},
    {type_oid::kBytes, TypeCode::kLongVarBinary, ReadBytes},
    {type_oid::kSingleByte, TypeCode::kWideChar, ReadText},
    {type_oid::kChar, TypeCode::kWideChar, ReadText},
    {type_oid::kName, TypeCode::kVarWideChar, ReadText},
    {type_oid::kInterval, TypeCode::kVarWideChar, ReadText},
    {type_oid::kAddress, TypeCode::kVarWideChar, ReadText},
    {type_oid::kNetwork, TypeCode::kVarWideChar, ReadText},
    {type_oid::kHardwareAddress, TypeCode::kVarWideChar, ReadText},
    {type_oid::kCursor, TypeCode::kVarWideChar, ReadText},
};
// clang-format on

bool HasLength(Oid type) { return type == type_oid::kVarChar || type == type_oid::kChar; }

bool IsBits(Oid type) { return type == type_oid::kBits || type == type_oid::kVarBits; }

Kind KindOfType(Oid type, int modifier) {
  const auto* const found = std::ranges::find(kKinds, type, &Kind::oid);
  if (found != std::end(kKinds)) return *found;
  const bool is_short = (type == type_oid::kVarChar && modifier >= 0) || (IsBits(type) && modifier > 1);
  return {type, is_short ? TypeCode::kVarWideChar : TypeCode::kLongVarWideChar, ReadText};
}

std::int64_t SizeOf(Oid type, int modifier) {
  constexpr int kHeader = 4;  // Modifiers of text types include its length.
  if (HasLength(type) && modifier > kHeader) return modifier - kHeader;
  if (type == type_oid::kSingleByte) return 1;
  return type == type_oid::kName ? kNameSize : 0;
}

}  // namespace

Reader SetType(Column& column, Oid type, int modifier) {
  const Kind kind = KindOfType(type, modifier);
  column.type = kind.type;
  column.has_declared_type = true;
  column.comparison = kind.comparison;
  column.defined_size = SizeOf(type, modifier);
  if (kind.type == TypeCode::kDbDate) column.time_parts = TimeParts::kDate;
  if (kind.type == TypeCode::kDbTime) column.time_parts = TimeParts::kTime;
  return kind.reader;
}

}  // namespace dralo::database::postgresql
