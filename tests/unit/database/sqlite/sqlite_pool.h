#pragma once

#include <filesystem>

#include "unit/database/sqlite/sqlite_file.h"

namespace dralo::tests {

using database::SessionPool;

class SqlitePool : public SqliteFile {
 protected:
  ~SqlitePool() override { SessionPool::Instance().SetLimits({}); }

  static std::size_t InUse() { return SessionPool::Instance().Count().in_use; }
  static std::size_t Idle() { return SessionPool::Instance().Count().idle; }

  /// Marks the session that `connection` uses so that it can be recognised.
  static void Mark(const ConnectionPtr& connection) {
    connection->Execute("CREATE TABLE IF NOT EXISTS marks (a)");
    connection->Execute("INSERT INTO marks VALUES (1)");
  }

  /// total_changes() belongs to the session.
  static bool IsMarked(const ConnectionPtr& connection) {
    return tests::Rows(connection, "SELECT total_changes() > 0") == Lines{"1"};
  }

  /// How often this process has the database file open.
  std::ptrdiff_t OpenFiles() const {
    std::error_code ignored;
    std::ptrdiff_t count = 0;
    for (const auto& file : std::filesystem::directory_iterator("/proc/self/fd")) {
      count += std::filesystem::read_symlink(file.path(), ignored) == Path();
    }
    return count;
  }
};

}  // namespace dralo::tests
