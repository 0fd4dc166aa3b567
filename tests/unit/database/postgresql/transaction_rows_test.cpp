#include "unit/database/postgresql/native_test.h"

namespace dralo::tests {

namespace {

/// Long results inside of a transaction of the page: what is not read is not sent, and leaving it costs the
/// transaction nothing.
class RowsOfATransaction : public PostgreSqlProvider {
 protected:
  void SetUp() override {
    connection_ = Another(";Query Timeout=2");
    Run("CREATE TABLE t (i integer PRIMARY KEY)");
    Run("CREATE TABLE digits AS SELECT i FROM generate_series(0, 999) i");
    Run("CREATE VIEW endless AS SELECT a.i AS i, b.i * 1000 + c.i AS j FROM digits a, digits b, digits c");
    Run("BEGIN");
    Run("INSERT INTO t VALUES (0)");
  }

  Lines Kept() const { return Rows(Another(), "SELECT i FROM t ORDER BY i"); }
};

TEST_F(RowsOfATransaction, AreLeftWithoutALookAtTheRest) {
  const auto recordset = Read(connection_, "SELECT i FROM endless");
  EXPECT_FALSE(recordset->Eof());
  recordset->Close();
  Run("COMMIT");
  EXPECT_EQ(Kept(), Lines{"0"});
}

TEST_F(RowsOfATransaction, AreReadBesideOtherStatements) {
  const auto recordset = Read(connection_, "SELECT i FROM endless");
  const auto other = Read(connection_, "SELECT i FROM digits ORDER BY i");
  for (int i = 0; i < 1000; ++i, recordset->MoveNext(), other->MoveNext()) {
    ASSERT_FALSE(recordset->Eof());
    ASSERT_EQ(ValueOf(*other, "i"), std::to_string(i));
    if (i % 300 == 1) Run("INSERT INTO t VALUES (" + std::to_string(i) + ")");
  }
  EXPECT_TRUE(other->Eof());
  recordset->Close();
  Run("COMMIT");
  EXPECT_EQ(Kept(), (Lines{"0", "1", "301", "601", "901"}));
}

TEST_F(RowsOfATransaction, OutliveIt) {
  for (const char* end : {"COMMIT", "ROLLBACK"}) {
    if (end[0] == 'R') Run("BEGIN");
    Run("SAVEPOINT before");
    const auto recordset = Read(connection_, "SELECT i FROM generate_series(1, 1000) i");
    EXPECT_EQ(ValueOf(*recordset, "i"), "1");
    Run("ROLLBACK TO before");
    recordset->MoveNext();
    Run(end);
    EXPECT_EQ(Rest(*recordset).size(), 999U);
  }
}

TEST_F(RowsOfATransaction, DoNotKeepTheirTableFromBeingChanged) {
  Run("INSERT INTO t SELECT * FROM generate_series(1, 600)");
  const auto recordset = Read(connection_, "SELECT i FROM t ORDER BY i");
  EXPECT_EQ(ValueOf(*recordset, "i"), "0");
  EXPECT_EQ(Ask("SELECT i FROM t WHERE i < 3 ORDER BY i"), (Lines{"0", "1", "2"}));
  Run("ALTER TABLE t ADD COLUMN note text");
  EXPECT_EQ(Rest(*recordset).size(), 601U);
  EXPECT_EQ(Ask("SELECT * FROM t WHERE i = 3"), Lines{"3 null"});
}

TEST_F(RowsOfATransaction, FailAloneWhereOneCannotBeMade) {
  const auto recordset = Read(connection_, "SELECT 1 / (i - 700) AS q FROM generate_series(1, 1000) i");
  EXPECT_FALSE(recordset->Eof());
  const auto error = ErrorOf([&] { Rest(*recordset); });
  EXPECT_EQ(error.SqlState(), "22012");
  EXPECT_EQ(error.Source(), "SELECT 1 / (i - 700) AS q FROM generate_series(1, 1000) i");
  EXPECT_EQ(ErrorOf([&] { Ask("SELECT nothing FROM t"); }).SqlState(), "42703");
  Run("COMMIT");
  EXPECT_EQ(Kept(), Lines{"0"});
}

TEST_F(RowsOfATransaction, AreAllLockedAtOnce) {
  Run("INSERT INTO t SELECT * FROM generate_series(1, 600)");
  Run("COMMIT");
  Run("BEGIN");
  const auto recordset = Read(connection_, "SELECT i FROM t ORDER BY i FOR UPDATE");
  EXPECT_EQ(ValueOf(*recordset, "i"), "0");
  EXPECT_EQ(Ask("SELECT 7", 1), Lines{"7"});
  EXPECT_EQ(Rows(Another(), "SELECT i FROM t WHERE i = 600 FOR UPDATE SKIP LOCKED"), Lines{});
}

TEST_F(RowsOfATransaction, LeaveTheLimitOfTheServerToTheStatementsBehindThem) {
  Run("COMMIT");
  connection_->Begin();
  EXPECT_EQ(Ask("SELECT i FROM digits WHERE i > 990 FOR UPDATE").size(), 9U);
  EXPECT_EQ(Ask("SHOW statement_timeout"), Lines{"'2s'"});
  connection_->Rollback();
}

}  // namespace

}  // namespace dralo::tests
