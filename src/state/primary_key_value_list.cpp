#include "state/primary_key_value_list.h"

#include <exception>

#include "html/control_markup.h"
#include "platform/field_kind.h"
#include "state/key_items.h"
#include "state/key_text.h"
#include "state/named_field.h"
#include "text/blanks.h"
#include "text/list.h"

namespace dralo::state {
namespace {

void AppendInScript(std::string& script, std::string_view text) {
  for (const char c : text) {
    if (c == '\r') {
      script += "\\r";
    } else if (c == '\n') {
      script += "\\n";
    } else {
      if (c == '\\' || c == '\'') script += '\\';
      script += c;
    }
  }
}

}  // namespace

bool CanAddressRecords(const Render& render, std::string_view statement) {
  const bool is_command_copy = render.settings.has_stored_procedure && statement == render.view.sql;
  return !text::IsBlank(statement) && !is_command_copy;
}

PrimaryKeyValueList::PrimaryKeyValueList(const settings::Settings& settings, platform::Recordset& recordset)
    : is_hardened_(settings.Hardened) {
  if (text::IsBlank(settings.EditPrimaryKeys)) return;
  for (const std::string& item : text::Split(settings.EditPrimaryKeys)) {
    const std::string_view name = text::TrimBlanks(item);
    keys_.push_back({std::string(name), FindField(recordset, name)});
  }
}

PrimaryKeyValueList PrimaryKeyValueList::ForLink(const Render& render, platform::Recordset& recordset) {
  const settings::Settings& settings = render.settings;
  return CanAddressRecords(render, settings.EditSQL) ? PrimaryKeyValueList(settings, recordset)
                                                     : PrimaryKeyValueList();
}

bool PrimaryKeyValueList::Read(settings::ErrorReport errors) {
  for (Key& key : keys_) key.value.clear();
  bool are_values = !keys_.empty();
  try {
    for (Key& key : keys_) are_values &= Read(key);
  } catch (const std::exception& error) {
    errors.AddKeyLinkFailure(error.what());
    return false;
  }
  if (is_hardened_) return are_values;
  return keys_.size() > 1 || (keys_.size() == 1 && !keys_[0].value.empty());
}

bool PrimaryKeyValueList::Read(Key& key) {
  if (key.field == nullptr) throw UnknownField(key.name);
  const platform::TypeCode type = key.field->Type();
  const platform::VariantView value = key.field->Value();
  key.value.assign(KeyText(value, type, scratch_));
  if (is_hardened_ && keys_.size() > 1) key.value = KeyItem(key.value);
  return is_hardened_ && !platform::IsNull(value) && !platform::IsBinaryFieldType(type);
}

void PrimaryKeyValueList::Put(html::HtmlWriter& out) const {
  for (const Key& key : keys_) {
    out.PutIf(&key != &keys_.front(), ",").Write(html::Encoded{key.value});
  }
}

void PrimaryKeyValueList::PutInScript(html::HtmlWriter& out) const {
  std::string script;
  AppendInScript(script, Plain());
  html::PutAttributeText(out, script);
}

std::string PrimaryKeyValueList::Plain() const {
  std::string text;
  for (const Key& key : keys_) {
    if (&key != &keys_.front()) text += ',';
    text += key.value;
  }
  return text;
}

}  // namespace dralo::state
