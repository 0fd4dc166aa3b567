#pragma once

#include "state/render.h"

namespace dralo::editing {

/// Whether a save or delete was posted that EditOptions as assigned allows.
bool IsChangePosted(const state::Render& render);

/// Carries out the save or delete that was posted, if one was and EditOptions as assigned allows it: one
/// statement that is carried out whole or not at all. True also when there was nothing to do. When false the
/// database is as it was, and either the edit status message or ErrorMessage says why; a success leaves its
/// message in the edit status message.
bool UpdateRecord(state::Render& render);

}  // namespace dralo::editing
