#include "editing/checked_delete.h"

#include <string>

#include "editing/conflict_check.h"
#include "editing/outcome.h"
#include "editing/record_change.h"
#include "settings/field_lists.h"
#include "settings/statement_parameters.h"

namespace dralo::editing {
namespace {

/// Notes every field that the form has shown with another value. Keys and read-only fields count too: the
/// visitor has seen all of them when he decided.
void NoteChanges(state::Render& render, platform::Recordset& record) {
  ConflictCheck check(render, record);
  int column = 0;
  for (platform::Field* field : record.Fields()) {
    ++column;
    const bool has_digest = settings::IsFormFieldShown(render.settings, field->Name(), column) &&
                            field->Type() != platform::TypeCode::kLongVarBinary;
    // The digest in the note is not used: the form shows what is stored.
    if (has_digest && check.HasChanged(*field))
      render.outcome.field_notes.push_back(check.Note(*field, false));
  }
}

}  // namespace

bool ChecksDeletes(const settings::Settings& settings) {
  return DetectsConflicts(settings) || settings.OnDelete != nullptr;
}

bool MayDelete(state::Render& render, const QuerySchema& schema, const PostedKey& key) {
  std::string statement(WithoutWhere(render.settings.EditSQL));
  const settings::Parameters parameters = settings::EditParametersOf(render.settings, statement);
  const auto record = OpenFirstRows(render, statement.append(" WHERE ").append(key.condition), parameters);
  if (record->Eof()) return true;
  const bool may_delete = MayDelete(render, schema, *record);
  record->Close();
  return may_delete;
}

bool MayDelete(state::Render& render, const QuerySchema& schema, platform::Recordset& record) {
  if (DetectsConflicts(render.settings)) NoteChanges(render, record);
  const bool has_changed = !render.outcome.field_notes.empty();
  if (!has_changed && render.settings.OnDelete != nullptr) {
    RecordChange change(render, record, RecordChange::Kind::kDelete);
    (*render.settings.OnDelete)(change);
  }
  if (render.outcome.field_notes.empty()) return true;
  SetRefused(render, schema, has_changed ? settings::kDeleteChanged : settings::kNotDeleted);
  render.outcome.shows_stored_record = true;
  return false;
}

}  // namespace dralo::editing
