#include "editing/lost_change.h"

#include "dralo/error.h"
#include "editing/outcome.h"
#include "html/text_escape.h"
#include "platform/lost_connection.h"
#include "settings/public_text.h"

namespace dralo::editing {

bool TellOfLoss(state::Render& render, const std::exception& failure) {
  const auto* const error = dynamic_cast<const platform::Error*>(&failure);
  if (error == nullptr || !platform::IsConnectionLost(*error)) return false;
  const bool is_unknown = platform::IsOutcomeUnknown(*error);
  render.Errors().AddPublic(
      is_unknown ? settings::PublicText::kUnknownOutcome : settings::PublicText::kConnectionLost,
      error->Description());
  const auto slot = is_unknown ? settings::kMayBeChanged : settings::kConnectionLost;
  std::string& message = render.outcome.status_message;
  message.assign(kOutcomePrefix);
  html::AppendEscaped(message, render.settings.language_tables->refusals[slot]);
  render.outcome.has_lost_change = true;
  return true;
}

}  // namespace dralo::editing
