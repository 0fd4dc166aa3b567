#pragma once

#include <string_view>

#include "state/render.h"

namespace dralo::editing {

/// What every outcome of a save or delete begins with, except that of a delete that failed.
inline constexpr std::string_view kOutcomePrefix = "&nbsp;";

/// Makes a text of the interface language the edit status message.
inline void SetOutcome(state::Render& render, settings::UpdateSlot slot) {
  render.outcome.status_message.assign(kOutcomePrefix).append(render.settings.language_tables->Update(slot));
}

}  // namespace dralo::editing
