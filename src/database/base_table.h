#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace dralo::database {

/// The table that the rows of a result can be written to. Names are quoted for use in a statement.
struct BaseTable {
  std::string name;

  /// For each column of the result its name in the table; empty when it cannot be written.
  std::vector<std::string> columns;

  /// The columns of the result that together identify a row; none when the result has no key that the table
  /// declares.
  std::vector<std::size_t> key;

  /// The column of the result that the database numbers by itself.
  std::optional<std::size_t> identity;
};

}  // namespace dralo::database
