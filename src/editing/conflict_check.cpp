#include "editing/conflict_check.h"

#include "editing/control_text.h"
#include "editing/posted_field.h"
#include "platform/field_kind.h"

namespace dralo::editing {
namespace {

bool IsBox(const settings::Settings& settings, platform::TypeCode type, std::string_view field_name) {
  return type == platform::TypeCode::kBoolean && !IsSelect(settings, field_name);
}

FieldDigest::Text DigestOfControl(const settings::Settings& settings, platform::TypeCode type,
                                  std::string_view field_name, std::string_view text) {
  const bool is_one_line = !IsSelect(settings, field_name) && !platform::IsMemoFieldType(type);
  return DigestOfText(text, is_one_line);
}

}  // namespace

bool DetectsConflicts(const settings::Settings& settings) {
  return settings.EditDetectConflicts || settings.Hardened;
}

FieldDigest DigestOfField(const state::Render& render, std::string_view record_key, platform::Field& field,
                          bool is_iso_day) {
  const platform::TypeCode type = field.Type();
  const platform::VariantView value = field.Value();
  std::string scratch;
  return {.value = DigestOfValue(record_key, field.Name(), type, value),
          .text = IsBox(render.settings, type, field.Name())
                      ? DigestOfTick(IsTicked(value))
                      : DigestOfControl(render.settings, type, field.Name(),
                                        ControlText(render, field, is_iso_day, scratch))};
}

ConflictCheck::ConflictCheck(const state::Render& render, platform::Recordset& recordset)
    : render_(render),
      digests_(render.keys, state::key::kDigest),
      record_key_(RecordKeyOf(render.settings, recordset)) {}

std::optional<FieldDigest> ConflictCheck::Posted(std::string_view field_name) const {
  const auto text = digests_.Posted(field_name);
  return text ? ReadDigest(*text) : std::nullopt;
}

ConflictCheck::Finding ConflictCheck::Compare(const SchemaField& schema, platform::Field& field,
                                              std::optional<std::string_view> posted) {
  const settings::Settings& settings = render_.settings;
  const bool is_box = IsBox(settings, schema.type, schema.name);
  const auto digest = Posted(schema.name);
  // Browsers post nothing for a box without a tick; another input that is missing was lost on the way.
  if (!posted && !(is_box && digest)) return Finding::kUntouched;
  const std::string_view text = posted.value_or("");
  const FieldDigest::Text shown =
      is_box ? DigestOfTick(!text.empty()) : DigestOfControl(settings, schema.type, schema.name, text);
  if (digest && digest->text == shown) return Finding::kUntouched;
  if (IsShownAsPosted(render_, schema, field, text)) return Finding::kUntouched;
  return digest && !HasChanged(field) ? Finding::kTouched : Finding::kConflict;
}

bool ConflictCheck::HasChanged(platform::Field& field) {
  const auto digest = Posted(field.Name());
  return !digest || digest->value != DigestOfValue(record_key_, field.Name(), field.Type(), field.Value());
}

state::FieldNote ConflictCheck::Note(platform::Field& field, bool is_iso_day) {
  std::string scratch;
  return {.field = std::string(field.Name()),
          .message = render_.settings.language_tables->refusals[settings::kChangedMeanwhile],
          .newer_value = std::string(ControlText(render_, field, scratch)),
          .digest = DigestText(DigestOfField(render_, record_key_, field, is_iso_day))};
}

}  // namespace dralo::editing
