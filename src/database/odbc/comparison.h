#pragma once

#include <string>
#include <string_view>

#include "database/column.h"
#include "database/odbc/dialect.h"

namespace dralo::database::odbc {

/// `pattern` with `text` for every `sign`.
std::string Filled(std::string_view pattern, char sign, std::string_view text);

/// What the dialect says about a type; a rule with nothing in it when it says nothing.
TypeRule RuleOf(const Dialect& dialect, platform::TypeCode type);

/// The condition that a column still has the value that it was read with: exactly that of a parameter "?",
/// or, with `was_null`, one that is read as Null.
std::string Unchanged(const Dialect& dialect, const Column& column, std::string_view quoted_column,
                      bool was_null);

}  // namespace dralo::database::odbc
