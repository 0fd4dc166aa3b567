#pragma once

#include <string>
#include <string_view>

namespace dralo::database::sqlite {

/// `name` as an identifier whatever characters it has.
inline std::string Quote(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"') quoted += c;
    quoted += c;
  }
  return quoted += '"';
}

}  // namespace dralo::database::sqlite
