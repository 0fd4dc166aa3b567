#pragma once

#include <cstddef>
#include <string_view>

namespace dralo::text {

/// How many bytes the first `characters` characters of the UTF-8 text take; all of them when it has fewer. A
/// byte that is no UTF-8 counts as a character.
std::size_t BytesOfCharacters(std::string_view text, std::size_t characters);

/// How many characters the UTF-8 text has.
std::size_t CountCharacters(std::string_view text);

}  // namespace dralo::text
