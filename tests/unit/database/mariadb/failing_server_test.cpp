#include <chrono>
#include <thread>

#include "database/interruption.h"
#include "database/session_pool.h"
#include "support/stalling_proxy.h"
#include "unit/database/mariadb/native_test.h"

namespace dralo::tests {

namespace {

constexpr const char* kGivenUp =
    "The database has not answered in time; the connection is given up (SQLSTATE HYT00)";

/// Long before anything else would give up, and late enough for a busy machine.
constexpr std::chrono::seconds kSoon{20};

class MariaDbFailing : public MariaDbNative {
 protected:
  ConnectionPtr Through(const StallingProxy& proxy, const std::string& more = {}) const {
    return Connect(database_.ConnectionString() + ";Port=" + proxy.Port() + ";Query Timeout=1" + more);
  }

  std::string Port() const { return PortOf(Server::kMariaDb); }

  void Kill(const ConnectionPtr& victim) const { Run("KILL " + IdOf(victim).front()); }

  void TearDown() override { EXPECT_LT(std::chrono::steady_clock::now() - start_, kSoon); }

 private:
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

TEST_F(MariaDbFailing, SaysThatThePasswordIsWrongButNotThePassword) {
  const auto error = ErrorOf([&] { Connect(database_.ConnectionString() + ";Password=wr0ng-one"); });
  EXPECT_EQ(error.Number(), 1045);
  EXPECT_EQ(error.SqlState(), "28000");
  EXPECT_EQ(error.Description(),
            "The database cannot be opened: Access denied for user 'dralo'@'127.0.0.1' (using password: YES) "
            "(SQLSTATE 28000)");
}

TEST_F(MariaDbFailing, TriesTheOtherHosts) {
  const auto connection = Connect(database_.ConnectionString() + ";Hosts=127.0.0.1:1,127.0.0.1:" + Port());
  EXPECT_EQ(Rows(connection, "SELECT 1"), Lines{"1"});
  EXPECT_EQ(
      ErrorOf([&] { Connect(database_.ConnectionString() + ";Hosts=127.0.0.1:1,127.0.0.1:2"); }).Number(),
      2002);
}

TEST_F(MariaDbFailing, TriesAWrongPasswordOnOneHostOnly) {
  const std::string hosts = ";Hosts=127.0.0.1:" + Port() + ",127.0.0.1:1;Password=wr0ng-one";
  EXPECT_EQ(ErrorOf([&] { Connect(database_.ConnectionString() + hosts); }).Number(), 1045);
}

TEST_F(MariaDbFailing, GivesAHostThatDoesNotAnswerItsShareOfTheTime) {
  StallingProxy frozen(Port());
  frozen.Stall();
  const auto connection =
      Connect(database_.ConnectionString() + ";Connect Timeout=2;Hosts=127.0.0.1:" + frozen.Port() +
              ",127.0.0.1:" + Port());
  EXPECT_EQ(Rows(connection, "SELECT 1"), Lines{"1"});
}

TEST_F(MariaDbFailing, GivesUpAServerThatDoesNotAnswerAtTheStart) {
  StallingProxy frozen(Port());
  frozen.Stall();
  const auto error = ErrorOf([&] { Through(frozen, ";Connect Timeout=1"); });
  EXPECT_EQ(error.Description(),
            "The database cannot be opened: it has not answered in time (SQLSTATE HYT00)");
  EXPECT_EQ(error.SqlState(), "HYT00");
}

TEST_F(MariaDbFailing, GivesUpAServerThatDoesNotAnswerAQuery) {
  StallingProxy proxy(Port());
  const auto connection = Through(proxy);
  EXPECT_EQ(Rows(connection, "SELECT 1"), Lines{"1"});
  proxy.Stall();
  const auto error = ErrorOf([&] { Rows(connection, "SELECT 1"); });
  EXPECT_EQ(error.Description(), kGivenUp);
  EXPECT_EQ(error.Source(), "SELECT 1");
  EXPECT_EQ(MessageOf([&] { connection->Execute("CREATE TABLE t (i INTEGER)"); }), kGivenUp);
}

TEST_F(MariaDbFailing, GivesUpAServerThatStallsInTheMiddleOfAResult) {
  StallingProxy proxy(Port());
  const auto connection = Through(proxy);
  const auto recordset = Read(connection, "SELECT REPEAT('x', 1000) FROM seq_1_to_100000");
  EXPECT_FALSE(recordset->Eof());
  proxy.Stall();
  EXPECT_EQ(MessageOf([&] { Rest(*recordset); }), kGivenUp);
}

TEST_F(MariaDbFailing, GivesUpAServerThatStallsWhereAStatementIsPreparedAgain) {
  Run("CREATE TABLE t (c VARCHAR(99))");
  Run("INSERT INTO t SELECT REPEAT('x', 99) FROM seq_1_to_2000");
  StallingProxy proxy(Port());
  const auto connection = Through(proxy);
  EXPECT_EQ(Rows(connection, "SELECT * FROM t").size(), 2000u);
  Run("ALTER TABLE t ADD d INTEGER");
  proxy.StallAfter(20'000);
  EXPECT_EQ(MessageOf([&] { Rows(connection, "SELECT * FROM t"); }), kGivenUp);
}

TEST_F(MariaDbFailing, LeavesAStalledResultAtOnce) {
  StallingProxy proxy(Port());
  const auto connection = Through(proxy, ";Query Timeout=30");
  const auto recordset = Read(connection, "SELECT REPEAT('x', 1000) FROM seq_1_to_100000");
  EXPECT_FALSE(recordset->Eof());
  proxy.Stall();
  recordset->Close();
}

TEST_F(MariaDbFailing, LeavesASlowResultAtOnce) {
  Run("CREATE VIEW Slow AS SELECT REPEAT('x', 20000) AS Text, SLEEP(0.03) AS Pause FROM seq_1_to_1000");
  const auto recordset = Read(connection_, "SELECT * FROM Slow");
  EXPECT_FALSE(recordset->Eof());
  const auto start = std::chrono::steady_clock::now();
  recordset->Close();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  EXPECT_EQ(Ask("SELECT 1"), Lines{"1"});
}

TEST_F(MariaDbFailing, KeepsNoPageWaitingForASessionThatDoesNotAnswerBetweenItsUsers) {
  StallingProxy proxy(Port());
  const auto connection = Through(proxy, ";Query Timeout=60");
  connection->Execute("SET @trace = 1");
  proxy.Stall();
  connection->Close();
}

TEST_F(MariaDbFailing, ReadsOnHoweverSlowlyAPageTakesItsRows) {
  const auto hasty = Connect(database_.ConnectionString() + ";Query Timeout=1");
  const auto recordset = Read(hasty, "SELECT CAST(seq AS INTEGER), REPEAT('x', 1000) FROM seq_1_to_20000");
  for (int i = 0; i < 5; ++i, recordset->MoveNext())
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
  EXPECT_EQ(Rest(*recordset).size(), 19995u);
}

TEST_F(MariaDbFailing, StopsWaitingWhenTheHostWantsToStop) {
  const auto waiting = Connect(database_.ConnectionString() + ";Query Timeout=0");
  database::StopStatementsWhen([]() noexcept { return true; });
  EXPECT_EQ(MessageOf([&] { Rows(waiting, "SELECT SLEEP(60)"); }),
            "The page has run out of time; the connection is given up (SQLSTATE HY008)");
  database::StopStatementsWhen(nullptr);
  EXPECT_EQ(Rows(Connect(database_.ConnectionString() + ";Query Timeout=0"), "SELECT 1"), Lines{"1"});
}

TEST_F(MariaDbFailing, DoesNotKeepASessionThatWasGivenUp) {
  StallingProxy proxy(Port());
  auto connection = Through(proxy);
  const auto before = database::SessionPool::Instance().Count().idle;
  proxy.Stall();
  EXPECT_THROW(Rows(connection, "SELECT 1"), platform::Error);
  connection->Close();
  EXPECT_EQ(database::SessionPool::Instance().Count().idle, before);
}

TEST_F(MariaDbFailing, SaysThatAStatementTakesTooLong) {
  const auto patient = Connect(database_.ConnectionString() + ";Query Timeout=1");
  EXPECT_EQ(ErrorOf([&] { Rows(patient, "SELECT SLEEP(20)"); }).Number(), 1969);
  EXPECT_EQ(Rows(patient, "SELECT 1"), Lines{"1"});
}

TEST_F(MariaDbFailing, GivesAStatementAllTheTimeItTakesWhereNoLimitIsWanted) {
  const auto patient = Connect(database_.ConnectionString() + ";Query Timeout=0;Connect Timeout=0");
  EXPECT_EQ(Rows(patient, "SELECT CAST(@@max_statement_time AS INTEGER), SLEEP(3)"), Lines{"0 0"});
}

TEST_F(MariaDbFailing, SaysThatItsSessionWasEndedInTheMiddleOfAResult) {
  const auto victim = Connect(database_.ConnectionString());
  const auto recordset = Read(victim, "SELECT CAST(seq AS CHAR(9)), REPEAT('x', 1000) FROM seq_1_to_100000");
  EXPECT_FALSE(recordset->Eof());
  Run("SET @id = (SELECT ID FROM information_schema.PROCESSLIST WHERE INFO LIKE '%REPEAT%seq_1_to_100000' "
      "AND "
      "ID <> CONNECTION_ID() AND DB = DATABASE())");
  Run("EXECUTE IMMEDIATE CONCAT('KILL ', @id)");
  EXPECT_NE(ErrorOf([&] { Rest(*recordset); }).Number(), 0);
  EXPECT_THROW(victim->Execute("CREATE TABLE t (i INTEGER)"), platform::Error);
}

TEST_F(MariaDbFailing, OpensTheConnectionAgainThatWentWhileItWasKept) {
  const auto kept = Connect(database_.ConnectionString());
  const auto reopen = [&] {
    kept->Close();
    kept->Open(database_.ConnectionString());
  };
  for (const bool is_prepared : {false, true}) {
    const std::string id = IdOf(kept).front();
    reopen();
    if (is_prepared) {
      EXPECT_EQ(Rows(kept, "SELECT 1"), Lines{"1"});
    }
    reopen();
    Run("KILL " + id);
    EXPECT_EQ(Rows(kept, "SELECT 1"), Lines{"1"}) << is_prepared;
  }
  Kill(kept);
  EXPECT_THROW(Rows(kept, "SELECT 1"), platform::Error)
      << "only the first query after the rest may not notice";
}

TEST_F(MariaDbFailing, SaysThatItsSessionWasEndedBeforeItKnewItsColumns) {
  Run("CREATE TABLE t (i INTEGER PRIMARY KEY)");
  const auto victim = Connect(database_.ConnectionString());
  const auto open = [&] { return Edit(victim, "SELECT i FROM t"); };
  EXPECT_TRUE(open()->Eof());
  const auto recordset = open();
  Kill(victim);
  EXPECT_THROW(recordset->AddNew(), platform::Error);
  EXPECT_THROW(recordset->AddNew(), platform::Error);
}

TEST_F(MariaDbFailing, DoesNotRunAChangeTwiceWhenItsConnectionWent) {
  const auto kept = Connect(database_.ConnectionString());
  const std::string id = IdOf(kept).front();
  kept->Close();
  kept->Open(database_.ConnectionString());
  Run("KILL " + id);
  EXPECT_THROW(kept->Execute("CREATE TABLE t (i INTEGER)"), platform::Error);
  EXPECT_EQ(Ask("SHOW TABLES"), Lines{});
}

TEST_F(MariaDbFailing, BeginsASaveInAnotherConnectionWhereItsOwnWentWhileItWasKept) {
  Run("CREATE TABLE t (i INTEGER)");
  Run("INSERT INTO t VALUES (1)");
  const auto kept = Connect(database_.ConnectionString());
  const std::string id = IdOf(kept).front();
  kept->Close();
  kept->Open(database_.ConnectionString());
  Run("KILL " + id);
  EXPECT_EQ(kept->ChangeOneRecord("UPDATE t SET i = i + 1"), 1);
  EXPECT_EQ(Ask("SELECT i FROM t"), Lines{"2"});
}

TEST_F(MariaDbFailing, AddsARecordInAnotherConnectionWhereItsOwnWentBeforeItKnewItsColumns) {
  Run("CREATE TABLE t (i INTEGER PRIMARY KEY)");
  const auto kept = Connect(database_.ConnectionString());
  const std::string id = IdOf(kept).front();
  kept->Close();
  kept->Open(database_.ConnectionString());
  const auto open = [&] { return Edit(kept, "SELECT i FROM t"); };
  EXPECT_TRUE(open()->Eof());
  const auto recordset = open();
  Run("KILL " + id);
  recordset->AddNew();
  FieldOf(*recordset, "i").SetValue("5");
  recordset->Update();
  EXPECT_EQ(Ask("SELECT i FROM t"), Lines{"5"});
}

/// What a node says that has lost the others of its cluster.
TEST_F(MariaDbFailing, LeavesANodeThatServesNoTables) {
  Run("CREATE TABLE LostNodes (ID INTEGER)");
  Run("CREATE FUNCTION Served() RETURNS INTEGER BEGIN IF CONNECTION_ID() IN (SELECT ID FROM LostNodes) THEN "
      "SIGNAL SQLSTATE '08S01' SET MYSQL_ERRNO = 1047; END IF; RETURN CONNECTION_ID(); END");
  Run("CREATE VIEW Goods AS SELECT Served() AS ID");
  const auto kept = Connect(database_.ConnectionString());
  const std::string first = IdOf(kept).front();
  const auto lose_node_of = [&](const std::string& id) { Run("INSERT INTO LostNodes VALUES (" + id + ")"); };
  lose_node_of(first);
  EXPECT_EQ(ErrorOf([&] { Rows(kept, "SELECT ID FROM Goods"); }).Number(), 1047);
  const auto reopen = [&] {
    kept->Close();
    kept->Open(database_.ConnectionString());
  };
  reopen();
  const std::string second = IdOf(kept).front();
  EXPECT_NE(second, first);
  reopen();
  lose_node_of(second);
  EXPECT_NE(Rows(kept, "SELECT ID FROM Goods"), Lines{second});
}

TEST_F(MariaDbFailing, RefusesAConnectionInClearWhereItMustBeEncrypted) {
  const auto refusal_of = [&](const char* mode) {
    return MessageOf([&] { Connect(database_.ConnectionString() + ";SSL Mode=" + mode); });
  };
  EXPECT_EQ(
      refusal_of("Required"),
      "The database cannot be opened: the server offers no encryption, which the SSL Mode of the connection "
      "string asks for");
  for (const char* mode : {"VerifyCA", "VerifyFull"}) {
    EXPECT_NE(refusal_of(mode).find("SSL is required, but the server does not support it"),
              std::string::npos);
  }
  const auto connection = Connect(database_.ConnectionString() + ";SSL Mode=Preferred");
  EXPECT_EQ(Rows(connection, "SELECT 1"), Lines{"1"});
}

}  // namespace

}  // namespace dralo::tests
