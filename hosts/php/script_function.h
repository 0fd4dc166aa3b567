#pragma once

#include <memory>
#include <string_view>

#include "component/property.h"
#include "dralo/object.h"
#include "hosts/php/engine.h"

namespace dralo::php {

// Properties that are functions of the script. All but HoldsFunction() run as C++: they call the engine
// through CallPhp() and throw.

inline bool HoldsFunction(component::PropertyType type) {
  return type == component::PropertyType::kHandler || type == component::PropertyType::kTokenCallback;
}

/// What a property of that type keeps for `value`, a callable; none for null. Throws ScriptError that names
/// `property` for everything else.
platform::ObjectPtr ToFunction(const zval* value, component::PropertyType type, std::string_view property);

/// The script's function that `kept` calls; nullptr for a function of C++.
zval* CallableOf(const platform::Object& kept);

/// Adds the script's function that `kept` calls, for the collector of cycles, when only one object of C++ has
/// it. Calls nothing and throws nothing.
template <class Function>
void AddGarbageRoot(const std::shared_ptr<Function>& kept, zend_get_gc_buffer* roots) {
  zval* const callable = kept.use_count() == 1 ? CallableOf(*kept) : nullptr;
  if (callable != nullptr) zend_get_gc_buffer_add_zval(roots, callable);
}

/// Puts the script's function that `kept` calls into `result`; null for none.
void PutFunction(const platform::ObjectPtr& kept, zval* result);

}  // namespace dralo::php
