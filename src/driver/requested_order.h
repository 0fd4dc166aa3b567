#pragma once

#include "state/render.h"

namespace dralo::driver {

/// Takes the order of a hardened page from the request: the number of a column that the grid shows and offers
/// to sort by, or the page's own order in the requested direction. Anything else leaves the page's own order
/// as it is. So does a statement that fails; the failure is reported when the page is opened.
void TakeRequestedOrder(state::Render& render);

}  // namespace dralo::driver
