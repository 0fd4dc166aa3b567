#include "database/odbc/binding.h"

#include <sqlucode.h>

#include <algorithm>

#include "database/date_text.h"
#include "database/odbc/wide_text.h"
#include "dralo/error.h"

namespace dralo::database::odbc {

struct Binder {
  const Link& link;
  SQLHSTMT statement;
  SQLUSMALLINT number;
  Binding::Slot& slot;

  SQLRETURN Put(SQLSMALLINT c_type, SQLSMALLINT type, SQLULEN size, SQLSMALLINT digits, void* value,
                SQLLEN bytes) const {
    return SQLBindParameter(statement, number, SQL_PARAM_INPUT, c_type, type, size, digits, value, bytes,
                            &slot.indicator);
  }

  /// Binds the bytes of the slot.
  SQLRETURN PutBytes(SQLSMALLINT c_type, SQLSMALLINT type, SQLSMALLINT digits) const {
    slot.indicator = static_cast<SQLLEN>(slot.bytes.size());
    const std::size_t size = c_type == SQL_C_WCHAR ? slot.bytes.size() / sizeof(SQLWCHAR) : slot.bytes.size();
    return Put(c_type, type, std::max<SQLULEN>(size, 1), digits, slot.bytes.data(), slot.indicator);
  }

  SQLRETURN operator()(platform::Null) const { return Put(SQL_C_CHAR, SQL_VARCHAR, 1, 0, nullptr, 0); }

  SQLRETURN operator()(bool flag) const {
    slot.flag = flag ? 1 : 0;
    slot.indicator = 0;
    return Put(SQL_C_BIT, SQL_BIT, 1, 0, &slot.flag, 0);
  }

  SQLRETURN operator()(std::int64_t integer) const {
    slot.integer = integer;
    slot.indicator = 0;
    return Put(SQL_C_SBIGINT, SQL_BIGINT, 19, 0, &slot.integer, 0);
  }

  SQLRETURN operator()(double value) const {
    slot.number = value;
    slot.indicator = 0;
    return Put(SQL_C_DOUBLE, SQL_DOUBLE, 15, 0, &slot.number, 0);
  }

  SQLRETURN operator()(const platform::Decimal& decimal) const {
    slot.bytes = decimal.text;
    const auto point = slot.bytes.find('.');
    const std::size_t digits = point == slot.bytes.npos ? 0 : slot.bytes.size() - point - 1;
    return PutBytes(SQL_C_CHAR, SQL_NUMERIC, static_cast<SQLSMALLINT>(digits));
  }

  /// All drivers accept a time of day as a text; some refuse a time with a fraction.
  SQLRETURN operator()(const platform::DateTime& time) const {
    if (time.HasZeroDate() || link.GetDialect().has_text_dates) return PutText(PlainText(time));
    slot.time = {
        time.year, time.month, time.day, time.hour, time.minute, time.second, time.nanosecond / 1000 * 1000};
    slot.indicator = 0;
    return Put(SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, 26, 6, &slot.time, 0);
  }

  SQLRETURN PutText(std::string_view text) const {
    const std::u16string wide = ToWide(text);
    slot.bytes.assign(reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(char16_t));
    return PutBytes(SQL_C_WCHAR, text.size() > 4000 ? SQL_WLONGVARCHAR : SQL_WVARCHAR, 0);
  }

  SQLRETURN operator()(const std::string& text) const {
    if (link.GetDialect().ends_texts_at_zero && text.find('\0') != text.npos) {
      throw platform::Error("The text has a zero byte, which the database's driver would cut it at");
    }
    return PutText(text);
  }

  SQLRETURN operator()(const platform::Bytes& bytes) const {
    slot.bytes.assign(bytes.begin(), bytes.end());
    return PutBytes(SQL_C_BINARY, bytes.size() > 4000 ? SQL_LONGVARBINARY : SQL_VARBINARY, 0);
  }
};

void Binding::Bind(const Link& link, SQLHSTMT statement, std::string_view text,
                   std::span<const platform::Variant> behind) {
  slots_.clear();
  SQLUSMALLINT number = 0;
  const auto bind = [&](const platform::Variant& value) {
    const SQLRETURN code = std::visit(Binder{link, statement, ++number, slots_.emplace_back()}, value);
    link.Require(code, statement, text);
  };
  std::ranges::for_each(values_, bind);
  std::ranges::for_each(behind, bind);
}

}  // namespace dralo::database::odbc
