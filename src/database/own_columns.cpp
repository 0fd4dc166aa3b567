#include "database/own_columns.h"

#include <algorithm>

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

void AddOwn(OwnColumns& own, std::string_view origin) {
  const bool is_new = std::ranges::find(own, origin) == own.end();
  own.emplace_back(is_new ? origin : std::string_view());
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

}  // namespace dralo::database
