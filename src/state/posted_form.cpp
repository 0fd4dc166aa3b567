#include "state/posted_form.h"

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "state/sender.h"
#include "text/ascii.h"
#include "text/blanks.h"
#include "text/letter_case.h"

namespace dralo::state {
namespace {

using Fields = std::span<const platform::RequestField>;

bool HasFormInBody(const platform::Request& request) {
  const std::vector<std::string> types = request.HeaderValues("Content-Type");
  if (request.Method() != "POST" || types.size() != 1) return false;
  const std::string_view type = std::string_view(types.front()).substr(0, types.front().find(';'));
  return text::EqualAscii(text::TrimBlanks(type), "application/x-www-form-urlencoded") ||
         text::EqualAscii(text::TrimBlanks(type), "multipart/form-data");
}

bool IsTooLarge(Fields form) {
  std::size_t bytes = 0;
  for (const platform::RequestField& field : form) bytes += field.name.size() + field.value.size();
  return form.size() > kMostFields || bytes > kMostBytes;
}

/// The names, without prefix and in capitals, of those of the view's fields that make up a change.
std::vector<std::string> NamesOfChange(Fields form, std::string_view tag) {
  const std::string prefix = text::ToUpper(std::string(key::kPrefix).append(tag));
  std::vector<std::string> names;
  for (const platform::RequestField& field : form) {
    const std::string name = text::ToUpper(field.name);
    if (!name.starts_with(prefix)) continue;
    const std::string_view rest = std::string_view(name).substr(prefix.size());
    if (IsOfChange(rest) || rest == key::kPrimaryKey) names.emplace_back(rest);
  }
  return names;
}

bool HasRepeatedField(Fields form, std::string_view tag) {
  std::vector<std::string> names = NamesOfChange(form, tag);
  std::ranges::sort(names);
  return std::ranges::adjacent_find(names) != names.end();
}

ChangeKeys ChangeKeysOf(PostedForm form) {
  return form == PostedForm::kTaken || form == PostedForm::kUnknownSender ? ChangeKeys::kForm
                                                                          : ChangeKeys::kNowhere;
}

}  // namespace

PostedForm JudgePostedForm(const platform::Request& request, std::string_view tag,
                           const platform::Site& site) {
  if (!HasFormInBody(request)) return PostedForm::kNone;
  const Sender sender = SenderOf(request, site.trusted_origins);
  if (sender == Sender::kForeign) return PostedForm::kForeign;
  if (IsTooLarge(request.Form())) return PostedForm::kTooLarge;
  if (HasRepeatedField(request.Form(), tag)) return PostedForm::kRepeatedField;
  return sender == Sender::kOwn ? PostedForm::kTaken : PostedForm::kUnknownSender;
}

bool CommandsChange(const platform::Request& request, std::string_view tag) {
  const RequestKeys keys(request, tag, ChangeKeys::kForm);
  return keys.Has(key::kFormUpdate) || keys.Has(key::kFormDelete) || keys.Has(key::kFormDeleteConfirmed);
}

RequestKeys KeysOfView(const platform::Request& request, const settings::Settings& settings,
                       const platform::Site& site) {
  if (!settings.Hardened) return {request, settings.Tag};
  return {request, settings.Tag, ChangeKeysOf(JudgePostedForm(request, settings.Tag, site))};
}

}  // namespace dralo::state
