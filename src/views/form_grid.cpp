#include "views/form_grid.h"

#include "shell/guard.h"

namespace dralo::views {

void MakeFormGrid(shell::Render& render, platform::Recordset&, std::int32_t&) {
  shell::ReportError(render.settings, "The one-record view is not available in this version", "MakeFormGrid");
}

}  // namespace dralo::views
