#include "editing/checked_fields.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "dralo/error.h"
#include "editing/assignable_field.h"
#include "editing/conflict_check.h"
#include "editing/edit_rules.h"
#include "editing/field_value.h"
#include "editing/outcome.h"
#include "editing/posted_field.h"
#include "editing/primary_keys.h"
#include "settings/field_lists.h"
#include "state/field_inputs.h"
#include "text/letter_case.h"

namespace dralo::editing {
namespace {

using platform::TypeCode;

settings::RefusalSlot SlotOf(Refusal refusal) {
  switch (refusal) {
    case Refusal::kRequired:
      return settings::kRequired;
    case Refusal::kNoNumber:
      return settings::kNoNumber;
    default:
      return settings::kNoDate;
  }
}

/// The assignment of one posted form to one record.
class CheckedFields {
 public:
  /// `key` is nullptr for a new record.
  CheckedFields(state::Render& render, const QuerySchema& schema, platform::Recordset& recordset,
                const PostedKey* key)
      : render_(render), settings_(render.settings), schema_(schema), recordset_(recordset), key_(key) {
    if (key != nullptr && DetectsConflicts(settings_)) conflicts_.emplace(render, recordset);
  }

  bool Run() {
    for (std::size_t i = 0; i < schema_.fields.size(); ++i) Assign(i);
    if (render_.outcome.field_notes.empty()) return true;
    SetRefused(render_, schema_, settings::kSeeFields);
    return false;
  }

 private:
  void Assign(std::size_t index) {
    SchemaField schema = schema_.fields[index];
    platform::Field& field = FieldAt(index);
    // In a column without a declared type each value has its own type.
    if (key_ != nullptr) schema.type = field.Type();
    const NewKey made = key_ == nullptr ? MakeNewKey(render_, schema.name) : NewKey{};
    if (made.is_left_to_database || schema.type == TypeCode::kLongVarBinary) return;
    const EditRules rules = RulesOfColumn(settings_, static_cast<int>(index) + 1);
    schema.is_iso_day = rules.is_day;
    const auto posted = inputs_.Posted(schema.name);
    if (!made.value && IsLeftAlone(schema, field, index, posted)) return;

    if (!made.value && settings_.Hardened && !IsOfferedByLookup(render_, schema.name, posted.value_or(""))) {
      return Note(schema.name, settings_.language_tables->refusals[settings::kNoChoice]);
    }

    std::string_view text = made.value ? std::string_view(*made.value) : posted.value_or("");
    if (made.value || IsSelect(settings_, schema.name)) text = AsOfBox(schema.type, text);
    if (Store(schema, field, text) && !made.value) CheckRules(rules, field, text);
  }

  bool IsLeftAlone(const SchemaField& schema, platform::Field& field, std::size_t index,
                   std::optional<std::string_view> posted) {
    const int position = static_cast<int>(index);
    if (settings_.Hardened && !MayBeAssigned(render_, field, position, key_ == nullptr, posted)) return true;
    if (settings::IsFieldReadOnly(settings_, schema.name, position)) return true;
    if (!posted && !settings::IsFormFieldShown(settings_, schema.name, position + 1)) return true;
    if (key_ == nullptr) return false;
    if (IsKey(schema.name) && (conflicts_ || !key_->exact.empty())) return true;
    if (!conflicts_) return IsShownAsPosted(render_, schema, field, posted.value_or(""));
    const auto finding = conflicts_->Compare(schema, field, posted);
    if (finding == ConflictCheck::Finding::kConflict) {
      render_.outcome.field_notes.push_back(conflicts_->Note(field, schema.is_iso_day));
    }
    return finding != ConflictCheck::Finding::kTouched;
  }

  bool Store(const SchemaField& schema, platform::Field& field, std::string_view text) {
    auto value = FieldValue(render_.Regional(), schema, text);
    if (const auto* refusal = std::get_if<Refusal>(&value)) {
      Note(schema.name, settings_.language_tables->refusals[SlotOf(*refusal)]);
      return false;
    }
    try {
      field.SetValue(std::get<platform::Variant>(value));
      return true;
    } catch (const platform::Error& error) {
      Note(schema.name, error.what());
      return false;
    }
  }

  void CheckRules(const EditRules& rules, platform::Field& field, std::string_view text) {
    std::string broken = BrokenRule(render_, rules, text, field.Value(), today_);
    if (!broken.empty()) Note(field.Name(), std::move(broken));
  }

  void Note(std::string_view field, std::string message) {
    render_.outcome.field_notes.push_back({.field = std::string(field), .message = std::move(message)});
  }

  bool IsKey(std::string_view name) const {
    return std::ranges::any_of(key_names_,
                               [&](const std::string& key) { return text::EqualIgnoringCase(key, name); });
  }

  platform::Field& FieldAt(std::size_t index) {
    const auto fields = recordset_.Fields();
    if (index >= fields.size())
      throw platform::Error("The table was changed while the record was being saved");
    return *fields[index];
  }

  state::Render& render_;
  const settings::Settings& settings_;
  const QuerySchema& schema_;
  platform::Recordset& recordset_;
  const PostedKey* key_;
  const std::vector<std::string> key_names_ = KeyNames(settings_);
  const state::FieldInputs inputs_{render_.keys};
  const platform::DateTime today_ = Today();
  std::optional<ConflictCheck> conflicts_;
};

}  // namespace

bool ChecksAllFields(const settings::Settings& settings) {
  return DetectsConflicts(settings) || !settings.EditRules.empty() || settings.OnSave != nullptr ||
         settings.OnSaved != nullptr;
}

bool AssignToNewRecord(state::Render& render, const QuerySchema& schema, platform::Recordset& recordset) {
  return CheckedFields(render, schema, recordset, nullptr).Run();
}

bool AssignToRecord(state::Render& render, const QuerySchema& schema, platform::Recordset& recordset,
                    const PostedKey& key) {
  return CheckedFields(render, schema, recordset, &key).Run();
}

}  // namespace dralo::editing
