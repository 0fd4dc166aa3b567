#include "state/sender.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "text/ascii.h"

namespace dralo::state {
namespace {

/// A header that came with more than one value, or whose value is not valid.
struct Unusable {};

/// The only value of the header; nothing when it is missing. Throws Unusable when it came twice.
std::optional<std::string> OnlyValue(const platform::Request& request, std::string_view name) {
  std::vector<std::string> values = request.HeaderValues(name);
  if (values.size() > 1) throw Unusable{};
  return values.empty() ? std::nullopt : std::optional(std::move(values.front()));
}

bool IsHost(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) {
    return text::IsLetterOrDigit(c) || std::string_view(".:[]-").find(c) != std::string_view::npos;
  });
}

/// Scheme and host of an address.
struct SchemeAndHost {
  std::string_view scheme;
  std::string_view host;  ///< With its port.
};

/// Nothing when `address` has none; what follows the host is not looked at. An address with a user name or a
/// blank in it is none.
std::optional<SchemeAndHost> SiteOf(std::string_view address) {
  const std::size_t end_of_scheme = address.find("://");
  if (end_of_scheme == address.npos || address.find(' ') != address.npos) return std::nullopt;
  std::string_view host = address.substr(end_of_scheme + 3);
  host = host.substr(0, host.find_first_of("/?#"));
  if (!IsHost(host)) return std::nullopt;
  return SchemeAndHost{address.substr(0, end_of_scheme), host};
}

std::string_view WithoutPort(std::string_view host, std::string_view port) {
  if (host.ends_with(port)) host.remove_suffix(port.size());
  return host;
}

std::string_view WithoutDefaultPort(std::string_view host, std::string_view scheme) {
  if (text::EqualAscii(scheme, "https")) return WithoutPort(host, ":443");
  if (text::EqualAscii(scheme, "http")) return WithoutPort(host, ":80");
  return host;
}

bool IsOfHost(std::string_view address, const std::optional<std::string>& host) {
  const std::optional<SchemeAndHost> site = SiteOf(address);
  return site && host &&
         text::EqualAscii(WithoutDefaultPort(site->host, site->scheme),
                          WithoutDefaultPort(*host, site->scheme));
}

Sender OwnIf(bool is_own) { return is_own ? Sender::kOwn : Sender::kForeign; }

Sender Judge(const platform::Request& request, std::span<const std::string> trusted_origins) {
  const auto host = OnlyValue(request, "Host");
  const auto relation = OnlyValue(request, "Sec-Fetch-Site");
  const auto origin = OnlyValue(request, "Origin");
  const auto referer = OnlyValue(request, "Referer");
  if (host && !IsHost(*host)) return Sender::kForeign;
  if (relation && (*relation == "same-origin" || *relation == "none")) return Sender::kOwn;
  if (origin && *origin != "null" && std::ranges::find(trusted_origins, *origin) != trusted_origins.end()) {
    return Sender::kOwn;
  }
  if (relation) return Sender::kForeign;
  if (origin) return OwnIf(IsOfHost(*origin, host));
  return referer ? OwnIf(IsOfHost(*referer, host)) : Sender::kUnknown;
}

/// `host` without its port.
std::string_view NameOf(std::string_view host) {
  const std::size_t colon = host.rfind(':');
  const bool is_port = colon != host.npos && host.find(']', colon) == host.npos;
  return is_port ? host.substr(0, colon) : host;
}

}  // namespace

Sender SenderOf(const platform::Request& request, std::span<const std::string> trusted_origins) {
  try {
    return Judge(request, trusted_origins);
  } catch (const Unusable&) {
    return Sender::kForeign;
  }
}

bool IsForHost(const platform::Request& request, std::span<const std::string> hosts) {
  if (hosts.empty()) return true;
  const std::vector<std::string> values = request.HeaderValues("Host");
  if (values.size() != 1 || !IsHost(values.front())) return false;
  const std::string_view host = values.front();
  return std::ranges::any_of(hosts, [&](std::string_view known) {
    return text::EqualAscii(known, host) || text::EqualAscii(known, NameOf(host));
  });
}

}  // namespace dralo::state
