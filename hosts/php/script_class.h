#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "component/property.h"
#include "dralo/object.h"
#include "hosts/php/engine.h"
#include "hosts/php/guard.h"

namespace dralo::php {

struct ScriptClass;

/// A property of a PHP class, made from a row of a property table.
struct ScriptProperty {
  std::string_view name;
  component::PropertyType type;
  const void* row = nullptr;  ///< The row it was made from.

  /// Puts the property's value into `result`; nullptr when the property is write-only.
  void (*read)(const ScriptProperty& property, const platform::ObjectPtr& owner, zval* result) = nullptr;

  /// Sets the property to a value that has the property's PHP type; nullptr when the property is read-only.
  /// Throws std::invalid_argument when the value does not fit.
  void (*write)(const ScriptProperty& property, const platform::ObjectPtr& owner,
                const zval* value) = nullptr;

  /// Of object properties: the class of the object.
  const ScriptClass* holds = nullptr;

  /// Whether var_dump() and its like show it.
  bool is_shown = true;

  /// Whether that shows a password unless the object keeps its secrets.
  bool is_secret = false;

  /// What a new object has, for reflection; the C++ object is asked all the same. nullopt when that takes
  /// more than the object.
  std::optional<component::PropertyValue> initial = std::nullopt;

  zend_property_info* info = nullptr;
};

/// How a class answers $object[$offset], count() and foreach over its entries. All run as C++: they call the
/// engine through CallPhp() and throw.
struct Entries {
  void (*read)(const platform::ObjectPtr& owner, const zval* offset, zval* result);

  /// `offset` is nullptr for $object[] = $value. nullptr when the entries are read-only.
  void (*write)(const platform::ObjectPtr& owner, const zval* offset, const zval* value) = nullptr;

  bool (*has)(const platform::ObjectPtr& owner, const zval* offset);

  /// nullptr when the entries cannot be listed.
  std::size_t (*count)(const platform::ObjectPtr& owner) = nullptr;

  /// Key and value at a position from 0.
  void (*at)(const platform::ObjectPtr& owner, std::size_t position, zval* key, zval* value) = nullptr;
};

/// A PHP class whose objects stand for a C++ object each. Lives as long as the process.
struct ScriptClass {
  const char* name;  ///< Complete, such as "Dralo\DbView".
  const zend_function_entry* methods = nullptr;

  /// What CreateObject() and `new` ask the environment for; empty when scripts cannot create such objects.
  std::string_view identifier = {};

  /// Whether `new` makes the PHP object alone, and its constructor the C++ object.
  bool is_constructed = false;

  /// Binds a new object to the page; nullptr when there is nothing to bind.
  void (*start_page)(platform::Object& object) = nullptr;

  /// Releases what the object holds of the page and of databases; nullptr when its destruction does that.
  void (*end_page)(platform::Object& object) = nullptr;

  const Entries* entries = nullptr;

  /// What reading a property or an entry is to the C++ object. Reading a recordset may move or convert what a
  /// render holds on to.
  Entry reading = Entry::kChanges;

  /// Whether var_dump() and its like keep passwords to themselves; nullptr when they never do.
  bool (*keeps_secrets)(const platform::Object& object) = nullptr;

  /// Adds the values of the script that the C++ object, and nothing else in C++, holds: the collector of
  /// cycles sees them as its PHP object's. Asked only while nobody but that PHP object owns the C++ object.
  /// nullptr when it never holds any.
  void (*add_garbage_roots)(const platform::Object& object, zend_get_gc_buffer* roots) = nullptr;

  /// Declares the properties, once the class is registered; nullptr when it has none.
  void (*declare)(ScriptClass& registered) = nullptr;

  zend_class_entry* entry = nullptr;
  std::deque<ScriptProperty> properties = {};
  HashTable by_name = {};  ///< Properties by their own name and by their name in lower case.

  /// The property of that name in any letter case, or nullptr.
  const ScriptProperty* Find(zend_string* property) const;
};

/// Registers the class with the engine, and its properties. Called once, when the module starts.
void RegisterClass(ScriptClass& script_class);

/// Declares a property of a registered class, so that reflection and editors see it.
void DeclareProperty(ScriptClass& script_class, ScriptProperty property, zend_type type,
                     std::string_view doc);

/// The type of a property as PHP declares it.
zend_type PhpType(component::PropertyType type, const ScriptClass* holds);

/// The type of a property that always holds an object of that class.
zend_type PhpType(const ScriptClass& holds);

}  // namespace dralo::php
