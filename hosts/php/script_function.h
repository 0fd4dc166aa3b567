#pragma once

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

/// Puts the script's function that `kept` calls into `result`; null for none.
void PutFunction(const platform::ObjectPtr& kept, zval* result);

}  // namespace dralo::php
