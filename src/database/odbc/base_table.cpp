#include "database/odbc/base_table.h"

#include <algorithm>
#include <optional>
#include <string>

#include "database/odbc/catalog.h"
#include "database/odbc/quote.h"
#include "database/own_columns.h"
#include "database/select_list.h"

namespace dralo::database::odbc {

namespace {

using Key = std::vector<std::size_t>;

const Column& FindSample(const Columns& columns, std::string_view text) {
  const Column& sample = ColumnOfOneTable(columns, text);
  if (NamesTwice(text, sample.origin_table)) RefuseChanges("the query reads the table more than once", text);
  return sample;
}

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

std::optional<std::size_t> FindIdentity(const Columns& columns, const OwnColumns& own) {
  const auto found = std::ranges::find_if(columns, &Column::is_numbered);
  if (found == columns.end()) return std::nullopt;
  return FindOwn(own, found->origin);
}

}  // namespace

BaseTable FindBaseTable(const Link& link, const Columns& columns, std::string_view text) {
  const Column& sample = FindSample(columns, text);
  const TableName name{sample.origin_database, sample.origin_table};
  OwnColumns own;
  for (const Column& column : columns) AddOwn(own, column.origin);
  BaseTable table;
  if (!name.schema.empty()) table.name = Quote(name.schema, link.NameQuote()) + ".";
  table.name += Quote(name.table, link.NameQuote());
  for (const std::string& column : own) {
    table.columns.push_back(column.empty() ? "" : Quote(column, link.NameQuote()));
  }
  table.identity = FindIdentity(columns, own);
  table.key = FindAllOwn(own, PrimaryKey(link, name));
  if (table.key.empty()) table.key = FindUniqueKey(link, name, own);
  return table;
}

}  // namespace dralo::database::odbc
