#include "data/commands.h"
#include "unit/database/sqlite/sqlite_file.h"

namespace dralo::tests {

namespace {

class SqliteStatement : public SqliteFile {
 protected:
  SqliteStatement() {
    Run("CREATE TABLE t (a INTEGER, b TEXT)");
    Run("INSERT INTO t VALUES (1, 'x'), (2, 'y')");
  }

  platform::Error OpenError(const std::string& sql) {
    return ErrorOf([&] { Read(Database(), sql); });
  }
};

TEST_F(SqliteStatement, MayEndInSemicolonsBlanksAndComments) {
  for (const char* end :
       {";", " ; ", ";;", "; -- done", "; /* done */ ; ", " -- done", " /* done", "\n--\n;\n", "; /* open"}) {
    EXPECT_EQ(Rows(std::string("SELECT a FROM t ORDER BY a") + end), (Lines{"1", "2"})) << end;
  }
}

TEST_F(SqliteStatement, IsTheOnlyOneOfItsText) {
  for (const char* second :
       {"DELETE FROM t", "x", "; SELECT 2", "/* */ DELETE FROM t", "-- c\nDELETE FROM t"}) {
    const auto error = OpenError(std::string("SELECT a FROM t; ") + second);
    EXPECT_STREQ(error.what(), "The text has more than one statement; run them one by one");
  }
  EXPECT_THROW(Run("INSERT INTO t VALUES (3, 'z'); DROP TABLE t"), platform::Error);
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM t"), Lines{"2"});
}

TEST_F(SqliteStatement, IsNotEmpty) {
  for (const char* text : {"", "  ", ";", "-- nothing", "/* nothing */"}) {
    EXPECT_STREQ(OpenError(text).what(), "The statement is empty") << text;
  }
}

TEST_F(SqliteStatement, HasNoZeroByte) {
  EXPECT_STREQ(OpenError(std::string("SELECT a\0 FROM t", 16)).what(),
               "The statement has a zero byte in its text");
}

TEST_F(SqliteStatement, FailsWithTheMessageOfSqlite) {
  const auto error = OpenError("SELECT missing FROM t");
  EXPECT_STREQ(error.what(), "no such column: missing");
  EXPECT_EQ(error.Number(), 1);
  EXPECT_EQ(error.SqlState(), "");
  EXPECT_EQ(error.Source(), "SELECT missing FROM t");
}

TEST_F(SqliteStatement, FailsWithTheExtendedCode) {
  Run("CREATE TABLE k (id INTEGER PRIMARY KEY, n TEXT NOT NULL)");
  EXPECT_EQ(ErrorOf([&] { Run("INSERT INTO k VALUES (1, NULL)"); }).Number(), 1299);
  Run("INSERT INTO k VALUES (1, 'a')");
  EXPECT_EQ(ErrorOf([&] { Run("INSERT INTO k VALUES (1, 'b')"); }).Number(), 1555);
}

TEST_F(SqliteStatement, ReportsAFailureInTheMiddleOfTheRows) {
  Run("INSERT INTO t VALUES (-9223372036854775807 - 1, 'z')");
  for (const std::int64_t limit : {0, 10}) {
    const auto recordset = Read(Database(), "SELECT abs(a) FROM t", limit);
    recordset->MoveNext();
    const auto error = ErrorOf([&] { recordset->MoveNext(); });
    EXPECT_STREQ(error.what(), "integer overflow");
    EXPECT_EQ(error.Source(), "SELECT abs(a) FROM t");
    EXPECT_TRUE(recordset->Eof());
  }
}

TEST_F(SqliteStatement, ReadsAQualifiedOrOddTableName) {
  Run("CREATE TABLE \"odd \"\" name\" (a)");
  Run("CREATE TABLE \"group\" (a)");
  EXPECT_EQ(Rest(*Read(Database(), "main.t")).size(), 2u);
  EXPECT_EQ(Rest(*Read(Database(), "group")).size(), 0u);

  const auto command = MakeCommand(Database(), "odd \" name");
  command->command_type = platform::CommandType::kTable;
  EXPECT_EQ(RowsOf(command), Lines{});
}

TEST_F(SqliteStatement, IsNoTableWhenItIsASingleWord) {
  Run("BEGIN");
  Run("INSERT INTO t VALUES (3, 'z')");
  Run("rollback");
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM t"), Lines{"2"});
  EXPECT_FALSE(Read(Database(), "VACUUM")->IsOpen());
}

TEST_F(SqliteStatement, CannotCallAProcedure) {
  const auto command = MakeCommand(Database(), "p");
  command->command_type = platform::CommandType::kStoredProcedure;
  EXPECT_EQ(MessageOf([&] { Perform(command); }),
            "SQLite has no stored procedures; give the command's text and CommandType 1");
}

TEST_F(SqliteStatement, CountsNoChangesOfAnEarlierStatement) {
  std::int64_t affected = -1;
  Run("UPDATE t SET b = 'q'");
  Database()->Execute("CREATE TABLE other (a)", &affected);
  EXPECT_EQ(affected, 0);
  Database()->Execute("SELECT * FROM t", &affected);
  EXPECT_EQ(affected, 0);
  Database()->Execute("UPDATE t SET b = 'q' WHERE a > 5", &affected);
  EXPECT_EQ(affected, 0);
  Database()->Execute("DELETE FROM t", &affected);
  EXPECT_EQ(affected, 2);
}

TEST_F(SqliteStatement, RunsAtOnceWhenItChangesAndReturnsRows) {
  std::int64_t affected = -1;
  const auto unread =
      Database()->Execute("INSERT INTO t VALUES (3, 'z'), (4, 'w') RETURNING a * 10", &affected);

  EXPECT_EQ(affected, 2);
  EXPECT_EQ(tests::Rows(Connect(ConnectionString("Busy Timeout=1")), "SELECT COUNT(*) FROM t"), Lines{"4"});
  Connect(ConnectionString("Busy Timeout=1"))->Execute("DELETE FROM t");
  EXPECT_EQ(Rest(*unread), (Lines{"30", "40"}));
}

TEST_F(SqliteStatement, ReportsAChangeThatCannotBeKeptThoughItsRowsAreLimited) {
  Run("PRAGMA foreign_keys = ON");
  Run("CREATE TABLE p (id INTEGER PRIMARY KEY)");
  Run("CREATE TABLE c (p INTEGER REFERENCES p DEFERRABLE INITIALLY DEFERRED)");
  EXPECT_EQ(MessageOf([&] { Read(Database(), "INSERT INTO c VALUES (1), (2), (3) RETURNING p", 1); }),
            "FOREIGN KEY constraint failed");
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM c"), Lines{"0"});
}

TEST_F(SqliteStatement, BindsParametersByTheirKind) {
  const auto command = MakeCommand(
      Database(),
      "SELECT typeof(?1) || ' ' || ?1, typeof(?2), typeof(?3) || ' ' || ?3, typeof(?4) || ' ' || ?4, "
      "typeof(?5) || ' ' || ?5, ?6, ?7, ?8, typeof(?9), ?10",
      {true, platform::Null{}, platform::Decimal{"12"}, platform::Decimal{"0.50"},
       platform::Decimal{"12345678901234567890.1"}, platform::DateTime{2024, 1, 2},
       platform::DateTime{2024, 1, 2, 3, 4, 5}, platform::DateTime{1899, 12, 30, 3, 4, 5}, platform::Bytes{},
       std::string("a\0b", 3)});
  EXPECT_EQ(RowsOf(command),
            Lines{"'integer 1' 'null' 'integer 12' 'real 0.5' 'text 12345678901234567890.1' '2024-01-02' "
                  "'2024-01-02 03:04:05' '03:04:05' 'blob' '" +
                  std::string("a\0b", 3) + "'"});
}

}  // namespace

}  // namespace dralo::tests
