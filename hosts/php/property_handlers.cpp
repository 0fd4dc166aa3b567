#include "hosts/php/property_handlers.h"

#include <stdexcept>
#include <string>

#include "hosts/php/errors.h"
#include "hosts/php/guard.h"
#include "hosts/php/native_object.h"

namespace dralo::php {
namespace {

using component::PropertyType;

bool CallerIsStrict() {
  const zend_execute_data* caller = EG(current_execute_data);
  return caller != nullptr && caller->func != nullptr && ZEND_CALL_USES_STRICT_TYPES(caller);
}

/// Converts `value` to the property's PHP type as the engine does for any typed property. True as a number
/// has all bits set.
bool Coerce(const ScriptProperty& property, zval* value) {
  const bool is_number = property.type == PropertyType::kInteger || property.type == PropertyType::kLong;
  if (is_number && (Z_TYPE_P(value) == IS_TRUE || Z_TYPE_P(value) == IS_FALSE)) {
    ZVAL_LONG(value, Z_TYPE_P(value) == IS_TRUE ? -1 : 0);
    return true;
  }
  return zend_verify_property_type(property.info, value, CallerIsStrict());
}

bool Store(zend_object* object, const ScriptProperty& property, const zval* value) {
  return EnterCpp(Entry::kChanges, [&] {
    try {
      property.write(property, NativeOf(object), value);
    } catch (const std::invalid_argument& misfit) {
      throw ScriptError{zend_ce_type_error, std::string(FromZend(object)->script_class->name) + "::$" +
                                                std::string(property.name) + " " + misfit.what()};
    }
  });
}

bool CanBeRead(const ScriptProperty* property) { return property != nullptr && property->read != nullptr; }

bool Read(zend_object* object, const ScriptProperty& property, zval* result) {
  ZVAL_UNDEF(result);
  return EnterCpp(FromZend(object)->script_class->reading,
                  [&] { property.read(property, NativeOf(object), result); });
}

void RefuseRead(zend_object* object, zend_string* name, const ScriptProperty* property) {
  zend_throw_error(
      nullptr,
      property == nullptr ? "Undefined property: %s::$%s" : "Cannot read write-only property %s::$%s",
      ZSTR_VAL(object->ce->name), ZSTR_VAL(property == nullptr ? name : property->info->name));
}

void RefuseWrite(zend_object* object, zend_string* name, const ScriptProperty* property) {
  zend_throw_error(nullptr,
                   property == nullptr ? "Cannot create dynamic property %s::$%s"
                                       : "Cannot modify read-only property %s::$%s",
                   ZSTR_VAL(object->ce->name), ZSTR_VAL(property == nullptr ? name : property->info->name));
}

bool WouldBeModified(int type) { return type == BP_VAR_W || type == BP_VAR_RW || type == BP_VAR_UNSET; }

}  // namespace

zval* ReadProperty(zend_object* object, zend_string* name, int type, void**, zval* result) {
  const ScriptProperty* property = FromZend(object)->script_class->Find(name);
  if (!CanBeRead(property)) {
    if (type != BP_VAR_IS) RefuseRead(object, name, property);
    return &EG(uninitialized_zval);
  }
  if (!Read(object, *property, result)) return &EG(uninitialized_zval);
  if (WouldBeModified(type) && Z_TYPE_P(result) != IS_OBJECT && Z_TYPE_P(result) != IS_NULL) {
    // What the script holds is a copy: a change to it would be lost without a word.
    zval_ptr_dtor(result);
    zend_throw_error(nullptr, "Cannot indirectly modify property %s::$%s", ZSTR_VAL(object->ce->name),
                     ZSTR_VAL(property->info->name));
    return &EG(uninitialized_zval);
  }
  return result;
}

zval* WriteProperty(zend_object* object, zend_string* name, zval* value, void**) {
  const ScriptProperty* property = FromZend(object)->script_class->Find(name);
  if (property == nullptr || property->write == nullptr) {
    RefuseWrite(object, name, property);
    return &EG(error_zval);
  }
  zval coerced;
  ZVAL_COPY_DEREF(&coerced, value);
  // The conversion may run __toString() of the script, which may drop the last reference.
  GC_ADDREF(object);
  const bool stored = Coerce(*property, &coerced) && Store(object, *property, &coerced);
  zval_ptr_dtor(&coerced);
  OBJ_RELEASE(object);
  return stored ? value : &EG(error_zval);
}

int HasProperty(zend_object* object, zend_string* name, int question, void**) {
  const ScriptProperty* property = FromZend(object)->script_class->Find(name);
  if (question == ZEND_PROPERTY_EXISTS) return property != nullptr;
  if (!CanBeRead(property)) return false;
  zval value;
  if (!Read(object, *property, &value)) return false;
  const bool answer = question == ZEND_PROPERTY_NOT_EMPTY ? zend_is_true(&value) : Z_TYPE(value) != IS_NULL;
  zval_ptr_dtor(&value);
  return answer;
}

void UnsetProperty(zend_object* object, zend_string* name, void**) {
  zend_throw_error(nullptr, "Cannot unset property %s::$%s", ZSTR_VAL(object->ce->name), ZSTR_VAL(name));
}

zval* GetPropertyPointer(zend_object*, zend_string*, int, void**) { return nullptr; }

}  // namespace dralo::php
