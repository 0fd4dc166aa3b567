#pragma once

#include "hosts/php/script_class.h"

namespace dralo::php {

/// Declares each indexed property of a view twice: as a property, $view->Name[$index], and as a method,
/// $view->Name($index) and $view->Name($index, $text).
void DeclareIndexedProperties(ScriptClass& view_class);

}  // namespace dralo::php
