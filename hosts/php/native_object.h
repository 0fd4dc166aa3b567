#pragma once

#include "hosts/php/script_class.h"

namespace dralo::php {

/// What stands in memory before the engine's part of each of the extension's objects.
struct NativeObject {
  const ScriptClass* script_class;
  platform::ObjectPtr native;  ///< Gone after page end.
  NativeObject* previous;      ///< All objects of the request form a list, newest first.
  NativeObject* next;
  zend_object std;
};

inline NativeObject* FromZend(zend_object* object) {
  return reinterpret_cast<NativeObject*>(reinterpret_cast<char*>(object) - XtOffsetOf(NativeObject, std));
}

/// The C++ object of a PHP object. Throws ScriptError after page end.
const platform::ObjectPtr& NativeOf(zend_object* object);

/// The same as the class it is known to be.
template <class Native>
Native& NativeAs(zend_object* object) {
  return static_cast<Native&>(*NativeOf(object));
}

/// A new PHP object for `native`. Must run inside CallPhp() when called from C++.
zend_object* NewObject(const ScriptClass& script_class, const platform::ObjectPtr& native);

/// Puts the PHP object of `native` into `result`: the one that scripts hold already, else a new one; null
/// when there is no native object. Called from C++.
void PutObject(const ScriptClass& script_class, const platform::ObjectPtr& native, zval* result);

/// Handler of `new` for the creatable classes: asks the environment for the C++ object.
zend_object* CreateNative(zend_class_entry* entry);

/// Handler of `new` for the classes whose constructors make the C++ object.
zend_object* CreateBare(zend_class_entry* entry);

/// Handler of `new` for classes whose objects only this extension makes.
zend_object* RefuseToCreate(zend_class_entry* entry);

/// Handler of the end of an object.
void FreeObject(zend_object* object);

/// Page end: every object of the request lets go of the page and of its database.
void EndPageOfAllObjects() noexcept;

}  // namespace dralo::php
