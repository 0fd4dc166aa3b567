#pragma once

#include <string>
#include <string_view>

namespace dralo::database::odbc {

/// The databases whose ways are known; all others get what the standard of ODBC promises.
enum class Dialect { kOther, kPostgreSql, kMariaDb, kSqlite, kSqlServer, kOracle };

/// By the name that a connected driver gives of its database.
Dialect DialectOf(std::string_view database_name);

/// By the file of the driver, before it is connected.
Dialect DialectOfLibrary(std::string_view library);

}  // namespace dralo::database::odbc
