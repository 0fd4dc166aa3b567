#pragma once

#include "settings/error_report.h"
#include "settings/settings.h"

namespace dralo::settings {

/// The report into the view's own messages, for failures that do not happen in a rendering.
inline ErrorReport OwnErrors(Settings& settings) {
  if (settings.Hardened) return {settings.ErrorMessage, settings.ErrorDetail};
  return ErrorReport(settings.ErrorMessage);
}

}  // namespace dralo::settings
