#pragma once

#include <string>
#include <string_view>

#include "database/in_quotes.h"

namespace dralo::database::odbc {

/// `name` as an identifier; `quote` is what the driver reports, "[" stands for brackets, and a driver without
/// quotes reports none.
inline std::string Quote(std::string_view name, std::string_view quote) {
  if (quote.empty()) return std::string(name);
  return InQuotes(name, quote.front(), quote == "[" ? ']' : quote.front());
}

}  // namespace dralo::database::odbc
