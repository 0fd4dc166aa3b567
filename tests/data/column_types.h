#pragma once

#include <string>
#include <vector>

namespace dralo::tests {

/// A type that a column of a database can have, and a value that is stored in it.
struct ColumnType {
  std::string type;
  std::string literal;

  /// Why the text that the form shows cannot be saved, where the database's value is none of the type's.
  std::string refusal = {};

  /// Not every version of the database has the type.
  bool is_optional = false;
};

/// Every type that the database offers, with the values that are hardest on it.
std::vector<ColumnType> ColumnTypesOf(const std::string& database);

}  // namespace dralo::tests
