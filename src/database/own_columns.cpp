#include "database/own_columns.h"

#include <algorithm>
#include <utility>

#include "database/select_list.h"
#include "dralo/error.h"

namespace dralo::database {

void RefuseChanges(std::string_view reason, std::string_view text) {
  throw platform::Error("The records cannot be changed: " + std::string(reason), 0, {}, std::string(text));
}

const Column& ColumnOfOneTable(const Columns& columns, std::string_view text) {
  const Column* sample = nullptr;
  for (const Column& column : columns) {
    if (column.origin.empty()) continue;
    if (!sample) sample = &column;
    if (column.origin_table != sample->origin_table || column.origin_database != sample->origin_database) {
      RefuseChanges("the query reads several tables", text);
    }
  }
  if (!sample) RefuseChanges("no field shows a column of a table", text);
  return *sample;
}

const Column& ColumnOfTableReadOnce(const Columns& columns, std::string_view text) {
  const Column& sample = ColumnOfOneTable(columns, text);
  if (NamesTwice(text, sample.origin_table)) RefuseChanges("the query reads the table more than once", text);
  return sample;
}

void AddOwn(OwnColumns& own, std::string_view origin) {
  const bool is_new = std::ranges::find(own, origin) == own.end();
  own.emplace_back(is_new ? origin : std::string_view());
}

OwnColumns OwnColumnsOf(const Columns& columns) {
  OwnColumns own;
  for (const Column& column : columns) AddOwn(own, column.origin);
  return own;
}

std::optional<std::size_t> FindOwn(const OwnColumns& own, std::string_view name) {
  const auto found = std::ranges::find(own, name);
  if (name.empty() || found == own.end()) return std::nullopt;
  return static_cast<std::size_t>(found - own.begin());
}

std::vector<std::size_t> FindAllOwn(const OwnColumns& own, const std::vector<std::string>& names) {
  std::vector<std::size_t> columns;
  for (const std::string& name : names) {
    const auto column = FindOwn(own, name);
    if (!column) return {};
    columns.push_back(*column);
  }
  return columns;
}

BaseTable TableOf(std::string name, const Columns& columns, const OwnColumns& own,
                  const std::vector<std::vector<std::string>>& keys,
                  const std::function<std::string(std::string_view)>& quote) {
  BaseTable table;
  table.name = std::move(name);
  for (std::size_t i = 0; i < own.size(); ++i) {
    table.columns.push_back(own[i].empty() ? "" : quote(own[i]));
    if (!own[i].empty() && columns[i].is_numbered && !table.identity) table.identity = i;
  }
  for (const std::vector<std::string>& key : keys) {
    if (table.key.empty()) table.key = FindAllOwn(own, key);
  }
  return table;
}

}  // namespace dralo::database
