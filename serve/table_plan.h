#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "catalogue.h"

namespace serve {

/// A field whose values come from a column of another table.
struct Lookup {
  std::string field;
  std::string table;
  std::string value;
  std::string shown;
  bool can_be_empty = false;
};

/// How the view of one table is set up: its statements and all that belongs to them.
struct TablePlan {
  Table table;
  std::string grid_sql;
  std::string edit_sql;
  std::string delete_sql;
  std::string keys;      ///< Comma list, first in both queries; empty when records cannot be told apart.
  std::string new_keys;  ///< Where the keys of new records come from; one item for each key.
  std::string order;
  std::string hidden;  ///< Comma list of the numbers of fields that only templates use.
  std::string read_only;
  std::vector<std::pair<int, std::string>> templates;  ///< By the number of the column.
  std::vector<Lookup> lookups;

  /// Whether all that the page shows is in stored tables, those of references too.
  bool is_stored = false;

  bool HasKey() const { return !keys.empty(); }
};

/// Returns the columns of a table; none when there is no such table.
using ColumnsOf = std::function<std::vector<Column>(const TableName& table)>;

/// The plan of `table`, whose `columns` are not empty. A reference to a table that `columns_of` finds is
/// shown as a text of the other record, with a link to it.
TablePlan MakePlan(const Table& table, std::vector<Column> columns, const ColumnsOf& columns_of,
                   const Catalogue& catalogue);

/// The address of a table's page, for a link.
std::string AddressOf(const TableName& table);

}  // namespace serve
