#include "editing/fields_in_turn.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "dralo/error.h"
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

class FieldsInTurn {
 public:
  FieldsInTurn(state::Render& render, const QuerySchema& schema, platform::Recordset& recordset,
               const PostedKey* key)
      : render_(render),
        settings_(render.settings),
        schema_(schema),
        recordset_(recordset),
        key_(key),
        inputs_(render.keys) {}

  bool AssignAll() {
    for (std::size_t i = 0; i < schema_.fields.size(); ++i) {
      if (!Assign(i)) return false;
    }
    return true;
  }

 private:
  /// Gives the field its value. False when there is none for it; the status message then says why.
  bool Assign(std::size_t index) {
    SchemaField field = schema_.fields[index];
    // In a column without a declared type each value has its own type.
    if (key_ != nullptr) field.type = FieldAt(index).Type();
    const NewKey key = key_ == nullptr ? MakeNewKey(render_, field.name) : NewKey{};
    const auto posted = inputs_.Posted(field.name);
    if (key.is_left_to_database || field.type == TypeCode::kLongVarBinary) return true;
    if (!key.value && IsLeftAlone(field, index, posted)) return true;

    std::string_view text = key.value ? std::string_view(*key.value) : posted.value_or("");
    if (key.value || IsSelect(settings_, field.name)) text = AsOfBox(field.type, text);
    const auto value = FieldValue(render_.Regional(), field, text);
    if (const auto* refusal = std::get_if<Refusal>(&value)) return Refuse(*refusal, text);
    FieldAt(index).SetValue(std::get<platform::Variant>(value));
    return true;
  }

  /// Whether what was posted, or that nothing was, is no reason to set the field.
  bool IsLeftAlone(const SchemaField& field, std::size_t index, std::optional<std::string_view> posted) {
    const int position = static_cast<int>(index);
    if (settings::IsFieldReadOnly(settings_, field.name, position)) return true;
    if (!posted && !settings::IsFormFieldShown(settings_, field.name, position + 1)) return true;
    if (key_ == nullptr) return false;
    return IsUntouchedKey(field.name) || IsShownAsPosted(render_, field, FieldAt(index), posted.value_or(""));
  }

  bool IsUntouchedKey(std::string_view name) const {
    return !key_->exact.empty() && std::ranges::any_of(KeyNames(settings_), [&](const std::string& key) {
      return text::EqualIgnoringCase(key, name);
    });
  }

  platform::Field& FieldAt(std::size_t index) {
    const auto fields = recordset_.Fields();
    if (index >= fields.size())
      throw platform::Error("The table was changed while the record was being saved");
    return *fields[index];
  }

  /// Only a missing value cancels what was assigned so far; other refusals leave that to the end of the
  /// recordset.
  bool Refuse(Refusal refusal, std::string_view text) {
    if (refusal == Refusal::kRequired) {
      SetOutcome(render_, settings::kNotSaved);
      recordset_.CancelUpdate();
      recordset_.Close();
      return false;
    }
    render_.outcome.status_message.assign(kOutcomePrefix);
    AppendTyped(render_, text);
    render_.outcome.status_message +=
        refusal == Refusal::kNoDate ? " is not a valid date" : " is not a number";
    return false;
  }

  state::Render& render_;
  const settings::Settings& settings_;
  const QuerySchema& schema_;
  platform::Recordset& recordset_;
  const PostedKey* key_;
  state::FieldInputs inputs_;
};

}  // namespace

bool AssignInTurn(state::Render& render, const QuerySchema& schema, platform::Recordset& recordset,
                  const PostedKey* key) {
  return FieldsInTurn(render, schema, recordset, key).AssignAll();
}

}  // namespace dralo::editing
