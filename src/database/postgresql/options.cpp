#include "database/postgresql/options.h"

#include <string_view>

#include "database/host.h"
#include "dralo/error.h"
#include "text/list.h"
#include "text/white_space.h"

namespace dralo::database::postgresql {

namespace {

using platform::Error;

constexpr std::string_view kKeys =
    "Host, Port, Hosts, Target Session Attributes, Database, User ID, Password, Passfile, Service, "
    "Application Name, SSL Mode, SSL Root Certificate, SSL Certificate, SSL Key, Connect Timeout, "
    "Query Timeout, Prepare";

/// What the client library is told as it is, and its names for that.
constexpr std::pair<std::string_view, std::string_view> kSettings[] = {
    {"Database", "dbname"},         {"User ID", "user"},
    {"Password", "password"},       {"Passfile", "passfile"},
    {"Service", "service"},         {"Application Name", "application_name"},
    {"SSL Mode", "sslmode"},        {"SSL Root Certificate", "sslrootcert"},
    {"SSL Certificate", "sslcert"}, {"SSL Key", "sslkey"}};

bool ReadPrepare(std::string_view text) {
  if (text == "0" || text == "1") return text == "1";
  throw Error("The Prepare in the connection string must be 0 or 1; write Prepare=0 behind a pooler");
}

std::vector<Options::Host> ReadHosts(const ConnectionString& pairs) {
  const std::string only(pairs.Find("Host").value_or(""));
  const std::string port(pairs.Find("Port").value_or(""));
  if (only.find(',') != only.npos) {
    throw Error("The connection string has several names in its Host; write Hosts=db1,db2");
  }
  std::vector<std::string> items = text::Split(pairs.Find("Hosts").value_or(""));
  if (items.back().empty()) items.pop_back();
  if (items.empty()) return {{only, port}};
  std::vector<Options::Host> hosts;
  for (const std::string& item : items) {
    const Host host = ReadHost(text::TrimAsciiSpace(item));
    const std::string own_port = host.port.value_or("");
    hosts.push_back({host.name, own_port.empty() ? port : own_port});
  }
  return hosts;
}

}  // namespace

Options ReadOptions(const ConnectionString& connection_string) {
  const ConnectionString pairs = connection_string.WithUsualKeys("PostgreSQL", kKeys);
  Options options;
  for (const auto& [key, setting] : kSettings) {
    if (const auto value = pairs.Find(key)) options.settings.emplace_back(setting, *value);
  }
  options.hosts = ReadHosts(pairs);
  options.target_attributes = pairs.Find("Target Session Attributes").value_or("");
  options.prepares = ReadPrepare(pairs.Find("Prepare").value_or("1"));
  options.connect_timeout_s = pairs.Seconds("Connect Timeout", kDefaultConnectTimeoutS);
  options.query_timeout_s = pairs.Seconds("Query Timeout", kDefaultQueryTimeoutS);
  return options;
}

}  // namespace dralo::database::postgresql
