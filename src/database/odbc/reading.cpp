#include "database/odbc/reading.h"

#include <sqlext.h>

#include <cstdint>
#include <cstring>
#include <variant>

#include "database/money_text.h"
#include "database/odbc/wide_text.h"
#include "database/text_reading.h"
#include "text/ascii.h"

namespace dralo::database::odbc {

namespace {

using platform::VariantView;

template <class Value>
Value Load(std::string_view bytes) {
  Value value{};
  std::memcpy(&value, bytes.data(), sizeof value);
  return value;
}

VariantView ReadSmallLetters(std::string_view text, std::string& scratch) {
  scratch = text;
  for (char& c : scratch) c = text::ToLower(c);
  return std::string_view(scratch);
}

/// Some databases store dates that no calendar has for "no date": these count as absent.
bool IsInNoCalendar(std::string_view text) {
  return text.size() >= 10 && text[4] == '-' && text[7] == '-' &&
         text.find_first_not_of("0123456789-:. ") == text.npos;
}

VariantView ReadDateOrNone(std::string_view text) {
  const VariantView value = ReadDate(text);
  const bool is_text = std::holds_alternative<std::string_view>(value);
  return is_text && IsInNoCalendar(text) ? VariantView{} : value;
}

VariantView ReadWide(std::string_view bytes, std::string& scratch) {
  std::u16string wide(bytes.size() / sizeof(char16_t), u'\0');
  std::memcpy(wide.data(), bytes.data(), wide.size() * sizeof(char16_t));
  scratch.clear();
  AppendNarrow(scratch, wide);
  return std::string_view(scratch);
}

}  // namespace

SQLSMALLINT CTypeOf(Reading reading) {
  switch (reading) {
    case Reading::kInteger:
      return SQL_C_SBIGINT;
    case Reading::kDouble:
      return SQL_C_DOUBLE;
    case Reading::kBoolean:
      return SQL_C_BIT;
    case Reading::kText:
      return SQL_C_WCHAR;
    case Reading::kBytes:
      return SQL_C_BINARY;
    default:
      return SQL_C_CHAR;
  }
}

std::size_t FixedBytes(Reading reading) {
  const bool is_number = reading == Reading::kInteger || reading == Reading::kDouble;
  return is_number ? sizeof(SQLBIGINT) : reading == Reading::kBoolean ? 1 : 0;
}

std::size_t TerminatorBytes(Reading reading) {
  const SQLSMALLINT type = CTypeOf(reading);
  return type == SQL_C_CHAR ? 1 : type == SQL_C_WCHAR ? sizeof(SQLWCHAR) : 0;
}

VariantView ReadValue(Reading reading, std::string_view bytes, std::string& scratch) {
  switch (reading) {
    case Reading::kInteger:
      return std::int64_t{Load<SQLBIGINT>(bytes)};
    case Reading::kDouble:
      return Load<double>(bytes);
    case Reading::kDoubleText:
      return ReadNumber<double>(bytes);
    case Reading::kBoolean:
      return bytes[0] != 0;
    case Reading::kDecimal:
      return ReadDecimal(bytes);
    case Reading::kMoney:
      return ReadMoney(bytes, scratch);
    case Reading::kDate:
      return ReadDateOrNone(bytes);
    case Reading::kTime:
      return ReadTimeOfDay(bytes);
    case Reading::kUuid:
      return ReadSmallLetters(bytes, scratch);
    case Reading::kText:
      return ReadWide(bytes, scratch);
    case Reading::kBytes:
      return platform::BytesView{reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
  }
  return bytes;
}

}  // namespace dralo::database::odbc
