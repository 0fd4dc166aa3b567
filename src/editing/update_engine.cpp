#include "editing/update_engine.h"

#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <string>

#include "dralo/error.h"
#include "editing/checked_delete.h"
#include "editing/guarded_record.h"
#include "editing/lost_change.h"
#include "editing/outcome.h"
#include "editing/posted_key.h"
#include "editing/query_schema.h"
#include "editing/save_record.h"
#include "platform/transaction.h"
#include "settings/open_connection.h"
#include "settings/statement_parameters.h"
#include "state/delete_request.h"
#include "text/blanks.h"

namespace dralo::editing {
namespace {

namespace key = state::key;

/// Deletes the record that the posted key inputs address, with DeleteSQL. `schema` is that of EditSQL;
/// `statement` becomes the one that was last in use. When the statement fails, the edit status message says
/// so. When it finds no record, ErrorMessage says so, and the record counts as deleted; when it finds
/// several, all is undone. Throws platform::Error for that and every other failure.
bool DeleteRecord(state::Render& render, const QuerySchema& schema, std::string& statement) {
  const settings::Settings& settings = render.settings;
  const PostedKey key = ReadPostedKey(render, schema);
  statement = settings.DeleteSQL + " WHERE " + key.condition;
  RefuseAmbiguousKey(render, key);
  // A handler may give the view another connection.
  const std::shared_ptr<platform::Connection> connection = settings::OpenConnection(settings);
  std::optional<platform::Transaction<platform::Connection>> transaction;
  if (ChecksDeletes(settings)) {
    transaction.emplace(*connection);
    if (!MayDelete(render, schema, key)) return false;
  }
  std::int64_t changed = 0;
  try {
    changed = connection->ChangeOneRecord(statement, settings.DeleteSqlParameters);
  } catch (const std::exception& error) {
    if (TellOfLoss(render, error)) return false;
    render.outcome.status_message.assign("Delete failed: ").append(error.what()).append("<br>");
    return false;
  }
  if (changed == 0) {
    render.Errors().AddStatement("There is no record with the posted key", "UpdateRecord", statement,
                                 settings.DisplayDebug);
  }
  if (changed > 1) throw platform::Error("Several records have the posted key, so none was deleted");
  if (transaction) transaction->Commit();
  SetOutcome(render, settings::kDeleted);
  return true;
}

bool CarryOut(state::Render& render, std::string& statement) {
  const settings::Settings& settings = render.settings;
  const QuerySchema schema = ReadQuerySchema(render, statement, settings::EditParameters(settings));
  const bool is_delete = !settings.DeleteSQL.empty() && state::IsDeletePosted(settings, render.keys);
  const auto remove = [&] {
    return settings.Hardened ? DeleteGuardedRecord(render, schema) : DeleteRecord(render, schema, statement);
  };
  const bool is_done = is_delete ? remove() : SaveRecord(render, schema, statement);
  if (is_done) render.outcome.change = is_delete ? state::Change::kDeleted : state::Change::kSaved;
  return is_done;
}

/// Each kind of change needs its own word in EditOptions.
bool IsAllowedChangePosted(const state::Render& render) {
  const settings::EditPermissions& edit = render.settings.edit;
  if (state::IsDeletePosted(render.settings, render.keys)) return edit.remove;
  if (!render.keys.Has(key::kFormUpdate)) return false;
  return render.keys.Has(key::kFormInsert) ? edit.add : edit.update;
}

}  // namespace

bool IsChangePosted(const state::Render& render) {
  if (render.settings.Hardened) return IsAllowedChangePosted(render);
  const bool is_posted =
      render.keys.Has(key::kFormUpdate) || state::IsDeletePosted(render.settings, render.keys);
  return is_posted && render.settings.edit.save;
}

bool UpdateRecord(state::Render& render) {
  const settings::Settings& settings = render.settings;
  if (!IsChangePosted(render)) return true;
  if (text::TrimBlanks(settings.EditPrimaryKeys).empty()) {
    render.Errors().AddMissingKeys();
    return false;
  }
  std::string statement = settings.EditSQL;
  try {
    return CarryOut(render, statement);
  } catch (const std::exception& error) {
    if (TellOfLoss(render, error)) return false;
    render.Errors().AddStatement(error.what(), "UpdateRecord", statement, settings.DisplayDebug);
  }
  return false;
}

}  // namespace dralo::editing
