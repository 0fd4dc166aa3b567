#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace dralo::text {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// Whether the byte can stand in UTF-8 only after the first one of a character.
constexpr bool IsTail(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

/// What a text begins with.
struct Decoded {
  std::size_t bytes = 0;              ///< How many bytes it takes.
  std::optional<char32_t> character;  ///< Nothing when these bytes are no UTF-8.
};

/// Decodes the start of `text`, which is not empty. Bytes that are no UTF-8 are grouped as by a browser,
/// which writes one U+FFFD for each group: a character that is broken off as far as it goes, else a single
/// byte. Longer spellings than necessary, surrogates and numbers above U+10FFFF are no UTF-8.
///
/// Whoever does not act for a browser keeps such bytes as they are, and counts each of them as a character.
Decoded DecodeFirst(std::string_view text);

/// Appends the UTF-8 of a character.
void AppendUtf8(std::string& text, char32_t character);

}  // namespace dralo::text
