#pragma once

#include "state/render.h"

namespace dralo::driver {

/// Checks, on a hardened page, what stands in every address and name of it: the page's own address is made to
/// begin with one slash at most, or browsers would take its start for a host. Returns whether the view can be
/// written. It cannot when Tag has characters other than the letters A to Z and digits, which is reported in
/// ErrorMessage.
bool PrepareHardenedFrame(state::Render& render);

}  // namespace dralo::driver
