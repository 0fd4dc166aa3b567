#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "text/characters.h"

namespace dralo::regional {

/// Takes the text in quotation marks, or the character behind "\", that `rest` starts with: it is appended to
/// `literal`. A missing second mark stands at the end; a "\" at the end is itself. False when there is none.
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
