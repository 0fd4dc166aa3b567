#include "database/odbc/base_table.h"

#include <algorithm>
#include <string>

#include "database/odbc/catalog.h"
#include "database/odbc/quote.h"
#include "database/own_columns.h"

namespace dralo::database::odbc {

namespace {

using Key = std::vector<std::size_t>;

Key FindUniqueKey(const Link& link, const TableName& name, const OwnColumns& own) {
  const Names required = RequiredColumns(link, name);
  const auto is_required = [&](const std::string& column) {
    return std::ranges::find(required, column) != required.end();
  };
  for (const Names& index : UniqueIndexes(link, name)) {
    Key key = std::ranges::all_of(index, is_required) ? FindAllOwn(own, index) : Key{};
    if (!key.empty()) return key;
  }
  return {};
}

}  // namespace

BaseTable FindBaseTable(const Link& link, const Columns& columns, std::string_view text) {
  const Column& sample = ColumnOfTableReadOnce(columns, text);
  const TableName name{sample.origin_database, sample.origin_table};
  const auto quote = [&](std::string_view part) { return Quote(part, link.NameQuote()); };
  const std::string schema = name.schema.empty() ? "" : quote(name.schema) + ".";
  const OwnColumns own = OwnColumnsOf(columns);
  BaseTable table = TableOf(schema + quote(name.table), columns, own, {PrimaryKey(link, name)}, quote);
  if (table.key.empty()) table.key = FindUniqueKey(link, name, own);
  return table;
}

}  // namespace dralo::database::odbc
