#pragma once

#include <string>
#include <string_view>

namespace dralo::database::postgresql {

/// `text` between quotes, which are doubled inside: "'" makes a text, '"' a name.
inline std::string Quote(std::string_view text, char quote = '"') {
  std::string quoted(1, quote);
  for (const char c : text) quoted.append(c == quote ? 2 : 1, c);
  return quoted += quote;
}

}  // namespace dralo::database::postgresql
