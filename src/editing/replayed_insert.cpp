#include "editing/replayed_insert.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <variant>

#include "editing/derived_table.h"
#include "editing/field_digest.h"
#include "editing/insert_token.h"
#include "editing/shown_key.h"
#include "settings/open_connection.h"
#include "settings/statement_parameters.h"
#include "state/field_inputs.h"
#include "state/named_field.h"
#include "text/blanks.h"
#include "text/decimal.h"
#include "text/letter_case.h"

namespace dralo::editing {
namespace {

/// Bounds the comparison, however many records others have added meanwhile.
constexpr std::int64_t kMostComparedRecords = 1000;

platform::BoundStatement RecordsOfForm(const settings::Settings& settings, std::string_view columns) {
  platform::BoundStatement statement = DerivedTable(settings.EditSQL, settings::EditParameters(settings));
  statement.text = "SELECT " + std::string(columns) + " FROM " + statement.text;
  return statement;
}

/// The key in the letter case that EditSQL has, because databases compare quoted names exactly.
std::string QuotedKey(const settings::Settings& settings, platform::Recordset& records) {
  const std::string name = KeyNames(settings).front();
  const platform::Field* field = state::FindField(records, name);
  if (field == nullptr) throw state::UnknownField(name);
  return settings::OpenConnection(settings)->QuoteExactName(field->Name());
}

std::optional<std::int64_t> PostedGreatestKey(const state::Render& render) {
  return text::ParseNumber<std::int64_t>(render.keys.Value(kGreatestKey));
}

/// Whether the two records have equal values in all fields that were posted, the key apart.
bool HasPostedValues(const state::Render& render, const QuerySchema& schema, platform::Recordset& added,
                     platform::Recordset& record) {
  const state::FieldInputs inputs(render.keys);
  const std::string key_name = KeyNames(render.settings).front();
  const std::span<platform::Field* const> left = added.Fields();
  const std::span<platform::Field* const> right = record.Fields();
  if (left.size() != right.size() || left.size() != schema.fields.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    const std::string& name = schema.fields[i].name;
    const platform::TypeCode type = schema.fields[i].type;
    const bool counts = inputs.Posted(name).has_value() && !text::EqualIgnoringCase(name, key_name) &&
                        type != platform::TypeCode::kLongVarBinary;
    if (counts &&
        DigestOfValue("", name, type, left[i]->Value()) != DigestOfValue("", name, type, right[i]->Value())) {
      return false;
    }
  }
  return true;
}

/// A visitor must not learn of a record outside the page's `sql` that it exists.
bool IsOfPage(const state::Render& render, platform::Recordset& record) {
  const auto key = KeyOf(render, record);
  const settings::Settings& settings = render.settings;
  return key && IsInsideSql(render, settings.EditSQL, settings::EditParameters(settings), *key);
}

}  // namespace

bool DetectsReplays(const settings::Settings& settings) {
  return settings.Hardened && KeyNames(settings).size() == 1 && !text::IsBlank(settings.EditNewPKStatement) &&
         !HasInsertToken(settings);
}

std::string GreatestKeyOfForm(const state::Render& render, platform::Recordset& records) {
  const auto posted = PostedGreatestKey(render);
  if (posted && render.outcome.has_lost_change) return std::to_string(*posted);
  const std::string maximum = "max(" + QuotedKey(render.settings, records) + ")";
  const platform::BoundStatement statement = RecordsOfForm(render.settings, maximum);
  const auto record = OpenFirstRows(render, statement.text, statement.parameters);
  if (record->Eof()) return {};
  const platform::VariantView value = record->Fields().front()->Value();
  if (platform::IsNull(value)) return std::to_string(-std::numeric_limits<std::int64_t>::max());
  const auto* number = std::get_if<std::int64_t>(&value);
  return number == nullptr ? std::string() : std::to_string(*number);
}

bool IsReplayed(const state::Render& render, const QuerySchema& schema, platform::Recordset& recordset) {
  const auto greatest = PostedGreatestKey(render);
  if (!greatest) return false;
  platform::BoundStatement statement = RecordsOfForm(render.settings, "*");
  statement.text += " WHERE " + QuotedKey(render.settings, recordset) + " > " + std::to_string(*greatest);
  const auto newer = OpenFirstRows(render, statement.text, statement.parameters, kMostComparedRecords);
  for (; !newer->Eof(); newer->MoveNext()) {
    if (HasPostedValues(render, schema, recordset, *newer) && IsOfPage(render, *newer)) return true;
  }
  return false;
}

}  // namespace dralo::editing
