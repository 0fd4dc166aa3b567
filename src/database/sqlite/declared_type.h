#pragma once

#include <string_view>

#include "database/column.h"

namespace dralo::database::sqlite {

/// Sets the type of `column` from a declared type such as "VARCHAR(40)", in any letter case. A type that is
/// not listed is classified by the words in it, as SQLite itself does. If there is none, or it has no such
/// word, the column stays without a declared type.
void SetDeclaredType(Column& column, std::string_view declared);

}  // namespace dralo::database::sqlite
