#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dralo::database::mariadb {

/// A table that a query names behind its FROM.
struct NamedTable {
  std::string database;  ///< Empty for the current one.
  std::string table;     ///< Empty for a subquery and for whatever is not understood.
  std::string alias;     ///< What the query calls it: the table's own name when it has no other.
};

/// What the words of a query tell about it outside of its parentheses.
struct SelectShape {
  /// One SELECT with a FROM, without common tables, and no other one behind it.
  bool is_simple = false;

  /// Its rows are those of its tables: none are left out or put together.
  bool has_rows_of_tables = false;

  bool ends_with_order = false;

  /// Of such an order: the last field goes down.
  bool is_descending = false;

  std::vector<NamedTable> tables = {};
};

SelectShape ShapeOf(std::string_view query);

}  // namespace dralo::database::mariadb
