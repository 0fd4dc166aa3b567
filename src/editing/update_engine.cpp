#include "editing/update_engine.h"

#include "shell/guard.h"

namespace dralo::editing {

bool UpdateRecord(shell::Render& render) {
  shell::ReportError(render.settings, "Saving and deleting is not available in this version", "UpdateRecord");
  return false;
}

}  // namespace dralo::editing
