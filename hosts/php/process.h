#pragma once

#include "hosts/cpp/environment.h"

namespace dralo::php {

/// The environment of this thread, made when it is first needed, with the locale that dralo.locale names,
/// the limits of kept connections, and what dralo.hardened, dralo.trusted_origins and dralo.hosts say by now.
/// Throws platform::Error when that locale is unknown, a limit is no number or another setting says nothing.
host::Environment& TheEnvironment();

/// Called when the module stops.
void CloseEnvironment() noexcept;

}  // namespace dralo::php
