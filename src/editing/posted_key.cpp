#include "editing/posted_key.h"

#include <cstddef>
#include <string_view>
#include <vector>

#include "editing/key_condition.h"
#include "shell/db_connection.h"

namespace dralo::editing {

std::string PostedKeyCondition(const shell::Render& render, const QuerySchema& schema) {
  const std::vector<std::string> names = KeyNames(render.settings);
  KeyCondition condition;
  for (std::size_t i = 0; i < names.size(); ++i) {
    condition.Add(names[i], render.keys.Value("_Form_" + names[i]), schema.IsNumericAt(i));
  }
  return condition.Text(render.settings.DrConnection->EngineName());
}

}  // namespace dralo::editing
