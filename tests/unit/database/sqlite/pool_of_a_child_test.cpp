#include "support/child_process.h"
#include "unit/database/sqlite/sqlite_pool.h"
#include "unit/database/sqlite/trace.h"

namespace dralo::tests {

namespace {

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
}  // namespace

}  // namespace dralo::tests
