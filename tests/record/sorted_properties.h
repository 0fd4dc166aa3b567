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
    "EditInsertToken",
    "EditRules",
    "EditSqlParameters",
    "ErrorDetail",
    "FormSqlParameters",
    "GridColsHtml",
    "Hardened",
    "Locale",
    "OnDelete",
    "OnSave",
    "OnSaved",
    "RecordsOutsideSql",
    "SqlParameters",
    "TokenCallback",
});

template <class Rows>
auto UsedByName(const Rows& rows) {
  auto used = SortedByName(rows);
  std::erase_if(used, [](const auto* row) {
    return std::ranges::find(kUnusedProperties, row->name) != kUnusedProperties.end();
  });
  return used;
}

inline const auto& SortedViewProperties() {
  static const auto sorted = UsedByName(ViewProperties());
  return sorted;
}

inline const auto& SortedIndexedProperties() {
  static const auto sorted = UsedByName(IndexedProperties());
  return sorted;
}

}  // namespace dralo::record
