#pragma once

#include "shell/render.h"

namespace dralo::editing {

/// Carries out a posted save or delete. Returns false when it failed; ErrorMessage and
/// render.edit_status_message then say why. Not available in this version: reports that in ErrorMessage,
/// changes nothing and returns false.
bool UpdateRecord(shell::Render& render);

}  // namespace dralo::editing
