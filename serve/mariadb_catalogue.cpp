#include "catalogue.h"

namespace serve {
namespace {

constexpr std::string_view kTablesOfDatabase = R"(
SELECT table_name, table_type = 'VIEW' FROM information_schema.tables
WHERE table_schema = DATABASE() AND table_type <> 'SEQUENCE' ORDER BY lower(table_name), table_name)";

/// The last columns say what a foreign key of one column points to. MySQL calls a column with a default that
/// is an expression "DEFAULT_GENERATED"; only one with a generation_expression cannot be written.
constexpr std::string_view kColumnsOfTable = R"(
SELECT c.column_name, c.data_type, coalesce(c.generation_expression, '') <> '', c.extra LIKE '%auto_increment%',
  (SELECT coalesce(max(k.ordinal_position), 0) FROM information_schema.key_column_usage k
   WHERE k.table_schema = c.table_schema AND k.table_name = c.table_name AND k.column_name = c.column_name
     AND k.constraint_name = 'PRIMARY'), f.referenced_table_name, f.referenced_column_name
FROM information_schema.columns c LEFT JOIN (
  SELECT max(table_name) AS table_name, max(column_name) AS column_name,
         max(referenced_table_name) AS referenced_table_name, max(referenced_column_name) AS referenced_column_name
  FROM information_schema.key_column_usage
  WHERE table_schema = DATABASE() AND table_name = ? AND referenced_table_schema = DATABASE()
  GROUP BY constraint_name HAVING count(*) = 1) f ON f.column_name = c.column_name
WHERE c.table_schema = DATABASE() AND c.table_name = ? ORDER BY c.ordinal_position)";

class Mariadb final : public Catalogue {
 public:
  char NameQuote() const override { return '`'; }

  std::vector<Table> Tables(Rows& rows) const override {
    if (rows.Query("SELECT DATABASE()").front().front().empty())
      throw dralo::Error("The connection string names no database; write Database=NAME");
    std::vector<Table> tables;
    for (const TextRow& row : rows.Query(kTablesOfDatabase)) tables.push_back({{"", row[0]}, row[1] == "1"});
    return tables;
  }

  std::vector<Column> Columns(Rows& rows, const TableName& table) const override {
    std::vector<Column> columns;
    for (const TextRow& row : rows.Query(kColumnsOfTable, {table.name, table.name})) {
      if (!columns.empty() && columns.back().name == row[0]) continue;  // It has several foreign keys.
      columns.push_back({row[0], row[1], row[2] == "1", row[3] == "1", std::stoi(row[4])});
      if (!row[5].empty()) columns.back().reference = Reference{{"", row[5]}, row[6]};
    }
    return columns;
  }
};

}  // namespace

const Catalogue& MariadbCatalogue() {
  static const Mariadb catalogue;
  return catalogue;
}

}  // namespace serve
