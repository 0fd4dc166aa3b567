#include "editing/delete_record.h"

#include <cstdint>
#include <exception>

#include "editing/outcome.h"
#include "editing/posted_key.h"
#include "platform/error.h"
#include "settings/open_connection.h"

namespace dralo::editing {

bool DeleteRecord(state::Render& render, const QuerySchema& schema, std::string& statement) {
  settings::Settings& settings = render.settings;
  const PostedKey key = ReadPostedKey(render, schema);
  statement = settings.DeleteSQL + " WHERE " + key.condition;
  RefuseAmbiguousKey(render, key);
  std::int64_t changed = 0;
  try {
    changed = settings::OpenConnection(settings)->ChangeOneRecord(statement);
  } catch (const std::exception& error) {
    settings.edit_status_message.assign("Delete failed: ").append(error.what()).append("<br>");
    return false;
  }
  if (changed == 0) ReportFailure(settings, "There is no record with the posted key", statement);
  if (changed > 1) throw platform::Error("Several records have the posted key, so none was deleted");
  SetOutcome(settings, settings::kDeleted);
  return true;
}

}  // namespace dralo::editing
