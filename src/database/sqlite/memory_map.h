#pragma once

#include <sqlite3.h>

#include "database/sqlite/options.h"

namespace dralo::database::sqlite {

/// Lets the connection read the beginning of the file as memory, without a copy and a system call for every
/// page. Not done when the file is on another machine, because a failure there would kill the process.
void MapFile(sqlite3* connection, const Options& options);

}  // namespace dralo::database::sqlite
