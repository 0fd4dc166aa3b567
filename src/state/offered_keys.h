#pragma once

#include "dralo/site.h"
#include "settings/settings.h"
#include "state/request_keys.h"

namespace dralo::state {

/// The keys of the view in the request. On a hardened page those are left out that nothing on the page sends:
/// the statement, a count that the page does not make, and the buttons that are not offered.
RequestKeys OfferedKeys(const platform::Request& request, const settings::Settings& settings,
                        const platform::Site& site);

}  // namespace dralo::state
