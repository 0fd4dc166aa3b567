#pragma once

#include <string_view>

#include "platform/environment.h"

namespace dralo::state {

/// Passes the lines of ErrorDetail on to the log of the process, unchanged and one by one. What the log
/// throws passes through.
void LogLines(const platform::Environment& environment, std::string_view detail);

}  // namespace dralo::state
