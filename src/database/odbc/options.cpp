#include "database/odbc/options.h"

#include <odbcinst.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "database/odbc/dialect.h"
#include "database/statement_text.h"
#include "dralo/error.h"
#include "text/ascii.h"
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

/// The pairs for the driver manager, without those that this provider reads itself.
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

const Dialect& FindDriver(const Pairs& pairs) {
  std::string driver(ValueOf(pairs, "Driver"));
  if (driver.empty()) driver = ReadProfile(std::string(ValueOf(pairs, "DSN")), "odbc.ini");
  if (!driver.empty() && driver.find('/') == driver.npos) {
    const std::string library = ReadProfile(driver, "odbcinst.ini");
    if (!library.empty()) driver = library;
  }
  return DialectOfDriver(driver);
}

/// Lets the server's own message about its limit come before the driver's.
constexpr int kGraceS = 2;

void SetNeeds(const Dialect& dialect, const Options& options, Pairs& pairs) {
  for (const auto& [key, value] : dialect.settings) {
    const bool is_unlimited =
        (value == "#" && options.connect_timeout_s == 0) || (value == "$" && options.query_timeout_s == 0);
    if (is_unlimited || !ValueOf(pairs, key).empty()) continue;
    const std::string connect = Filled(value, '#', std::to_string(options.connect_timeout_s));
    Set(pairs, key, Filled(connect, '$', std::to_string(options.query_timeout_s + kGraceS)));
  }
}

/// Lists, for instance of several hosts, get no braces, which a driver would take for part of the first item.
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
  SetNeeds(FindDriver(pairs), options, pairs);
  for (const auto& [key, value] : pairs) options.text += key + "=" + Quoted(value) + ";";
  if (options.text.find('\0') != options.text.npos)
    throw platform::Error("The connection string has a zero byte");
  return options;
}

}  // namespace dralo::database::odbc
