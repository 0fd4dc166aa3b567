#include "editing/assignable_field.h"

#include <algorithm>

#include "editing/control_text.h"
#include "editing/lookup_select.h"
#include "platform/field_kind.h"
#include "settings/field_lists.h"
#include "text/letter_case.h"
#include "text/list.h"

namespace dralo::editing {
namespace {

bool IsNameOfKey(const settings::Settings& settings, std::string_view name) {
  return std::ranges::any_of(KeyNames(settings),
                             [&](const std::string& key) { return text::EqualIgnoringCase(key, name); });
}

bool IsEditable(const settings::Settings& settings, const platform::Field& field, int position) {
  return settings::IsFormFieldShown(settings, field.Name(), position + 1) &&
         !settings::IsFieldReadOnly(settings, field.Name(), position) &&
         !platform::IsBinaryFieldType(field.Type());
}

}  // namespace

bool MayBeAssigned(const state::Render& render, const platform::Field& field, int position, bool is_new,
                   std::optional<std::string_view> posted) {
  const settings::Settings& settings = render.settings;
  if (!IsEditable(settings, field, position) || field.BaseName().empty()) return false;
  if (!is_new && IsNameOfKey(settings, field.Name())) return false;
  const bool is_box =
      field.Type() == platform::TypeCode::kBoolean && settings.lookups.Find(field.Name()).empty();
  return posted || is_box;
}

bool IsOfferedByLookup(const state::Render& render, std::string_view field_name, std::string_view posted) {
  const std::string_view definition = render.settings.lookups.Find(field_name);
  if (definition.empty()) return true;
  if (posted.empty()) return AllowsNoChoice(definition);
  const auto options = OpenFirstRows(render, LookupStatement(definition), {}, 0);
  if (options->Fields().empty()) return false;
  std::string scratch;
  for (; !options->Eof(); options->MoveNext()) {
    if (IsUntouched(posted, ControlText(render, *options->Fields()[0], scratch), false)) return true;
  }
  return false;
}

}  // namespace dralo::editing
