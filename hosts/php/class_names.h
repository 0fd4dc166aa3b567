#pragma once

#include <array>
#include <string_view>

namespace dralo::php {

/// A class that scripts create by programmatic identifier.
struct CreatableClass {
  std::string_view identifier;
  std::string_view php_name;  ///< In the namespace Dralo.
};

inline constexpr auto kCreatableClasses = std::to_array<CreatableClass>({
    {"Dralo.DbView", "DbView"},
    {"Dralo.DBConnection", "DBConnection"},
    {"ADODB.Connection", "Connection"},
    {"ADODB.Recordset", "Recordset"},
    {"ADODB.Command", "Command"},
});

/// The PHP name of the class that an object property holds.
constexpr std::string_view PhpName(std::string_view identifier) {
  for (const auto& creatable : kCreatableClasses) {
    if (creatable.identifier == identifier) return creatable.php_name;
  }
  return {};
}

}  // namespace dralo::php
