#pragma once

#include "platform/environment.h"

namespace dralo::php {

/// The environment of this thread, made when it is first needed, with the limits of kept connections, and
/// what dralo.locale, dralo.hardened, dralo.trusted_origins and dralo.hosts say by now. Valid until the
/// module stops. Throws platform::Error when that locale is unknown, a limit is no number or another setting
/// is not valid.
platform::Environment& TheEnvironment();

/// Called when the module stops.
void CloseEnvironment() noexcept;

}  // namespace dralo::php
