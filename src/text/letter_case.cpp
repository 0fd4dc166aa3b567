#include "text/letter_case.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace dralo::text {
namespace {

constexpr char CapitalAscii(char c) { return 'a' <= c && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr char SmallAscii(char c) { return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// A character of several bytes, or a single byte that is no part of one.
struct Character {
  std::string_view bytes;
  UChar32 letter;  ///< Negative for a byte that is no UTF-8.
};

/// Longer spellings of a character than necessary are none: they could not be written again as they were.
Character CharacterAt(std::string_view text, std::size_t at) {
  std::size_t end = at;
  UChar32 letter = U_SENTINEL;
// ICU's macro narrows an int on purpose.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
  U8_NEXT(text, end, text.size(), letter);
#pragma GCC diagnostic pop
  return {text.substr(at, letter < 0 ? 1 : end - at), letter};
}

void AppendLetter(std::string& text, UChar32 letter) {
  std::array<std::uint8_t, U8_MAX_LENGTH> bytes{};
  std::size_t size = 0;
  U8_APPEND_UNSAFE(bytes, size, letter);
  text.append(bytes.begin(), bytes.begin() + size);
}

template <UChar32 (*Convert)(UChar32), char (*ConvertAscii)(char)>
void AppendInCase(std::string& result, std::string_view text) {
  result.reserve(result.size() + text.size());
  for (std::size_t at = 0; at < text.size();) {
    if (IsAscii(text[at])) {
      result += ConvertAscii(text[at++]);
      continue;
    }
    const Character character = CharacterAt(text, at);
    const UChar32 other = character.letter < 0 ? character.letter : Convert(character.letter);
    if (other == character.letter) {
      result += character.bytes;
    } else {
      AppendLetter(result, other);
    }
    at += character.bytes.size();
  }
}

/// Takes the first character off `rest`, which is not empty. Returns its capital; for a byte that is no UTF-8
/// a number of its own.
UChar32 TakeCapital(std::string_view& rest) {
  const char first = rest[0];
  if (IsAscii(first)) {
    rest.remove_prefix(1);
    return CapitalAscii(first);
  }
  const Character character = CharacterAt(rest, 0);
  rest.remove_prefix(character.bytes.size());
  return character.letter < 0 ? -static_cast<unsigned char>(first) : u_toupper(character.letter);
}

}  // namespace

void AppendUpper(std::string& to, std::string_view text) { AppendInCase<u_toupper, CapitalAscii>(to, text); }

void AppendLower(std::string& to, std::string_view text) { AppendInCase<u_tolower, SmallAscii>(to, text); }

std::string ToUpper(std::string_view text) {
  std::string result;
  AppendUpper(result, text);
  return result;
}

std::string ToLower(std::string_view text) {
  std::string result;
  AppendLower(result, text);
  return result;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
  if (left == right) return true;
  while (!left.empty() && !right.empty()) {
    if (TakeCapital(left) != TakeCapital(right)) return false;
  }
  return left.empty() && right.empty();
}

std::size_t FindWord(std::string_view text, std::string_view word) {
  const auto is_letter = [](char c, char capital) { return CapitalAscii(c) == capital; };
  const auto found = std::search(text.begin(), text.end(), word.begin(), word.end(), is_letter);
  return found == text.end() && !word.empty() ? text.npos : static_cast<std::size_t>(found - text.begin());
}

bool ContainsWord(std::string_view text, std::string_view word) { return FindWord(text, word) != text.npos; }

}  // namespace dralo::text
