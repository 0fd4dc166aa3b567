#pragma once

#include <string_view>

#include "settings/settings.h"

namespace dralo::editing {

/// What every outcome of a save or delete begins with, except that of a delete that failed.
inline constexpr std::string_view kOutcomePrefix = "&nbsp;";

/// Makes a text of the interface language the edit status message.
inline void SetOutcome(settings::Settings& settings, settings::UpdateSlot slot) {
  settings.edit_status_message.assign(kOutcomePrefix).append(settings.language_tables->Update(slot));
}

/// Adds to ErrorMessage what the texts of the outcome have no word for.
inline void ReportFailure(settings::Settings& settings, std::string_view description,
                          std::string_view statement) {
  settings.ErrorMessage.append(description).append(" in UpdateRecord.<br>");
  if (settings.DisplayDebug) settings.ErrorMessage.append("sql='").append(statement).append("'<br>");
}

}  // namespace dralo::editing
