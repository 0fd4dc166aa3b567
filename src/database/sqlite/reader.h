#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

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

inline std::string_view ReadText(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {text ? text : "", text ? static_cast<std::size_t>(sqlite3_value_bytes(value)) : 0};
}

// What Read() does with texts and integers that are not read as they are stored.
platform::VariantView ReadFromText(Reader reader, std::string_view text);
platform::VariantView ReadFromInteger(Reader reader, sqlite3_value* value);
platform::VariantView ReadBytes(sqlite3_value* value);

/// `value` as `reader` says; as it is stored when it cannot be read so. Text and bytes are not copied: valid
/// until the statement moves. Inline, because every cell is read by it.
inline platform::VariantView Read(Reader reader, sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_TEXT: {
      const std::string_view text = ReadText(value);
      if (reader == Reader::kStored || reader == Reader::kText) return text;
      return ReadFromText(reader, text);
    }
    case SQLITE_INTEGER:
      if (reader == Reader::kStored) return std::int64_t{sqlite3_value_int64(value)};
      return ReadFromInteger(reader, value);
    case SQLITE_FLOAT:
      if (reader == Reader::kText) return ReadText(value);
      return sqlite3_value_double(value);
    case SQLITE_BLOB:
      return ReadBytes(value);
    default:
      return platform::Null{};
  }
}

/// `value` as it is stored.
inline platform::VariantView ReadStored(sqlite3_value* value) { return Read(Reader::kStored, value); }

}  // namespace dralo::database::sqlite
