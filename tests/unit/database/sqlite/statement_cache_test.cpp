#include "database/sqlite/session.h"

#include "unit/database/sqlite/sqlite_file.h"
#include "unit/database/sqlite/trace.h"

namespace dralo::tests {

namespace {

using database::sqlite::StatementCache;

class SqliteStatementCache : public SqliteFile {
 protected:
  /// Runs a statement and returns how often its prepared statement has run by now.
  int RunsOf(const std::string& sql) {
    Rows(sql);
    return trace_.RunsOf(sql);
  }

  Trace trace_;
};

TEST_F(SqliteStatementCache, KeepsTheStatementsUsedLast) {
  EXPECT_EQ(RunsOf("SELECT 'first'"), 1);
  EXPECT_EQ(RunsOf("SELECT 'first'"), 2);
  for (std::size_t i = 1; i < StatementCache::kCapacity; ++i) Rows("SELECT " + std::to_string(i));
  EXPECT_EQ(RunsOf("SELECT 'first'"), 3);
  for (std::size_t i = 0; i < StatementCache::kCapacity; ++i) Rows("SELECT -" + std::to_string(i));
  EXPECT_EQ(RunsOf("SELECT 'first'"), 1);
}

TEST_F(SqliteStatementCache, KeepsNoLongStatement) {
  const std::string sql = "SELECT '" + std::string(StatementCache::kMaxTextBytes, 'x') + "'";
  EXPECT_EQ(RunsOf(sql), 1);
  EXPECT_EQ(RunsOf(sql), 1);
}

TEST_F(SqliteStatementCache, GivesAStatementInUseToNobodyElse) {
  const std::string sql = "SELECT 1 UNION SELECT 2";
  const auto outer = Read(Database(), sql);
  EXPECT_EQ(Line(*outer), "1");
  EXPECT_EQ(Rows(sql), (Lines{"1", "2"}));
  EXPECT_EQ(Rest(*outer), (Lines{"1", "2"}));
}

}  // namespace

}  // namespace dralo::tests
