#include "database/sqlite/binding.h"

#include <cstdint>
#include <optional>
#include <string>

#include "database/date_text.h"
#include "text/decimal.h"

namespace dralo::database::sqlite {

namespace {

using platform::DateTime;

/// Nothing when the number has more digits than a double can hold.
std::optional<double> ExactDouble(const std::string& decimal) {
  const auto number = text::ParseNumber<double>(decimal);
  const auto kept = number ? text::DecimalText(*number) : std::nullopt;
  return kept && kept == text::ParseDecimal(decimal) ? number : std::nullopt;
}

struct Binder {
  sqlite3_stmt* statement;
  int index;

  int operator()(platform::Null) const { return sqlite3_bind_null(statement, index); }
  int operator()(bool flag) const { return sqlite3_bind_int(statement, index, flag); }
  int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, index, number); }
  int operator()(double number) const { return sqlite3_bind_double(statement, index, number); }
  int operator()(const platform::Decimal& decimal) const {
    if (const auto number = text::ParseNumber<std::int64_t>(decimal.text)) return (*this)(*number);
    if (const auto number = ExactDouble(decimal.text)) return (*this)(*number);
    return (*this)(decimal.text);
  }
  int operator()(const std::string& text) const {
    return sqlite3_bind_text64(statement, index, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
  }
  int operator()(const platform::Bytes& bytes) const {
    static constexpr std::uint8_t kNoByte = 0;  // A null pointer would bind Null.
    return sqlite3_bind_blob64(statement, index, bytes.empty() ? &kNoByte : bytes.data(), bytes.size(),
                               SQLITE_STATIC);
  }
  int operator()(const DateTime& time) const {
    const std::string text = PlainText(time);
    return sqlite3_bind_text64(statement, index, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  }
};

}  // namespace

int Bind(sqlite3_stmt* statement, std::span<const platform::Variant> values) {
  int index = 0;
  for (const platform::Variant& value : values) {
    const int code = std::visit(Binder{statement, ++index}, value);
    if (code != SQLITE_OK) return code;
  }
  return SQLITE_OK;
}

}  // namespace dralo::database::sqlite
