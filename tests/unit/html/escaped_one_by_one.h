#pragma once

#include <string>
#include <string_view>

#include "text/utf8.h"

namespace dralo::tests {

/// What a byte that stands alone is escaped to.
inline std::string Replacement(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return c > 0 ? std::string(1, c) : "\xEF\xBF\xBD";
  }
}

/// A text escaped one character after the other.
inline std::string EscapedOneByOne(std::string_view text) {
  std::string escaped;
  while (!text.empty()) {
    const text::Decoded first = text::DecodeFirst(text);
    const bool is_kept = first.character && (*first.character >= 0x80 || Replacement(text[0]).size() == 1);
    escaped += is_kept           ? text.substr(0, first.bytes)
               : first.character ? Replacement(text[0])
                                 : "\xEF\xBF\xBD";
    text.remove_prefix(first.bytes);
  }
  return escaped;
}

}  // namespace dralo::tests
