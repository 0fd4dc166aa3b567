#pragma once

#include "platform/type_code.h"

namespace dralo::platform {

/// Whether values of the type are written right-aligned and unquoted. Booleans count as numbers on purpose.
constexpr bool IsNumericFieldType(platform::TypeCode type) {
  switch (static_cast<int>(type)) {
    case 2:
    case 3:
    case 4:
    case 5:
    case 6:
    case 11:
    case 14:
    case 16:
    case 17:
    case 18:
    case 19:
    case 20:
    case 21:
    case 131:
    case 139:
      return true;
    default:
      return false;
  }
}

/// A number that may have a fraction.
constexpr bool IsFractionalFieldType(platform::TypeCode type) {
  switch (static_cast<int>(type)) {
    case 4:
    case 5:
    case 6:
    case 14:
    case 131:
    case 139:
      return true;
    default:
      return false;
  }
}

/// Bytes, of which no text can be made.
constexpr bool IsBinaryFieldType(platform::TypeCode type) {
  return type == platform::TypeCode::kBinary || type == platform::TypeCode::kVarBinary ||
         type == platform::TypeCode::kLongVarBinary;
}

/// Long text, narrow or wide: a memo.
constexpr bool IsMemoFieldType(platform::TypeCode type) {
  return type == platform::TypeCode::kLongVarChar || type == platform::TypeCode::kLongVarWideChar;
}

/// A date, with or without a time of day. A pure time of day is none on purpose.
constexpr bool IsDateFieldType(platform::TypeCode type) {
  return type == platform::TypeCode::kDate || type == platform::TypeCode::kDbDate ||
         type == platform::TypeCode::kDbTimestamp;
}

}  // namespace dralo::platform
