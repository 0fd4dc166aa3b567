#pragma once

#include <string_view>

#include "platform/formatting.h"
#include "settings/settings.h"
#include "state/request_keys.h"

namespace dralo::state {

enum class Mode { kGrid, kFormView, kFormEdit, kFormAdd };

/// "grid", "formview", "formedit" or "formadd".
std::string_view ModeName(Mode mode);

/// The view that the properties and the request select, without changing anything; `keys` is nullptr while
/// there is no request. Closing a form asks for neither form, and a failed save brings its form back.
Mode CurrentMode(const settings::Settings& settings, const RequestKeys* keys,
                 const platform::Formatting& formatting);

}  // namespace dralo::state
