#include "hosts/php/native_object.h"

#include <new>
#include <utility>
#include <vector>

#include "hosts/php/classes.h"
#include "hosts/php/errors.h"
#include "hosts/php/guard.h"
#include "hosts/php/object_handlers.h"
#include "hosts/php/process.h"
#include "hosts/php/thread_state.h"

namespace dralo::php {
namespace {

void Link(NativeObject* object) {
  NativeObject*& newest = ThisThread().newest;
  object->previous = nullptr;
  object->next = newest;
  if (newest != nullptr) newest->previous = object;
  newest = object;
}

void Unlink(NativeObject* object) {
  if (object->previous != nullptr) object->previous->next = object->next;
  if (object->next != nullptr) object->next->previous = object->previous;
  if (ThisThread().newest == object) ThisThread().newest = object->next;
}

zend_object* ObjectOf(const ScriptClass& script_class, const platform::ObjectPtr& native) {
  for (NativeObject* object = ThisThread().newest; object != nullptr; object = object->next) {
    if (object->native == native && object->script_class == &script_class) return &object->std;
  }
  return nullptr;
}

}  // namespace

const platform::ObjectPtr& NativeOf(zend_object* object) {
  const auto& native = FromZend(object)->native;
  if (!native) throw ScriptError{zend_ce_error, "The page of this object has ended"};
  return native;
}

zend_object* NewObject(const ScriptClass& script_class, const platform::ObjectPtr& native) {
  void* memory = zend_object_alloc(sizeof(NativeObject), script_class.entry);
  auto* object = static_cast<NativeObject*>(memory);
  object->script_class = &script_class;
  new (&object->native) platform::ObjectPtr(native);
  Link(object);
  zend_object_std_init(&object->std, script_class.entry);
  object_properties_init(&object->std, script_class.entry);
  object->std.handlers = &object_handlers;
  return &object->std;
}

void PutObject(const ScriptClass& script_class, const platform::ObjectPtr& native, zval* result) {
  if (!native) {
    ZVAL_NULL(result);
  } else if (zend_object* existing = ObjectOf(script_class, native)) {
    ZVAL_OBJ_COPY(result, existing);
  } else {
    CallPhp([&] { ZVAL_OBJ(result, NewObject(script_class, native)); });
  }
}

zend_object* CreateNative(zend_class_entry* entry) {
  const ScriptClass& script_class = ClassOf(entry);
  zend_object* object = NewObject(script_class, nullptr);
  EnterCpp(Entry::kReads, [&] {
    auto native = TheEnvironment().CreateObject(script_class.identifier);
    if (script_class.start_page != nullptr) script_class.start_page(*native);
    FromZend(object)->native = std::move(native);
  });
  return object;
}

zend_object* CreateBare(zend_class_entry* entry) { return NewObject(ClassOf(entry), nullptr); }

zend_object* RefuseToCreate(zend_class_entry* entry) {
  zend_throw_error(nullptr, "Cannot create %s: it belongs to another object", ZSTR_VAL(entry->name));
  return NewObject(ClassOf(entry), nullptr);
}

void FreeObject(zend_object* object) {
  NativeObject* native_object = FromZend(object);
  Unlink(native_object);
  native_object->native.~shared_ptr();
  zend_object_std_dtor(object);
}

void EndPageOfAllObjects() noexcept {
  // All are taken out of the list first: when a view lets go of its last function or of its page, the engine
  // may free PHP objects of this list, its own among them.
  std::vector<std::pair<const ScriptClass*, platform::ObjectPtr>> natives;
  for (NativeObject* object = ThisThread().newest; object != nullptr; object = object->next) {
    if (object->native) natives.emplace_back(object->script_class, std::move(object->native));
  }
  for (const auto& [script_class, native] : natives) {
    if (script_class->end_page == nullptr) continue;
    try {
      script_class->end_page(*native);
    } catch (...) {
      // Nobody is left to be told.
    }
  }
}

}  // namespace dralo::php
