#include <functional>
#include <utility>

#include "unit/database/sqlite/sqlite_file.h"

namespace dralo::tests {

namespace {

/// Tells whether a recordset still holds its read lock: an impatient writer cannot commit then.
class SqliteLock : public SqliteFile {
 protected:
  SqliteLock() {
    Run("CREATE TABLE t (id INTEGER PRIMARY KEY)");
    Run("INSERT INTO t VALUES (1), (2), (3)");
    writer_ = Connect(ConnectionString("Busy Timeout=0"));
  }

  bool CanBeWritten() const {
    try {
      writer_->Execute("UPDATE t SET id = id WHERE id = 1");
      return true;
    } catch (const platform::Error&) {
      return false;
    }
  }

  ConnectionPtr writer_;
};

TEST_F(SqliteLock, IsHeldWhileRowsAreRead) {
  const auto recordset = Read(Database(), "SELECT id FROM t");
  EXPECT_TRUE(CanBeWritten());
  EXPECT_FALSE(recordset->Eof());
  EXPECT_FALSE(CanBeWritten());
}

TEST_F(SqliteLock, IsGivenUpWithTheRecordsetOrTheConnection) {
  const std::pair<const char*, std::function<void(RecordsetPtr&)>> ends[] = {
      {"the recordset is closed", [](RecordsetPtr& recordset) { recordset->Close(); }},
      {"the recordset is dropped", [](RecordsetPtr& recordset) { recordset.reset(); }},
      {"the connection is closed", [&](RecordsetPtr&) { Database()->Close(); }},
  };
  for (const auto& [when, end] : ends) {
    auto recordset = Read(Database(), "SELECT id FROM t");
    EXPECT_FALSE(recordset->Eof());
    EXPECT_FALSE(CanBeWritten()) << when;
    end(recordset);
    EXPECT_TRUE(CanBeWritten()) << when;
  }
}

TEST_F(SqliteLock, IsGivenUpAtTheEndOfTheRows) {
  const auto recordset = Read(Database(), "SELECT id FROM t");
  EXPECT_EQ(Rest(*recordset).size(), 3u);
  EXPECT_TRUE(CanBeWritten());
}

TEST_F(SqliteLock, IsGivenUpAtTheRecordLimit) {
  const auto recordset = Read(Database(), "SELECT id FROM t LIMIT 3", 2);
  EXPECT_EQ(Rest(*recordset).size(), 2u);
  EXPECT_TRUE(CanBeWritten());
}

TEST_F(SqliteLock, IsGivenUpAfterAFailureInTheRows) {
  const auto recordset =
      Read(Database(), "SELECT abs(CASE id WHEN 1 THEN 1 ELSE -9223372036854775807 - 1 END) FROM t");
  EXPECT_FALSE(recordset->Eof());
  EXPECT_THROW(recordset->MoveNext(), platform::Error);
  EXPECT_TRUE(CanBeWritten());
}

TEST_F(SqliteLock, IsNotTakenToListTheFieldsOfARecordsetForChanges) {
  const auto recordset = Edit(Database(), "SELECT id FROM t");
  EXPECT_EQ(recordset->Fields().size(), 1u);
  EXPECT_TRUE(CanBeWritten());
}

}  // namespace

}  // namespace dralo::tests
