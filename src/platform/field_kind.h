#pragma once

#include "dralo/type_code.h"

namespace dralo::platform {

/// What kind of value a field has, whatever its size and whatever name the database has for its type.
enum class FieldKind {
  kText,  ///< Also every type that has no kind of its own.
  kMemo,  ///< Long text, narrow or wide.
  kWholeNumber,
  kExactNumber,    ///< A decimal that may have a fraction.
  kFloatingPoint,  ///< A binary number that may have a fraction.
  kBoolean,
  kDate,  ///< With or without a time of day.
  kTime,  ///< A pure time of day.
  kGuid,
  kBinary,
  kLongBinary,
};

constexpr FieldKind KindOf(TypeCode type) {
  switch (type) {
    case TypeCode::kTinyInt:
    case TypeCode::kSmallInt:
    case TypeCode::kInteger:
    case TypeCode::kBigInt:
    case TypeCode::kUnsignedTinyInt:
    case TypeCode::kUnsignedSmallInt:
    case TypeCode::kUnsignedInt:
    case TypeCode::kUnsignedBigInt:
      return FieldKind::kWholeNumber;
    case TypeCode::kCurrency:
    case TypeCode::kDecimal:
    case TypeCode::kNumeric:
    case TypeCode::kVarNumeric:
      return FieldKind::kExactNumber;
    case TypeCode::kSingle:
    case TypeCode::kDouble:
      return FieldKind::kFloatingPoint;
    case TypeCode::kBoolean:
      return FieldKind::kBoolean;
    case TypeCode::kDate:
    case TypeCode::kDbDate:
    case TypeCode::kDbTimestamp:
      return FieldKind::kDate;
    case TypeCode::kDbTime:
      return FieldKind::kTime;
    case TypeCode::kLongVarChar:
    case TypeCode::kLongVarWideChar:
      return FieldKind::kMemo;
    case TypeCode::kGuid:
      return FieldKind::kGuid;
    case TypeCode::kBinary:
    case TypeCode::kVarBinary:
      return FieldKind::kBinary;
    case TypeCode::kLongVarBinary:
      return FieldKind::kLongBinary;
    default:
      return FieldKind::kText;
  }
}

/// A number that may have a fraction.
constexpr bool IsFractionalFieldType(TypeCode type) {
  return KindOf(type) == FieldKind::kExactNumber || KindOf(type) == FieldKind::kFloatingPoint;
}

/// Whether values of the type are written right-aligned and unquoted. Booleans count as numbers, because
/// their cells and keys are written like those of numbers.
constexpr bool IsNumericFieldType(TypeCode type) {
  const FieldKind kind = KindOf(type);
  return kind == FieldKind::kWholeNumber || kind == FieldKind::kBoolean || IsFractionalFieldType(type);
}

/// Bytes, of which no text can be made.
constexpr bool IsBinaryFieldType(TypeCode type) {
  return KindOf(type) == FieldKind::kBinary || KindOf(type) == FieldKind::kLongBinary;
}

constexpr bool IsMemoFieldType(TypeCode type) { return KindOf(type) == FieldKind::kMemo; }

/// A pure time of day is not a date here.
constexpr bool IsDateFieldType(TypeCode type) { return KindOf(type) == FieldKind::kDate; }

}  // namespace dralo::platform
