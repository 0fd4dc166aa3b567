#include "database/postgresql/base_table.h"

#include <algorithm>
#include <optional>
#include <string>

#include "database/own_columns.h"
#include "database/postgresql/quote.h"
#include "database/select_list.h"

namespace dralo::database::postgresql {

namespace {

using Origins = std::vector<Description::Origin>;

/// The first column of the result that shows a column of a table; all others must show columns of the same
/// table.
std::size_t FindSample(const Columns& columns, const Origins& origins, std::string_view text) {
  std::optional<std::size_t> sample;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].origin.empty()) continue;
    if (!sample) sample = i;
    if (origins[i].table != origins[*sample].table) RefuseChanges("the query reads several tables", text);
  }
  if (!sample) RefuseChanges("no field shows a column of a table", text);
  if (NamesTwice(text, columns[*sample].origin_table)) {
    RefuseChanges("the query reads the table more than once", text);
  }
  return *sample;
}

std::optional<std::size_t> FindColumn(const Origins& origins, int number) {
  const auto found = std::ranges::find(origins, number, &Description::Origin::column);
  if (found == origins.end()) return std::nullopt;
  return static_cast<std::size_t>(found - origins.begin());
}

/// The columns of the first key that is completely among the columns of the result.
std::vector<std::size_t> FindKey(const Origins& origins, const std::vector<std::vector<int>>& keys) {
  for (const std::vector<int>& numbers : keys) {
    std::vector<std::size_t> key;
    for (const int number : numbers) {
      if (const auto column = FindColumn(origins, number)) key.push_back(*column);
    }
    if (key.size() == numbers.size()) return key;
  }
  return {};
}

}  // namespace

BaseTable FindBaseTable(Link& link, const Description& description, std::string_view text) {
  const Columns& columns = *description.columns;
  const Origins& origins = description.origins;
  const Column& sample = columns[FindSample(columns, origins, text)];
  BaseTable table;
  table.name = Quote(sample.origin_database) + "." + Quote(sample.origin_table);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    // A column that is shown twice is written only once.
    const bool is_own = !columns[i].origin.empty() && FindColumn(origins, origins[i].column) == i;
    table.columns.push_back(is_own ? Quote(columns[i].origin) : "");
    if (is_own && columns[i].is_numbered && !table.identity) table.identity = i;
  }
  const Oid number = origins[FindSample(columns, origins, text)].table;
  table.key = FindKey(origins, KeysOf(link, number));
  return table;
}

}  // namespace dralo::database::postgresql
