#include "database/mariadb/options.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "dralo/error.h"
#include "text/ascii.h"
#include "text/decimal.h"
#include "text/white_space.h"

namespace dralo::database::mariadb {

namespace {

using platform::Error;

struct KnownKey {
  std::string_view name;
  std::string Options::*text = nullptr;  ///< Where an unchanged value goes.
};

// clang-format off
constexpr KnownKey kKeys[] = {
    {"Host"}, {"Port"}, {"Hosts"}, {"Database", &Options::database}, {"User ID", &Options::user},
    {"Password", &Options::password}, {"SSL Mode"}, {"SSL CA", &Options::ssl_authorities}, {"Connect Timeout"},
    {"Query Timeout"},
};

constexpr std::pair<std::string_view, std::string_view> kOtherNames[] = {
    {"Server", "Host"}, {"Data Source", "Host"}, {"Initial Catalog", "Database"},
    {"User", "User ID"}, {"Username", "User ID"}, {"UID", "User ID"}, {"PWD", "Password"},
};
// clang-format on

/// The message does not name the unknown key: it may be part of a password that contains ";".
const KnownKey& FindKey(std::string_view name) {
  for (const auto& [other, known] : kOtherNames) {
    if (text::EqualAscii(other, name)) name = known;
  }
  std::string known;
  for (const KnownKey& key : kKeys) {
    if (text::EqualAscii(key.name, name)) return key;
    known.append(known.empty() ? "" : ", ").append(key.name);
  }
  throw Error("The connection string has a key that is unknown for MariaDB; known are " + known);
}

unsigned ReadPort(std::string_view text) {
  const auto port = text::ParseNumber<unsigned>(text);
  if (port && 1 <= *port && *port <= 65'535) return *port;
  throw Error("The connection string has a port that is no number from 1 to 65535; write Port=3306");
}

/// The client library checks a certificate completely, with its name, or not at all.
SslMode ReadSslMode(std::string_view text) {
  constexpr std::pair<std::string_view, SslMode> kModes[] = {
      {"Disabled", SslMode::kDisabled}, {"None", SslMode::kDisabled},     {"Preferred", SslMode::kPreferred},
      {"Required", SslMode::kRequired}, {"VerifyCA", SslMode::kVerified}, {"VerifyFull", SslMode::kVerified}};
  for (const auto& [name, mode] : kModes) {
    if (text::EqualAscii(name, text)) return mode;
  }
  throw Error(
      "The connection string has an unknown SSL Mode; write SSL Mode=Disabled, Preferred, Required, VerifyCA "
      "or VerifyFull");
}

/// "name", "name:port", "[address]:port", an address with several ":", or the file of a socket.
Options::Host ReadHost(std::string_view text, unsigned port) {
  const auto bracket = text.starts_with('[') ? text.find(']') : 0;
  const bool has_port =
      bracket != text.npos && !text.starts_with('/') && (bracket != 0 || std::ranges::count(text, ':') == 1);
  const auto colon = has_port ? text.find(':', bracket) : text.npos;
  Options::Host host{std::string(text.substr(0, colon)), port};
  if (bracket != 0 && bracket != text.npos) host.name = text.substr(1, bracket - 1);
  if (colon != text.npos) host.port = ReadPort(text.substr(colon + 1));
  // The client library would take it for the socket of this machine.
  if (host.name.empty()) throw Error("The connection string has a host without a name; write Host=127.0.0.1");
  return host;
}

std::vector<Options::Host> ReadHosts(std::string_view list, unsigned port) {
  std::vector<Options::Host> hosts;
  for (;;) {
    const auto comma = std::min(list.find(','), list.size());
    hosts.push_back(ReadHost(text::TrimAsciiSpace(list.substr(0, comma)), port));
    if (comma == list.size()) return hosts;
    list.remove_prefix(comma + 1);
  }
}

struct Parts {
  Options options = {};
  unsigned port = Options::Host{}.port;
  std::optional<std::string_view> host = {};
  std::optional<std::string_view> hosts = {};
  std::optional<SslMode> ssl_mode = {};
};

void Take(Parts& parts, const KnownKey& key, const std::string& value) {
  if (key.text != nullptr) {
    parts.options.*key.text = value;
  } else if (key.name == "Host") {
    parts.host = value;
  } else if (key.name == "Port") {
    parts.port = ReadPort(value);
  } else if (key.name == "Hosts") {
    parts.hosts = value;
  } else if (key.name == "SSL Mode") {
    parts.ssl_mode = ReadSslMode(value);
  } else if (key.name == "Connect Timeout") {
    parts.options.connect_timeout_s = ReadSeconds(key.name, value, kDefaultConnectTimeoutS);
  } else {
    parts.options.query_timeout_s = ReadSeconds(key.name, value, kDefaultQueryTimeoutS);
  }
}

/// Naming authorities means that the server must be checked.
SslMode SslModeOf(const Parts& parts) {
  const bool has_authorities = !parts.options.ssl_authorities.empty();
  if (!parts.ssl_mode) return has_authorities ? SslMode::kVerified : SslMode::kDisabled;
  if (has_authorities && parts.ssl_mode == SslMode::kDisabled) {
    throw Error(
        "The connection string has an SSL CA, which SSL Mode=Disabled does not use; leave out one of them");
  }
  return *parts.ssl_mode;
}

}  // namespace

Options ReadOptions(const ConnectionString& connection_string) {
  Parts parts;
  for (const ConnectionString::Pair& pair : connection_string.Pairs()) {
    if (text::EqualAscii(pair.key, "Provider")) continue;
    if (pair.value.find('\0') != pair.value.npos) throw Error("The connection string has a zero byte");
    Take(parts, FindKey(pair.key), pair.value);
  }
  if (parts.hosts) {
    parts.options.hosts = ReadHosts(*parts.hosts, parts.port);
  } else {
    parts.options.hosts = {ReadHost(parts.host.value_or(Options::Host{}.name), parts.port)};
  }
  parts.options.ssl_mode = SslModeOf(parts);
  return std::move(parts.options);
}

}  // namespace dralo::database::mariadb
