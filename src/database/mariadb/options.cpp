#include "database/mariadb/options.h"

#include <string_view>
#include <utility>

#include "database/host.h"
#include "dralo/error.h"
#include "text/ascii.h"
#include "text/decimal.h"
#include "text/list.h"
#include "text/white_space.h"

namespace dralo::database::mariadb {

namespace {

using platform::Error;

constexpr std::string_view kKeys =
    "Host, Port, Hosts, Database, User ID, Password, SSL Mode, SSL CA, Connect Timeout, Query Timeout";

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

/// The files of sockets may have a ":" in their names.
Options::Host ReadOneHost(std::string_view text, unsigned port) {
  const Host host = text.starts_with('/') ? Host{std::string(text), {}} : ReadHost(text);
  if (host.port) port = ReadPort(*host.port);
  // The client library would take it for the socket of this machine.
  if (host.name.empty()) throw Error("The connection string has a host without a name; write Host=127.0.0.1");
  return {host.name, port};
}

std::vector<Options::Host> ReadHosts(const ConnectionString& pairs) {
  const unsigned port = ReadPort(pairs.Find("Port").value_or("3306"));
  const auto list = pairs.Find("Hosts");
  if (!list) return {ReadOneHost(pairs.Find("Host").value_or("127.0.0.1"), port)};
  std::vector<Options::Host> hosts;
  for (const std::string& item : text::Split(*list)) {
    hosts.push_back(ReadOneHost(text::TrimAsciiSpace(item), port));
  }
  return hosts;
}

/// Naming authorities means that the server must be checked.
SslMode SslModeOf(const ConnectionString& pairs, bool has_authorities) {
  const auto text = pairs.Find("SSL Mode");
  if (!text) return has_authorities ? SslMode::kVerified : SslMode::kDisabled;
  const SslMode mode = ReadSslMode(*text);
  if (has_authorities && mode == SslMode::kDisabled) {
    throw Error(
        "The connection string has an SSL CA, which SSL Mode=Disabled does not use; leave out one of them");
  }
  return mode;
}

}  // namespace

Options ReadOptions(const ConnectionString& connection_string) {
  const ConnectionString pairs = connection_string.WithUsualKeys("MariaDB", kKeys);
  Options options;
  options.hosts = ReadHosts(pairs);
  options.database = pairs.Find("Database").value_or("");
  options.user = pairs.Find("User ID").value_or("");
  options.password = pairs.Find("Password").value_or("");
  options.ssl_authorities = pairs.Find("SSL CA").value_or("");
  options.ssl_mode = SslModeOf(pairs, !options.ssl_authorities.empty());
  options.connect_timeout_s = pairs.Seconds("Connect Timeout", kDefaultConnectTimeoutS);
  options.query_timeout_s = pairs.Seconds("Query Timeout", kDefaultQueryTimeoutS);
  return options;
}

}  // namespace dralo::database::mariadb
