#include "database/select_list.h"

#include <algorithm>
#include <cstddef>

#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::database {

namespace {

bool IsWordCharacter(char c) {
  return text::IsLetterOrDigit(c) || c == '_' || c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

char ClosingQuote(char c) { return c == '"' || c == '\'' || c == '`' ? c : c == '[' ? ']' : '\0'; }

/// A word, something in quotes, or a single sign. Comments are taken for words, which only adds care.
std::string_view TakeToken(std::string_view& rest) {
  std::size_t size = 1;
  if (const char closing = ClosingQuote(rest.front()); closing != '\0') {
    do {
      size = rest.find(closing, size);
      size = size == rest.npos ? rest.size() : size + 1;
    } while (size < rest.size() && rest[size] == closing && ++size < rest.size());
  } else {
    while (size < rest.size() && IsWordCharacter(rest[0]) && IsWordCharacter(rest[size])) ++size;
  }
  const auto token = rest.substr(0, size);
  rest.remove_prefix(size);
  return token;
}

std::string Unquoted(std::string_view token) {
  const char closing = ClosingQuote(token.front());
  if (closing == '\0' || token.size() < 2) return std::string(token);
  std::string name;
  for (std::size_t i = 1; i + 1 < token.size(); ++i) {
    name += token[i];
    if (token[i] == closing) ++i;
  }
  return name;
}

bool IsWord(std::string_view token, std::string_view word) { return text::EqualAscii(token, word); }

/// Tokens of the text outside of parentheses; what is inside of them is one token "(".
std::vector<std::string_view> OuterTokens(std::string_view text) {
  std::vector<std::string_view> tokens;
  int depth = 0;
  while (!text.empty()) {
    if (text::IsAsciiSpace(text.front())) {
      text.remove_prefix(1);
      continue;
    }
    const auto token = TakeToken(text);
    if (token == ")") --depth;
    if (depth == 0 && token != ")") tokens.push_back(token);
    if (token == "(") ++depth;
  }
  return tokens;
}

bool IsPlain(const std::vector<std::string_view>& item) {
  for (std::size_t i = 0; i < item.size(); ++i) {
    if ((item[i] == ".") != (i % 2 == 1)) return false;
  }
  return true;
}

}  // namespace

std::vector<std::string> GivenNames(std::string_view query) {
  std::vector<std::string> names;
  std::vector<std::string_view> item;
  const auto end_item = [&] {
    if (!item.empty() && !IsPlain(item)) names.push_back(Unquoted(item.back()));
    item.clear();
  };
  for (const auto token : OuterTokens(query)) {
    if (IsWord(token, "FROM")) break;
    if (token == ",") {
      end_item();
    } else if (!IsWord(token, "SELECT") && !IsWord(token, "DISTINCT") && !IsWord(token, "ALL")) {
      item.push_back(token);
    }
  }
  end_item();
  return names;
}

bool NamesTwice(std::string_view query, std::string_view table) {
  bool is_behind_from = false;
  int count = 0;
  for (const auto token : OuterTokens(query)) {
    if (IsWord(token, "WHERE") || IsWord(token, "GROUP") || IsWord(token, "ORDER")) is_behind_from = false;
    if (is_behind_from && text::EqualAscii(Unquoted(token), table)) ++count;
    if (IsWord(token, "FROM")) is_behind_from = true;
  }
  return count > 1;
}

}  // namespace dralo::database
