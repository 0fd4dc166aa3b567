#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dralo::database {

/// A table that a query names in its FROM.
struct NamedTable {
  std::string database;  ///< Empty for the current one.
  std::string table;     ///< Empty for a subquery and for anything that is not understood.
  std::string alias;     ///< The name that the query uses: the table's own name when it has no other.

  // Both names as they stand in the query's text, which must outlive them.
  std::string_view written = {};
  std::string_view written_alias = {};
};

/// What the words of a query outside its parentheses say about it.
struct SelectShape {
  /// It is one SELECT with a FROM, without common table expressions, and nothing is joined to it by UNION or
  /// the like.
  bool is_simple = false;

  /// Its rows are those of its tables: none are left out or combined.
  bool has_rows_of_tables = false;

  /// Values of its rows depend on the order of others.
  bool has_windows = false;

  /// Nothing follows the tables: their rows are neither chosen nor ordered.
  bool ends_with_tables = false;

  bool ends_with_order = false;

  /// Of such an order: the last field is in descending order.
  bool is_descending = false;

  std::vector<NamedTable> tables = {};
};

/// In the words of MariaDB and MySQL.
SelectShape ShapeOf(std::string_view query);

}  // namespace dralo::database
