#include "state/primary_key_value_list.h"

#include <exception>

#include "html/control_markup.h"
#include "state/key_text.h"
#include "state/named_field.h"
#include "text/list.h"

namespace dralo::state {
namespace {

/// Setting `sql` copies it into EditSQL, but a command is nothing to address single records in.
bool HasEditStatement(const settings::Settings& settings) {
  if (text::TrimBlanks(settings.EditSQL).empty()) return false;
  return !settings.has_stored_procedure || settings.EditSQL != settings.sql;
}

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

PrimaryKeyValueList::PrimaryKeyValueList(const settings::Settings& settings, platform::Recordset& recordset) {
  if (text::TrimBlanks(settings.EditPrimaryKeys).empty()) return;
  for (const std::string& item : text::Split(settings.EditPrimaryKeys)) {
    const std::string_view name = text::TrimBlanks(item);
    keys_.push_back({std::string(name), FindField(recordset, name)});
  }
}

PrimaryKeyValueList PrimaryKeyValueList::ForLink(const settings::Settings& settings,
                                                 platform::Recordset& recordset) {
  return HasEditStatement(settings) ? PrimaryKeyValueList(settings, recordset) : PrimaryKeyValueList();
}

bool PrimaryKeyValueList::Read(settings::Settings& settings) {
  for (Key& key : keys_) key.value.clear();
  try {
    for (Key& key : keys_) {
      if (key.field == nullptr) throw UnknownField(key.name);
      key.value.assign(KeyText(*key.field, scratch_));
    }
  } catch (const std::exception& error) {
    settings.ErrorMessage.append(error.what());
    settings.ErrorMessage.append(", when trying to construct a Primary Key URL link<br>");
    return false;
  }
  return keys_.size() > 1 || (keys_.size() == 1 && !keys_[0].value.empty());
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
