#pragma once

#include <string>
#include <string_view>

namespace dralo::database::odbc {

/// `name` as an identifier; `quote` is what the driver reports, "[" stands for brackets. The closing quote is
/// doubled inside.
inline std::string Quote(std::string_view name, std::string_view quote) {
  const char closing = quote == "[" ? ']' : quote.empty() ? '\0' : quote.front();
  std::string quoted(quote);
  for (const char c : name) {
    if (c == closing) quoted += c;
    quoted += c;
  }
  if (closing != '\0') quoted += closing;
  return quoted;
}

}  // namespace dralo::database::odbc
