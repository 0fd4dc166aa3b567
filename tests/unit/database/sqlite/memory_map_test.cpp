#include "unit/database/sqlite/sqlite_file.h"

namespace dralo::tests {

namespace {

using SqliteMemoryMap = SqliteFile;

TEST_F(SqliteMemoryMap, IsThatOfTheConnectionString) {
  for (const auto& [text, bytes] : {std::pair{"", "0"}, {"Memory Map=0", "0"}, {"Memory Map=16", "16000000"}})
    EXPECT_EQ(tests::Rows(Connect(ConnectionString(text)), "PRAGMA mmap_size"), Lines{bytes}) << text;
}

TEST_F(SqliteMemoryMap, DoesNotKeepAConnectionFromBeingKept) {
  Connect(ConnectionString("Memory Map=16"));
  EXPECT_EQ(database::SessionPool::Instance().Count().idle, 1U);
}

TEST_F(SqliteMemoryMap, FollowsAFileThatGrowsAndShrinks) {
  const auto reader = Connect(ConnectionString("Memory Map=16"));
  const auto count = [&] { return tests::Rows(reader, "SELECT COUNT(*), SUM(LENGTH(x)) FROM t"); };
  Run("CREATE TABLE t (x)");
  EXPECT_EQ(count(), Lines{"0 null"});
  Run("INSERT INTO t WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 999) "
      "SELECT hex(zeroblob(500)) FROM n");
  EXPECT_EQ(count(), Lines{"999 999000"});
  Run("DELETE FROM t");
  Run("VACUUM");
  EXPECT_EQ(count(), Lines{"0 null"});
}

}  // namespace
}  // namespace dralo::tests
