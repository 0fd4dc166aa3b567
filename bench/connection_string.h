#pragma once

#include <string>
#include <string_view>

/// For a database that is given as a file of SQLite or as a connection string, which has a "=".
inline std::string ConnectionStringOf(std::string_view database) {
  const bool is_file = database.find('=') == database.npos;
  return (is_file ? "Provider=SQLite;Mode=Read;Data Source=" : "") + std::string(database);
}
