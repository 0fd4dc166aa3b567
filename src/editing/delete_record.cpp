#include "editing/delete_record.h"

#include <cstdint>
#include <exception>

#include "dralo/error.h"
#include "editing/outcome.h"
#include "editing/posted_key.h"
#include "settings/open_connection.h"

namespace dralo::editing {

bool DeleteRecord(state::Render& render, const QuerySchema& schema, std::string& statement) {
  const settings::Settings& settings = render.settings;
  const PostedKey key = ReadPostedKey(render, schema);
  statement = settings.DeleteSQL + " WHERE " + key.condition;
  RefuseAmbiguousKey(render, key);
  std::int64_t changed = 0;
  try {
    changed = settings::OpenConnection(settings)->ChangeOneRecord(statement);
  } catch (const std::exception& error) {
    render.outcome.status_message.assign("Delete failed: ").append(error.what()).append("<br>");
    return false;
  }
  if (changed == 0) {
    render.Errors().AddStatement("There is no record with the posted key", "UpdateRecord", statement,
                                 settings.DisplayDebug);
  }
  if (changed > 1) throw platform::Error("Several records have the posted key, so none was deleted");
  SetOutcome(render, settings::kDeleted);
  return true;
}

}  // namespace dralo::editing
