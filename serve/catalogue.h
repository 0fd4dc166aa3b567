#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rows.h"

namespace serve {

/// A table or a view. `schema` is empty for the one that a name without a schema means.
struct TableName {
  std::string schema;
  std::string name;
  friend bool operator==(const TableName&, const TableName&) = default;
};

struct Table {
  TableName name;
  bool is_view = false;
};

/// The single column of another table that a foreign key points to; without a name its primary key.
struct Reference {
  TableName table;
  std::string column;
};

struct Column {
  std::string name;
  std::string type;           ///< As the database calls it.
  bool is_generated = false;  ///< Its value is computed: it cannot be written.
  bool is_automatic = false;  ///< The database numbers new records.
  int key_position = 0;       ///< From 1; 0 outside of the primary key.
  std::optional<Reference> reference = std::nullopt;
};

/// What a kind of database says about its tables. Failures are dralo::Error.
class Catalogue {
 public:
  virtual ~Catalogue() = default;

  /// What stands around a name in a statement, so that its letters stay as they are.
  virtual char NameQuote() const { return '"'; }

  /// In the order of their names, those of the default schema first.
  virtual std::vector<Table> Tables(Rows& rows) const = 0;

  /// In the order of the table; none when it is not there.
  virtual std::vector<Column> Columns(Rows& rows, const TableName& table) const = 0;
};

/// A name of that database as it stands in a statement.
std::string Quoted(const Catalogue& catalogue, std::string_view name);

/// The same with its schema.
std::string Quoted(const Catalogue& catalogue, const TableName& table);

/// That of the database behind `rows`, which is asked what it is. Throws dralo::Error when it is of no kind
/// that is known.
const Catalogue& FindCatalogue(Rows& rows);

const Catalogue& SqliteCatalogue();
const Catalogue& PostgresqlCatalogue();
const Catalogue& MariadbCatalogue();

}  // namespace serve
