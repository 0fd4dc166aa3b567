#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dralo::database {

/// A host as connection strings name it.
struct Host {
  std::string name;
  std::optional<std::string> port;  ///< The text behind the name's ":", which may be empty.
};

/// Reads "name", "name:port", "[address]:port", or an address of the sixth version of the protocol as it is.
Host ReadHost(std::string_view text);

}  // namespace dralo::database
