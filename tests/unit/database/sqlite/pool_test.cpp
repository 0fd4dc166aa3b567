#include "unit/database/sqlite/sqlite_pool.h"

#include <unistd.h>

#include <chrono>
#include <thread>

#include "dralo/environment.h"
#include "unit/database/sqlite/trace.h"

namespace dralo::tests {

namespace {

TEST_F(SqlitePool, KeepsAConnectionForTheNextUser) {
  auto connection = Connect(ConnectionString());
  Mark(connection);
  EXPECT_EQ(InUse(), 1u);
  connection.reset();
  EXPECT_EQ(InUse(), 0u);
  EXPECT_EQ(Idle(), 1u);

  connection = Connect(ConnectionString());
  EXPECT_EQ(Idle(), 0u);
  EXPECT_TRUE(IsMarked(connection));
}

TEST_F(SqlitePool, SharesNoConnectionBetweenUsers) {
  const auto one = Connect(ConnectionString());
  const auto other = Connect(ConnectionString());
  Mark(one);
  EXPECT_EQ(InUse(), 2u);
  EXPECT_FALSE(IsMarked(other));
}

TEST_F(SqlitePool, TellsConnectionStringsApart) {
  Mark(Connect(ConnectionString()));
  EXPECT_FALSE(IsMarked(Connect(ConnectionString("Busy Timeout=7"))));
  EXPECT_FALSE(IsMarked(Connect("Provider=SQLite;Mode=Read;Data Source=" + Path())));
  EXPECT_TRUE(IsMarked(Connect("data source=" + Path() + ";MODE=readwritecreate;provider=SQLITE")));
}

TEST_F(SqlitePool, KeepsABoundedNumber) {
  std::vector<ConnectionPtr> connections;
  for (int i = 0; i < 12; ++i) connections.push_back(Connect(ConnectionString()));
  EXPECT_EQ(InUse(), 12u);
  connections.clear();
  EXPECT_EQ(Idle(), 8u);
}

TEST_F(SqlitePool, KeepsAsManyAsAProgramWants) {
  Environment::LimitIdleConnections(12);
  std::vector<ConnectionPtr> connections;
  for (int i = 0; i < 14; ++i) connections.push_back(Connect(ConnectionString()));
  connections.clear();
  EXPECT_EQ(Idle(), 12u);
  Environment::LimitIdleConnections(3);
  EXPECT_EQ(Idle(), 3u);
}

TEST_F(SqlitePool, KeepsThoseThatWereUsedLast) {
  const auto use = [&](int i) { return Connect(ConnectionString("Busy Timeout=" + std::to_string(i))); };
  for (int i = 0; i < 8; ++i) Mark(use(i));
  use(0);
  use(100);
  EXPECT_EQ(Idle(), 8u);
  EXPECT_TRUE(IsMarked(use(0)));
  EXPECT_FALSE(IsMarked(use(1)));
}

TEST_F(SqlitePool, KeepsAsManyAsItIsTold) {
  std::vector<ConnectionPtr> connections;
  for (int i = 0; i < 12; ++i) connections.push_back(Connect(ConnectionString()));
  database::LimitIdleConnections(10, std::chrono::seconds{60});
  connections.clear();
  EXPECT_EQ(Idle(), 10u);

  database::LimitIdleConnections(1, std::chrono::seconds{60});
  EXPECT_EQ(Idle(), 1u);
  database::LimitIdleConnections(0, std::chrono::seconds{60});
  EXPECT_EQ(Idle(), 0u);
  Mark(Connect(ConnectionString()));
  EXPECT_EQ(Idle(), 0u);
  EXPECT_FALSE(IsMarked(Connect(ConnectionString())));
}

TEST_F(SqlitePool, ClosesWhatNobodyHasUsedForAWhile) {
  Mark(Connect(ConnectionString()));
  EXPECT_TRUE(IsMarked(Connect(ConnectionString())));
  Connect(ConnectionString("Busy Timeout=7"));
  EXPECT_EQ(Idle(), 2u);

  std::this_thread::sleep_for(std::chrono::milliseconds{60});
  SessionPool::Instance().SetLimits({8, std::chrono::milliseconds{40}});

  EXPECT_FALSE(IsMarked(Connect(ConnectionString())));
  EXPECT_EQ(Idle(), 1u);
  EXPECT_EQ(OpenFiles(), 1);
  std::this_thread::sleep_for(std::chrono::milliseconds{60});
  database::CloseStaleConnections();
  EXPECT_EQ(Idle(), 0u);
}

TEST_F(SqlitePool, KeepsWhatNobodyUsesForEverWithoutALimitOfTime) {
  SessionPool::Instance().SetLimits({8, std::chrono::milliseconds{0}});
  Mark(Connect(ConnectionString()));
  std::this_thread::sleep_for(std::chrono::milliseconds{5});
  EXPECT_TRUE(IsMarked(Connect(ConnectionString())));
}

TEST_F(SqlitePool, KeepsNoConnectionToMemory) {
  Connect("Provider=SQLite;Data Source=:memory:");
  EXPECT_EQ(Idle(), 0u);
  EXPECT_EQ(InUse(), 0u);
}

TEST_F(SqlitePool, GivesBackWhatClosesTwiceOnlyOnce) {
  const auto connection = Connect(ConnectionString());
  connection->Close();
  connection->Close();
  EXPECT_EQ(Idle(), 1u);
}

TEST_F(SqlitePool, ClosesIdleConnectionsOnDemand) {
  auto connection = Connect(ConnectionString());
  Connect(ConnectionString());
  EXPECT_EQ(Idle(), 1u);

  database::CloseIdleConnections();

  EXPECT_EQ(Idle(), 0u);
  EXPECT_EQ(InUse(), 1u);
  Mark(connection);
}

TEST_F(SqlitePool, LeavesNoTransactionBehind) {
  Run("CREATE TABLE t (a)");
  auto user = Connect(ConnectionString());
  user->Execute("BEGIN IMMEDIATE");
  user->Execute("INSERT INTO t VALUES (1)");
  user.reset();
  EXPECT_EQ(Idle(), 1u);

  Run("INSERT INTO t VALUES (2)");
  EXPECT_EQ(Rows("SELECT a FROM t"), Lines{"2"});
  EXPECT_EQ(tests::Rows(Connect(ConnectionString()), "SELECT a FROM t"), Lines{"2"});
}

TEST_F(SqlitePool, LeavesNoRunningStatementBehind) {
  Run("CREATE TABLE t (a)");
  Run("INSERT INTO t VALUES (1), (2)");
  auto user = Connect(ConnectionString());
  const auto recordset = Read(user, "SELECT a FROM t");
  EXPECT_FALSE(recordset->Eof());
  user->Close();

  const auto writer = Connect(ConnectionString("Busy Timeout=0"));
  writer->Execute("INSERT INTO t VALUES (3)");
  EXPECT_EQ(Idle(), 1u);
}

TEST_F(SqlitePool, ClosesAConnectionThatWouldShowTracesOfItsUser) {
  for (const std::string& trace :
       {std::string("CREATE TEMP TABLE mine (a)"), std::string("CREATE TEMP VIEW mine AS SELECT 1"),
        "ATTACH '" + Path() + "' AS twice", std::string("PRAGMA foreign_keys = ON"),
        std::string("PRAGMA case_sensitive_like(1)")}) {
    Connect(ConnectionString())->Execute(trace);
    EXPECT_EQ(Idle(), 0u) << trace;
  }
}

TEST_F(SqlitePool, KeepsAConnectionThatOnlyAsked) {
  for (const char* question :
       {"PRAGMA foreign_keys", "PRAGMA table_info(t)", "SELECT * FROM pragma_index_list('t')"}) {
    Rest(*Read(Connect(ConnectionString()), question));
    EXPECT_EQ(Idle(), 1u) << question;
  }
}

TEST_F(SqlitePool, DoesNotUseAConnectionWhoseFileWasReplaced) {
  Connect(ConnectionString())->Execute("CREATE TABLE old (a)");
  std::filesystem::rename(Path(), Path() + ".old");
  Connect(ConnectionString())->Execute("CREATE TABLE new (a)");

  EXPECT_EQ(tests::Rows(Connect(ConnectionString()), "SELECT name FROM sqlite_schema"), Lines{"'new'"});
}

TEST_F(SqlitePool, DoesNotUseAConnectionWhoseFileWasDeleted) {
  Connect(ConnectionString())->Execute("CREATE TABLE old (a)");
  std::filesystem::remove(Path());
  EXPECT_THROW(Connect("Provider=SQLite;Data Source=" + Path()), platform::Error);
  EXPECT_EQ(tests::Rows(Connect(ConnectionString()), "SELECT name FROM sqlite_schema"), Lines{});
}

TEST_F(SqlitePool, UsesAPreparedStatementAgain) {
  Run("CREATE TABLE t (a)");
  const Trace trace;
  tests::Rows(Connect(ConnectionString("Busy Timeout=77")), "SELECT a FROM t");
  tests::Rows(Connect(ConnectionString("Busy Timeout=77")), "SELECT a FROM t");

  EXPECT_EQ(trace.RunsOf("SELECT a FROM t"), 2);
}

TEST_F(SqlitePool, ServesSeveralThreads) {
  Run("CREATE TABLE t (a)");
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < 25; ++round) {
        tests::Rows(Connect(ConnectionString("Busy Timeout=20000")), "SELECT COUNT(*) FROM t");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(InUse(), 1u);
  EXPECT_GE(Idle(), 1u);
  EXPECT_LE(Idle(), 4u);
}

}  // namespace

}  // namespace dralo::tests
