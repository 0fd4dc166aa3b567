#pragma once

#include <algorithm>
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

inline const auto& SortedViewProperties() {
  static const auto sorted = SortedByName(ViewProperties());
  return sorted;
}

inline const auto& SortedIndexedProperties() {
  static const auto sorted = SortedByName(IndexedProperties());
  return sorted;
}

}  // namespace dralo::record
