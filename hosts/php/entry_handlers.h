#pragma once

#include "hosts/php/engine.h"

namespace dralo::php {

// Handlers of $object[$offset] and count(), driven by the class's Entries. Objects of classes without Entries
// answer as the engine's own objects do.

zval* ReadEntry(zend_object* object, zval* offset, int type, zval* result);
void WriteEntry(zend_object* object, zval* offset, zval* value);
int HasEntry(zend_object* object, zval* offset, int check_empty);
void UnsetEntry(zend_object* object, zval* offset);
zend_result CountEntries(zend_object* object, zend_long* count);

/// Methods of ArrayAccess for classes whose entries have an offset only.
extern const zend_function_entry kArrayAccessMethods[];

/// Methods of ArrayAccess, Countable and IteratorAggregate.
extern const zend_function_entry kListMethods[];

}  // namespace dralo::php
