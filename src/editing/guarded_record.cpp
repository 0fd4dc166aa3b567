#include "editing/guarded_record.h"

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

#include "dralo/error.h"
#include "editing/checked_delete.h"
#include "editing/lost_change.h"
#include "editing/outcome.h"
#include "editing/shown_key.h"
#include "settings/open_connection.h"

namespace dralo::editing {
namespace {

using platform::Recordset;

std::int64_t RunDelete(const state::Render& render, Recordset& record, const KeyTexts& key) {
  const settings::Settings& settings = render.settings;
  const auto condition = BaseKeyCondition(render, record, key);
  if (!condition) return 0;
  std::vector<platform::Variant> parameters = settings.DeleteSqlParameters;
  parameters.insert(parameters.end(), condition->parameters.begin(), condition->parameters.end());
  return settings::OpenConnection(settings)->Run(settings.DeleteSQL + " WHERE " + condition->text,
                                                 parameters);
}

}  // namespace

GuardedRecord::GuardedRecord(const state::Render& render)
    : render_(render),
      transaction_(*settings::OpenConnection(render.settings)),
      form_(render, render.settings.EditSQL, settings::EditParameters(render.settings)),
      key_(KeyOfPostedForm(render)) {}

std::shared_ptr<Recordset> GuardedRecord::Open() {
  return FindOrNothing([&]() -> std::shared_ptr<Recordset> {
    const settings::Settings& settings = render_.settings;
    if (!key_ || !form_.YieldsOne(*key_)) return nullptr;
    if (!IsInsideSql(render_, settings.EditSQL, settings::EditParameters(settings), *key_)) return nullptr;
    auto record = form_.OpenForChange(*key_);
    return record->IsOpen() && !record->Eof() && HasKey(render_, *record, *key_) ? record : nullptr;
  });
}

std::shared_ptr<Recordset> GuardedRecord::OpenForNew() const {
  auto records = platform::Create<Recordset>(render_.environment, "ADODB.Recordset");
  records->SetCursorLocation(platform::CursorLocation::kClient);
  const settings::Settings& settings = render_.settings;
  settings::OpenWithParameters(*records, settings, settings.EditSQL, settings::EditParameters(settings),
                               platform::CursorType::kKeyset, platform::LockType::kOptimistic);
  return records;
}

std::optional<KeyTexts> GuardedRecord::KeyInside(Recordset& records) const {
  auto key = KeyOf(render_, records);
  return key && form_.YieldsOne(*key) ? std::move(key) : std::nullopt;
}

bool DeleteGuardedRecord(state::Render& render, const QuerySchema& schema) {
  GuardedRecord guarded(render);
  const auto record = guarded.Open();
  if (record == nullptr) {
    render.Errors().AddNoSuchRecord();
    return false;
  }
  record->LockRow();
  if (!MayDelete(render, schema, *record)) return false;
  std::int64_t changed = 0;
  try {
    changed = RunDelete(render, *record, guarded.Key());
  } catch (const std::exception& error) {
    if (!TellOfLoss(render, error)) render.Errors().AddPublic(settings::PublicText::kDelete, error.what());
    return false;
  }
  if (changed != 1) throw platform::Error("DeleteSQL did not change exactly one record, so none was deleted");
  guarded.Commit();
  SetOutcome(render, settings::kDeleted);
  return true;
}

}  // namespace dralo::editing
