#pragma once

#include <string>
#include <string_view>

#include "database/session.h"
#include "platform/command.h"

namespace dralo::database {

/// The statement that reads a whole table.
std::string SelectAll(const Session& session, std::string_view table);

/// The statement that a recordset's source stands for: the table when `source` is a bare table name
/// ("Orders", "main.Orders"), else `source` itself.
std::string StatementOf(const Session& session, std::string_view source);

/// The statement that a command stands for by its type.
std::string StatementOf(const Session& session, const platform::Command& command);

}  // namespace dralo::database
