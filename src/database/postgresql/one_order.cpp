#include "database/postgresql/one_order.h"

#include <algorithm>

#include "database/postgresql/statement_shape.h"

namespace dralo::database::postgresql {

bool HasOneOrder(const Statement& query, const Description& description, const TableCatalog& catalog) {
  if (!query.key_order.empty()) return true;
  const SelectShape shape = ShapeOfRows(query);
  const bool has_one_table = shape.tables.size() == 1 && !shape.tables.front().table.empty();
  if (!has_one_table || !shape.ends_with_tables) return false;
  return std::ranges::any_of(description.origins, [&](const Description::Origin& origin) {
    const KnownTable* const table = catalog.Find(origin);
    return table != nullptr && table->has_own_rows;
  });
}

}  // namespace dralo::database::postgresql
