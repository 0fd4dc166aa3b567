#include "editing/update_engine.h"

#include <exception>
#include <string>

#include "editing/delete_record.h"
#include "editing/outcome.h"
#include "editing/query_schema.h"
#include "editing/save_record.h"
#include "text/blanks.h"

namespace dralo::editing {
namespace {

namespace key = state::key;

bool CarryOut(state::Render& render, std::string& statement) {
  const settings::Settings& settings = render.settings;
  const QuerySchema schema = ReadQuerySchema(render, statement);
  const bool is_delete = !settings.DeleteSQL.empty() && render.keys.Has(key::kFormDelete);
  const bool is_done =
      is_delete ? DeleteRecord(render, schema, statement) : SaveRecord(render, schema, statement);
  if (is_done) render.outcome.change = is_delete ? state::Change::kDeleted : state::Change::kSaved;
  return is_done;
}

}  // namespace

bool IsChangePosted(const state::Render& render) {
  const bool is_posted = render.keys.Has(key::kFormUpdate) || render.keys.Has(key::kFormDelete);
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
    render.Errors().AddStatement(error.what(), "UpdateRecord", statement, settings.DisplayDebug);
  }
  return false;
}

}  // namespace dralo::editing
