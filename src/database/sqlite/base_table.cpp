#include "database/sqlite/base_table.h"

#include <algorithm>
#include <string>
#include <vector>

#include "database/own_columns.h"
#include "database/sqlite/ask.h"
#include "database/sqlite/plan.h"
#include "database/sqlite/quote.h"
#include "database/sqlite/row_number.h"

namespace dralo::database::sqlite {

namespace {

using Key = std::vector<std::size_t>;

bool IsFromSameTable(const Column& a, const Column& b) {
  return a.origin_table == b.origin_table && a.origin_database == b.origin_database;
}

/// A column of the table that the rows come from. Subqueries among the fields may show other tables.
const Column& FindSample(sqlite3* connection, const Columns& columns, std::string_view text) {
  const auto has_origin = [](const Column& column) { return !column.origin.empty(); };
  const auto first = std::ranges::find_if(columns, has_origin);
  if (first == columns.end()) RefuseChanges("no field shows a column of a table", text);
  const auto read = FindOneTable(connection, text);
  if (!read) RefuseChanges("they are not records of one table", text);

  const auto is_read = [&](const Column& column) {
    return has_origin(column) && (*read + " ").starts_with(column.origin_table + " ");
  };
  const auto is_same = [&](const Column& column) {
    return !has_origin(column) || IsFromSameTable(column, *first);
  };
  if (std::ranges::all_of(columns, is_same)) return *first;
  const auto sample = std::ranges::find_if(columns, is_read);
  if (sample == columns.end()) RefuseChanges("the query reads several tables", text);
  return *sample;
}

/// Of the columns that show one of the sample's table.
OwnColumns ColumnsOf(const Columns& columns, const Column& sample) {
  OwnColumns own;
  for (const Column& column : columns) AddOwn(own, IsFromSameTable(column, sample) ? column.origin : "");
  return own;
}

/// The columns of the result that show those named in the first column of `names`; empty unless all are
/// shown.
Key FindKey(const OwnColumns& own, const TextRows& names) {
  std::vector<std::string> flat;
  for (const auto& row : names) flat.push_back(row.front());
  return FindAllOwn(own, flat);
}

Key FindPrimaryKey(sqlite3* connection, const OwnColumns& own, const Column& sample) {
  const TextRows names =
      Ask(connection, "SELECT name FROM pragma_table_info(?1, ?2) WHERE pk > 0 ORDER BY pk",
          {sample.origin_table, sample.origin_database});
  return FindKey(own, names);
}

/// The columns of a unique index over columns that are never Null.
Key FindUniqueKey(sqlite3* connection, const OwnColumns& own, const Column& sample) {
  const TextRows indexes = Ask(
      connection,
      R"(SELECT name FROM pragma_index_list(?1, ?2) AS list WHERE "unique" AND NOT partial AND NOT EXISTS (
           SELECT 1 FROM pragma_index_info(list.name, ?2) AS part
           LEFT JOIN pragma_table_info(?1, ?2) AS source ON source.cid = part.cid
           WHERE source."notnull" IS NOT 1))",
      {sample.origin_table, sample.origin_database});
  for (const auto& index : indexes) {
    Key key = FindKey(own, Ask(connection, "SELECT name FROM pragma_index_info(?1, ?2) ORDER BY seqno",
                               {index.front(), sample.origin_database}));
    if (!key.empty()) return key;
  }
  return {};
}

}  // namespace

BaseTable FindBaseTable(sqlite3* connection, const Columns& columns, std::string_view text) {
  const Column& sample = FindSample(connection, columns, text);
  const OwnColumns own = ColumnsOf(columns, sample);
  BaseTable table;
  table.name = Quote(sample.origin_database) + "." + Quote(sample.origin_table);
  for (const std::string& name : own) table.columns.push_back(name.empty() ? "" : Quote(name));
  table.identity = FindOwn(own, RowNumberColumn(connection, sample.origin_database, sample.origin_table));
  if (table.identity) table.key = {*table.identity};
  if (table.key.empty()) table.key = FindPrimaryKey(connection, own, sample);
  if (table.key.empty()) table.key = FindUniqueKey(connection, own, sample);
  return table;
}

}  // namespace dralo::database::sqlite
