#pragma once

#include <vector>

#include "platform/environment.h"
#include "platform/page_context.h"
#include "platform/variant.h"
#include "settings/settings.h"

namespace dralo::driver {

/// Renders a view into the page: answers an export, carries out a posted change, reads the request, opens the
/// query and writes the view. `current_record` receives the values of the record shown. Failures while the
/// view or a download is made are reported in ErrorMessage, and the rest of the output is left out; those of
/// a posted change's preparation, and of a download when the page was sent already, are thrown.
void WriteHtmlTable(settings::Settings& settings, platform::Environment& environment,
                    platform::PageContext& page, std::vector<platform::Variant>& current_record);

}  // namespace dralo::driver
