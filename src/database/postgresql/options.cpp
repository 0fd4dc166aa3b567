#include "database/postgresql/options.h"

#include <algorithm>
#include <string_view>

#include "dralo/error.h"
#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::database::postgresql {

namespace {

using platform::Error;

struct Key {
  std::string_view name;       ///< In connection strings.
  std::string_view setting;    ///< Of the client library; or, in capitals, one that is read here.
  bool is_other_name = false;  ///< Of the last key before that has the same setting.
};

// clang-format off
constexpr Key kKeys[] = {
    {"Host", "HOST"}, {"Server", "HOST", true}, {"Data Source", "HOST", true},
    {"Port", "PORT"},
    {"Hosts", "HOSTS"},
    {"Target Session Attributes", "TARGET"},
    {"Database", "dbname"}, {"Initial Catalog", "dbname", true},
    {"User ID", "user"}, {"User", "user", true}, {"Username", "user", true}, {"UID", "user", true},
    {"Password", "password"}, {"PWD", "password", true},
    {"Passfile", "passfile"},
    {"Service", "service"},
    {"Application Name", "application_name"},
    {"SSL Mode", "sslmode"},
    {"SSL Root Certificate", "sslrootcert"},
    {"SSL Certificate", "sslcert"},
    {"SSL Key", "sslkey"},
    {"Connect Timeout", "CONNECT"},
    {"Query Timeout", "QUERY"},
    {"Prepare", "PREPARE"},
};
// clang-format on

const Key* FindKey(std::string_view name) {
  const auto* const found =
      std::ranges::find_if(kKeys, [&](const Key& key) { return text::EqualAscii(key.name, name); });
  return found == std::end(kKeys) ? nullptr : found;
}

/// The message does not name the key: it may be part of a password that contains ";".
[[noreturn]] void RefuseKey() {
  std::string known;
  for (const Key& key : kKeys) {
    if (!key.is_other_name) known.append(known.empty() ? "" : ", ").append(key.name);
  }
  throw Error("The connection string has a key that is unknown for PostgreSQL; known are " + known);
}

bool ReadPrepare(std::string_view text) {
  if (text == "0" || text == "1") return text == "1";
  throw Error("The Prepare in the connection string must be 0 or 1; write Prepare=0 behind a pooler");
}

/// "name", "name:port", "[address]:port", or an address of the sixth version of the protocol as it is.
Options::Host ReadHost(std::string_view text) {
  if (text.find(':') != text.rfind(':') && !text.starts_with('[')) return {std::string(text), {}};
  const auto bracket = text.starts_with('[') ? text.find(']') : 0;
  const auto colon = bracket == text.npos ? text.npos : text.find(':', bracket);
  Options::Host host{std::string(text.substr(0, colon)), {}};
  if (bracket != 0 && bracket != text.npos) host.name = text.substr(1, bracket - 1);
  if (colon != text.npos) host.port = text.substr(colon + 1);
  return host;
}

std::vector<Options::Host> ReadHosts(std::string_view list) {
  std::vector<Options::Host> hosts;
  while (!list.empty()) {
    const auto comma = std::min(list.find(','), list.size());
    hosts.push_back(ReadHost(text::TrimAsciiSpace(list.substr(0, comma))));
    list.remove_prefix(std::min(comma + 1, list.size()));
  }
  return hosts;
}

void Set(Options& options, std::string_view setting, std::string_view value) {
  const auto same = std::ranges::find(options.settings, setting, &std::pair<std::string, std::string>::first);
  if (same != options.settings.end()) {
    same->second = value;
  } else {
    options.settings.emplace_back(setting, value);
  }
}

/// Reads the keys that are no keys of the client library. Returns false for those that are.
bool ReadOwn(const Key& key, std::string_view value, Options::Host& host, Options& options) {
  if (key.setting == "HOST") {
    host.name = value;
  } else if (key.setting == "PORT") {
    host.port = value;
  } else if (key.setting == "HOSTS") {
    options.hosts = ReadHosts(value);
  } else if (key.setting == "TARGET") {
    options.target_attributes = value;
  } else if (key.setting == "CONNECT") {
    options.connect_timeout_s = ReadSeconds(key.name, value, kDefaultConnectTimeoutS);
  } else if (key.setting == "QUERY") {
    options.query_timeout_s = ReadSeconds(key.name, value, kDefaultQueryTimeoutS);
  } else if (key.setting == "PREPARE") {
    options.prepares = ReadPrepare(value);
  } else {
    return false;
  }
  return true;
}

}  // namespace

Options ReadOptions(const ConnectionString& connection_string) {
  Options options;
  Options::Host host;
  for (const ConnectionString::Pair& pair : connection_string.Pairs()) {
    if (text::EqualAscii(pair.key, "Provider")) continue;
    const Key* const key = FindKey(pair.key);
    if (key == nullptr) RefuseKey();
    if (pair.value.find('\0') != pair.value.npos) throw Error("The connection string has a zero byte");
    if (!ReadOwn(*key, pair.value, host, options)) Set(options, key->setting, pair.value);
  }
  if (host.name.find(',') != host.name.npos) {
    throw Error("The connection string has several names in its Host; write Hosts=db1,db2");
  }
  if (options.hosts.empty()) options.hosts.push_back(host);
  for (Options::Host& each : options.hosts) {
    if (each.port.empty()) each.port = host.port;
  }
  return options;
}

}  // namespace dralo::database::postgresql
