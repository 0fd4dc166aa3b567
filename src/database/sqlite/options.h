#pragma once

#include <string>
#include <string_view>

#include "database/connection_string.h"

namespace dralo::database::sqlite {

inline constexpr std::string_view kInMemory = ":memory:";
inline constexpr int kDefaultBusyTimeoutMs = 5000;

/// What a connection string says about an SQLite database.
struct Options {
  std::string data_source;  ///< As the author wrote it.
  std::string path;         ///< Absolute, or kInMemory.
  int flags = 0;            ///< SQLITE_OPEN_READONLY and the like.
  int busy_timeout_ms = kDefaultBusyTimeoutMs;
  int query_timeout_s = kDefaultQueryTimeoutS;  ///< 0 for none.
  int memory_map_mb = 0;                        ///< How many megabytes of the file are read as memory.
};

/// Throws platform::Error, which says what to write, when the connection string is not understood.
Options ReadOptions(const ConnectionString& connection_string);

}  // namespace dralo::database::sqlite
