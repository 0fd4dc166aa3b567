#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "database/postgresql/link.h"

namespace dralo::database::postgresql {

/// A table, view or the like, as the catalogue of the database describes it.
struct KnownTable {
  struct TableColumn {
    std::string name;
    bool is_required = false;  ///< Never Null.
    bool is_numbered = false;  ///< By the database, which can return the number.
  };

  std::string schema;
  std::string name;

  /// It is no view, nor divided into partitions or kept elsewhere, and no policy chooses among its rows.
  bool has_own_rows = false;

  std::map<int, TableColumn> columns;  ///< By their numbers.
};

/// What the session knows about tables, by their numbers. A table that another session has altered since is
/// known as it was.
class TableCatalog {
 public:
  struct ColumnNumber {
    Oid table = 0;
    int column = 0;
    bool operator==(const ColumnNumber&) const = default;
  };

  /// Asks about the tables of those columns that are not known yet. Throws platform::Error.
  void Learn(Link& link, const std::vector<ColumnNumber>& columns);

  /// What to ask the server about tables, and what becomes of its answer: then they are known as they are
  /// now.
  static std::string Question(const std::set<Oid>& tables);
  void Read(Result answer, const std::set<Oid>& tables);

  /// nullptr when there is no such table, or it has no such column.
  const KnownTable* Find(const ColumnNumber& column) const;

  void Forget() { tables_.clear(); }

 private:
  std::map<Oid, KnownTable> tables_;
};

}  // namespace dralo::database::postgresql
