#pragma once

#include "dralo/response.h"
#include "state/render.h"

namespace dralo::driver {

/// Whether a hardened view answers under the host name of the request. Otherwise the answer is 421 while
/// headers are unsent, ErrorMessage says why, and nothing may be read, changed or shown.
bool AnswersUnderHost(state::Render& render, platform::Response& response);

/// Whether a hardened view refuses the change that the request commands: for who has sent it, or for its
/// form. Then the answer is 403 while headers are unsent, ErrorMessage says why, and the form comes back with
/// the record as it is stored; with what was typed only when no other site can have typed it.
bool RefusesChange(state::Render& render, platform::Response& response);

}  // namespace dralo::driver
