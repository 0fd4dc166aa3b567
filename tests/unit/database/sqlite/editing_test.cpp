#include "unit/database/one_date.h"
#include "unit/database/sqlite/sqlite_editing.h"
#include "unit/database/sqlite/trace.h"

namespace dralo::tests {

namespace {

using platform::Null;
using platform::Variant;

class SqliteWriting : public SqliteEditing {
 protected:
  /// How SQLite stores what was assigned to a column of `type`.
  std::string StoredAs(const std::string& type, const Variant& value) {
    Run("CREATE TABLE s (id INTEGER PRIMARY KEY, c " + type + ")");
    const auto recordset = Edit(Database(), "SELECT * FROM s");
    recordset->AddNew();
    Save(recordset, "c", value);
    const Lines lines = Rows("SELECT typeof(c), c || '' FROM s");
    recordset->Close();
    Run("DROP TABLE s");
    return lines.front();
  }
};

TEST_F(SqliteWriting, StoresValuesInTheFormOfTheirColumn) {
  EXPECT_EQ(StoredAs("DATE", "2024-02-03 04:05:06"), "'text' '2024-02-03'");
  EXPECT_EQ(StoredAs("DATETIME", "2024-02-03"), "'text' '2024-02-03 00:00:00'");
  EXPECT_EQ(StoredAs("DATETIME", "2024-02-03T04:05:06.25Z"), "'text' '2024-02-03 04:05:06.25'");
  EXPECT_EQ(StoredAs("TIME", "04:05"), "'text' '04:05:00'");
  EXPECT_EQ(StoredAs("BOOLEAN", "True"), "'integer' '1'");
  EXPECT_EQ(StoredAs("BOOLEAN", false), "'integer' '0'");
  EXPECT_EQ(StoredAs("DECIMAL(10,2)", "12.10"), "'real' '12.1'");
  EXPECT_EQ(StoredAs("DECIMAL(10,2)", "12"), "'integer' '12'");
  EXPECT_EQ(StoredAs("INTEGER", "5000000000"), "'integer' '5000000000'");
  EXPECT_EQ(StoredAs("BIGINT", "9223372036854775807"), "'integer' '9223372036854775807'");
  EXPECT_EQ(StoredAs("DOUBLE", "0.1"), "'real' '0.1'");
  EXPECT_EQ(StoredAs("TEXT", std::int64_t{5}), "'text' '5'");
  EXPECT_EQ(StoredAs("VARCHAR(5)", "007"), "'text' '007'");
  EXPECT_EQ(StoredAs("BLOB", "AB"), "'blob' 'AB'");
  EXPECT_EQ(StoredAs("", 1.5), "'real' '1.5'");
}

TEST_F(SqliteWriting, UnderstandsADateInRegionalForm) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, d DATE)");
  const OneDate formatting;
  const auto recordset = Edit(Database(), "SELECT * FROM t", &formatting);
  recordset->AddNew();
  EXPECT_THROW(Set(recordset, "d", "4.2.2024"), platform::Error);
  Save(recordset, "d", "3.2.2024");
  EXPECT_EQ(Rows("SELECT d || '' FROM t"), Lines{"'2024-02-03'"});
}

TEST_F(SqliteWriting, KeepsAnExactDecimalThatTheColumnCanKeep) {
  Run("CREATE TABLE s (id INTEGER PRIMARY KEY, c BIGINT, d DECIMAL)");
  EXPECT_EQ(Change("SELECT * FROM s", "c", "1"), "There is no current record to change");
  Run("INSERT INTO s VALUES (1, 9007199254740993, 9007199254740993)");
  EXPECT_EQ(Change("SELECT * FROM s", "d", "9007199254740995"), "");
  EXPECT_EQ(Rows("SELECT c, d FROM s"), Lines{"9007199254740993 9007199254740995"});
}

