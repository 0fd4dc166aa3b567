#pragma once

#include <sql.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "dralo/variant.h"

namespace dralo::database::odbc {

/// How the values of a column are taken from the driver and read; decided once per statement.
enum class Reading {
  kInteger,
  kDouble,
  kDoubleText,  ///< A number that the driver would blur by converting it.
  kBoolean,
  kDecimal,
  kMoney,  ///< A decimal with the signs of a currency and of thousands.
  kDate,
  kTime,
  kUuid,
  kText,
  kBytes,
};

/// SQL_C_...: what the driver is asked for.
SQLSMALLINT CTypeOf(Reading reading);

/// Bytes of every value, 0 where they differ.
std::size_t FixedBytes(Reading reading);

/// Bytes that the driver puts behind a value that is cut off.
std::size_t TerminatorBytes(Reading reading);

/// The value in `bytes`, which is in the form of CTypeOf(). Bytes stay where they are; texts are converted
/// into `scratch`. What does not have the kind that is expected is read as text.
platform::VariantView ReadValue(Reading reading, std::string_view bytes, std::string& scratch);

}  // namespace dralo::database::odbc
