#include "hosts/php/script_class.h"

#include "hosts/php/initial_value.h"
#include "hosts/php/native_object.h"
#include "hosts/php/snapshot.h"

namespace dralo::php {
namespace {

zend_string* Permanent(std::string_view text) {
  return zend_string_init_interned(text.data(), text.size(), true);
}

decltype(zend_class_entry::create_object) CreatorOf(const ScriptClass& script_class) {
  if (script_class.is_constructed) return CreateBare;
  return script_class.identifier.empty() ? RefuseToCreate : CreateNative;
}

void AddInterfaces(const ScriptClass& script_class) {
  const Entries* entries = script_class.entries;
  if (entries == nullptr) return;
  zend_class_implements(script_class.entry, 1, zend_ce_arrayaccess);
  if (entries->count == nullptr) return;
  zend_class_implements(script_class.entry, 2, zend_ce_countable, zend_ce_aggregate);
}

}  // namespace

const ScriptProperty* ScriptClass::Find(zend_string* property) const {
  if (void* found = zend_hash_find_ptr(&by_name, property)) return static_cast<const ScriptProperty*>(found);
  zend_string* lower = zend_string_tolower(property);
  void* found = zend_hash_find_ptr(&by_name, lower);
  zend_string_release(lower);
  return static_cast<const ScriptProperty*>(found);
}

void RegisterClass(ScriptClass& script_class) {
  zend_class_entry entry;
  INIT_CLASS_ENTRY_EX(entry, script_class.name, strlen(script_class.name), script_class.methods);
  script_class.entry = zend_register_internal_class(&entry);
  script_class.entry->ce_flags |= ZEND_ACC_FINAL | ZEND_ACC_NO_DYNAMIC_PROPERTIES | ZEND_ACC_NOT_SERIALIZABLE;
  script_class.entry->create_object = CreatorOf(script_class);
  script_class.entry->get_iterator = GetIteratorOf;
  AddInterfaces(script_class);
  zend_hash_init(&script_class.by_name, 16, nullptr, nullptr, true);
  if (script_class.declare != nullptr) script_class.declare(script_class);
}

zend_type PhpType(component::PropertyType type, const ScriptClass* holds) {
  switch (type) {
    case component::PropertyType::kText:
      return ZEND_TYPE_INIT_MASK(MAY_BE_STRING);
    case component::PropertyType::kBoolean:
      return ZEND_TYPE_INIT_MASK(MAY_BE_BOOL);
    case component::PropertyType::kInteger:
    case component::PropertyType::kLong:
      return ZEND_TYPE_INIT_MASK(MAY_BE_LONG);
    case component::PropertyType::kList:
      return ZEND_TYPE_INIT_MASK(MAY_BE_ARRAY);
    case component::PropertyType::kHandler:
    case component::PropertyType::kTokenCallback:
      // A property cannot be declared as callable.
      return ZEND_TYPE_INIT_MASK(MAY_BE_ANY);
    case component::PropertyType::kObject:
      break;
  }
  return ZEND_TYPE_INIT_CLASS(Permanent(holds->name), true, 0);
}

zend_type PhpType(const ScriptClass& holds) { return ZEND_TYPE_INIT_CLASS(Permanent(holds.name), false, 0); }

void DeclareProperty(ScriptClass& script_class, ScriptProperty property, zend_type type,
                     std::string_view doc) {
  ScriptProperty& kept = script_class.properties.emplace_back(property);
  zend_string* name = Permanent(property.name);
  zend_string* lower = zend_string_tolower_ex(name, true);

  zval initial;
  PutInitialValue(property.initial, &initial);
  const int flags = ZEND_ACC_PUBLIC | (property.write == nullptr ? ZEND_ACC_READONLY : 0);
  zend_string* comment = Permanent("/** " + std::string(doc) + " */");
  kept.info = zend_declare_typed_property(script_class.entry, name, &initial, flags, comment, type);

  zend_hash_update_ptr(&script_class.by_name, name, &kept);
  zend_hash_update_ptr(&script_class.by_name, zend_new_interned_string(lower), &kept);
}

}  // namespace dralo::php
