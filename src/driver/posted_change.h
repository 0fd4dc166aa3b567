#pragma once

#include "dralo/page_context.h"
#include "state/render.h"

namespace dralo::driver {

/// Carries out the change that the request posts to views of this tag. When another view of the page has done
/// so, this view takes over its outcome and its messages instead.
void CarryOutPostedChange(state::Render& render, platform::PageContext& page);

}  // namespace dralo::driver
