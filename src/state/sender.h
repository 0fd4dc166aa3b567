#pragma once

#include <span>
#include <string>
#include <string_view>

#include "dralo/request.h"

namespace dralo::state {

/// The page whose form or script has sent a request.
enum class Sender {
  kOwn,      ///< One of this host, or of a trusted origin.
  kForeign,  ///< One of another site, or the headers contradict themselves.
  kUnknown,  ///< The headers say nothing about it; today's browsers always do.
};

/// Who has sent the request, by the first of Sec-Fetch-Site, Origin and Referer that came; a browser sends
/// them, and no page can forge them. A trusted origin wins over Sec-Fetch-Site, for which every other site is
/// foreign. Host names are compared without regard to letter case and without the port that the scheme
/// implies. Schemes are not compared, because a server behind a proxy does not know its own. Headers that
/// came twice, and a Host that is no name with a port, are not believed.
Sender SenderOf(const platform::Request& request, std::span<const std::string> trusted_origins);

/// Whether the request is for one of the hosts; for any when the list is empty. An entry without a port
/// allows every port.
bool IsForHost(const platform::Request& request, std::span<const std::string> hosts);

}  // namespace dralo::state
