#include "database/postgresql/base_table.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "database/own_columns.h"
#include "database/postgresql/quote.h"
#include "database/postgresql/table_keys.h"

namespace dralo::database::postgresql {

namespace {

/// Tables are told apart by their numbers: another session may have given the name of one to another.
std::set<Oid> TablesOf(const Description& description) {
  std::set<Oid> tables;
  for (std::size_t i = 0; i < description.origins.size(); ++i) {
    if (!(*description.columns)[i].origin.empty()) tables.insert(description.origins[i].table);
  }
  return tables;
}

}  // namespace

BaseTable FindBaseTable(Link& link, TableCatalog& catalog, Description& description, std::string_view text) {
  const std::set<Oid> tables = TablesOf(description);
  if (tables.size() > 1) RefuseChanges("the query reads several tables", text);
  std::vector<Names> keys;
  if (!tables.empty()) {
    const std::string questions[] = {TableCatalog::Question(tables), KeysQuestion(*tables.begin())};
    std::vector<Result> answers = link.Run(questions);
    catalog.Read(std::move(answers[0]), tables);
    keys = KeysIn(answers[1]);
    SetOrigins(description, catalog, text);
  }
  const Columns& columns = *description.columns;
  const Column& sample = ColumnOfTableReadOnce(columns, text);
  const auto quote = [](std::string_view name) { return Quote(name); };
  return TableOf(quote(sample.origin_database) + "." + quote(sample.origin_table), columns,
                 OwnColumnsOf(columns), keys, quote);
}

}  // namespace dralo::database::postgresql
