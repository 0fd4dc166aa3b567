#include "editing/posted_key.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "editing/control_text.h"
#include "editing/key_condition.h"
#include "platform/field_kind.h"
#include "state/field_inputs.h"
#include "state/key_text.h"
#include "state/named_field.h"
#include "text/blanks.h"
#include "text/letter_case.h"
#include "text/list.h"

namespace dralo::editing {
namespace {

using platform::TypeCode;
using Texts = std::vector<std::string>;

/// The key inputs of one posted form.
class KeyInputs {
 public:
  KeyInputs(const state::Render& render, const QuerySchema& schema)
      : render_(render), schema_(schema), names_(KeyNames(render.settings)), inputs_(render.keys) {}

  PostedKey Read() {
    PostedKey key;
    if (auto exact = ExactTexts()) key.exact = *std::move(exact);
    KeyCondition condition;
    KeyCondition outside;
    KeyCondition also_shown;
    std::string nulls;
    for (std::size_t i = 0; i < names_.size(); ++i) {
      const bool is_numeric = schema_.IsNumericAt(i);
      Add(condition, i, key, is_numeric);
      const SchemaField* field = schema_.Find(names_[i]);
      if (field == nullptr) Add(outside, i, key, is_numeric);
      if (!IsEmptyOrNull(i, field)) {
        Add(also_shown, i, key, is_numeric);
        continue;
      }
      also_shown.AddEmpty(names_[i], *field);
      nulls.append(nulls.empty() ? " AND (" : " OR ").append(names_[i]).append(" IS NULL");
    }
    const auto& engine = render_.settings.DrConnection->EngineName();
    key.condition = condition.Text(engine);
    if (!outside.IsEmpty()) key.outside_columns = outside.Text(engine);
    if (!nulls.empty()) key.also_shown = also_shown.Text(engine) + nulls + ")";
    return key;
  }

 private:
  void Add(KeyCondition& condition, std::size_t i, const PostedKey& key, bool is_numeric) const {
    const SchemaField* field = schema_.Find(names_[i]);
    // As when the form was opened: a key that is no column counts as a number.
    if (field == nullptr && !key.exact.empty()) is_numeric = true;
    if (key.exact.empty()) {
      condition.AddExact(names_[i], field, TypedText(i), is_numeric);
    } else if (key.exact[i].empty() && field != nullptr && field->is_nullable) {
      condition.AddEmpty(names_[i], *field);
    } else {
      condition.AddExact(names_[i], field, key.exact[i], is_numeric);
    }
  }

  /// Whether nothing tells if the form showed an empty text or Null: it was not opened by a key.
  bool IsEmptyOrNull(std::size_t i, const SchemaField* field) const {
    if (field == nullptr || !field->is_nullable || render_.keys.Has(state::key::kPrimaryKey)) return false;
    if (field->type == TypeCode::kBoolean) return !IsTickPosted(i);
    return MayBeEmptyText(field->type) && inputs_.Posted(names_[i]) && Value(i).empty();
  }

  TypeCode TypeOf(std::size_t i) const {
    const SchemaField* field = schema_.Find(names_[i]);
    return field != nullptr ? field->type : schema_.fields[i].type;
  }

  std::string_view Value(std::size_t i) const { return inputs_.KeyValue(names_[i]); }

  bool IsPosted(std::size_t i) const { return !Value(i).empty() || inputs_.Posted(names_[i]).has_value(); }

  std::optional<Texts> ExactTexts() const {
    if (!render_.keys.Has(state::key::kPrimaryKey)) return std::nullopt;
    Texts texts = PostedKeyTexts(render_, names_.size());
    if (texts.size() < names_.size()) return std::nullopt;
    for (std::size_t i = 0; i < names_.size(); ++i) {
      if (!StillShows(i, texts[i])) return std::nullopt;
    }
    texts.resize(names_.size());
    return texts;
  }

