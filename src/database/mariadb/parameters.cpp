#include "database/mariadb/parameters.h"

#include <string>

#include "database/date_text.h"

namespace dralo::database::mariadb {

namespace {

using platform::Variant;

MYSQL_BIND BindOfBytes(enum_field_types type, const void* data, std::size_t size) {
  MYSQL_BIND bind{};
  bind.buffer_type = type;
  bind.buffer = const_cast<void*>(data);  // The library only reads it.
  bind.buffer_length = bind.length_value = static_cast<unsigned long>(size);
  return bind;
}

MYSQL_BIND BindOfFixed(enum_field_types type, const void* data) { return BindOfBytes(type, data, 0); }

}  // namespace

/// A time of day is sent as a text; compared with a time, or stored as one, it becomes a time.
struct ParameterBinder {
  Parameters::Slot& slot;

  MYSQL_BIND operator()(platform::Null) const { return BindOfFixed(MYSQL_TYPE_NULL, nullptr); }
  MYSQL_BIND operator()(bool flag) const { return (*this)(std::int64_t{flag}); }
  MYSQL_BIND operator()(const std::int64_t& integer) const {
    slot.integer = integer;
    return BindOfFixed(MYSQL_TYPE_LONGLONG, &slot.integer);
  }
  MYSQL_BIND operator()(const double& number) const { return BindOfFixed(MYSQL_TYPE_DOUBLE, &number); }
  MYSQL_BIND operator()(const platform::Decimal& decimal) const {
    return BindOfBytes(MYSQL_TYPE_NEWDECIMAL, decimal.text.data(), decimal.text.size());
  }
  MYSQL_BIND operator()(const platform::DateTime& time) const {
    if (time.HasZeroDate()) {
      slot.text = TimeText(time);
      return (*this)(slot.text);
    }
    slot.time.year = static_cast<unsigned>(time.year);
    slot.time.month = time.month;
    slot.time.day = time.day;
    slot.time.hour = time.hour;
    slot.time.minute = time.minute;
    slot.time.second = time.second;
    slot.time.second_part = time.nanosecond / 1000;
    slot.time.time_type = MYSQL_TIMESTAMP_DATETIME;
    return BindOfFixed(MYSQL_TYPE_DATETIME, &slot.time);
  }
  MYSQL_BIND operator()(const std::string& text) const {
    return BindOfBytes(MYSQL_TYPE_STRING, text.data(), text.size());
  }
  MYSQL_BIND operator()(const platform::Bytes& bytes) const {
    static constexpr std::uint8_t kNoByte = 0;  // A null pointer would mean Null.
    return BindOfBytes(MYSQL_TYPE_BLOB, bytes.empty() ? &kNoByte : bytes.data(), bytes.size());
  }
};

Parameters::Parameters(std::span<const Variant> values) : values_(values.begin(), values.end()) {}

MYSQL_BIND* Parameters::Bind(bool has_limit, std::int64_t limit, std::int64_t offset) {
  binds_.clear();
  slots_.clear();
  for (const Variant& value : values_) {
    binds_.push_back(std::visit(ParameterBinder{slots_.emplace_back()}, value));
  }
  if (has_limit) {
    for (const std::int64_t number : {limit, offset}) {
      binds_.push_back(ParameterBinder{slots_.emplace_back()}(number));
    }
  }
  for (MYSQL_BIND& bind : binds_) bind.length = &bind.length_value;
  return binds_.data();
}

}  // namespace dralo::database::mariadb
