#include "database/postgresql/base_table.h"

#include "database/own_columns.h"
#include "database/postgresql/quote.h"
#include "database/postgresql/table_keys.h"

namespace dralo::database::postgresql {

BaseTable FindBaseTable(Link& link, const Description& description, std::string_view text) {
  const Columns& columns = *description.columns;
  const Column& sample = ColumnOfTableReadOnce(columns, text);
  const Oid number = description.origins[static_cast<std::size_t>(&sample - columns.data())].table;
  const auto quote = [](std::string_view name) { return Quote(name); };
  return TableOf(quote(sample.origin_database) + "." + quote(sample.origin_table), columns,
                 OwnColumnsOf(columns), KeysOf(link, number), quote);
}

}  // namespace dralo::database::postgresql
