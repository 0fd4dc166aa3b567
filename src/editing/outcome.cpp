#include "editing/outcome.h"

#include <cstddef>

#include "html/text_escape.h"
#include "settings/field_lists.h"
#include "text/letter_case.h"

namespace dralo::editing {
namespace {

bool IsInForm(const settings::Settings& settings, const QuerySchema& schema, std::string_view field_name) {
  for (std::size_t i = 0; i < schema.fields.size(); ++i) {
    const std::string& name = schema.fields[i].name;
    if (text::EqualIgnoringCase(name, field_name)) {
      return settings::IsFormFieldShown(settings, name, static_cast<int>(i) + 1);
    }
  }
  return false;
}

}  // namespace

void SetRefused(state::Render& render, const QuerySchema& schema, settings::RefusalSlot slot) {
  std::string& message = render.outcome.status_message;
  message.assign(kOutcomePrefix);
  html::AppendEscaped(message, render.settings.language_tables->refusals[slot]);
  for (const state::FieldNote& note : render.outcome.field_notes) {
    if (IsInForm(render.settings, schema, note.field)) continue;
    message += "<br>";
    if (!note.field.empty()) {
      html::AppendEscaped(message, note.field);
      message += ": ";
    }
    html::AppendEscaped(message, note.message);
  }
}

}  // namespace dralo::editing
