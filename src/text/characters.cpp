#include "text/characters.h"

#include "text/utf8.h"
#include "text/word.h"

namespace dralo::text {
namespace {

/// Takes characters, or bytes that are no UTF-8, from the front of `rest`, which is not empty: `most` of them
/// at most, which is not 0. Returns how many.
std::size_t TakeCharacters(std::string_view& rest, std::size_t most) {
  if (most >= kWordBytes && rest.size() >= kWordBytes && IsAscii(WordAt(rest.data()))) {
    rest.remove_prefix(kWordBytes);
    return kWordBytes;
  }
  const Decoded first = DecodeFirst(rest);
  rest.remove_prefix(first.character ? first.bytes : 1);
  return 1;
}

}  // namespace

std::size_t BytesOfCharacters(std::string_view text, std::size_t characters) {
  if (text.size() <= characters) return text.size();
  std::string_view rest = text;
  while (characters > 0 && !rest.empty()) characters -= TakeCharacters(rest, characters);
  return text.size() - rest.size();
}

std::size_t CountCharacters(std::string_view text) {
  std::size_t characters = 0;
  while (!text.empty()) characters += TakeCharacters(text, text.size());
  return characters;
}

}  // namespace dralo::text
