#include "editing/primary_keys.h"

#include "shell/guard.h"

namespace dralo::editing {

std::string GetSqlPK(shell::Render& render, std::string_view) {
  shell::ReportError(render.settings, "Addressing a record by its key is not available in this version",
                     "GetSqlPK");
  return {};
}

}  // namespace dralo::editing