TEST_F(SqliteWriting, ReadsNoRowToAddOne) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT)");
  Run("WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 3000) INSERT INTO t SELECT "
      "i, 'x' FROM c");
  const Trace trace;
  const auto connection = Connect(ConnectionString("Busy Timeout=1234"));
  const auto recordset = Edit(connection, "SELECT * FROM t");
  recordset->AddNew();
  Save(recordset, "a", "y");
  EXPECT_EQ(ValueOf(*recordset, "id"), "3001");
  recordset->Close();

  int steps = 0;
  for (const Trace::Run& run : trace.Runs()) steps += run.steps;
  EXPECT_LT(steps, 500);
}

TEST_F(SqliteWriting, InsertsDefaultsWhenNothingIsSet) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT DEFAULT 'unset', b INTEGER DEFAULT 7)");
  const auto recordset = Edit(Database(), "SELECT * FROM t");
  recordset->AddNew();
  recordset->Update();
  EXPECT_EQ(ValueOf(*recordset, "id"), "1");

  recordset->AddNew();
  Save(recordset, "a", Null{});
  EXPECT_EQ(Rows("SELECT * FROM t"), (Lines{"1 'unset' 7", "2 null 7"}));
}

TEST_F(SqliteWriting, ChangesARecordWhoseDefaultsItDidNotRead) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT DEFAULT 'unset')");
  const auto recordset = Edit(Database(), "SELECT * FROM t");
  recordset->AddNew();
  recordset->Update();
  Save(recordset, "a", "set");
  EXPECT_EQ(Rows("SELECT a FROM t"), Lines{"'set'"});
}

TEST_F(SqliteWriting, ComparesOldValuesAsTheyAreStored) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, seen DATETIME, price DECIMAL, name TEXT COLLATE NOCASE, day "
      "DATE)");
  Run("INSERT INTO t VALUES (1, 1709212455, 0.1, 'abc', '2024-01-02T03:04Z')");
  const std::string sql = "SELECT * FROM t";
  EXPECT_EQ(Change(sql, "seen", "2024-03-01"), "");
  EXPECT_EQ(Change(sql, "seen", "2024-03-02"), "");
  EXPECT_EQ(Change(sql, "price", "0.2"), "");
  EXPECT_EQ(Change(sql, "price", "0.3"), "");
  EXPECT_EQ(Change(sql, "day", "2024-01-03"), "");
  EXPECT_EQ(Rows("SELECT seen || '', price, day || '' FROM t"),
            Lines{"'2024-03-02 00:00:00' 0.3 '2024-01-03'"});

  const auto recordset = Edit(Database(), sql);
  Set(recordset, "name", "mine");
  Run("UPDATE t SET name = 'ABC'");
  EXPECT_THROW(recordset->Update(), platform::Error);
}

TEST_F(SqliteWriting, LeavesAnUnchangedValueInItsStoredForm) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, seen DATETIME, a TEXT)");
  Run("INSERT INTO t VALUES (1, 1709212455, 'x')");
  const auto recordset = Edit(Database(), "SELECT * FROM t");
  Set(recordset, "seen", "2024-02-29 13:14:15");
  Save(recordset, "a", "y");
  EXPECT_EQ(Rows("SELECT typeof(seen), a FROM t"), Lines{"'integer' 'y'"});
}

TEST_F(SqliteWriting, ReadsTheNumberOfARecordAmongTriggers) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT)");
  Run("CREATE TABLE log (n INTEGER PRIMARY KEY, a TEXT)");
  Run("INSERT INTO log VALUES (900, 'x')");
  Run("CREATE TRIGGER noting AFTER INSERT ON t BEGIN INSERT INTO log (a) VALUES (new.a); END");
  const auto recordset = Edit(Database(), "SELECT * FROM t");
  recordset->AddNew();
  Save(recordset, "a", "x");
  EXPECT_EQ(ValueOf(*recordset, "id"), "1");
}

}  // namespace

}  // namespace dralo::tests
