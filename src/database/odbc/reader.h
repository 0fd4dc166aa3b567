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
  kMoney,   ///< A decimal with the signs of a currency and of thousands.
  kNumber,  ///< Text that spells any number, as of a database without fixed types.
  kDateText,
  kTimeText,
  kDate,
  kTimestamp,
  kText,
  kSmallLetters,  ///< Text that the driver spells in capitals and the database does not.
  kWideText,
  kBytes,
};

struct Reader {
  Reading reading = Reading::kText;

  /// Bytes that a value needs in a block of rows; 0 when values are fetched one by one.
  std::size_t cell_bytes = 0;

  /// No value is longer than that, whatever the row.
  bool is_bounded = false;
};

/// SQL_C_...: what the driver is asked for.
SQLSMALLINT CTypeOf(Reading reading);

/// Bytes that the driver puts behind a value that is cut off.
std::size_t TerminatorBytes(Reading reading);

/// The value in `bytes`, which is in the form of CTypeOf(). Text and bytes stay where they are. UTF-16 is
/// converted into `scratch`. What does not have the kind that is expected is read as text.
platform::VariantView Read(Reading reading, std::string_view bytes, std::string& scratch);

}  // namespace dralo::database::odbc
