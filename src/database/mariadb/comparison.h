#pragma once

#include <string>

#include "database/column.h"

namespace dralo::database::mariadb {

/// The condition that a column has exactly the value of a parameter "?", and not one that only sorts or
/// counts as equal.
std::string SameValue(const Column& column, const std::string& quoted_column);

/// The condition that a column has a value that is read as Null.
std::string NoValue(const Column& column, const std::string& quoted_column);

}  // namespace dralo::database::mariadb
