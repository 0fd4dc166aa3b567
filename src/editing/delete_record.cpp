#include "editing/delete_record.h"

#include <exception>

#include "editing/outcome.h"
#include "editing/posted_key.h"
#include "shell/open_connection.h"

namespace dralo::editing {

bool DeleteRecord(shell::Render& render, const QuerySchema& schema, std::string& statement) {
  shell::Settings& settings = render.settings;
  statement = settings.DeleteSQL + " WHERE " + PostedKeyCondition(render, schema);
  try {
    shell::OpenConnection(settings)->Execute(statement);
  } catch (const std::exception& error) {
    settings.edit_status_message.assign("Delete failed: ").append(error.what()).append("<br>");
    return false;
  }
  SetOutcome(settings, shell::kDeleted);
  return true;
}

}  // namespace dralo::editing