  /// Whether the key's input holds what the form shows for the value with that key text.
  bool StillShows(std::size_t i, std::string_view text) const {
    const SchemaField* field = schema_.Find(names_[i]);
    if (field == nullptr) return !IsPosted(i) || Value(i) == text;
    const platform::Variant value = state::KeyValue(render_.Regional(), field->type, text);
    if (field->type == TypeCode::kBoolean) return IsTickPosted(i) == IsTicked(platform::View(value));
    if (!IsPosted(i)) return true;
    const bool is_select = !render_.settings.lookups.Find(field->name).empty();
    std::string scratch;
    const std::string_view shown = ControlText(render_, field->type, platform::View(value), scratch);
    return IsUntouched(Value(i), text::TrimBlanks(shown),
                       !is_select && !platform::IsMemoFieldType(field->type));
  }

  /// A box that is disabled or hidden is replaced by an input with its value as text.
  bool IsTickPosted(std::size_t i) const {
    return !Value(i).empty() && !text::EqualIgnoringCase(Value(i), "False");
  }

  /// What was typed, as key text: forms show dates, and numbers with fractions, in the regional form.
  std::string TypedText(std::size_t i) const {
    const TypeCode type = TypeOf(i);
    std::string text(Value(i));
    if (platform::IsFractionalFieldType(type)) {
      std::ranges::replace(text, ',', '.');
    } else if (platform::IsDateFieldType(type) || type == TypeCode::kDbTime) {
      if (const auto date = render_.Regional().RecognizeDate(text)) state::KeyText(*date, type, text);
    } else if (type == TypeCode::kBoolean && text != "0" && text != "1") {
      text = IsTickPosted(i) ? "1" : "0";
    }
    return text;
  }

  const state::Render& render_;
  const QuerySchema& schema_;
  const Texts names_;
  const state::FieldInputs inputs_;
};

/// The first records of EditSQL under another condition, at most that many.
std::shared_ptr<platform::Recordset> OpenEditSqlWhere(const state::Render& render, std::string_view condition,
                                                      std::int64_t rows) {
  const std::string_view all = WithoutWhere(render.settings.EditSQL);
  return OpenFirstRows(render, std::string(all).append(" WHERE ").append(condition),
                       settings::EditParametersOf(render.settings, all), rows);
}

}  // namespace

Texts PostedKeyTexts(const state::Render& render, std::size_t keys) {
  const std::string_view posted = render.keys.Value(state::key::kPrimaryKey);
  if (keys < 2) return {std::string(posted)};
  Texts texts = text::Split(posted);
  for (std::string& text : texts) text = std::string(text::TrimBlanks(text));
  return texts;
}

PostedKey ReadPostedKey(const state::Render& render, const QuerySchema& schema) {
  return KeyInputs(render, schema).Read();
}

void RefuseAmbiguousKey(const state::Render& render, const PostedKey& key) {
  if (!key.also_shown.empty() && !OpenEditSqlWhere(render, key.also_shown, 1)->Eof())
    throw platform::Error("The posted key is empty, and so are those of several records");
}

void RefuseSharedKey(const state::Render& render, const PostedKey& key) {
  if (!key.exact.empty()) return;
  const auto records = OpenEditSqlWhere(render, key.condition, 2);
  if (records->Eof()) return;
  records->MoveNext();
  if (!records->Eof()) throw platform::Error("Several records have the posted key, so none was saved");
}

bool IsRecordOfKey(const state::Render& render, platform::Recordset& recordset, const PostedKey& key) {
  const Texts names = KeyNames(render.settings);
  std::string scratch;
  for (std::size_t i = 0; i < key.exact.size(); ++i) {
    platform::Field* field = state::FindField(recordset, names[i]);
    if (field != nullptr && text::TrimBlanks(state::KeyText(*field, scratch)) != key.exact[i]) return false;
  }
  return true;
}

}  // namespace dralo::editing
