#include "driver/refused_post.h"

#include <optional>
#include <string>
#include <string_view>

#include "settings/public_text.h"
#include "state/form_token.h"
#include "state/posted_form.h"
#include "state/sender.h"

namespace dralo::driver {
namespace {

using settings::PublicText;
using state::PostedForm;

constexpr int kForbidden = 403;
constexpr int kMisdirected = 421;

void SetStatus(platform::Response& response, int status) {
  if (response.HasUnsentHeaders()) response.SetStatus(status);
}

/// Why the form changes nothing; nothing when it may change something, or there is no form.
std::optional<PublicText> Refusal(state::Render& render, PostedForm form) {
  switch (form) {
    case PostedForm::kForeign:
      return PublicText::kForeignPost;
    case PostedForm::kUnknownSender:
      return PublicText::kUnknownSender;
    case PostedForm::kRepeatedField:
      return PublicText::kRepeatedField;
    case PostedForm::kTooLarge:
      return PublicText::kTooLarge;
    case PostedForm::kTaken:
      if (!state::HasFormToken(render)) return PublicText::kFormToken;
      return std::nullopt;
    case PostedForm::kNone:
      return std::nullopt;
  }
  return std::nullopt;
}

/// The headers that say who has sent the request, for the page author.
std::string SenderHeaders(const platform::Request& request) {
  std::string headers;
  for (const std::string_view name : {"Host", "Sec-Fetch-Site", "Origin", "Referer"}) {
    for (const std::string& value : request.HeaderValues(name)) {
      headers.append(headers.empty() ? "" : ", ").append(name).append(": ").append(value);
    }
  }
  return headers.empty() ? "no header tells the sender" : headers;
}

}  // namespace

bool AnswersUnderHost(state::Render& render, platform::Response& response) {
  const platform::Request& request = render.keys.GetRequest();
  if (!render.settings.Hardened || state::IsForHost(request, render.environment.GetSite().hosts)) return true;
  render.Errors().AddPublic(PublicText::kWrongHost, SenderHeaders(request));
  SetStatus(response, kMisdirected);
  return false;
}

bool RefusesChange(state::Render& render, platform::Response& response) {
  const platform::Request& request = render.keys.GetRequest();
  const std::string& tag = render.settings.Tag;
  if (!render.settings.Hardened || !state::CommandsChange(request, tag)) return false;
  const PostedForm form = state::JudgePostedForm(request, tag, render.environment.GetSite());
  const auto refusal = Refusal(render, form);
  if (!refusal) return false;
  render.outcome.is_refused = true;
  render.outcome.has_failed_to_save =
      *refusal == PublicText::kUnknownSender || *refusal == PublicText::kFormToken;
  render.Errors().AddPublic(*refusal, SenderHeaders(request));
  SetStatus(response, kForbidden);
  return true;
}

}  // namespace dralo::driver
