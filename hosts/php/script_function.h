#pragma once

#include <string_view>

#include "dralo/change.h"
#include "hosts/php/engine.h"

namespace dralo::php {

// Handlers of changes that are functions of the script. All run as C++: they call the engine through
// CallPhp() and throw.

/// The handler that calls `value`, a callable; none for null. Throws ScriptError that names `property` for
/// everything else.
platform::ObjectPtr ToHandler(const zval* value, std::string_view property);

/// Puts the script's function that `handler` calls into `result`; null for none.
void PutHandler(const platform::ObjectPtr& handler, zval* result);

}  // namespace dralo::php
