#include "editing/posted_key.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "editing/key_condition.h"
#include "shell/db_connection.h"
#include "util/field_type.h"
#include "views/key_text.h"

namespace dralo::editing {
namespace {

using platform::TypeCode;

/// The posted key as the database reads it: forms show dates, and numbers with fractions, in the regional
/// form.
std::string DatabaseText(const platform::Formatting& regional, TypeCode type, std::string_view posted) {
  std::string text(posted);
  if (util::IsFractionalFieldType(type)) {
    std::ranges::replace(text, ',', '.');
  } else if (util::IsDateFieldType(type)) {
    if (const auto date = regional.RecognizeDate(posted)) views::KeyText(*date, type, text);
  }
  return text;
}

}  // namespace

std::string PostedKeyCondition(const shell::Render& render, const QuerySchema& schema) {
  const std::vector<std::string> names = KeyNames(render.settings);
  KeyCondition condition;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool is_numeric = schema.IsNumericAt(i);
    const std::string_view posted = render.keys.Value("_Form_" + names[i]);
    condition.Add(names[i], DatabaseText(render.Regional(), schema.fields[i].type, posted), is_numeric);
  }
  return condition.Text(render.settings.DrConnection->EngineName());
}

}  // namespace dralo::editing
