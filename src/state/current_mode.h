#pragma once

#include "platform/formatting.h"
#include "settings/settings.h"
#include "state/request_keys.h"
#include "state/view_state.h"

namespace dralo::state {

/// The view that the properties and the request select; `keys` is nullptr while there is no request. A
/// request that closes a form shows neither form; a save that `has_failed` shows its form again.
Mode CurrentMode(const settings::Settings& settings, const RequestKeys* keys,
                 const platform::Formatting& formatting, bool has_failed);

}  // namespace dralo::state
