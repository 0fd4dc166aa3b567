#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "text/characters.h"

namespace dralo::regional {

/// Takes the text in quotation marks, or the character after a "\", at the start of `rest`, and appends it to
/// `literal`. A missing second mark counts as standing at the end; a "\" at the end stands for itself. False
/// when there is no literal.
inline bool TakeLiteral(std::string_view& rest, std::string& literal) {
  if (rest.starts_with('"')) {
    const std::size_t end = std::min(rest.find('"', 1), rest.size());
    literal += rest.substr(1, end - 1);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return true;
  }
  if (!rest.starts_with('\\')) return false;
  if (rest.size() > 1) rest.remove_prefix(1);
  const std::size_t size = text::BytesOfCharacters(rest, 1);
  literal += rest.substr(0, size);
  rest.remove_prefix(size);
  return true;
}

}  // namespace dralo::regional
