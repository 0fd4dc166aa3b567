#pragma once

#include <compare>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rows.h"

namespace serve {

/// A table or a view. `schema` is empty for the schema that a name without one means.
struct TableName {
  std::string schema;
  std::string name;
  friend auto operator<=>(const TableName&, const TableName&) = default;
};

struct Table {
  TableName name;
  bool is_view = false;
  /// Its records are in the database itself, so that they change only when the database does. A view may call
  /// functions of the time or of chance, a virtual table may read anything.
  bool is_stored = false;
};

/// Shared by all who show the tables at the same time; never nullptr.
using TableList = std::shared_ptr<const std::vector<Table>>;

/// The single column of another table to which a foreign key points; without a name its primary key.
struct Reference {
  TableName table;
  std::string column;
};

struct Column {
  std::string name;
  std::string type;           ///< As the database calls it.
  bool is_generated = false;  ///< Its value is computed and cannot be written.
  bool is_automatic = false;  ///< The database numbers new records.
  int key_position = 0;       ///< From 1; 0 for columns outside the primary key.
  std::optional<Reference> reference = std::nullopt;
};

/// What a kind of database says about its tables. Failures are dralo::Error.
class Catalogue {
 public:
  virtual ~Catalogue() = default;

  /// The quote around a name in a statement, so that its letter case is kept.
  virtual char NameQuote() const { return '"'; }

  /// Whether the record that a foreign key points to is always there, as far as the key is not null.
  virtual bool EnforcesReferences() const { return true; }

  /// Sorted by name, those of the default schema first.
  virtual std::vector<Table> Tables(Rows& rows) const = 0;

  /// In the order of the table; none when there is no such table.
  virtual std::vector<Column> Columns(Rows& rows, const TableName& table) const = 0;
};

/// The name of a table or column, quoted for a statement of that database.
std::string Quoted(const Catalogue& catalogue, std::string_view name);

/// The same with its schema.
std::string Quoted(const Catalogue& catalogue, const TableName& table);

/// The catalogue for the database behind `rows`, which is asked what it is. Throws dralo::Error when it is of
/// no known kind.
const Catalogue& FindCatalogue(Rows& rows);

const Catalogue& SqliteCatalogue();
const Catalogue& PostgresqlCatalogue();
const Catalogue& MariadbCatalogue();

}  // namespace serve
