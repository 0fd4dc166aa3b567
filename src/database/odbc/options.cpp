#include "database/odbc/options.h"

#include <odbcinst.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "dralo/error.h"
#include "text/ascii.h"
#include "text/decimal.h"
#include "text/white_space.h"

namespace dralo::database::odbc {

namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

/// The driver manager's name of a key that has several.
std::string_view NameOf(std::string_view key) {
  static constexpr std::pair<std::string_view, std::string_view> kNames[] = {{"User ID", "UID"},
                                                                             {"User", "UID"},
                                                                             {"Username", "UID"},
                                                                             {"Password", "PWD"},
                                                                             {"Initial Catalog", "Database"}};
  for (const auto& [other, name] : kNames) {
    if (text::EqualAscii(key, other)) return name;
  }
  return key;
}

void Set(Pairs& pairs, std::string_view key, std::string_view value) {
  const auto same =
      std::ranges::find_if(pairs, [&](const auto& pair) { return text::EqualAscii(pair.first, key); });
  if (same != pairs.end()) {
    same->second = value;
  } else {
    pairs.emplace_back(key, value);
  }
}

std::string_view ValueOf(const Pairs& pairs, std::string_view key) {
  const auto found =
      std::ranges::find_if(pairs, [&](const auto& pair) { return text::EqualAscii(pair.first, key); });
  return found == pairs.end() ? std::string_view{} : std::string_view(found->second);
}

/// The pairs for the driver manager; those that this provider reads itself are left out.
Pairs ReadPairs(const ConnectionString& connection_string) {
  Pairs pairs;
  for (const auto& pair : connection_string.Pairs()) {
    const auto is_key = [&](std::string_view key) { return text::EqualAscii(pair.key, key); };
    if (is_key("Provider") || is_key("Connect Timeout") || is_key("Query Timeout")) continue;
    const bool is_source = is_key("Data Source") && !connection_string.Find("Driver");
    Set(pairs, is_source ? "DSN" : NameOf(pair.key), pair.value);
  }
  return pairs;
}

std::string ReadProfile(const std::string& section, const char* file) {
  std::array<char, 1024> value{};
  const int size = SQLGetPrivateProfileString(section.c_str(), "Driver", "", value.data(),
                                              static_cast<int>(value.size()), file);
  return size > 0 ? std::string(value.data()) : std::string{};
}

Dialect FindDriver(const Pairs& pairs) {
  std::string driver(ValueOf(pairs, "Driver"));
  if (driver.empty()) driver = ReadProfile(std::string(ValueOf(pairs, "DSN")), "odbc.ini");
  if (driver.empty()) return Dialect::kOther;
  if (driver.find('/') == driver.npos) {
    const std::string library = ReadProfile(driver, "odbcinst.ini");
    if (!library.empty()) driver = library;
  }
  return DialectOfLibrary(driver);
}

/// Exact types, and texts of any length. The encoding keeps the driver from converting texts to that of the
/// process's locale, which few characters survive.
void SetPostgreSql(Pairs& pairs) {
  for (const auto& [key, value] : {std::pair{"BoolsAsChar", "0"},
                                   {"TextAsLongVarchar", "1"},
                                   {"UnknownsAsLongVarchar", "1"},
                                   {"UnknownSizes", "0"},
                                   {"MaxVarcharSize", "10485760"},
                                   {"MaxLongVarcharSize", "10485761"},
                                   {"ByteaAsLongVarBinary", "1"},
                                   {"LFConversion", "0"},
                                   {"TrueIsMinus1", "0"},
                                   {"UpdatableCursors", "0"}}) {
    Set(pairs, key, value);
  }
  if (ValueOf(pairs, "UseServerSidePrepare").empty()) Set(pairs, "UseServerSidePrepare", "1");
  const std::string settings(ValueOf(pairs, "ConnSettings"));
  const std::string encoding = "set client_encoding to 'UTF8'";
  Set(pairs, "ConnSettings", settings.empty() ? encoding : encoding + ";" + settings);
}

/// The driver does not take the timeouts otherwise. The time that the server gives a statement is less than
/// the client's patience, so that the server's own message comes first.
void SetMariaDb(Pairs& pairs, const Options& options) {
  Set(pairs, "CHARSET", "utf8mb4");
  if (options.connect_timeout_s > 0) Set(pairs, "CONN_TIMEOUT", std::to_string(options.connect_timeout_s));
  if (options.query_timeout_s == 0) return;
  Set(pairs, "READ_TIMEOUT", std::to_string(options.query_timeout_s + 2));
  Set(pairs, "WRITE_TIMEOUT", std::to_string(options.query_timeout_s + 2));
}

void SetSqlite(Pairs& pairs, const Options& options) {
  if (ValueOf(pairs, "Timeout").empty())
    Set(pairs, "Timeout", std::to_string(options.query_timeout_s * 1000));
}

/// Lists, as of several hosts, stay without braces, which a driver would take for a part of the first.
std::string Quoted(const std::string& value) {
  if (value.find_first_of("[]{}();?*=!@'\"") == value.npos && text::TrimAsciiSpace(value) == value)
    return value;
  std::string quoted = "{";
  for (const char c : value) {
    if (c == '}') quoted += c;
    quoted += c;
  }
  return quoted += '}';
}

}  // namespace

Options ReadOptions(const ConnectionString& connection_string) {
  Options options;
  options.connect_timeout_s = connection_string.Seconds("Connect Timeout", kDefaultConnectTimeoutS);
  options.query_timeout_s = connection_string.Seconds("Query Timeout", kDefaultQueryTimeoutS);
  Pairs pairs = ReadPairs(connection_string);
  const std::string password(ValueOf(pairs, "PWD"));
  if (!password.empty()) options.secrets = {password, Quoted(password)};
  options.driver = FindDriver(pairs);
  if (options.driver == Dialect::kPostgreSql) SetPostgreSql(pairs);
  if (options.driver == Dialect::kMariaDb) SetMariaDb(pairs, options);
  if (options.driver == Dialect::kSqlite) {
    SetSqlite(pairs, options);
    options.file = ValueOf(pairs, "Database");
  }
  for (const auto& [key, value] : pairs) options.text += key + "=" + Quoted(value) + ";";
  if (options.text.find('\0') != options.text.npos)
    throw platform::Error("The connection string has a zero byte");
  return options;
}

}  // namespace dralo::database::odbc
