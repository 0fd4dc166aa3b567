#include "state/request_keys.h"

#include <algorithm>
#include <initializer_list>

#include "text/ascii.h"
#include "text/blanks.h"
#include "text/letter_case.h"

namespace dralo::state {

namespace {

bool NamesCommand(std::string_view name) {
  return std::ranges::any_of(
      std::initializer_list<std::string_view>{key::kFormUpdate, key::kFormInsert, key::kFormDelete},
      [&](std::string_view command) { return text::StartsWithAscii(name, command); });
}

}  // namespace

bool IsOfChange(std::string_view name) {
  return NamesCommand(name) || name.starts_with('_') || text::EqualAscii(name, key::kToken) ||
         text::EqualAscii(name, key::kInsertToken);
}

RequestKeys::RequestKeys(const platform::Request& request, std::string_view tag, ChangeKeys change_keys)
    : request_(request), prefix_(key::kPrefix), change_keys_(change_keys) {
  prefix_ += tag;
  commands_change_ =
      change_keys == ChangeKeys::kForm && (Has(key::kFormUpdate) || Has(key::kFormDelete) ||
                                           Has(key::kFormDeleteConfirmed) || Has(key::kFormInsert));
}

bool RequestKeys::IsReadInForm(std::string_view name) const {
  return change_keys_ != ChangeKeys::kNowhere || !IsOfChange(name);
}

bool RequestKeys::IsReadInQuery(std::string_view name) const {
  if (change_keys_ == ChangeKeys::kAnywhere) return true;
  // The name of every key that addresses a record ends like this.
  return !IsOfChange(name) && !(commands_change_ && name.ends_with(key::kPrimaryKey));
}

std::string_view RequestKeys::Value(std::string_view name) const {
  return text::TrimBlanks(Untrimmed(name).value_or(""));
}

std::optional<std::string_view> RequestKeys::Untrimmed(std::string_view name) const {
  const auto value = Find(name, {});
  const bool may_be_of_button =
      change_keys_ != ChangeKeys::kAnywhere && !commands_change_ && name == key::kPrimaryKey;
  if (!may_be_of_button || (value && !text::IsBlank(*value))) return value;
  const auto of_button = Find(key::kEditPrimaryKey, {});
  return of_button ? of_button : value;
}

std::optional<std::string_view> RequestKeys::PostedOnce(std::string_view name) const {
  std::optional<std::string_view> value;
  for (const platform::RequestField& field : request_.Form()) {
    if (!IsKey(field.name, name, {})) continue;
    if (value) return std::nullopt;
    value = field.value;
  }
  return value;
}

bool RequestKeys::WasPressed(std::string_view button) const {
  return !text::TrimBlanks(Find(button, key::kPressed).value_or("")).empty();
}

bool RequestKeys::IsKey(std::string_view candidate, std::string_view name, std::string_view suffix) const {
  return candidate.size() == prefix_.size() + name.size() + suffix.size() &&
         text::EqualIgnoringCase(candidate.substr(0, prefix_.size()), prefix_) &&
         text::EqualIgnoringCase(candidate.substr(prefix_.size(), name.size()), name) &&
         text::EqualIgnoringCase(candidate.substr(prefix_.size() + name.size()), suffix);
}

std::optional<std::string_view> RequestKeys::Find(std::string_view name, std::string_view suffix) const {
  // Of the many keys that are looked up few are there, so whether one counts is asked last.
  const auto is_it = [&](const platform::RequestField& field) { return IsKey(field.name, name, suffix); };
  const auto is_ignored = [&] { return std::ranges::find(ignored_, name) != ignored_.end(); };
  const auto form = request_.Form();
  if (const auto found = std::ranges::find_if(form, is_it); found != form.end()) {
    if (is_ignored()) return std::nullopt;
    if (IsReadInForm(name)) return found->value;
  }
  const auto query = request_.QueryString();
  if (const auto found = std::ranges::find_if(query, is_it); found != query.end()) {
    if (!is_ignored() && IsReadInQuery(name)) return found->value;
  }
  return std::nullopt;
}

}  // namespace dralo::state
