#pragma once

#include <string>
#include <string_view>

namespace dralo::database::mariadb {

/// `name` as an identifier whatever characters it has.
inline std::string Quote(std::string_view name) {
  std::string quoted = "`";
  for (const char c : name) quoted.append(c == '`' ? 2 : 1, c);
  return quoted += '`';
}

}  // namespace dralo::database::mariadb
