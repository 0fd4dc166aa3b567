#pragma once

#include "state/render.h"

namespace dralo::driver {

/// Takes the order of a hardened page from the request: the number of a column that the grid shows and offers
/// to sort by, or the page's own order in the direction that is asked for. Anything else leaves the page's
/// own order as it is, and so does a statement that fails, which is told when the page is opened.
void TakeRequestedOrder(state::Render& render);

}  // namespace dralo::driver
