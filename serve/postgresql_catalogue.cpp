#include "catalogue.h"

namespace serve {
namespace {

constexpr std::string_view kTables = R"(
SELECT CASE WHEN n.nspname = current_schema() THEN '' ELSE n.nspname END, c.relname, c.relkind IN ('v', 'm')
FROM pg_catalog.pg_class c JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace
WHERE c.relkind IN ('r', 'p', 'v', 'm', 'f') AND NOT c.relispartition
  AND n.nspname <> 'information_schema' AND left(n.nspname, 3) <> 'pg_'
  AND has_schema_privilege(n.oid, 'USAGE') AND has_table_privilege(c.oid, 'SELECT')
ORDER BY 1, lower(c.relname), c.relname)";

/// The last columns say what a foreign key of one column points to. An index may hold columns behind those of
/// its key; a part of an array counts from 1.
constexpr std::string_view kColumns = R"(
SELECT a.attname, format_type(a.atttypid, NULL), a.attgenerated <> '',
       a.attidentity <> '' OR coalesce(pg_get_expr(d.adbin, d.adrelid) LIKE 'nextval(%', false),
       coalesce(array_position((k.indkey::int2[])[0:k.indnkeyatts - 1], a.attnum), 0),
       coalesce(CASE WHEN fn.nspname = current_schema() THEN '' ELSE fn.nspname END, ''),
       coalesce(fc.relname, ''), coalesce(fa.attname, '')
FROM pg_catalog.pg_attribute a
JOIN pg_catalog.pg_class c ON c.oid = a.attrelid JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace
LEFT JOIN pg_catalog.pg_attrdef d ON d.adrelid = a.attrelid AND d.adnum = a.attnum
LEFT JOIN pg_catalog.pg_index k ON k.indrelid = a.attrelid AND k.indisprimary
LEFT JOIN LATERAL (SELECT confrelid, confkey[1] AS number FROM pg_catalog.pg_constraint
                   WHERE contype = 'f' AND conrelid = a.attrelid AND conkey = ARRAY[a.attnum] LIMIT 1) f ON true
LEFT JOIN pg_catalog.pg_class fc ON fc.oid = f.confrelid
LEFT JOIN pg_catalog.pg_namespace fn ON fn.oid = fc.relnamespace
LEFT JOIN pg_catalog.pg_attribute fa ON fa.attrelid = f.confrelid AND fa.attnum = f.number
WHERE a.attnum > 0 AND NOT a.attisdropped AND c.relname = ?
  AND n.nspname = coalesce(nullif(?, ''), current_schema())
ORDER BY a.attnum)";

class Postgresql final : public Catalogue {
 public:
  std::vector<Table> Tables(Rows& rows) const override {
    std::vector<Table> tables;
    for (const TextRow& row : rows.Query(kTables)) tables.push_back({{row[0], row[1]}, row[2] == "1"});
    return tables;
  }

  std::vector<Column> Columns(Rows& rows, const TableName& table) const override {
    std::vector<Column> columns;
    for (const TextRow& row : rows.Query(kColumns, {table.name, table.schema})) {
      columns.push_back({row[0], row[1], row[2] == "1", row[3] == "1", std::stoi(row[4])});
      if (!row[6].empty()) columns.back().reference = Reference{{row[5], row[6]}, row[7]};
    }
    return columns;
  }
};

}  // namespace

const Catalogue& PostgresqlCatalogue() {
  static const Postgresql catalogue;
  return catalogue;
}

}  // namespace serve
