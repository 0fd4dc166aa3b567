#include "editing/primary_keys.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "dralo/error.h"
#include "editing/derived_table.h"
#include "editing/key_condition.h"
#include "editing/posted_key.h"
#include "editing/query_schema.h"
#include "settings/error_report.h"
#include "settings/open_connection.h"
#include "state/key_text.h"
#include "state/named_field.h"
#include "text/ascii.h"
#include "text/blanks.h"
#include "text/boolean_text.h"
#include "text/letter_case.h"
#include "text/list.h"
#include "text/sql_piece.h"

namespace dralo::editing {
namespace {

using platform::Error;
using platform::Recordset;
using state::Render;
using Texts = std::vector<std::string>;

Texts ShownKeyValues(Recordset& shown, const Texts& names) {
  Texts values;
  std::string scratch;
  for (const std::string& name : names) {
    platform::Field* field = state::FindField(shown, name);
    if (field == nullptr) throw state::UnknownField(name);
    if (platform::IsNull(field->Value())) throw Error("The key \"" + name + "\" of the record is empty");
    values.emplace_back(state::KeyText(*field, scratch));
  }
  return values;
}

/// The posted values of the keys. Throws platform::Error when the request has fewer values than there are
/// keys.
Texts PostedKeyValues(const Render& render, const Texts& names) {
  Texts values = PostedKeyTexts(render, names.size());
  if (values.size() < names.size()) {
    throw Error("The request has no value for the key \"" + names[values.size()] + "\"");
  }
  return values;
}

std::string ConditionFor(const Render& render, const QuerySchema& schema, const Texts& names,
                         const Texts& values) {
  KeyCondition condition;
  for (std::size_t key = 0; key < names.size(); ++key) {
    const SchemaField* field = schema.Find(names[key]);
    const bool is_numeric = field == nullptr || schema.IsNumericAt(key);
    if (values[key].empty() && field != nullptr && field->is_nullable) {
      condition.AddEmpty(names[key], *field);
    } else {
      condition.AddExact(names[key], field, values[key], is_numeric);
    }
  }
  return condition.Text(render.settings.DrConnection->EngineName());
}

/// A statement that has a condition already becomes a table to select from, so that both conditions hold.
std::string Restricted(std::string_view sql, std::string_view condition) {
  std::string text;
  if (text::ContainsAscii(sql, " WHERE ")) {
    text.append("SELECT * FROM (").append(sql).append(") ").append(kDerivedTable);
  } else {
    text = sql;
  }
  return text.append(" WHERE ").append(condition);
}

std::string FirstValue(const Render& render, std::string_view statement) {
  const std::vector<platform::Variant>& values = render.settings.SqlParameters;
  const bool has_parameters = text::CountSqlParameters(statement) > 0;
  const auto recordset = OpenFirstRows(
      render, statement, has_parameters ? settings::Parameters(values) : settings::Parameters());
  const bool has_value = !recordset->Fields().empty() && !recordset->Eof();
  if (!has_value || platform::IsNull(recordset->Fields()[0]->Value())) {
    throw Error("The statement for a new key yields no value");
  }
  const platform::VariantView key = recordset->Fields()[0]->Value();
  const auto* flag = std::get_if<bool>(&key);
  std::string scratch;
  std::string value(flag != nullptr ? text::BooleanText(*flag) : render.Regional().Text(key, scratch));
  recordset->Close();
  return value;
}

}  // namespace

std::string GetSqlPK(Render& render, std::string_view sql, settings::Parameters parameters,
                     Recordset* shown) {
  const settings::Settings& settings = render.settings;
  if (text::IsBlank(settings.EditPrimaryKeys)) {
    render.Errors().AddMissingKeys();
    return {};
  }
  return settings::Guarded(render.Errors(), "GetSqlPK.", std::string(), [&]() -> std::string {
    if (shown != nullptr && shown->Eof()) return {};
    const Texts names = KeyNames(settings);
    const QuerySchema schema = ReadQuerySchema(render, sql, parameters);
    if (!schema.has_rows) return {};
    const Texts values = shown != nullptr ? ShownKeyValues(*shown, names) : PostedKeyValues(render, names);
    return Restricted(sql, ConditionFor(render, schema, names, values));
  });
}

std::string GetNewPKValue(Render& render, std::string_view statement) {
  try {
    return FirstValue(render, statement);
  } catch (const std::exception& error) {
    render.Errors().AddNewKeyFailure(error.what(), statement, render.settings.DisplayDebug);
  }
  return {};
}

NewKey MakeNewKey(Render& render, std::string_view field_name) {
  const settings::Settings& settings = render.settings;
  if (text::IsBlank(settings.EditNewPKStatement)) return {};
  const Texts names = KeyNames(settings);
  const auto name = std::ranges::find_if(
      names, [&](const std::string& key) { return text::EqualIgnoringCase(key, field_name); });
  if (name == names.end()) return {};
  const Texts items = text::Split(settings.EditNewPKStatement);
  const auto position = static_cast<std::size_t>(name - names.begin());
  if (position >= items.size()) {
    throw Error("EditNewPKStatement has fewer items than EditPrimaryKeys");
  }
  const std::string& item = items[position];
  if (text::EqualIgnoringCase(item, "autoincrement")) return {.is_left_to_database = true};
  if (text::IsBlank(item)) return {};
  return {.value = GetNewPKValue(render, item)};
}

}  // namespace dralo::editing
