#pragma once

#include "hosts/php/engine.h"

namespace dralo::php {

// What var_dump(), json_encode(), (array), get_object_vars() and foreach see: the values of the moment, in a
// table of their own. Of lists the entries, of other objects the properties; what cannot be read at the
// moment is left out.

/// For callers that release the table themselves.
HashTable* GetPropertiesFor(zend_object* object, zend_prop_purpose purpose);

/// For callers that do not: the table belongs to the object and is filled anew by each call.
HashTable* GetProperties(zend_object* object);

/// The collector of cycles sees the table of the last GetProperties() and what the class adds, and reads
/// no properties.
HashTable* GetGarbageRoots(zend_object* object, zval** table, int* size);

/// foreach, over the values at its start.
zend_object_iterator* GetIteratorOf(zend_class_entry* entry, zval* object, int by_reference);

}  // namespace dralo::php
