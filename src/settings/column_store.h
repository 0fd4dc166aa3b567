#pragma once

#include <string>
#include <vector>

namespace dralo::settings {

/// Settings of single columns, such as their templates: a list of column numbers and, for its k-th item (from
/// 1), the number again in values[2k-2] and the setting in values[2k-1].
struct ColumnStore {
  std::string index_list;  ///< Column numbers in decimal joined by ","; empty when no column has a setting.
  std::vector<std::string> values;
};

}  // namespace dralo::settings
