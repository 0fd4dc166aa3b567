#include "hosts/cpp/check_site.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::host {
namespace {

/// Lower case, as browsers send it.
bool IsHostAndPort(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) {
    return (text::IsLetterOrDigit(c) && c == text::ToLower(c)) ||
           std::string_view(".:[]-").find(c) != std::string_view::npos;
  });
}

bool IsOrigin(std::string_view text) {
  const std::size_t end = text.find("://");
  if (end == text.npos || (text.substr(0, end) != "https" && text.substr(0, end) != "http")) return false;
  const std::string_view port = text.starts_with("https") ? ":443" : ":80";
  return IsHostAndPort(text.substr(end + 3)) && !text.ends_with(port);
}

}  // namespace

void CheckSite(const platform::Site& site) {
  for (const std::string& origin : site.trusted_origins) {
    if (IsOrigin(origin)) continue;
    throw platform::Error("The trusted origin \"" + origin +
                          "\" is none: write it as https://shop.example or https://shop.example:8443");
  }
  for (const std::string& host : site.hosts) {
    if (IsHostAndPort(host)) continue;
    throw platform::Error("The host \"" + host + "\" is none: write it as shop.example or shop.example:8443");
  }
}

}  // namespace dralo::host
