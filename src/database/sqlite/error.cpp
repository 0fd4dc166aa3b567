#include "database/sqlite/error.h"

#include <string>

#include "dralo/error.h"

namespace dralo::database::sqlite {

void ThrowError(sqlite3* connection, std::string_view statement) {
  throw platform::Error(sqlite3_errmsg(connection), sqlite3_extended_errcode(connection), {},
                        std::string(statement));
}

}  // namespace dralo::database::sqlite
