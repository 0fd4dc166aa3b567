#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "support/child_process.h"
#include "unit/database/sqlite/sqlite_file.h"
#include "unit/database/sqlite/trace.h"

namespace dralo::tests {

namespace {

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

TEST_F(SqlitePool, ForgetsInheritedConnectionsInAChild) {
  Mark(Connect(ConnectionString()));
  EXPECT_TRUE(HoldsInChild([&] {
    const bool starts_empty = Idle() == 0 && InUse() == 0;
    const auto own = Connect(ConnectionString());
    own->Execute("INSERT INTO marks VALUES (2)");
    return starts_empty && tests::Rows(own, "SELECT COUNT(*), total_changes() FROM marks") == Lines{"2 1"};
  }));

  const auto mine = Connect(ConnectionString());
  EXPECT_TRUE(IsMarked(mine));
  EXPECT_EQ(tests::Rows(mine, "SELECT COUNT(*) FROM marks"), Lines{"2"});
}

TEST_F(SqlitePool, DoesNotCloseInheritedConnectionsInAChild) {
  Mark(Connect(ConnectionString()));
  const auto open_files = OpenFiles();
  EXPECT_EQ(open_files, 1);
  EXPECT_TRUE(HoldsInChild([&] { return Idle() == 0 && OpenFiles() == open_files; }));
}

TEST_F(SqlitePool, DoesNotEndInheritedStatementsInAChild) {
  const Trace trace;
  Run("CREATE TABLE t (a)");
  Run("INSERT INTO t VALUES (1)");
  const auto recordset = Read(Database(), "SELECT a FROM t");
  EXPECT_FALSE(recordset->Eof());
  const auto ended = trace.Runs().size();
  EXPECT_TRUE(HoldsInChild([&] {
    recordset->Close();
    return trace.Runs().size() == ended;
  }));
  recordset->Close();
  EXPECT_EQ(trace.Runs().size(), ended + 1);
}

TEST_F(SqlitePool, RefusesAnInheritedOpenConnection) {
  Run("CREATE TABLE t (a)");
  Run("INSERT INTO t VALUES (1), (2)");
  const auto recordset = Read(Database(), "SELECT a FROM t");
  EXPECT_FALSE(recordset->Eof());
  EXPECT_TRUE(HoldsInChild([&] {
    return MessageOf([&] { Run("INSERT INTO t VALUES (3)"); }) ==
           "The connection was opened by the parent process; open a new one after fork()";
  }));
  EXPECT_EQ(Rest(*recordset), (Lines{"1", "2"}));
}

TEST_F(SqlitePool, LeavesTheParentsTransactionAloneWhenAChildCloses) {
  Run("CREATE TABLE t (a)");
  Run("BEGIN");
  Run("INSERT INTO t VALUES (1)");
  const auto recordset = Read(Database(), "SELECT a FROM t");
  EXPECT_FALSE(recordset->Eof());
  EXPECT_TRUE(HoldsInChild([&] {
    recordset->Close();
    Database()->Close();
    return Idle() == 0 && InUse() == 0;
  }));
  recordset->Close();
  Run("COMMIT");
  EXPECT_EQ(Rows("SELECT a FROM t"), Lines{"1"});
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
