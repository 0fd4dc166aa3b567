#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database/base_table.h"
#include "database/column.h"

namespace dralo::database {

/// Says that the records of the query `text` cannot be changed. Throws platform::Error.
[[noreturn]] void RefuseChanges(std::string_view reason, std::string_view text);

/// A column of the one table that all columns of the result show which show any. Throws platform::Error when
/// they show columns of several tables, or none does.
const Column& ColumnOfOneTable(const Columns& columns, std::string_view text);

/// The same for a table that the query reads only once.
const Column& ColumnOfTableReadOnce(const Columns& columns, std::string_view text);

/// For each column of a result the column of the table that it shows, or "". A column that is shown twice is
/// written only once: by the first, because the other may come from a subquery on the same table.
using OwnColumns = std::vector<std::string>;

/// Adds `origin`, which may be "".
void AddOwn(OwnColumns& own, std::string_view origin);

/// Of columns that all show the same table, if they show one.
OwnColumns OwnColumnsOf(const Columns& columns);

/// The column of the result that shows the named one.
std::optional<std::size_t> FindOwn(const OwnColumns& own, std::string_view name);

/// The columns of the result that show the named ones; empty unless all of them are shown.
std::vector<std::size_t> FindAllOwn(const OwnColumns& own, const std::vector<std::string>& names);

/// The table of that quoted name. Its key is the first of `keys` whose columns are all shown; `quote` makes
/// names of columns.
BaseTable TableOf(std::string name, const Columns& columns, const OwnColumns& own,
                  const std::vector<std::vector<std::string>>& keys,
                  const std::function<std::string(std::string_view)>& quote);

}  // namespace dralo::database
