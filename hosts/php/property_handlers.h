#pragma once

#include "hosts/php/engine.h"

namespace dralo::php {

// Handlers of $object->property, driven by the class's property table. They leave the engine's run-time cache
// alone: it would make the engine read the declared slots, which hold nothing.

zval* ReadProperty(zend_object* object, zend_string* name, int type, void** cache, zval* result);
zval* WriteProperty(zend_object* object, zend_string* name, zval* value, void** cache);
int HasProperty(zend_object* object, zend_string* name, int question, void** cache);
void UnsetProperty(zend_object* object, zend_string* name, void** cache);

/// Always nullptr: makes the engine run ++ and .= as a read and a write.
zval* GetPropertyPointer(zend_object* object, zend_string* name, int type, void** cache);

}  // namespace dralo::php
