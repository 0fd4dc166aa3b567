#pragma once

#include <sqlite3.h>

#include <span>

#include "dralo/variant.h"

namespace dralo::database::sqlite {

/// Binds `values` to the parameters 1, 2, ... of a statement. They must stay unchanged while it runs.
/// Booleans are bound as 1 and 0, dates as ISO text (without the time at midnight, without the date on the
/// zero date), decimals as numbers if SQLite has exactly that number, else as text. Returns SQLite's result
/// code.
int Bind(sqlite3_stmt* statement, std::span<const platform::Variant> values);

}  // namespace dralo::database::sqlite
