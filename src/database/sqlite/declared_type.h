#pragma once

#include <string_view>

#include "database/column.h"

namespace dralo::database::sqlite {

/// Sets the type of `column` from a declared type such as "VARCHAR(40)", in any letter case. A type that is
/// not listed goes by what it contains, as SQLite itself does; one that says nothing, or none, leaves the
/// column without a declared type.
void SetDeclaredType(Column& column, std::string_view declared);

}  // namespace dralo::database::sqlite
