#pragma once

#include "dralo/site.h"

namespace dralo::host {

/// Throws platform::Error that says what to write when a trusted origin or a host of the site could never be
/// what a browser sends.
void CheckSite(const platform::Site& site);

}  // namespace dralo::host
