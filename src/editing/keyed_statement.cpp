#include "editing/keyed_statement.h"

#include <algorithm>
#include <utility>

#include "editing/derived_table.h"
#include "editing/query_schema.h"
#include "editing/strict_key.h"
#include "settings/open_connection.h"
#include "state/key_text.h"
#include "state/named_field.h"

namespace dralo::editing {
namespace {

using platform::BoundStatement;
using platform::Recordset;

void AddTerm(BoundStatement& condition, KeyTerm term) {
  condition.text.append(condition.text.empty() ? "" : " AND ").append(term.condition);
  if (term.value) condition.parameters.push_back(*std::move(term.value));
}

/// `name_of` returns the name of a field in the statement.
template <class NameOf>
std::optional<BoundStatement> Condition(const state::Render& render, Recordset& recordset,
                                        const KeyTexts& key, NameOf name_of) {
  const KeyTexts names = KeyNames(render.settings);
  if (names.size() != key.size()) return std::nullopt;
  BoundStatement condition;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const platform::Field& field = state::KeyField(recordset, names[i]);
    auto term = StrictKeyTerm(render.Regional(), field, name_of(field), key[i]);
    if (!term) return std::nullopt;
    AddTerm(condition, *std::move(term));
  }
  return condition;
}

}  // namespace

KeyedStatement::KeyedStatement(const state::Render& render, std::string_view sql,
                               settings::Parameters parameters)
    : render_(render),
      own_{std::string(sql), {parameters.begin(), parameters.end()}},
      table_(DerivedTable(sql, parameters)) {
  described_ = platform::Create<Recordset>(render.environment, "ADODB.Recordset");
  described_->SetMaxRecords(1);
  described_->SetCursorLocation(platform::CursorLocation::kClient);
  // Opened as if to be changed: then its columns are known without running it.
  settings::OpenWithParameters(*described_, render.settings, sql, parameters, platform::CursorType::kKeyset,
                               platform::LockType::kOptimistic);
}

bool KeyedStatement::HasKeys() const {
  return std::ranges::all_of(KeyNames(render_.settings), [&](const std::string& name) {
    return state::FindField(*described_, name) != nullptr;
  });
}

BoundStatement KeyedStatement::Where(const BoundStatement& condition) const {
  BoundStatement statement = {"SELECT * FROM " + table_.text + " WHERE " + condition.text, table_.parameters};
  statement.parameters.insert(statement.parameters.end(), condition.parameters.begin(),
                              condition.parameters.end());
  return statement;
}

std::optional<BoundStatement> KeyedStatement::ForKey(const KeyTexts& key) const {
  const auto condition = Condition(render_, *described_, key, [&](const platform::Field& field) {
    return settings::OpenConnection(render_.settings)->QuoteExactName(field.Name());
  });
  return condition ? std::optional(Where(*condition)) : std::nullopt;
}

BoundStatement KeyedStatement::ForNone() const { return Where({"1=0"}); }

bool KeyedStatement::YieldsOne(const KeyTexts& key) const {
  return FindOrNothing([&] {
    const auto statement = ForKey(key);
    if (!statement) return false;
    const auto records = OpenFirstRows(render_, statement->text, statement->parameters, 2);
    if (records->Eof() || !HasKey(render_, *records, key)) return false;
    records->MoveNext();
    return records->Eof();
  });
}

std::shared_ptr<Recordset> KeyedStatement::OpenForChange(const KeyTexts& key) const {
  auto recordset = platform::Create<Recordset>(render_.environment, "ADODB.Recordset");
  const auto statement = ForKey(key);
  if (!statement) return recordset;
  platform::Command described;
  described.active_connection = settings::OpenConnection(render_.settings);
  described.command_text = own_.text;
  described.parameters = own_.parameters;
  platform::Command rows;
  rows.command_text = statement->text;
  rows.parameters = statement->parameters;
  recordset->SetMaxRecords(1);
  recordset->SetCursorLocation(platform::CursorLocation::kClient);
  // Of two saves of one record at the same moment one must fail, or the record would be a mixture of both.
  recordset->SetUpdateCriteria(platform::UpdateCriteria::kAllColumns);
  recordset->SetIdentity({KeyNames(render_.settings)});
  recordset->OpenDescribed(described, rows);
  return recordset;
}

bool HasKey(const state::Render& render, Recordset& recordset, const KeyTexts& key) {
  const KeyTexts names = KeyNames(render.settings);
  std::string scratch;
  for (std::size_t i = 0; i < names.size(); ++i) {
    platform::Field& field = state::KeyField(recordset, names[i]);
    if (platform::IsNull(field.Value()) || state::KeyText(field, scratch) != key[i]) return false;
  }
  return true;
}

std::optional<BoundStatement> BaseKeyCondition(const state::Render& render, Recordset& recordset,
                                               const KeyTexts& key) {
  return Condition(render, recordset, key, [](const platform::Field& field) {
    std::string name = field.BaseName();
    if (name.empty())
      throw platform::Error("The key " + std::string(field.Name()) + " is no column of the table");
    return name;
  });
}

}  // namespace dralo::editing
