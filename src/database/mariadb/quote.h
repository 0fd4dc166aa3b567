#pragma once

#include <string>
#include <string_view>

#include "database/in_quotes.h"

namespace dralo::database::mariadb {

/// `name` as an identifier whatever characters it has.
inline std::string Quote(std::string_view name) { return InQuotes(name, '`', '`'); }

}  // namespace dralo::database::mariadb
