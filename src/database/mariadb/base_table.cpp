#include "database/mariadb/base_table.h"

#include <algorithm>

#include "database/mariadb/catalog.h"
#include "database/mariadb/quote.h"
#include "database/own_columns.h"
#include "database/select_shape.h"
#include "text/ascii.h"

namespace dralo::database::mariadb {

namespace {

/// Requires that the query names the table once, and nothing else by the table's name.
void RequireNamedOnce(const Column& sample, std::string_view text) {
  const SelectShape shape = ShapeOf(text);
  const auto is_sample = [&](const NamedTable& named) {
    return text::EqualAscii(named.table, sample.origin_table) &&
           (named.database.empty() || text::EqualAscii(named.database, sample.origin_database));
  };
  const auto count = std::ranges::count_if(shape.tables, is_sample);
  if (count > 1) RefuseChanges("the query reads the table more than once", text);
  if (count == 0) RefuseChanges("no field shows a column of a table", text);
}

OwnColumns ColumnsOf(const Columns& columns, const TableFacts& facts) {
  OwnColumns own;
  for (const Column& column : columns) {
    const bool is_known = std::ranges::find(facts.columns, column.origin) != facts.columns.end();
    AddOwn(own, is_known ? column.origin : "");
  }
  return own;
}

}  // namespace

BaseTable FindBaseTable(Session& session, const Columns& columns, std::string_view text) {
  const Column& sample = ColumnOfOneTable(columns, text);
  RequireNamedOnce(sample, text);
  const TableFacts facts = FactsOf(session, sample.origin_database, sample.origin_table);
  const std::string name = Quote(sample.origin_database) + "." + Quote(sample.origin_table);
  return TableOf(name, columns, ColumnsOf(columns, facts), facts.keys, Quote);
}

}  // namespace dralo::database::mariadb
