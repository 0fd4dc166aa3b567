#pragma once

#include "state/render.h"

namespace dralo::driver {

/// On a hardened page looks at what stands in every address and name of it: the page's own address begins
/// with one slash at most, or browsers would take its start for a host. Returns whether the view can be
/// written: not with a Tag of other characters than letters from A to Z and digits, which is reported in
/// ErrorMessage.
bool PrepareHardenedFrame(state::Render& render);

}  // namespace dralo::driver
