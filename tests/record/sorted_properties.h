#pragma once

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "record/product.h"

namespace dralo::record {

/// The rows of a property table by their names, because its own order is not observable.
template <class Rows>
auto SortedByName(const Rows& rows) {
  std::vector<decltype(&rows[0])> sorted;
  for (const auto& row : rows) sorted.push_back(&row);
  std::ranges::sort(sorted, {}, [](const auto* row) { return row->name; });
  return sorted;
}

/// Left at their defaults, under which a page is what it was before they existed.
inline constexpr auto kUnusedProperties = std::to_array<std::string_view>({
    "DeleteSqlParameters",
    "EditDetectConflicts",
    "EditSqlParameters",
    "FormSqlParameters",
    "GridColsHtml",
    "Hardened",
    "RecordsOutsideSql",
    "SqlParameters",
});

inline const auto& SortedViewProperties() {
  static const auto sorted = [] {
    auto rows = SortedByName(ViewProperties());
    std::erase_if(rows, [](const auto* row) {
      return std::ranges::find(kUnusedProperties, row->name) != kUnusedProperties.end();
    });
    return rows;
  }();
  return sorted;
}

inline const auto& SortedIndexedProperties() {
  static const auto sorted = SortedByName(IndexedProperties());
  return sorted;
}

}  // namespace dralo::record
