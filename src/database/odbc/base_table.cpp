#include "database/odbc/base_table.h"

#include <algorithm>
#include <optional>
#include <string>

#include "database/odbc/catalog.h"
#include "database/odbc/quote.h"
#include "database/select_list.h"
#include "dralo/error.h"

namespace dralo::database::odbc {

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
  if (NamesTwice(text, sample->origin_table)) Refuse("the query reads the table more than once", text);
  return *sample;
}

/// For each column of the result the column of the table that it shows, or "". A column that is shown twice
/// is written only once.
Names OwnColumns(const Columns& columns) {
  Names own;
  for (const Column& column : columns) {
    const bool is_new = std::ranges::find(own, column.origin) == own.end();
    own.push_back(is_new ? column.origin : "");
  }
  return own;
}

std::optional<std::size_t> FindColumn(const Names& own, std::string_view name) {
  const auto found = std::ranges::find(own, name);
  if (name.empty() || found == own.end()) return std::nullopt;
  return static_cast<std::size_t>(found - own.begin());
}

/// The columns of the result that show the named ones; empty unless all of them are shown.
Key FindColumns(const Names& own, const Names& names) {
  Key key;
  for (const std::string& name : names) {
    const auto column = FindColumn(own, name);
    if (!column) return {};
    key.push_back(*column);
  }
  return key;
}

Key FindUniqueKey(const Link& link, const TableName& name, const Names& own) {
  const Names required = RequiredColumns(link, name);
  const auto is_required = [&](const std::string& column) {
    return std::ranges::find(required, column) != required.end();
  };
  for (const Names& index : UniqueIndexes(link, name)) {
    Key key = std::ranges::all_of(index, is_required) ? FindColumns(own, index) : Key{};
    if (!key.empty()) return key;
  }
  return {};
}

std::optional<std::size_t> FindIdentity(const Columns& columns, const Names& own) {
  const auto found = std::ranges::find_if(columns, &Column::is_numbered);
  if (found == columns.end()) return std::nullopt;
  return FindColumn(own, found->origin);
}

}  // namespace

BaseTable FindBaseTable(const Link& link, const Columns& columns, std::string_view text) {
  const Column& sample = FindSample(columns, text);
  const TableName name{sample.origin_database, sample.origin_table};
  const Names own = OwnColumns(columns);
  BaseTable table;
  if (!name.schema.empty()) table.name = Quote(name.schema, link.NameQuote()) + ".";
  table.name += Quote(name.table, link.NameQuote());
  for (const std::string& column : own) {
    table.columns.push_back(column.empty() ? "" : Quote(column, link.NameQuote()));
  }
  table.identity = FindIdentity(columns, own);
  table.key = FindColumns(own, PrimaryKey(link, name));
  if (table.key.empty()) table.key = FindUniqueKey(link, name, own);
  return table;
}

}  // namespace dralo::database::odbc
