#include "editing/key_condition.h"

namespace dralo::editing {
namespace {

void AppendQuoted(std::string& text, std::string_view value) {
  text += '\'';
  for (const char c : value) text.append(c == '\'' ? 2 : 1, c);
  text += '\'';
}

}  // namespace

void KeyCondition::Add(std::string_view name, std::string_view value, bool is_numeric) {
  text_.append(text_.empty() ? "([" : " AND ([").append(name).append("]=");
  if (is_numeric) {
    text_.append(value);
  } else {
    AppendQuoted(text_, value);
  }
  text_ += ')';
}

std::string KeyCondition::Text(std::string_view database_engine) const {
  std::string text = text_;
  if (database_engine == "MSSQL" || database_engine == "ACCESS") return text;
  std::erase_if(text, [](char c) { return c == '[' || c == ']'; });
  return text;
}

}  // namespace dralo::editing
