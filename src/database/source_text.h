#pragma once

#include <string>
#include <string_view>

#include "database/session.h"
#include "dralo/command.h"

namespace dralo::database {

/// The statement that reads a whole table.
std::string SelectAll(const Session& session, std::string_view table);

/// Options of a source: a statement or a bare table name, or a statement whatever it looks like.
inline constexpr int kStatementOrTable = -1;
inline constexpr int kStatement = 1;

/// Throws platform::Error unless the options are one of these.
void RequireKnown(int options);

/// The statement that a recordset's source stands for: the one that reads the table when `source` is a bare
/// table name ("Orders", "main.Orders") and the options allow one, else `source` itself. Throws
/// platform::Error when the options are unknown.
std::string StatementOf(const Session& session, std::string_view source, int options = kStatementOrTable);

/// The statement that a command stands for by its type.
std::string StatementOf(const Session& session, const platform::Command& command);

}  // namespace dralo::database
