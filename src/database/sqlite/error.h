#pragma once

#include <sqlite3.h>

#include <string_view>

namespace dralo::database::sqlite {

/// Throws platform::Error with what SQLite says about the last failure on `connection`; `statement` is its
/// source.
[[noreturn]] void ThrowError(sqlite3* connection, std::string_view statement);

}  // namespace dralo::database::sqlite
