#include "hosts/php/initial_value.h"

#include <string>

namespace dralo::php {

void PutInitialValue(const std::optional<component::PropertyValue>& value, zval* result) {
  ZVAL_UNDEF(result);
  if (!value) return;
  if (const auto* text = std::get_if<std::string>(&*value)) {
    ZVAL_INTERNED_STR(result, zend_string_init_interned(text->data(), text->size(), true));
  } else if (const auto* number = std::get_if<std::int64_t>(&*value)) {
    ZVAL_LONG(result, *number);
  } else if (const auto* flag = std::get_if<bool>(&*value)) {
    ZVAL_BOOL(result, *flag);
  } else if (std::holds_alternative<std::vector<platform::Variant>>(*value)) {
    ZVAL_EMPTY_ARRAY(result);
  } else if (std::get<platform::ObjectPtr>(*value) == nullptr) {
    ZVAL_NULL(result);
  }
}

}  // namespace dralo::php
