#include "unit/database/sqlite/sqlite_file.h"

namespace dralo::tests {

namespace {

class SqliteCounting : public SqliteFile {
 protected:
  SqliteCounting() {
    Run("PRAGMA journal_mode=WAL");
    Run("CREATE TABLE t (id INTEGER PRIMARY KEY)");
    Run("INSERT INTO t VALUES (1), (2), (3)");
  }

  RecordsetPtr Open(std::string_view sql = "SELECT id FROM t") {
    auto recordset = database::MakeRecordset();
    recordset->SetCounting("SELECT COUNT(*) FROM t");
    recordset->Open(sql, Database());
    return recordset;
  }
};

TEST_F(SqliteCounting, IsOfTheSameMomentAsTheRows) {
  const auto recordset = Open();
  EXPECT_EQ(recordset->Counted(), platform::Variant(std::int64_t{3}));
  Connect(ConnectionString())->Execute("DELETE FROM t");
  EXPECT_EQ(Rest(*recordset), (Lines{"1", "2", "3"}));
}

TEST_F(SqliteCounting, LeavesNoTransactionBehind) {
  auto recordset = Open();
  recordset->Counted();
  Run("INSERT INTO t VALUES (4)");
  EXPECT_EQ(tests::Rows(Connect(ConnectionString()), "SELECT COUNT(*) FROM t"), Lines{"4"});
  recordset->Close();
  Run("BEGIN");
}

TEST_F(SqliteCounting, KeepsTheTransactionOfTheUser) {
  Run("BEGIN");
  Run("INSERT INTO t VALUES (4)");
  EXPECT_EQ(Open()->Counted(), platform::Variant(std::int64_t{4}));
  Run("ROLLBACK");
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM t"), Lines{"3"});
}

TEST_F(SqliteCounting, LeavesTheFailureOfTheRowsToWhoeverAsksForThem) {
  const auto recordset = Open("SELECT abs(id - 2 - 9223372036854775807) FROM t");
  EXPECT_EQ(recordset->Counted(), platform::Variant(std::int64_t{3}));
  EXPECT_EQ(MessageOf([&] { recordset->Eof(); }), "integer overflow");
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM t"), Lines{"3"});
}

}  // namespace
}  // namespace dralo::tests
