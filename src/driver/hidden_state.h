#pragma once

#include "shell/render.h"

namespace dralo::driver {

/// Writes the view's state, and the page's own fields behind it, as hidden inputs into the view's form.
void PutHiddenState(shell::Render& render);

}  // namespace dralo::driver
