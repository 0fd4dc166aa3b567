#include "database_watch.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>

#include "support/temporary_database.h"

namespace serve {
namespace {

using dralo::tests::TemporaryDatabase;

Options Naming(const std::string& database) {
  Options options;
  options.database = database;
  return options;
}

class DatabaseWatchTest : public testing::Test {
 protected:
  /// Whether a page that was begun after the look `before` shows what is there now.
  bool IsUnchangedSince(const std::optional<Sighting>& before) {
    const auto now = watch_.Look();
    return before && now && now->unchanged_since <= before->told_at;
  }

  dralo::Environment environment_;
  const TemporaryDatabase database_{"CREATE TABLE T (A)"};
  DatabaseWatch watch_{environment_, Naming(database_.Path())};
};

TEST_F(DatabaseWatchTest, TellsThatNothingHasChanged) {
  const auto before = watch_.Look();
  EXPECT_TRUE(IsUnchangedSince(before));
  EXPECT_TRUE(IsUnchangedSince(before));
}

TEST_F(DatabaseWatchTest, TellsEachChange) {
  for (const std::string journal : {"DELETE", "PERSIST", "WAL"}) {
    database_.Run("PRAGMA journal_mode = " + journal);
    for (int i = 0; i < 5; ++i) {
      const auto before = watch_.Look();
      EXPECT_TRUE(IsUnchangedSince(before));
      database_.Run("INSERT INTO T VALUES (1)");
      EXPECT_FALSE(IsUnchangedSince(before));
      EXPECT_FALSE(IsUnchangedSince(before));
    }
  }
}

TEST_F(DatabaseWatchTest, TellsThatAnotherFileIsThere) {
  const auto before = watch_.Look();
  const std::string other = database_.Path() + ".other";
  std::filesystem::copy_file(database_.Path(), other);
  std::filesystem::rename(other, database_.Path());
  EXPECT_FALSE(IsUnchangedSince(before));
  const auto after = watch_.Look();
  EXPECT_TRUE(IsUnchangedSince(after));
}

TEST_F(DatabaseWatchTest, TellsNothingWhileTheFileIsAway) {
  const std::string away = database_.Path() + ".away";
  const auto before = watch_.Look();
  std::filesystem::rename(database_.Path(), away);
  EXPECT_EQ(watch_.Look(), std::nullopt);
  std::filesystem::rename(away, database_.Path());
  EXPECT_NE(watch_.Look(), std::nullopt);
  EXPECT_FALSE(IsUnchangedSince(before));
}

TEST_F(DatabaseWatchTest, TellsNothingWhileTheDatabaseIsLocked) {
  const auto before = watch_.Look();
  sqlite3* writer = nullptr;
  ASSERT_EQ(sqlite3_open(database_.Path().c_str(), &writer), SQLITE_OK);
  sqlite3_exec(writer, "BEGIN EXCLUSIVE; INSERT INTO T VALUES (1)", nullptr, nullptr, nullptr);
  EXPECT_EQ(watch_.Look(), std::nullopt);
  sqlite3_exec(writer, "COMMIT", nullptr, nullptr, nullptr);
  EXPECT_FALSE(IsUnchangedSince(before));
  sqlite3_close(writer);
}

TEST_F(DatabaseWatchTest, LeavesNoLockBehind) {
  for (const std::string journal : {"DELETE", "WAL"}) {
    database_.Run("PRAGMA journal_mode = " + journal);
    ASSERT_NE(watch_.Look(), std::nullopt);
    EXPECT_EQ(database_.Value("PRAGMA wal_checkpoint(TRUNCATE)"), "0");
    database_.Run("BEGIN EXCLUSIVE; DROP TABLE T; CREATE TABLE T (A); COMMIT");
  }
}

TEST_F(DatabaseWatchTest, TellsNothingOfADatabaseThatIsNoFile) {
  DatabaseWatch watch(environment_, Naming(database_.ConnectionString()));
  EXPECT_EQ(watch.Look(), std::nullopt);
}

}  // namespace
}  // namespace serve
