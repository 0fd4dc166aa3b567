#pragma once

#include <string>
#include <string_view>

#include "editing/query_schema.h"
#include "html/text_escape.h"
#include "state/render.h"

namespace dralo::editing {

/// Begins every status message of a save or delete, except that of a delete that failed.
inline constexpr std::string_view kOutcomePrefix = "&nbsp;";

/// Makes a text of the interface language the edit status message.
inline void SetOutcome(state::Render& render, settings::UpdateSlot slot) {
  render.outcome.status_message.assign(kOutcomePrefix).append(render.settings.language_tables->Update(slot));
}

/// The same for a change that was refused; notes on fields that the form does not show are appended. `schema`
/// is that of EditSQL.
void SetRefused(state::Render& render, const QuerySchema& schema, settings::RefusalSlot slot);

/// Appends what was typed to the edit status message. That is markup, so a hardened page escapes it.
inline void AppendTyped(state::Render& render, std::string_view text) {
  std::string& message = render.outcome.status_message;
  message.append(render.settings.Hardened ? html::Escaped(text, render.escaped) : text);
}

}  // namespace dralo::editing
