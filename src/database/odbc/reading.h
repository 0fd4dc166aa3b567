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
  kDoubleText,  ///< A number that would lose digits if the driver converted it.
  kBoolean,
  kDecimal,
  kMoney,  ///< A decimal with the signs of a currency and of thousands.
  kDate,
  kTime,
  kUuid,
  kText,
  kBytes,
};

/// The SQL_C_... type for which the driver is asked.
SQLSMALLINT CTypeOf(Reading reading);

/// How many bytes every value takes, 0 when they differ.
std::size_t FixedBytes(Reading reading);

/// How many bytes the driver appends to a value that is cut off.
std::size_t TerminatorBytes(Reading reading);

/// The value in `bytes`, which have the form of CTypeOf(). Bytes stay where they are; texts are converted
/// into `scratch`. A value that is not of the expected kind is read as text.
platform::VariantView ReadValue(Reading reading, std::string_view bytes, std::string& scratch);

}  // namespace dralo::database::odbc
