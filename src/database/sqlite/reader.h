#pragma once

#include <sqlite3.h>

#include "dralo/type_code.h"
#include "dralo/variant.h"

namespace dralo::database::sqlite {

/// How the values of a column are read; decided once per statement.
enum class Reader {
  kStored,   ///< As they are stored.
  kText,     ///< Numbers too are read as text.
  kBoolean,  ///< Integers are truth values.
  kDecimal,  ///< Text that spells a plain decimal is one.
  kDate,     ///< ISO text and Unix seconds are date-times.
  kTime,     ///< Text "HH:MM[:SS]" is a time of day.
};

/// How values of a column that declares the type are read.
Reader ReaderOf(platform::TypeCode type);

/// `value` as it is stored. Text and bytes are not copied: valid until the statement moves.
platform::VariantView ReadStored(sqlite3_value* value);

/// `value` as `reader` says; as it is stored when it cannot be read so.
platform::VariantView Read(Reader reader, sqlite3_value* value);

}  // namespace dralo::database::sqlite
