#pragma once

#include "database/provider.h"

namespace dralo::host {

/// The providers that this build has.
database::Providers AllProviders();

}  // namespace dralo::host
