#include "database/host.h"

#include <algorithm>

namespace dralo::database {

Host ReadHost(std::string_view text) {
  const auto bracket = text.starts_with('[') ? text.find(']') : 0;
  const bool may_have_port = bracket != 0 ? bracket != text.npos : std::ranges::count(text, ':') == 1;
  const auto colon = may_have_port ? text.find(':', bracket) : text.npos;
  Host host{std::string(text.substr(0, colon)), std::nullopt};
  if (bracket != 0 && bracket != text.npos) host.name = text.substr(1, bracket - 1);
  if (colon != text.npos) host.port = text.substr(colon + 1);
  return host;
}

}  // namespace dralo::database
