#pragma once

namespace dralo::platform {

/// The numeric data type of a database field. A driver may report codes that have no name here.
enum class TypeCode : int {
  kEmpty = 0,
  kSmallInt = 2,
  kInteger = 3,
  kSingle = 4,
  kDouble = 5,
  kCurrency = 6,
  kDate = 7,
  kBoolean = 11,
  kDecimal = 14,
  kTinyInt = 16,
  kUnsignedTinyInt = 17,
  kUnsignedSmallInt = 18,
  kUnsignedInt = 19,
  kBigInt = 20,
  kUnsignedBigInt = 21,
  kGuid = 72,
  kBinary = 128,
  kChar = 129,
  kWideChar = 130,
  kNumeric = 131,
  kDbDate = 133,
  kDbTime = 134,
  kDbTimestamp = 135,
  kVarNumeric = 139,
  kVarChar = 200,
  kLongVarChar = 201,
  kVarWideChar = 202,
  kLongVarWideChar = 203,
  kVarBinary = 204,
  kLongVarBinary = 205,
};

/// Bits of Field::Attributes().
inline constexpr int kFieldIsNullable = 32;

}  // namespace dralo::platform

namespace dralo {

using platform::kFieldIsNullable;
using platform::TypeCode;

}  // namespace dralo
