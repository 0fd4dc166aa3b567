#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {

/// Rows alone: no header, no row numbers.
inline Rendering RowsOnly() {
  Rendering view;
  view.settings.DisplayHeader = false;
  view.settings.GridDisplayIndex = false;
  return view;
}

/// A table T with one column of `type` and one row for each value.
inline Records Column(std::string_view type, std::initializer_list<std::string_view> values) {
  std::string statements = "CREATE TABLE T (V ";
  statements.append(type).append(")");
  for (const std::string_view value : values) {
    statements.append("; INSERT INTO T VALUES (").append(value).append(")");
  }
  return Records(statements);
}

inline int CountOf(std::string_view part, std::string_view text) {
  int count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

}  // namespace dralo::tests
