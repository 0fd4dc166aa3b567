#pragma once

#include <string>
#include <string_view>

#include "database/in_quotes.h"

namespace dralo::database::postgresql {

/// `text` between quotes, which are doubled inside: "'" makes a text, '"' a name.
inline std::string Quote(std::string_view text, char quote = '"') { return InQuotes(text, quote, quote); }

}  // namespace dralo::database::postgresql
