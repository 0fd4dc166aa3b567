#pragma once

#include <exception>

#include "state/render.h"

namespace dralo::editing {

/// Tells of a change that failed because the database was out of reach: beside the buttons, so that the
/// visitor tries again or looks first whether it was made, and in ErrorMessage. False, with nothing told, for
/// every other failure.
bool TellOfLoss(state::Render& render, const std::exception& failure);

}  // namespace dralo::editing
