#pragma once

#include "state/render.h"

namespace dralo::editing {

/// Whether a save or delete was posted, and EditOptions allows saving (EditPermissions::save).
bool IsChangePosted(const state::Render& render);

/// Carries out the save or delete that IsChangePosted() finds: one statement, carried out completely or not
/// at all. A success leaves its message in the edit status message. True also when there was nothing to do;
/// after false the database is as it was, and the edit status message or ErrorMessage says why.
bool UpdateRecord(state::Render& render);

}  // namespace dralo::editing
