#pragma once

#include <string_view>

#include "platform/bound_statement.h"
#include "settings/statement_parameters.h"

namespace dralo::editing {

/// The alias of a statement as a table to select from.
inline constexpr std::string_view kDerivedTable = "DRTEMPTABLE";

/// The statement as a table to select from, with its alias: "(...) DRTEMPTABLE". What may not stand in the
/// brackets is left out: a ";" at the end, and an order at the end unless a limit depends on it. `parameters`
/// are those of the whole statement; the values of what was left out are left out too.
platform::BoundStatement DerivedTable(std::string_view sql, settings::Parameters parameters);

}  // namespace dralo::editing
