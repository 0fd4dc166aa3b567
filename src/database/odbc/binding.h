#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>

#include "database/odbc/link.h"
#include "dralo/variant.h"

namespace dralo::database::odbc {

/// The parameters of a statement, in the form in which the driver takes them.
class Binding {
 public:
  explicit Binding(std::span<const platform::Variant> values) : values_(values.begin(), values.end()) {}

  std::size_t Count() const { return values_.size(); }

  /// Binds all to "?" 1, 2, ..., and the values of `behind` to the "?" after those. The bound memory stays
  /// valid until the next call, or as long as this object. Throws platform::Error.
  void Bind(const Link& link, SQLHSTMT statement, std::string_view text,
            std::span<const platform::Variant> behind = {});

 private:
  friend struct Binder;

  struct Slot {
    SQLLEN indicator = SQL_NULL_DATA;
    std::int64_t integer = 0;
    double number = 0;
    unsigned char flag = 0;
    SQL_TIMESTAMP_STRUCT time = {};
    std::string bytes = {};
  };

  std::deque<platform::Variant> values_;
  std::deque<Slot> slots_;
};

}  // namespace dralo::database::odbc
