#pragma once

#include "hosts/cpp/environment.h"

namespace dralo::php {

/// The environment of this process, made when it is first needed, with the locale that dralo.locale names and
/// the limits of kept connections.
/// Throws platform::Error when that locale is unknown or a limit is no number.
host::Environment& TheEnvironment();

/// Called when the module stops.
void CloseEnvironment() noexcept;

}  // namespace dralo::php
