#include "unit/database/sqlite/sqlite_file.h"

#include <sqlite3.h>

#include <functional>
#include <utility>

#include "unit/database/sqlite/trace.h"

namespace dralo::tests {

namespace {

class SqliteCounting : public SqliteFile {
 protected:
  SqliteCounting() {
    Run("PRAGMA journal_mode=WAL");
    Run("CREATE TABLE t (id INTEGER PRIMARY KEY)");
    Run("INSERT INTO t VALUES (1), (2), (3)");
  }

  RecordsetPtr Open(std::string_view sql = "SELECT id FROM t", const ConnectionPtr& connection = nullptr,
                    std::string counting = "SELECT COUNT(*) FROM t") {
    auto recordset = database::MakeRecordset();
    recordset->SetCounting(std::move(counting));
    recordset->Open(sql, connection ? connection : Database());
    return recordset;
  }
};

/// Gives the connections that are opened while it lives an SQL function `changed()`, which runs a statement
/// on another connection and returns 0. One at a time.
class ChangeByStatement {
 public:
  ChangeByStatement(ConnectionPtr other, std::string sql) {
    change = [other = std::move(other), sql = std::move(sql)] { other->Execute(sql); };
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(Offer));
  }
  ~ChangeByStatement() {
    sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(Offer));
    change = nullptr;
  }
  ChangeByStatement(const ChangeByStatement&) = delete;
  ChangeByStatement& operator=(const ChangeByStatement&) = delete;

 private:
  static int Offer(sqlite3* connection, char** /*message*/, const void* /*api*/) {
    return sqlite3_create_function(connection, "changed", 0, SQLITE_UTF8, nullptr, Run, nullptr, nullptr);
  }

  static void Run(sqlite3_context* context, int /*count*/, sqlite3_value** /*values*/) {
    change();
    sqlite3_result_int(context, 0);
  }

  static inline std::function<void()> change;
};

TEST_F(SqliteCounting, IsOfTheSameMomentAsTheRows) {
  const auto recordset = Open();
  EXPECT_EQ(recordset->Counted(), platform::Variant(std::int64_t{3}));
  Connect(ConnectionString())->Execute("DELETE FROM t");
  EXPECT_EQ(Rest(*recordset), (Lines{"1", "2", "3"}));
}

TEST_F(SqliteCounting, IsOfTheMomentOfTheFirstRowToo) {
  const ChangeByStatement change(Connect(ConnectionString()), "DELETE FROM t");
  const auto recordset = Open("SELECT id FROM t", Connect(ConnectionString("Busy Timeout=1")),
                              "SELECT COUNT(*) + changed() FROM t");
  EXPECT_EQ(recordset->Counted(), platform::Variant(std::int64_t{3}));
  EXPECT_EQ(Rest(*recordset), (Lines{"1", "2", "3"}));
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM t"), Lines{"0"});
}

TEST_F(SqliteCounting, RunsNoMoreThanTwoStatements) {
  const Trace trace;
  const auto recordset = Open("SELECT id FROM t", Connect(ConnectionString("Busy Timeout=1")));
  recordset->Counted();
  EXPECT_EQ(Rest(*recordset).size(), 3U);
  EXPECT_EQ(trace.Runs().size(), 2U);
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
