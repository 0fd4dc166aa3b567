#pragma once

#include <string>
#include <string_view>

namespace dralo::database {

/// `text` between `opening` and `closing`; a `closing` inside is doubled.
inline std::string InQuotes(std::string_view text, char opening, char closing) {
  std::string quoted(1, opening);
  for (const char c : text) quoted.append(c == closing ? 2 : 1, c);
  return quoted += closing;
}

}  // namespace dralo::database
