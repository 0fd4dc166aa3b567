#include "editing/key_condition.h"

#include "dralo/error.h"
#include "platform/field_kind.h"

namespace dralo::editing {
namespace {

void AppendQuoted(std::string& text, std::string_view value) {
  text += '\'';
  for (const char c : value) text.append(c == '\'' ? 2 : 1, c);
  text += '\'';
}

}  // namespace

bool MayBeEmptyText(platform::TypeCode type) {
  using platform::TypeCode;
  return !platform::IsNumericFieldType(type) && !platform::IsDateFieldType(type) &&
         type != TypeCode::kDbTime && type != TypeCode::kGuid;
}

void KeyCondition::Add(std::string_view name, std::string_view value, bool is_numeric) {
  std::string term;
  term.append("[").append(name).append("]=");
  if (is_numeric) {
    term.append(value);
  } else {
    AppendQuoted(term, value);
  }
  AddTerm(term);
}

void KeyCondition::AddExact(std::string_view name, const SchemaField* field, std::string_view text,
                            bool is_numeric) {
  if (field == nullptr) return Add(name, text, is_numeric);
  if (platform::IsBinaryFieldType(field->type)) {
    throw platform::Error("The key \"" + std::string(name) +
                          "\" holds binary data, by which no record can be found");
  }
  const std::string column = "[" + std::string(name) + "]";
  const std::string term = field->comparison != nullptr ? field->comparison(column, text) : std::string();
  if (term.empty()) return Add(name, text, is_numeric);
  AddTerm(term);
}

void KeyCondition::AddEmpty(std::string_view name, const SchemaField& field) {
  const std::string column = "[" + std::string(name) + "]";
  AddTerm((MayBeEmptyText(field.type) ? column + "='' OR " : std::string()) + column + " IS NULL");
}

void KeyCondition::AddTerm(std::string_view term) {
  text_.append(text_.empty() ? "(" : " AND (").append(term).append(")");
}

std::string KeyCondition::Text(std::string_view database_engine) const {
  std::string text = text_;
  if (database_engine == "MSSQL" || database_engine == "ACCESS") return text;
  std::erase_if(text, [](char c) { return c == '[' || c == ']'; });
  return text;
}

}  // namespace dralo::editing
