#include "hosts/php/values.h"

#include <optional>
#include <string>
#include <utility>

#include "hosts/php/errors.h"
#include "hosts/php/guard.h"
#include "hosts/php/native_object.h"
#include "text/iso_date.h"

namespace dralo::php {
namespace {

using platform::DateTime;

std::string IsoText(const DateTime& time) {
  std::string text;
  time.HasZeroDate() ? text::PutTimeOfDay(time, text) : text::PutDateTime(time, text);
  return text;
}

DateTime ToDateTime(zend_object* object) {
  const timelib_time* time = php_date_obj_from_obj(object)->time;
  if (time == nullptr || time->y < 1 || time->y > 9999) {
    throw ScriptError{zend_ce_value_error, "A date must be in the years 1 to 9999"};
  }
  return {.year = static_cast<std::int16_t>(time->y),
          .month = static_cast<std::uint8_t>(time->m),
          .day = static_cast<std::uint8_t>(time->d),
          .hour = static_cast<std::uint8_t>(time->h),
          .minute = static_cast<std::uint8_t>(time->i),
          .second = static_cast<std::uint8_t>(time->s),
          .nanosecond = static_cast<std::uint32_t>(time->us) * 1000};
}

/// A bool, int or string; nothing for other values.
template <class Value>
std::optional<Value> ToScalar(const zval* value) {
  switch (Z_TYPE_P(value)) {
    case IS_FALSE:
      return Value(false);
    case IS_TRUE:
      return Value(true);
    case IS_LONG:
      return Value(std::int64_t{Z_LVAL_P(value)});
    case IS_STRING:
      return Value(std::string(View(Z_STR_P(value))));
    default:
      return std::nullopt;
  }
}

struct Putter {
  zval* result;

  void operator()(platform::Null) const { ZVAL_NULL(result); }
  void operator()(bool flag) const { ZVAL_BOOL(result, flag); }
  void operator()(std::int64_t number) const { ZVAL_LONG(result, number); }
  void operator()(double number) const { ZVAL_DOUBLE(result, number); }
  void operator()(platform::DecimalView decimal) const { PutText(decimal.text, result); }
  void operator()(const DateTime& time) const { PutText(IsoText(time), result); }
  void operator()(std::string_view text) const { PutText(text, result); }
  void operator()(platform::BytesView bytes) const {
    PutText({reinterpret_cast<const char*>(bytes.data), bytes.size}, result);
  }
};

}  // namespace

void PutText(std::string_view text, zval* result) {
  CallPhp([&] { ZVAL_STRINGL_FAST(result, text.data(), text.size()); });
}

void PutVariant(const platform::VariantView& value, zval* result) { std::visit(Putter{result}, value); }

platform::Variant ToVariant(const zval* value) {
  if (auto scalar = ToScalar<platform::Variant>(value)) return *std::move(scalar);
  if (Z_TYPE_P(value) == IS_NULL) return platform::Null{};
  if (Z_TYPE_P(value) == IS_DOUBLE) return Z_DVAL_P(value);
  if (Z_TYPE_P(value) == IS_OBJECT && instanceof_function(Z_OBJCE_P(value), php_date_get_interface_ce())) {
    return ToDateTime(Z_OBJ_P(value));
  }
  throw ScriptError{
      zend_ce_type_error,
      std::string("A database value must be null, bool, int, float, string or DateTimeInterface, ") +
          zend_zval_type_name(value) + " given"};
}

void PutList(const std::vector<platform::Variant>& list, zval* result) {
  CallPhp([&] { array_init_size(result, static_cast<std::uint32_t>(list.size())); });
  for (const platform::Variant& item : list) {
    zval value;
    PutVariant(platform::View(item), &value);
    CallPhp([&] { add_next_index_zval(result, &value); });
  }
}

std::vector<platform::Variant> ToList(HashTable* array) {
  std::vector<platform::Variant> list;
  list.reserve(zend_hash_num_elements(array));
  zval* item = nullptr;
  ZEND_HASH_FOREACH_VAL(array, item) {
    ZVAL_DEREF(item);
    list.push_back(ToVariant(item));
  }
  ZEND_HASH_FOREACH_END();
  return list;
}

void PutPropertyValue(const component::PropertyValue& value, const ScriptClass* holds, zval* result) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    PutText(*text, result);
  } else if (const auto* number = std::get_if<std::int64_t>(&value)) {
    ZVAL_LONG(result, *number);
  } else if (const auto* flag = std::get_if<bool>(&value)) {
    ZVAL_BOOL(result, *flag);
  } else if (const auto* list = std::get_if<std::vector<platform::Variant>>(&value)) {
    PutList(*list, result);
  } else {
    PutObject(*holds, std::get<platform::ObjectPtr>(value), result);
  }
}

component::PropertyValue ToPropertyValue(const zval* value) {
  if (Z_TYPE_P(value) == IS_ARRAY) return ToList(Z_ARRVAL_P(value));
  if (auto scalar = ToScalar<component::PropertyValue>(value)) return *std::move(scalar);
  return Z_TYPE_P(value) == IS_OBJECT ? NativeOf(Z_OBJ_P(value)) : platform::ObjectPtr();
}

}  // namespace dralo::php
