#include "views/primary_key_value_list.h"

#include <exception>

#include "cells/named_field.h"
#include "util/control_markup.h"
#include "util/list.h"
#include "views/key_text.h"

namespace dralo::views {
namespace {

/// Setting `sql` copies it into EditSQL, but a command is nothing to address single records in.
bool HasEditStatement(const shell::Settings& settings) {
  if (util::TrimBlanks(settings.EditSQL).empty()) return false;
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

PrimaryKeyValueList::PrimaryKeyValueList(const shell::Settings& settings, platform::Recordset& recordset) {
  if (util::TrimBlanks(settings.EditPrimaryKeys).empty()) return;
  for (const std::string& item : util::Split(settings.EditPrimaryKeys)) {
    const std::string_view name = util::TrimBlanks(item);
    keys_.push_back({std::string(name), cells::FindField(recordset, name)});
  }
}

PrimaryKeyValueList PrimaryKeyValueList::ForLink(const shell::Settings& settings,
                                                 platform::Recordset& recordset) {
  return HasEditStatement(settings) ? PrimaryKeyValueList(settings, recordset) : PrimaryKeyValueList();
}

bool PrimaryKeyValueList::Read(shell::Settings& settings) {
  for (Key& key : keys_) key.value.clear();
  try {
    for (Key& key : keys_) {
      if (key.field == nullptr) throw cells::UnknownField(key.name);
      key.value.assign(KeyText(*key.field, scratch_));
    }
  } catch (const std::exception& error) {
    settings.ErrorMessage.append(error.what());
    settings.ErrorMessage.append(", when trying to construct a Primary Key URL link<br>");
    return false;
  }
  return keys_.size() > 1 || (keys_.size() == 1 && !keys_[0].value.empty());
}

void PrimaryKeyValueList::Put(util::HtmlWriter& out) const {
  for (const Key& key : keys_) {
    out.PutIf(&key != &keys_.front(), ",").Write(util::Encoded{key.value});
  }
}

void PrimaryKeyValueList::PutInScript(util::HtmlWriter& out) const {
  std::string script;
  AppendInScript(script, Plain());
  util::PutAttributeText(out, script);
}

std::string PrimaryKeyValueList::Plain() const {
  std::string text;
  for (const Key& key : keys_) {
    if (&key != &keys_.front()) text += ',';
    text += key.value;
  }
  return text;
}

}  // namespace dralo::views
