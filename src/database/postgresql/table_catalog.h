#pragma once

#include <map>
#include <string>
#include <vector>

#include "database/postgresql/link.h"

namespace dralo::database::postgresql {

/// A table, or a view, as the catalogue of the database knows it.
struct KnownTable {
  struct TableColumn {
    std::string name;
    bool is_required = false;  ///< Never Null.
    bool is_numbered = false;  ///< By the database, which can tell the number.
  };

  std::string schema;
  std::string name;
  std::map<int, TableColumn> columns;  ///< By their numbers.
};

/// What the session was told of tables, by their numbers. One that was altered by another session since is
/// known as it was.
class TableCatalog {
 public:
  struct ColumnNumber {
    Oid table = 0;
    int column = 0;
    bool operator==(const ColumnNumber&) const = default;
  };

  /// Asks for the tables of those columns that are not known yet. Throws platform::Error.
  void Learn(Link& link, const std::vector<ColumnNumber>& columns);

  /// nullptr when there is no such table, or none with that column.
  const KnownTable* Find(const ColumnNumber& column) const;

  void Forget() { tables_.clear(); }

 private:
  std::map<Oid, KnownTable> tables_;
};

/// The numbers of the columns of every key of the table: the primary one first, then of unique indexes over
/// columns that are never Null. Asked for each time.
std::vector<std::vector<int>> KeysOf(Link& link, Oid table);

}  // namespace dralo::database::postgresql
