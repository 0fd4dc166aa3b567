#pragma once

#include <string>
#include <string_view>

#include "database/quoted.h"

namespace dralo::database::mariadb {

/// `name` as an identifier whatever characters it has.
inline std::string Quote(std::string_view name) { return Quoted(name, '`', '`'); }

}  // namespace dralo::database::mariadb
