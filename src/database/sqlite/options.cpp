#include "database/sqlite/options.h"

#include <sqlite3.h>

#include <filesystem>
#include <limits>

#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::database::sqlite {

namespace {

using platform::Error;

int ReadMode(std::string_view mode) {
  if (text::EqualAscii(mode, "ReadWrite")) return SQLITE_OPEN_READWRITE;
  if (text::EqualAscii(mode, "Read")) return SQLITE_OPEN_READONLY;
  if (text::EqualAscii(mode, "ReadWriteCreate")) return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  throw Error(
      "The connection string has an unknown Mode; write Mode=Read, Mode=ReadWrite or Mode=ReadWriteCreate");
}

std::string AbsolutePath(const std::string& path) {
  if (path.front() == '/') return path;
  std::error_code error;
  std::string absolute = std::filesystem::current_path(error).native();
  if (error) throw Error("The current folder, which the Data Source is relative to, cannot be found");
  if (!absolute.ends_with('/')) absolute += '/';
  return absolute += path;
}

}  // namespace

Options ReadOptions(const ConnectionString& connection_string) {
  Options options;
  options.data_source = connection_string.Find("Data Source").value_or("");
  if (options.data_source.empty()) {
    throw Error("The connection string has no Data Source; write Provider=SQLite;Data Source=FILE");
  }
  if (options.data_source.find('\0') != std::string::npos) {
    throw Error("The Data Source in the connection string has a zero byte");
  }
  options.path = options.data_source;
  if (options.path != kInMemory) options.path = AbsolutePath(options.path);
  options.flags = ReadMode(connection_string.Find("Mode").value_or("ReadWrite"));
  constexpr int kAnyNumber = std::numeric_limits<int>::max();
  options.busy_timeout_ms =
      connection_string.Number("Busy Timeout", "milliseconds", kAnyNumber, kDefaultBusyTimeoutMs)
          .value_or(kDefaultBusyTimeoutMs);
  options.memory_map_mb =
      connection_string.Number("Memory Map", "megabytes up to 65536", 65'536, 256).value_or(0);
  options.query_timeout_s = connection_string.Seconds("Query Timeout", kDefaultQueryTimeoutS);
  return options;
}

}  // namespace dralo::database::sqlite
