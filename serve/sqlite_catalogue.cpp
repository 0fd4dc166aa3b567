#include <algorithm>
#include <map>

#include "catalogue.h"

namespace serve {
namespace {

class Sqlite final : public Catalogue {
 public:
  /// Each program that writes decides for itself.
  bool EnforcesReferences() const override { return false; }

  std::vector<Table> Tables(Rows& rows) const override {
    std::vector<Table> tables;
    for (const TextRow& row : NamesAndTypes(rows))
      tables.push_back({{"", row[0]}, row[1] == "view", row[2] == "1"});
    return tables;
  }

  std::vector<Column> Columns(Rows& rows, const TableName& table) const override {
    std::vector<Column> columns;
    // 1 is a hidden column of a virtual table, 2 and 3 are generated columns.
    for (const TextRow& row : rows.Query(
             "SELECT name, type, hidden, pk FROM pragma_table_xinfo(?) WHERE hidden <> 1", {table.name})) {
      columns.push_back({.name = row[0], .type = row[1], .is_generated = row[2] != "0"});
      columns.back().key_position = std::stoi(row[3]);
    }
    MarkAutomatic(rows, table, columns);
    const auto references = References(rows, table);
    for (Column& column : columns) {
      const auto found = references.find(column.name);
      if (found != references.end()) column.reference = found->second;
    }
    return columns;
  }

 private:
  /// Also whether the table is an ordinary one. Without those in which virtual tables keep what they need.
  /// SQLite before 3.37 does not tell either.
  static std::vector<TextRow> NamesAndTypes(Rows& rows) {
    const std::string all =
        " FROM sqlite_schema WHERE type IN ('table', 'view') AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'";
    const std::string order = " ORDER BY lower(name)";
    const std::string of_type = "(SELECT name FROM pragma_table_list WHERE schema = 'main' AND type = ";
    try {
      return rows.Query("SELECT name, type, name IN " + of_type + "'table')" + all + " AND name NOT IN " +
                        of_type + "'shadow')" + order);
    } catch (const dralo::Error& error) {
      constexpr int kNoSuchTable = 1;  // SQLITE_ERROR, and not one of waiting in vain.
      if (error.Number() != kNoSuchTable) throw;
      return rows.Query("SELECT name, type, 0" + all + order);
    }
  }

  /// An INTEGER that alone is the key is the number of the record, which the database gives; but not when the
  /// key has an index of its own, as in a table without such numbers, or behind DESC.
  static void MarkAutomatic(Rows& rows, const TableName& table, std::vector<Column>& columns) {
    const auto is_key = [](const Column& column) { return column.key_position > 0; };
    const auto key = std::ranges::find_if(columns, is_key);
    if (std::ranges::count_if(columns, is_key) != 1) return;
    std::string type = key->type;
    std::ranges::transform(type, type.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? char(c - 32) : c; });
    if (type != "INTEGER") return;
    key->is_automatic =
        rows.Query("SELECT 1 FROM pragma_index_list(?) WHERE origin = 'pk'", {table.name}).empty();
  }

  /// By the names of the columns; foreign keys of several columns are left out.
  static std::map<std::string, Reference> References(Rows& rows, const TableName& table) {
    std::map<std::string, Reference> references;
    for (const TextRow& row : rows.Query("SELECT min(\"from\"), \"table\", min(\"to\") FROM "
                                         "pragma_foreign_key_list(?) GROUP BY id HAVING count(*) = 1",
                                         {table.name}))
      references.emplace(row[0], Reference{{"", row[1]}, row[2]});
    return references;
  }
};

}  // namespace

const Catalogue& SqliteCatalogue() {
  static const Sqlite catalogue;
  return catalogue;
}

}  // namespace serve
