#include "views/label.h"

#include "html/text_escape.h"

namespace dralo::views {

std::string_view LabelText(const state::Render& render, const settings::ColumnLabel& label,
                           std::string& scratch) {
  const bool is_escaped = render.settings.Hardened && label.is_field_name;
  return is_escaped ? html::Escaped(label.text, scratch) : label.text;
}

}  // namespace dralo::views
