#pragma once

#include <sqlite3.h>

#include "database/sqlite/options.h"

namespace dralo::database::sqlite {

/// Lets the connection read the beginning of the file as memory, without a copy and a call of the system for
/// every page. Not done where the file lies on another machine: what fails there would kill the process.
void MapFile(sqlite3* connection, const Options& options);

}  // namespace dralo::database::sqlite
