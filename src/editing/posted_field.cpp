#include "editing/posted_field.h"

#include <string>

#include "editing/control_text.h"
#include "platform/field_kind.h"
#include "text/letter_case.h"

namespace dralo::editing {

using platform::TypeCode;

bool IsSelect(const settings::Settings& settings, std::string_view field_name) {
  return !settings.lookups.Find(field_name).empty();
}

std::string_view AsOfBox(TypeCode type, std::string_view text) {
  const bool is_false = text::EqualIgnoringCase(text, "False") || text == "0";
  return type == TypeCode::kBoolean && is_false ? std::string_view() : text;
}

bool IsShownAsPosted(const state::Render& render, const SchemaField& schema, platform::Field& field,
                     std::string_view posted) {
  const bool is_select = IsSelect(render.settings, schema.name);
  if (schema.type == TypeCode::kBoolean) {
    const platform::VariantView value = field.Value();
    if (!is_select) return !platform::IsNull(value) && IsTicked(value) == !posted.empty();
    if (platform::IsNull(value)) return posted.empty();
    return !posted.empty() && IsTicked(value) == !AsOfBox(schema.type, posted).empty();
  }
  std::string scratch;
  return IsUntouched(posted, ControlText(render, field, schema.is_iso_day, scratch),
                     !is_select && !platform::IsMemoFieldType(schema.type));
}

}  // namespace dralo::editing
