#include "text/characters.h"

namespace dralo::text {
namespace {

constexpr bool IsTail(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

/// Bytes of the character at the start of `text`, which is not empty.
std::size_t CharacterLength(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF8 ? 4 : 1;
  if (length > text.size()) return 1;
  for (std::size_t at = 1; at < length; ++at) {
    if (!IsTail(text[at])) return 1;
  }
  return length;
}

}  // namespace

std::size_t BytesOfCharacters(std::string_view text, std::size_t characters) {
  std::size_t bytes = 0;
  for (; characters > 0 && bytes < text.size(); --characters) bytes += CharacterLength(text.substr(bytes));
  return bytes;
}

std::size_t CountCharacters(std::string_view text) {
  std::size_t characters = 0;
  for (std::size_t at = 0; at < text.size(); ++characters) at += CharacterLength(text.substr(at));
  return characters;
}

}  // namespace dralo::text
