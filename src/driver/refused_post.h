#pragma once

#include "dralo/response.h"
#include "state/render.h"

namespace dralo::driver {

/// Whether a hardened view answers under the host name of the request. If not, the status becomes 421, unless
/// headers were sent, ErrorMessage says why, and nothing may be read, changed or shown.
bool AnswersUnderHost(state::Render& render, platform::Response& response);

/// Whether a hardened view refuses the change that the request commands, because of its sender or its form.
/// If so, the status becomes 403, unless headers were sent, ErrorMessage says why, and the form comes back
/// with the record as it is stored; with what was typed only when no other site can have typed it.
bool RefusesChange(state::Render& render, platform::Response& response);

}  // namespace dralo::driver
