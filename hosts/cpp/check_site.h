#pragma once

#include "dralo/site.h"

namespace dralo::host {

/// Throws platform::Error, which says what to write instead, when a trusted origin or a host of the site is
/// nothing that a browser ever sends.
void CheckSite(const platform::Site& site);

}  // namespace dralo::host
