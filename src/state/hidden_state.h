#pragma once

#include <string_view>

#include "state/render.h"

namespace dralo::state {

/// Writes the view's state, and then the page's own fields, as hidden inputs into the view's form.
void PutHiddenState(const Render& render);

/// Writes the key of the record that is edited, as the next request must post it.
void PutHiddenKey(const Render& render, std::string_view primary_key);

}  // namespace dralo::state
