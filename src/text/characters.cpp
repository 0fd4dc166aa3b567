#include "text/characters.h"

#include "text/utf8.h"

namespace dralo::text {
namespace {

/// Takes a character, or a byte that is no UTF-8, from the front of `rest`, which is not empty.
void TakeCharacter(std::string_view& rest) {
  const Decoded first = DecodeFirst(rest);
  rest.remove_prefix(first.character ? first.bytes : 1);
}

}  // namespace

std::size_t BytesOfCharacters(std::string_view text, std::size_t characters) {
  std::string_view rest = text;
  for (; characters > 0 && !rest.empty(); --characters) TakeCharacter(rest);
  return text.size() - rest.size();
}

std::size_t CountCharacters(std::string_view text) {
  std::size_t characters = 0;
  for (; !text.empty(); ++characters) TakeCharacter(text);
  return characters;
}

}  // namespace dralo::text
