#include "editing/shown_key.h"

#include <algorithm>
#include <utility>

#include "editing/query_schema.h"
#include "platform/field_kind.h"
#include "state/key_items.h"
#include "state/key_text.h"
#include "state/named_field.h"
#include "text/blanks.h"

namespace dralo::editing {
namespace {

using platform::Recordset;

std::optional<KeyTexts> Items(const state::Render& render, std::optional<std::string_view> key) {
  return key ? state::KeyItems(*key, KeyNames(render.settings).size()) : std::nullopt;
}

/// The record of the key; nullptr when there is none.
std::shared_ptr<Recordset> FindRecord(const state::Render& render, const KeyedStatement& keyed,
                                      const KeyTexts& key) {
  return FindOrNothing([&]() -> std::shared_ptr<Recordset> {
    const auto statement = keyed.ForKey(key);
    if (!statement) return nullptr;
    auto record = OpenFirstRows(render, statement->text, statement->parameters);
    return !record->Eof() && HasKey(render, *record, key) ? record : nullptr;
  });
}

}  // namespace

std::optional<KeyTexts> RequestedKey(const state::Render& render) {
  return Items(render, render.keys.Untrimmed(state::key::kPrimaryKey));
}

std::optional<KeyTexts> KeyOfPostedForm(const state::Render& render) {
  return Items(render, render.keys.PostedOnce(state::key::kPrimaryKey));
}

std::optional<KeyTexts> KeyOf(const state::Render& render, Recordset& recordset) {
  KeyTexts key;
  std::string scratch;
  for (const std::string& name : KeyNames(render.settings)) {
    platform::Field& field = state::KeyField(recordset, name);
    if (platform::IsNull(field.Value()) || platform::IsBinaryFieldType(field.Type())) return std::nullopt;
    key.emplace_back(state::KeyText(field, scratch));
  }
  return key;
}

bool IsInsideSql(const state::Render& render, std::string_view form, settings::Parameters parameters,
                 const KeyTexts& key) {
  const settings::Settings& settings = render.settings;
  const std::string& sql = render.view.own.sql;
  const bool is_text = !settings.has_stored_procedure && !settings.has_supplied_recordset;
  if (settings.RecordsOutsideSql || !is_text || text::IsBlank(sql)) return true;
  if (form == sql && std::ranges::equal(parameters, settings.SqlParameters)) return true;
  const KeyedStatement list(render, sql, settings.SqlParameters);
  return !list.HasKeys() || list.YieldsOne(key);
}

std::shared_ptr<Recordset> OpenRecordOfKey(const state::Render& render, std::string_view sql,
                                           settings::Parameters parameters,
                                           const std::optional<KeyTexts>& key, bool is_named) {
  const KeyedStatement keyed(render, sql, parameters);
  if (key && (!is_named || IsInsideSql(render, sql, parameters, *key))) {
    if (auto record = FindRecord(render, keyed, *key)) return record;
  }
  const platform::BoundStatement none = keyed.ForNone();
  return OpenFirstRows(render, none.text, none.parameters);
}

}  // namespace dralo::editing
