#include "editing/new_key.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "dralo/error.h"
#include "editing/primary_keys.h"
#include "editing/query_schema.h"
#include "text/blanks.h"
#include "text/letter_case.h"
#include "text/list.h"

namespace dralo::editing {

NewKey MakeNewKey(state::Render& render, std::string_view field_name) {
  const settings::Settings& settings = render.settings;
  if (text::IsBlank(settings.EditNewPKStatement)) return {};
  const std::vector<std::string> names = KeyNames(settings);
  const auto name = std::ranges::find_if(
      names, [&](const std::string& key) { return text::EqualIgnoringCase(key, field_name); });
  if (name == names.end()) return {};
  const std::vector<std::string> items = text::Split(settings.EditNewPKStatement);
  const auto position = static_cast<std::size_t>(name - names.begin());
  if (position >= items.size()) {
    throw platform::Error("EditNewPKStatement has fewer items than EditPrimaryKeys");
  }
  const std::string& item = items[position];
  if (text::EqualIgnoringCase(item, "autoincrement")) return {.is_left_to_database = true};
  if (text::IsBlank(item)) return {};
  return {.value = GetNewPKValue(render, item)};
}

}  // namespace dralo::editing
