#pragma once

#include <string_view>

#include "shell/render.h"

namespace dralo::driver {

/// Writes the view's state, and the page's own fields behind it, as hidden inputs into the view's form.
void PutHiddenState(shell::Render& render);

/// Writes the key of the record that is edited, as the next request must post it.
void PutHiddenKey(shell::Render& render, std::string_view primary_key);

}  // namespace dralo::driver
