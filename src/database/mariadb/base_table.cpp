#include "database/mariadb/base_table.h"

#include <algorithm>

#include "database/mariadb/catalog.h"
#include "database/mariadb/quote.h"
#include "database/mariadb/select_shape.h"
#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::database::mariadb {

namespace {

using Key = std::vector<std::size_t>;

[[noreturn]] void Refuse(std::string_view reason, std::string_view text) {
  throw platform::Error("The records cannot be changed: " + std::string(reason), 0, {}, std::string(text));
}

const Column& FindSample(const Columns& columns, std::string_view text) {
  const Column* sample = nullptr;
  for (const Column& column : columns) {
    if (column.origin.empty()) continue;
    if (!sample) sample = &column;
    if (column.origin_table != sample->origin_table || column.origin_database != sample->origin_database) {
      Refuse("the query reads several tables", text);
    }
  }
  if (!sample) Refuse("no field shows a column of a table", text);
  return *sample;
}

/// Requires that the query names the table once, and nothing else by the table's name.
void RequireNamedOnce(const Column& sample, std::string_view text) {
  const SelectShape shape = ShapeOf(text);
  const auto is_sample = [&](const NamedTable& named) {
    return text::EqualAscii(named.table, sample.origin_table) &&
           (named.database.empty() || text::EqualAscii(named.database, sample.origin_database));
  };
  const auto count = std::ranges::count_if(shape.tables, is_sample);
  if (count > 1) Refuse("the query reads the table more than once", text);
  if (count == 0) Refuse("no field shows a column of a table", text);
}

/// For each column of the result the column of the table that it shows, or "". A column that is shown twice
/// is written only once.
Names OwnColumns(const Columns& columns, const TableFacts& facts) {
  Names own;
  for (const Column& column : columns) {
    const bool is_new = std::ranges::find(own, column.origin) == own.end();
    const bool is_known = std::ranges::find(facts.columns, column.origin) != facts.columns.end();
    own.push_back(is_new && is_known ? column.origin : "");
  }
  return own;
}

/// The columns of the result that show the named ones; empty unless all of them are shown.
Key FindColumns(const Names& own, const Names& names) {
  Key key;
  for (const std::string& name : names) {
    const auto found = std::ranges::find(own, name);
    if (found == own.end()) return {};
    key.push_back(static_cast<std::size_t>(found - own.begin()));
  }
  return key;
}

}  // namespace

BaseTable FindBaseTable(Session& session, const Columns& columns, std::string_view text) {
  const Column& sample = FindSample(columns, text);
  RequireNamedOnce(sample, text);
  const TableFacts facts = FactsOf(session, sample.origin_database, sample.origin_table);
  const Names own = OwnColumns(columns, facts);
  BaseTable table;
  table.name = Quote(sample.origin_database) + "." + Quote(sample.origin_table);
  for (std::size_t i = 0; i < own.size(); ++i) {
    table.columns.push_back(own[i].empty() ? "" : Quote(own[i]));
    if (!own[i].empty() && columns[i].is_numbered) table.identity = i;
  }
  for (const Names& key : facts.keys) {
    if (table.key.empty()) table.key = FindColumns(own, key);
  }
  return table;
}

}  // namespace dralo::database::mariadb
