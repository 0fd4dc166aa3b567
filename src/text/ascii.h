#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

/// Letters of ASCII, as in keywords, keys, options and markup: only A to Z have two letter cases.
namespace dralo::text {

constexpr char ToUpper(char c) { return 'a' <= c && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr char ToLower(char c) { return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr bool IsDigit(char c) { return '0' <= c && c <= '9'; }
constexpr bool IsLetter(char c) { return 'A' <= ToUpper(c) && ToUpper(c) <= 'Z'; }
constexpr bool IsLetterOrDigit(char c) { return IsLetter(c) || IsDigit(c); }

/// The value of a hexadecimal digit; -1 for any other character.
constexpr int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  return 'A' <= ToUpper(c) && ToUpper(c) <= 'F' ? ToUpper(c) - 'A' + 10 : -1;
}

/// Whether the two are equal, letter case apart.
constexpr bool EqualAscii(std::string_view left, std::string_view right) {
  return std::ranges::equal(left, right, [](char a, char b) { return ToUpper(a) == ToUpper(b); });
}

/// Whether `text` begins with the word, letter case apart.
constexpr bool StartsWithAscii(std::string_view text, std::string_view word) {
  return EqualAscii(text.substr(0, word.size()), word);
}

/// Where `text` contains `word`, letter case apart, also within a longer word; npos where it does not.
constexpr std::size_t FindAscii(std::string_view text, std::string_view word) {
  const auto* found = std::search(text.begin(), text.end(), word.begin(), word.end(),
                                  [](char a, char b) { return ToUpper(a) == ToUpper(b); });
  return found == text.end() && !word.empty() ? text.npos : static_cast<std::size_t>(found - text.begin());
}

constexpr bool ContainsAscii(std::string_view text, std::string_view word) {
  return FindAscii(text, word) != text.npos;
}

}  // namespace dralo::text
