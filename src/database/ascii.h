#pragma once

#include <string>
#include <string_view>

namespace dralo::database {

/// Letter case of the basic Latin letters only: those of keywords, keys and type names.
constexpr char ToUpper(char c) { return 'a' <= c && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

constexpr bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (ToUpper(a[i]) != ToUpper(b[i])) return false;
  }
  return true;
}

constexpr bool IsBlank(char c) { return c == ' ' || ('\t' <= c && c <= '\r'); }

constexpr bool IsDigit(char c) { return '0' <= c && c <= '9'; }

constexpr std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace dralo::database
