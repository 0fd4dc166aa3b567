#include "views/primary_key_value_list.h"

#include <algorithm>
#include <exception>

#include "cells/named_field.h"
#include "util/list.h"
#include "views/key_text.h"

namespace dralo::views {
namespace {

/// Setting `sql` copies it into EditSQL, but a command is nothing to address single records in.
bool HasEditStatement(const shell::Settings& settings) {
  if (util::TrimBlanks(settings.EditSQL).empty()) return false;
  return !settings.has_stored_procedure || settings.EditSQL != settings.sql;
}

/// What stands for the character in a script; empty when it is the character itself.
std::string_view InScript(char c) {
  switch (c) {
    case '\\':
      return R"(\\)";
    case '\'':
      return R"(\')";
    case '"':
      return "&quot;";
    case '\r':
      return R"(\r)";
    case '\n':
      return R"(\n)";
    default:
      return {};
  }
}

void WriteInScript(util::HtmlWriter& out, std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t plain = std::min(text.find_first_of("\\'\"\r\n", at), text.size());
    out.Write(util::Verbatim{text.substr(at, plain - at)});
    if (plain < text.size()) out.Write(util::Verbatim{InScript(text[plain])});
    at = plain + 1;
  }
}

}  // namespace

PrimaryKeyValueList::PrimaryKeyValueList(const shell::Settings& settings, platform::Recordset& recordset) {
  if (util::TrimBlanks(settings.EditPrimaryKeys).empty() || !HasEditStatement(settings)) return;
  for (const std::string& item : util::Split(settings.EditPrimaryKeys)) {
    const std::string_view name = util::TrimBlanks(item);
    keys_.push_back({std::string(name), cells::FindField(recordset, name)});
  }
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
  for (const Key& key : keys_) {
    WriteInScript(out.PutIf(&key != &keys_.front(), ","), key.value);
  }
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
