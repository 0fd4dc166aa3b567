#include "database/session_pool.h"
#include "unit/database/mariadb/native_test.h"

namespace dralo::tests {

namespace {

class MariaDbSession : public MariaDbNative {
 protected:
  /// Gives the connection back to the pool and takes it from there.
  void Reopen() const {
    connection_->Close();
    connection_->Open(database_.ConnectionString());
  }

  std::string Id() const { return IdOf(connection_).front(); }

  /// How often statements were prepared and run in this session.
  static Lines Work(const ConnectionPtr& connection) {
    Lines work;
    for (const char* what : {"Com_stmt_prepare", "Com_stmt_execute"}) {
      const std::string sql = "SHOW SESSION STATUS LIKE '" + std::string(what) + "'";
      const auto recordset = Read(connection, sql);
      const auto value = recordset->Fields()[1]->Value();
      work.push_back(std::string(std::get<std::string_view>(value)));
    }
    return work;
  }
};

TEST_F(MariaDbSession, StaysTheSameWhatsoeverItsUserHasLeft) {
  Run("CREATE TABLE t (i INTEGER)");
  const std::string id = Id();
  for (const char* trace :
       {"SET SESSION sql_mode = 'ANSI_QUOTES'", "SET @trace = 1", "SELECT GET_LOCK('trace', 0)",
        "CREATE TEMPORARY TABLE own (i INTEGER)", "SET SESSION max_statement_time = 77",
        "PREPARE trace FROM 'SELECT 1'", "LOCK TABLES t WRITE", "BEGIN", "SET autocommit = 0",
        "INSERT INTO t VALUES (1)"}) {
    Run(trace);
    Reopen();
    EXPECT_EQ(
        Ask("SELECT @@sql_mode LIKE '%ANSI_QUOTES%', @trace IS NULL, IS_FREE_LOCK('trace'), @@autocommit, "
            "CAST(@@max_statement_time AS INTEGER), @@character_set_client, @@in_transaction"),
        Lines{"0 1 1 1 30 'utf8mb4' 0m"})
        << trace;
    EXPECT_THROW(Ask("SELECT * FROM own"), platform::Error);
    EXPECT_THROW(Ask("EXECUTE trace"), platform::Error);
    EXPECT_EQ(Id(), id) << trace;
  }
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM t"), Lines{"1"});
}

TEST_F(MariaDbSession, IsCleanAlsoBehindACallThatFailed) {
  Run("CREATE PROCEDURE Fail() BEGIN SET @trace = 1; DO GET_LOCK('trace', 0); SIGNAL SQLSTATE '45000'; END");
  EXPECT_EQ(ErrorOf([&] { Run("CALL Fail()"); }).SqlState(), "45000");
  Reopen();
  EXPECT_EQ(Ask("SELECT @trace IS NULL, IS_FREE_LOCK('trace')"), Lines{"1 1"});
}

TEST_F(MariaDbSession, IsNotKeptInAnotherDatabase) {
  const std::string id = Id();
  Run("USE mysql");
  Reopen();
  EXPECT_NE(Id(), id);
  EXPECT_EQ(Ask("SELECT DATABASE() LIKE 'contract%'"), Lines{"1"});
}

TEST_F(MariaDbSession, IsNotKeptInAnotherDatabaseOfAServerThatDoesNotTellWhich) {
  Run("SET SESSION session_track_schema = OFF");
  Run("# elsewhere\nUSE mysql");
  Reopen();
  EXPECT_EQ(Ask("SELECT DATABASE() LIKE 'contract%'"), Lines{"1"});
}

TEST_F(MariaDbSession, KeepsPreparedStatementsWhereOnlyQueriesAndSavesRan) {
  Run("CREATE TABLE t (i INTEGER PRIMARY KEY)");
  const auto use = [&] {
    Reopen();
    Ask("SELECT i FROM t ORDER BY i", 10);
    Run("INSERT INTO t SELECT COALESCE(MAX(i), 0) + 1 FROM t");
  };
  use();
  Work(connection_);
  const Lines before = Work(connection_);
  use();
  const Lines after = Work(connection_);
  const auto grown = [&](std::size_t what) { return std::stoi(after[what]) - std::stoi(before[what]); };
  EXPECT_EQ(grown(0), 0) << "nothing is prepared again";
  EXPECT_EQ(grown(1), 2 + 2) << "the two statements, and two that ask";
}

TEST_F(MariaDbSession, LeavesALongResultInTheMiddle) {
  const std::string id = Id();
  Reopen();
  for (int i = 0; i < 2; ++i) {
    const auto recordset =
        Read(connection_, "SELECT CAST(seq AS CHAR(9)), REPEAT('x', 1000) FROM seq_1_to_200000");
    EXPECT_FALSE(recordset->Eof());
    recordset->Close();
  }
  EXPECT_NE(Id(), id) << "in another connection, which is cheaper than to read the rest";
}

TEST_F(MariaDbSession, ReadsOnWhenAResultThatWasLeftBeforeIsClosed) {
  const std::string id = Id();
  Reopen();
  // The limit of its own keeps the number of records from being limited on the server.
  auto left = Read(connection_, "SELECT CAST(seq AS INTEGER) FROM seq_1_to_200000 LIMIT 200000", 2);
  EXPECT_EQ(Rest(*left), (Lines{"1", "2"}));
  const auto recordset = Read(connection_, "SELECT CAST(seq AS INTEGER) FROM seq_1_to_60000");
  EXPECT_EQ(Line(*recordset), "1");
  left.reset();
  EXPECT_EQ(Rest(*recordset).size(), 60000u);
  EXPECT_NE(Id(), id) << "the first result was left";
}

TEST_F(MariaDbSession, LeavesARestOfFewLongRowsToo) {
  const std::string id = Id();
  Reopen();
  const auto recordset =
      Read(connection_, "SELECT CAST(seq AS CHAR(9)), REPEAT('x', 1000000) FROM seq_1_to_100");
  EXPECT_FALSE(recordset->Eof());
  recordset->Close();
  EXPECT_NE(Id(), id);
}

TEST_F(MariaDbSession, ReadsAShortRestToItsEnd) {
  const std::string id = Id();
  const auto recordset = Read(connection_, "SELECT CAST(seq AS CHAR(9)) FROM seq_1_to_100");
  EXPECT_FALSE(recordset->Eof());
  recordset->Close();
  EXPECT_EQ(Id(), id);
}

TEST_F(MariaDbSession, KeepsATransactionWhenALongResultIsLeft) {
  Run("CREATE TABLE t (i INTEGER)");
  Run("BEGIN");
  Run("INSERT INTO t VALUES (1)");
  const auto recordset =
      Read(connection_, "SELECT CAST(seq AS CHAR(9)), REPEAT('x', 100) FROM seq_1_to_100000");
  EXPECT_FALSE(recordset->Eof());
  recordset->Close();
  Run("COMMIT");
  EXPECT_EQ(Rows(Connect(database_.ConnectionString()), "SELECT i FROM t"), Lines{"1"});
}

TEST_F(MariaDbSession, KnowsTheProviderByBothNames) {
  const std::string text = database_.ConnectionString();
  const auto connection = Connect("Provider=mysql" + text.substr(text.find(';')));
  EXPECT_EQ(Rows(connection, "SELECT 1"), Lines{"1"});
}

TEST_F(MariaDbSession, CountsAChangeThatChangesNothing) {
  Run("CREATE TABLE t (i INTEGER)");
  Run("INSERT INTO t VALUES (1), (1)");
  std::int64_t found = 0;
  connection_->Execute("UPDATE t SET i = 1", &found);
  EXPECT_EQ(found, 2);
}

TEST_F(MariaDbSession, RunsOneStatementAtATime) {
  Run("CREATE TABLE t (i INTEGER)");
  EXPECT_EQ(ErrorOf([&] { Run("INSERT INTO t VALUES (1); DROP TABLE t"); }).Number(), 1064);
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM t"), Lines{"0"});
}

}  // namespace

}  // namespace dralo::tests
