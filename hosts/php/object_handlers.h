#pragma once

#include "hosts/php/engine.h"

namespace dralo::php {

/// How all objects of the extension answer the engine.
extern zend_object_handlers object_handlers;

/// Called once, when the module starts.
void SetUpObjectHandlers();

}  // namespace dralo::php
