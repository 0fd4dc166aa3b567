#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "unit/database/sqlite/sqlite_file.h"

namespace dralo::tests {

namespace {

class SqliteOpen : public SqliteFile {
 protected:
  static std::string OpenError(const std::string& connection_string) {
    return MessageOf([&] { Connect(connection_string); });
  }
};

TEST_F(SqliteOpen, NeverCreatesAMissingFileSilently) {
  const std::string message = OpenError("Provider=SQLite;Data Source=" + Path());

  EXPECT_EQ(message, "The database file " + Path() +
                         " does not exist or cannot be reached; Mode=ReadWriteCreate makes a new one");
  EXPECT_FALSE(std::filesystem::exists(Path()));
  EXPECT_THROW(Connect("Provider=SQLite;Mode=Read;Data Source=" + Path()), platform::Error);
}

TEST_F(SqliteOpen, CreatesTheFileWhenAsked) {
  Connect("provider = sqlite ; mode = readwritecreate ; data source = '" + Path() + "'")
      ->Execute("CREATE TABLE t (a)");
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM t"), Lines{"0"});
}

TEST_F(SqliteOpen, WritesNothingInReadMode) {
  Run("CREATE TABLE t (a)");
  const auto reader = Connect("Provider=SQLite;Mode=Read;Data Source=" + Path());

  EXPECT_EQ(tests::Rows(reader, "SELECT COUNT(*) FROM t"), Lines{"0"});
  EXPECT_EQ(MessageOf([&] { reader->Execute("INSERT INTO t VALUES (1)"); }),
            "attempt to write a readonly database");
}

TEST_F(SqliteOpen, MakesADatabaseOfItsOwnForEachConnectionToMemory) {
  const auto one = Connect("Provider=SQLite;Data Source=:memory:");
  const auto other = Connect("Provider=SQLite;Data Source=:memory:");
  one->Execute("CREATE TABLE t (a)");
  EXPECT_THROW(other->Execute("SELECT * FROM t"), platform::Error);

  one->Close();
  one->Open("Provider=SQLite;Data Source=:memory:");
  EXPECT_THROW(one->Execute("SELECT * FROM t"), platform::Error);
}

TEST_F(SqliteOpen, SaysWhatToWriteInAConnectionString) {
  EXPECT_EQ(OpenError(""),
            "The connection string names no provider; write Provider=SQLite;Data Source=FILE, or Driver=NAME "
            "for another database");
  EXPECT_EQ(OpenError("Data Source=x.db"),
            "The connection string names no provider; write Provider=SQLite;Data Source=FILE, or Driver=NAME "
            "for another database");
  EXPECT_EQ(OpenError("Provider=Other;Password=hush"),
            "The connection string names an unknown provider; write Provider=SQLite;Data Source=FILE");
  EXPECT_EQ(OpenError("Provider=SQLite"),
            "The connection string has no Data Source; write Provider=SQLite;Data Source=FILE");
  EXPECT_EQ(
      OpenError("Provider=SQLite;Data Source=x;Mode=Share Deny None"),
      "The connection string has an unknown Mode; write Mode=Read, Mode=ReadWrite or Mode=ReadWriteCreate");
  EXPECT_EQ(
      OpenError("Provider=SQLite;Data Source=x;Memory Map=all"),
      "The Memory Map in the connection string is no number of megabytes up to 65536; write Memory Map=256");
  EXPECT_EQ(
      OpenError("Provider=SQLite;Data Source=x;Busy Timeout=soon"),
      "The Busy Timeout in the connection string is no number of milliseconds; write Busy Timeout=5000");
  EXPECT_EQ(
      OpenError("Provider=SQLite;Data Source=x;Busy Timeout=-1"),
      "The Busy Timeout in the connection string is no number of milliseconds; write Busy Timeout=5000");
}

TEST_F(SqliteOpen, ReportsAFileThatIsNoDatabase) {
  std::ofstream(Path())
      << "This is a letter to my aunt, which is long enough to be read as a header of a database.";
  const auto error = ErrorOf([&] { Rows("SELECT * FROM t"); });

  EXPECT_EQ(error.Description(), "file is not a database");
  EXPECT_EQ(error.Number(), 26);
  EXPECT_EQ(error.Source(), "SELECT * FROM t");
}

TEST_F(SqliteOpen, ReportsADamagedFile) {
  Run("CREATE TABLE t (a)");
  Run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) INSERT INTO t SELECT i "
      "FROM n");
  Database()->Close();
  database::CloseIdleConnections();
  std::fstream file(Path(), std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(4096);
  file << std::string(4096, '\x7F');
  file.close();

  const auto error = ErrorOf([&] { tests::Rows(Connect(ConnectionString()), "SELECT SUM(a) FROM t"); });
  EXPECT_EQ(error.Description(), "database disk image is malformed");
  EXPECT_EQ(error.Number() & 0xFF, 11);
}

TEST_F(SqliteOpen, ReportsADirectory) {
  std::filesystem::create_directory(Path());
  EXPECT_NE(OpenError(ConnectionString()).find("cannot be opened"), std::string::npos);
}

TEST_F(SqliteOpen, DoesNotReadAPathAsAnAddress) {
  EXPECT_THROW(Connect("Provider=SQLite;Data Source=file:memory?mode=memory"), platform::Error);
}

TEST_F(SqliteOpen, FollowsALinkBeforeItGoesUp) {
  const std::string folder = std::filesystem::path(Path()).parent_path();
  std::filesystem::create_directories(folder + "/releases/one");
  std::filesystem::create_directory_symlink(folder + "/releases/one", folder + "/current");
  Connect("Provider=SQLite;Mode=ReadWriteCreate;Data Source=" + folder + "/current/../shop.db")
      ->Execute("CREATE TABLE t (a)");
  EXPECT_TRUE(std::filesystem::exists(folder + "/releases/shop.db"));
}

TEST_F(SqliteOpen, FindsARelativePathInTheCurrentFolder) {
  const auto here = std::filesystem::current_path();
  std::filesystem::current_path(std::filesystem::path(Path()).parent_path());
  Run("CREATE TABLE t (a)");
  const auto connection = Connect("Provider=SQLite;Data Source=test.db");
  std::filesystem::current_path(here);
  EXPECT_EQ(tests::Rows(connection, "SELECT COUNT(*) FROM t"), Lines{"0"});
  connection->Close();
  EXPECT_THROW(Connect("Provider=SQLite;Data Source=test.db"), platform::Error);
}

TEST_F(SqliteOpen, GivesUpOnALockedDatabaseAfterTheTimeout) {
  Run("CREATE TABLE t (a)");
  Run("BEGIN EXCLUSIVE");
  const auto other = Connect(ConnectionString("Busy Timeout=1"));

  const auto error = ErrorOf([&] { tests::Rows(other, "SELECT * FROM t"); });
  EXPECT_EQ(error.Description(), "database is locked");
  EXPECT_EQ(error.Number(), 5);
  Run("ROLLBACK");
  EXPECT_EQ(tests::Rows(other, "SELECT * FROM t"), Lines{});
}

}  // namespace

}  // namespace dralo::tests
