#include "host_names.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <netdb.h>
#include <unistd.h>

#include <array>

#include "text.h"

namespace serve {
namespace {

bool IsEverywhere(std::string_view host) { return host == "0.0.0.0" || host == "::"; }

std::string Bracketed(const std::string& host) {
  return host.find(':') == std::string::npos || host.starts_with('[') ? host : "[" + host + "]";
}

void AddAddresses(std::vector<std::string>& names) {
  ifaddrs* all = nullptr;
  if (getifaddrs(&all) != 0) return;
  for (const ifaddrs* one = all; one != nullptr; one = one->ifa_next) {
    if (one->ifa_addr == nullptr) continue;
    const int family = one->ifa_addr->sa_family;
    if (family != AF_INET && family != AF_INET6) continue;
    std::array<char, NI_MAXHOST> text{};
    const socklen_t size = family == AF_INET ? sizeof(sockaddr_in) : sizeof(sockaddr_in6);
    if (getnameinfo(one->ifa_addr, size, text.data(), text.size(), nullptr, 0, NI_NUMERICHOST) != 0) continue;
    const std::string address(text.data());
    names.push_back(Bracketed(address.substr(0, address.find('%'))));
  }
  freeifaddrs(all);
}

}  // namespace

bool IsLoopback(std::string_view host) {
  return host.starts_with("127.") || host == "localhost" || host == "::1" || host == "[::1]";
}

std::vector<std::string> HostNames(const Options& options) {
  std::vector<std::string> names = {"127.0.0.1", "localhost", "[::1]"};
  if (!IsLoopback(options.host)) {
    std::array<char, 256> machine{};
    if (gethostname(machine.data(), machine.size() - 1) == 0) names.push_back(Lower(machine.data()));
  }
  if (IsEverywhere(options.host)) {
    AddAddresses(names);
  } else {
    names.push_back(Lower(Bracketed(options.host)));
  }
  for (const std::string& name : options.names) names.push_back(NameOfHost(name));
  return names;
}

std::string NameOfHost(std::string_view header) {
  const std::size_t end = header.starts_with('[') ? header.find(']') + 1 : header.find(':');
  return Lower(header.substr(0, end));
}

}  // namespace serve
