#pragma once

#include "dralo/page_context.h"
#include "state/render.h"

namespace dralo::driver {

/// Renders a view into the page: answers an export, carries out a posted change, reads the request, opens the
/// query and writes the view. Failures while the view or a download is made are reported in ErrorMessage, and
/// the rest of the output is left out. Failures of a posted change's preparation, and of a download when part
/// of the page was sent already, are thrown. `render` keeps what was found until then.
void WriteHtmlTable(state::Render& render, platform::PageContext& page);

/// Carries out a posted change, unless that was done already. When a hardened view has made a change and
/// headers are unsent, the page ends with a redirection to the address that shows the outcome. Throws as
/// WriteHtmlTable() does.
void ReceivePost(state::Render& render, platform::PageContext& page);

}  // namespace dralo::driver
