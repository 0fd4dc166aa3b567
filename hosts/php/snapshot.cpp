#include "hosts/php/snapshot.h"

#include "dralo/error.h"
#include "hosts/php/guard.h"
#include "hosts/php/native_object.h"
#include "hosts/php/values.h"

namespace dralo::php {
namespace {

/// Receives one pair of a snapshot, and owns the value from then on.
using Receiver = void (*)(void* context, zval* key, zval* value);

bool KeepsSecrets(zend_object* object) {
  const auto keeps_secrets = FromZend(object)->script_class->keeps_secrets;
  return keeps_secrets != nullptr && keeps_secrets(*NativeOf(object));
}

/// Puts the property's value into `value`; for a secret that is kept, a text that says so. False when the
/// property is not shown.
bool Read(zend_object* object, const ScriptProperty& property, bool keeps_secrets, zval* value) {
  if (property.read == nullptr || !property.is_shown) return false;
  const bool is_kept = keeps_secrets && property.is_secret;
  if (is_kept && property.type == component::PropertyType::kObject) return false;
  try {
    property.read(property, NativeOf(object), value);
  } catch (const platform::Error&) {
    return false;
  }
  if (!is_kept || Z_STRLEN_P(value) == 0) return true;
  CallPhp([&] { zval_ptr_dtor(value); });
  PutText("***", value);
  return true;
}

void VisitProperties(zend_object* object, Receiver receive, void* context) {
  const bool keeps_secrets = KeepsSecrets(object);
  for (const ScriptProperty& property : FromZend(object)->script_class->properties) {
    zval key;
    zval value;
    ZVAL_STR(&key, property.info->name);
    if (!Read(object, property, keeps_secrets, &value)) continue;
    CallPhp([&] { receive(context, &key, &value); });
  }
}

void VisitEntries(zend_object* object, const Entries& entries, Receiver receive, void* context) {
  const auto& native = NativeOf(object);
  const std::size_t count = entries.count(native);
  for (std::size_t position = 0; position < count; ++position) {
    zval key;
    zval value;
    entries.at(native, position, &key, &value);
    CallPhp([&] { receive(context, &key, &value); });
  }
}

void Visit(zend_object* object, Receiver receive, void* context) {
  const Entries* entries = FromZend(object)->script_class->entries;
  if (entries != nullptr && entries->count != nullptr) {
    VisitEntries(object, *entries, receive, context);
  } else {
    VisitProperties(object, receive, context);
  }
}

void PutIntoTable(void* context, zval* key, zval* value) {
  auto* table = static_cast<HashTable*>(context);
  if (Z_TYPE_P(key) == IS_LONG) {
    zend_hash_index_update(table, static_cast<zend_ulong>(Z_LVAL_P(key)), value);
  } else {
    zend_hash_update(table, Z_STR_P(key), value);
    zval_ptr_dtor_nogc(key);
  }
}

void Fill(HashTable* table, zend_object* object) {
  if (!FromZend(object)->native) return;
  EnterCpp(FromZend(object)->script_class->reading, [&] {
    try {
      Visit(object, PutIntoTable, table);
    } catch (const platform::Error&) {
      // A closed recordset has no entries to show.
    }
  });
}

struct SnapshotIterator {
  zend_object_iterator base;
  zval keys;
  zval values;
  zend_ulong position;
};

SnapshotIterator* AsSnapshot(zend_object_iterator* iterator) {
  return reinterpret_cast<SnapshotIterator*>(iterator);
}

void PutIntoLists(void* context, zval* key, zval* value) {
  auto* iterator = static_cast<SnapshotIterator*>(context);
  add_next_index_zval(&iterator->keys, key);
  add_next_index_zval(&iterator->values, value);
}

void Destroy(zend_object_iterator* iterator) {
  zval_ptr_dtor(&AsSnapshot(iterator)->keys);
  zval_ptr_dtor(&AsSnapshot(iterator)->values);
  zval_ptr_dtor(&iterator->data);
}

zval* CurrentValue(zend_object_iterator* iterator) {
  const auto* snapshot = AsSnapshot(iterator);
  return zend_hash_index_find(Z_ARRVAL(snapshot->values), snapshot->position);
}

IteratorAnswer IsValid(zend_object_iterator* iterator) {
  return CurrentValue(iterator) != nullptr ? SUCCESS : FAILURE;
}

void CurrentKey(zend_object_iterator* iterator, zval* key) {
  const auto* snapshot = AsSnapshot(iterator);
  ZVAL_COPY(key, zend_hash_index_find(Z_ARRVAL(snapshot->keys), snapshot->position));
}

void MoveForward(zend_object_iterator* iterator) { ++AsSnapshot(iterator)->position; }

void Rewind(zend_object_iterator* iterator) { AsSnapshot(iterator)->position = 0; }

HashTable* RootsOfIterator(zend_object_iterator* iterator, zval** table, int* size) {
  *table = &AsSnapshot(iterator)->keys;
  *size = 2;
  return nullptr;
}

const zend_object_iterator_funcs kIteratorFunctions = {
    Destroy, IsValid, CurrentValue, CurrentKey, MoveForward, Rewind, nullptr, RootsOfIterator,
};

}  // namespace

HashTable* GetPropertiesFor(zend_object* object, zend_prop_purpose) {
  HashTable* table = zend_new_array(0);
  Fill(table, object);
  return table;
}

HashTable* GetProperties(zend_object* object) {
  HashTable*& table = object->properties;
  if (table != nullptr && GC_REFCOUNT(table) == 1) {
    // The same table is filled again: the caller of an earlier call may still be walking through it.
    zend_hash_clean(table);
  } else {
    if (table != nullptr) GC_DELREF(table);
    table = zend_new_array(0);
  }
  Fill(table, object);
  return table;
}

HashTable* GetGarbageRoots(zend_object* object, zval** table, int* size) {
  const NativeObject* native_object = FromZend(object);
  const auto add_roots = native_object->script_class->add_garbage_roots;
  zend_get_gc_buffer* roots = zend_get_gc_buffer_create();
  if (add_roots != nullptr && native_object->native.use_count() == 1)
    add_roots(*native_object->native, roots);
  zend_get_gc_buffer_use(roots, table, size);
  return object->properties;
}

zend_object_iterator* GetIteratorOf(zend_class_entry*, zval* object, int by_reference) {
  if (by_reference) {
    zend_throw_error(nullptr, "An iterator cannot be used with foreach by reference");
    return nullptr;
  }
  auto* iterator = static_cast<SnapshotIterator*>(emalloc(sizeof(SnapshotIterator)));
  zend_iterator_init(&iterator->base);
  iterator->base.funcs = &kIteratorFunctions;
  ZVAL_OBJ_COPY(&iterator->base.data, Z_OBJ_P(object));
  array_init(&iterator->keys);
  array_init(&iterator->values);
  iterator->position = 0;
  const bool is_complete = EnterCpp(FromZend(Z_OBJ_P(object))->script_class->reading,
                                    [&] { Visit(Z_OBJ_P(object), PutIntoLists, iterator); });
  if (is_complete) return &iterator->base;
  zend_iterator_dtor(&iterator->base);
  return nullptr;
}

}  // namespace dralo::php
