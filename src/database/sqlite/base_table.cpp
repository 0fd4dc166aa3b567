#include "database/sqlite/base_table.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "database/sqlite/ask.h"
#include "database/sqlite/plan.h"
#include "database/sqlite/quote.h"
#include "database/sqlite/row_number.h"
#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::database::sqlite {

namespace {

using Key = std::vector<std::size_t>;
using Names = std::vector<std::string>;

[[noreturn]] void Refuse(std::string_view reason, std::string_view text) {
  throw platform::Error("The records cannot be changed: " + std::string(reason), 0, {}, std::string(text));
}

bool IsFromSameTable(const Column& a, const Column& b) {
  return a.origin_table == b.origin_table && a.origin_database == b.origin_database;
}

/// A column of the table that the rows come from. Subqueries among the fields may show other tables.
const Column& FindSample(sqlite3* connection, const Columns& columns, std::string_view text) {
  const auto has_origin = [](const Column& column) { return !column.origin.empty(); };
  const auto first = std::ranges::find_if(columns, has_origin);
  if (first == columns.end()) Refuse("no field shows a column of a table", text);
  const auto read = FindOneTable(connection, text);
  if (!read) Refuse("they are not records of one table", text);

  const auto is_read = [&](const Column& column) {
    return has_origin(column) && (*read + " ").starts_with(column.origin_table + " ");
  };
  const auto is_same = [&](const Column& column) {
    return !has_origin(column) || IsFromSameTable(column, *first);
  };
  if (std::ranges::all_of(columns, is_same)) return *first;
  const auto sample = std::ranges::find_if(columns, is_read);
  if (sample == columns.end()) Refuse("the query reads several tables", text);
  return *sample;
}

/// For each column of the result the column of the sample's table that it shows, or "". If it is shown twice,
/// only the first counts, because the other may come from a subquery on the same table.
Names OwnColumns(const Columns& columns, const Column& sample) {
  Names own;
  for (const Column& column : columns) {
    const bool is_own = IsFromSameTable(column, sample) && std::ranges::find(own, column.origin) == own.end();
    own.push_back(is_own ? column.origin : "");
  }
  return own;
}

std::optional<std::size_t> FindColumn(const Names& own, std::string_view name) {
  const auto found =
      std::ranges::find_if(own, [&](const auto& column) { return text::EqualAscii(column, name); });
  if (name.empty() || found == own.end()) return std::nullopt;
  return static_cast<std::size_t>(found - own.begin());
}

/// The columns of the result that show the named ones; empty unless all of them are shown.
Key FindColumns(const Names& own, const TextRows& names) {
  Key key;
  for (const Names& name : names) {
    const auto column = FindColumn(own, name.front());
    if (!column) return {};
    key.push_back(*column);
  }
  return key;
}

Key FindPrimaryKey(sqlite3* connection, const Names& own, const Column& sample) {
  const TextRows names =
      Ask(connection, "SELECT name FROM pragma_table_info(?1, ?2) WHERE pk > 0 ORDER BY pk",
          {sample.origin_table, sample.origin_database});
  return FindColumns(own, names);
}

/// The columns of a unique index over columns that are never Null.
Key FindUniqueKey(sqlite3* connection, const Names& own, const Column& sample) {
  const TextRows indexes = Ask(
      connection,
      R"(SELECT name FROM pragma_index_list(?1, ?2) AS list WHERE "unique" AND NOT partial AND NOT EXISTS (
           SELECT 1 FROM pragma_index_info(list.name, ?2) AS part
           LEFT JOIN pragma_table_info(?1, ?2) AS source ON source.cid = part.cid
           WHERE source."notnull" IS NOT 1))",
      {sample.origin_table, sample.origin_database});
  for (const Names& index : indexes) {
    Key key = FindColumns(own, Ask(connection, "SELECT name FROM pragma_index_info(?1, ?2) ORDER BY seqno",
                                   {index.front(), sample.origin_database}));
    if (!key.empty()) return key;
  }
  return {};
}

}  // namespace

BaseTable FindBaseTable(sqlite3* connection, const Columns& columns, std::string_view text) {
  const Column& sample = FindSample(connection, columns, text);
  const Names own = OwnColumns(columns, sample);
  BaseTable table;
  table.name = Quote(sample.origin_database) + "." + Quote(sample.origin_table);
  for (const std::string& name : own) table.columns.push_back(name.empty() ? "" : Quote(name));
  table.identity = FindColumn(own, RowNumberColumn(connection, sample.origin_database, sample.origin_table));
  if (table.identity) table.key = {*table.identity};
  if (table.key.empty()) table.key = FindPrimaryKey(connection, own, sample);
  if (table.key.empty()) table.key = FindUniqueKey(connection, own, sample);
  return table;
}

}  // namespace dralo::database::sqlite
