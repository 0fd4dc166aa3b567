#pragma once

#include "platform/formatting.h"
#include "settings/settings.h"
#include "state/request_keys.h"
#include "state/view_state.h"

namespace dralo::state {

/// The view that the properties and the request select; `keys` is nullptr while there is no request. Closing
/// a form asks for neither form, and a save that `has_failed` brings its form back.
Mode CurrentMode(const settings::Settings& settings, const RequestKeys* keys,
                 const platform::Formatting& formatting, bool has_failed);

}  // namespace dralo::state
