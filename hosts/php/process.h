#pragma once

#include "hosts/cpp/environment.h"

namespace dralo::php {

/// The environment of this process, made when it is first needed, with the locale that dralo.locale names.
/// Throws platform::Error when that locale is unknown.
host::Environment& TheEnvironment();

/// Called when the module stops.
void CloseEnvironment() noexcept;

}  // namespace dralo::php
