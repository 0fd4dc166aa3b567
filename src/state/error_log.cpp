#include "state/error_log.h"

#include <algorithm>

namespace dralo::state {

void LogLines(const platform::Environment& environment, std::string_view detail) {
  const auto& log = environment.GetSite().log;
  if (!log) return;
  while (!detail.empty()) {
    const std::string_view line = detail.substr(0, detail.find('\n'));
    detail.remove_prefix(std::min(line.size() + 1, detail.size()));
    log(line);
  }
}

}  // namespace dralo::state
