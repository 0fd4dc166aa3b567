#pragma once

#include "dralo/page_context.h"
#include "state/render.h"

namespace dralo::driver {

/// Renders a view into the page: answers an export, carries out a posted change, reads the request, opens the
/// query and writes the view. Failures while the view or a download is made are reported in ErrorMessage, and
/// the rest of the output is left out; those of a posted change's preparation, and of a download when the
/// page was sent already, are thrown. `render` has what was found until then.
void WriteHtmlTable(state::Render& render, platform::PageContext& page);

/// Carries out a posted change, unless one was carried out before. Of a hardened view a change that was made
/// ends the page: the answer is the address that shows what became of it, while headers are unsent. Throws as
/// WriteHtmlTable() does.
void ReceivePost(state::Render& render, platform::PageContext& page);

}  // namespace dralo::driver
