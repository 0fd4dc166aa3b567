#include "editing/edit_form.h"

#include "shell/guard.h"

namespace dralo::editing {

void RenderEditForm(shell::Render& render, platform::Recordset&, std::int32_t&) {
  shell::ReportError(render.settings, "The edit form is not available in this version", "RenderEditForm");
}

}  // namespace dralo::editing
