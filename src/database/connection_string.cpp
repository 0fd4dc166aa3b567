#include "database/connection_string.h"

#include <algorithm>
#include <utility>

#include "dralo/error.h"
#include "text/ascii.h"
#include "text/decimal.h"
#include "text/list.h"
#include "text/white_space.h"

namespace dralo::database {

namespace {

char ClosingQuote(char c) {
  switch (c) {
    case '"':
    case '\'':
      return c;
    case '{':
      return '}';
    default:
      return '\0';
  }
}

void SkipBlanks(std::string_view& rest) {
  while (!rest.empty() && text::IsAsciiSpace(rest.front())) rest.remove_prefix(1);
}

std::string TakeQuoted(std::string_view& rest, char closing) {
  std::string value;
  rest.remove_prefix(1);
  for (;;) {
    const auto end = rest.find(closing);
    if (end == rest.npos) throw platform::Error("The connection string has a quote that is not closed");
    value.append(rest.substr(0, end));
    rest.remove_prefix(end + 1);
    if (rest.empty() || rest.front() != closing) return value;
    value.push_back(closing);
    rest.remove_prefix(1);
  }
}

/// Takes the value at the front of `rest`, and the ";" after it.
std::string TakeValue(std::string_view& rest) {
  SkipBlanks(rest);
  std::string value;
  const char closing = rest.empty() ? '\0' : ClosingQuote(rest.front());
  if (closing != '\0') value = TakeQuoted(rest, closing);
  const auto unquoted = text::TrimAsciiSpace(rest.substr(0, rest.find(';')));
  if (closing != '\0' && !unquoted.empty()) {
    throw platform::Error("The connection string has text between a closing quote and the next \";\"");
  }
  if (closing == '\0') value = unquoted;
  const auto end = rest.find(';');
  rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
  return value;
}

std::string_view UsualName(std::string_view key) {
  constexpr std::pair<std::string_view, std::string_view> kNames[] = {
      {"Server", "Host"},  {"Data Source", "Host"}, {"Initial Catalog", "Database"},
      {"User", "User ID"}, {"Username", "User ID"}, {"UID", "User ID"},
      {"PWD", "Password"}};
  for (const auto& [other, usual] : kNames) {
    if (text::EqualAscii(key, other)) return usual;
  }
  return key;
}

}  // namespace

ConnectionString::ConnectionString(std::string_view text) : text_(text) {
  constexpr std::size_t kUsualPairs = 10;
  pairs_.reserve(kUsualPairs);
  std::string_view rest = text_;
  for (;;) {
    while (!rest.empty() && (text::IsAsciiSpace(rest.front()) || rest.front() == ';')) rest.remove_prefix(1);
    if (rest.empty()) return;
    const std::size_t left = rest.size();
    const auto equals = rest.find('=');
    if (rest.find(';') < equals || equals == rest.npos) {
      throw platform::Error("The connection string has a part without \"=\"; write key=value;key=value");
    }
    Pair pair;
    pair.start = text_.size() - left;
    pair.key = text::TrimAsciiSpace(rest.substr(0, equals));
    rest.remove_prefix(equals + 1);
    pair.value = TakeValue(rest);
    pair.size = left - rest.size();
    pairs_.push_back(std::move(pair));
  }
}

void ConnectionString::Add(std::string_view key, std::string_view value) {
  if (!value.empty()) pairs_.push_back({std::string(key), std::string(value), 0, 0});
}

std::optional<std::string_view> ConnectionString::Find(std::string_view key) const {
  for (auto pair = pairs_.rbegin(); pair != pairs_.rend(); ++pair) {
    if (text::EqualAscii(pair->key, key)) return pair->value;
  }
  return std::nullopt;
}

std::optional<int> ConnectionString::Number(std::string_view key, std::string_view unit, int most,
                                            int suggestion) const {
  const auto value = Find(key);
  if (!value) return std::nullopt;
  const auto number = text::ParseNumber<int>(*value);
  if (number && 0 <= *number && *number <= most) return number;
  std::string message = "The ";
  message.append(key).append(" in the connection string is no number of ").append(unit).append("; write ");
  throw platform::Error(message.append(key).append("=").append(std::to_string(suggestion)));
}

int ConnectionString::Seconds(std::string_view key, int otherwise) const {
  constexpr int kDay = 86'400;
  return Number(key, "seconds", kDay, otherwise).value_or(otherwise);
}

ConnectionString ConnectionString::WithUsualKeys(std::string_view provider, std::string_view known) const {
  const std::vector<std::string> known_keys = text::Split(known, ", ");
  ConnectionString usual = *this;
  for (Pair& pair : usual.pairs_) {
    if (text::EqualAscii(pair.key, "Provider")) continue;
    if (pair.value.find('\0') != pair.value.npos)
      throw platform::Error("The connection string has a zero byte");
    pair.key = UsualName(pair.key);
    const auto is_key = [&](std::string_view name) { return text::EqualAscii(name, pair.key); };
    if (std::ranges::any_of(known_keys, is_key)) continue;
    throw platform::Error("The connection string has a key that is unknown for " + std::string(provider) +
                          "; known are " + std::string(known));
  }
  return usual;
}

std::string ConnectionString::Identity() const {
  std::string identity;
  identity.reserve(2 * text_.size());
  for (const Pair& pair : pairs_) {
    identity.append(pair.key).append("=").append(std::to_string(pair.value.size()));
    identity.append(" ").append(pair.value).append(";");
  }
  return identity;
}

std::string ConnectionString::WithoutPassword() const {
  std::string text;
  for (const Pair& pair : pairs_) {
    if (!text::EqualAscii(pair.key, "Password") && !text::EqualAscii(pair.key, "Pwd")) {
      text.append(text_, pair.start, pair.size);
    }
  }
  return text;
}

}  // namespace dralo::database
