#include <chrono>
#include <thread>

#include "database/interruption.h"
#include "unit/database/sqlite/sqlite_file.h"

namespace dralo::tests {

namespace {

/// A row that no machine comes to.
constexpr char kEndless[] =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n WHERE i < 0";

class SqliteTimeLimit : public SqliteFile {
 protected:
  ~SqliteTimeLimit() override { database::StopStatementsWhen(nullptr); }
};

TEST_F(SqliteTimeLimit, EndsAStatementWhoseNextRowTakesTooLong) {
  const auto connection = Connect(ConnectionString("Query Timeout=1"));
  const auto error = ErrorOf([&] { Rest(*Read(connection, kEndless)); });
  EXPECT_STREQ(error.what(),
               "The statement was ended: its next record took longer than the Query Timeout of 1 s; the "
               "connection string can set another");
  EXPECT_EQ(error.Source(), kEndless);
  EXPECT_EQ(tests::Rows(connection, "SELECT 1"), Lines{"1"}) << "the connection can be used on";
}

TEST_F(SqliteTimeLimit, EndsAChangeAndTakesItBack) {
  const auto connection = Connect(ConnectionString("Query Timeout=1"));
  connection->Execute("CREATE TABLE t (i)");
  const std::string change = std::string("INSERT INTO t ") + kEndless + " UNION ALL SELECT 5";
  EXPECT_THROW(connection->Execute(change), platform::Error);
  EXPECT_EQ(tests::Rows(connection, "SELECT COUNT(*) FROM t"), Lines{"0"});
}

TEST_F(SqliteTimeLimit, BeginsAnewWithEveryRow) {
  const auto connection = Connect(ConnectionString("Query Timeout=1"));
  const auto rows =
      Read(connection,
           "WITH n(i) AS (VALUES (1), (2)) SELECT (WITH RECURSIVE c(x) AS (SELECT i UNION ALL SELECT "
           "x + 1 FROM c WHERE x < 3000) SELECT max(x) FROM c) FROM n");
  EXPECT_FALSE(rows->Eof());
  std::this_thread::sleep_for(std::chrono::milliseconds{1100});
  rows->MoveNext();
  EXPECT_FALSE(rows->Eof());
}

TEST_F(SqliteTimeLimit, IsThatOfTheHostToo) {
  database::StopStatementsWhen([]() noexcept { return true; });
  const auto error = ErrorOf([&] { Rows(kEndless); });
  EXPECT_STREQ(error.what(), "interrupted");
  database::StopStatementsWhen(nullptr);
  EXPECT_EQ(Rows("SELECT 1"), Lines{"1"});
}

TEST_F(SqliteTimeLimit, IsANumberOfSeconds) {
  EXPECT_EQ(MessageOf([&] { Connect(ConnectionString("Query Timeout=soon")); }),
            "The Query Timeout in the connection string is no number of seconds; write Query Timeout=30");
}

}  // namespace
}  // namespace dralo::tests
