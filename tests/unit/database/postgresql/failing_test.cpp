#include <atomic>
#include <chrono>
#include <csignal>
#include <thread>

#include "data/commands.h"
#include "database/interruption.h"
#include "support/child_process.h"
#include "unit/database/postgresql/native_test.h"

namespace dralo::tests {

namespace {

constexpr std::string_view kNoAnswer =
    "The database has not answered in time; the connection is given up (SQLSTATE HYT00)";

/// A page whose server process is frozen ends with one message. The process is thawed by the end of the test.
class FrozenSession : public PostgreSqlProvider {
 protected:
  void SetUp() override {
    connection_ = Another(";Query Timeout=1");
    pid_ = Server();
  }
  void TearDown() override { kill(pid_, SIGCONT); }

  void Freeze() const { ASSERT_EQ(kill(pid_, SIGSTOP), 0); }

  int pid_ = 0;
};

TEST_F(FrozenSession, IsGivenUpByAQueryAndAllBehindIt) {
  Ask("SELECT 7", 5);
  Freeze();
  const auto error = ErrorOf([&] { Ask("SELECT 7", 5); });
  EXPECT_EQ(error.Description(), kNoAnswer);
  EXPECT_EQ(error.SqlState(), "HYT00");
  EXPECT_EQ(error.Source(), "SELECT 7");
  EXPECT_EQ(ErrorOf([&] { Run("CREATE TABLE t (i integer)"); }).Description(), kNoAnswer);
  connection_->Close();
  EXPECT_EQ(Rows(Another(";Query Timeout=1"), "SELECT 7"), Lines{"7"});
}

TEST_F(FrozenSession, IsNotAskedAgainOverAnotherConnection) {
  connection_->Close();
  connection_->Open(database_.ConnectionString() + ";Query Timeout=1");
  Freeze();
  EXPECT_EQ(ErrorOf([&] { Ask("SELECT 7", 5); }).Description(), kNoAnswer);
}

TEST_F(FrozenSession, IsGivenUpAlsoBehindStatementsThatLeaveSomething) {
  Run("CREATE TEMP TABLE t (i integer)");
  Run("SELECT i INTO TEMP u FROM t");
  Run("DO $$ BEGIN NULL; END $$");
  Run("SET search_path = public");
  Run("RESET ALL");
  EXPECT_EQ(Ask("SELECT 'into the wild'", 5), Lines{"'into the wild'"});
  Freeze();
  EXPECT_EQ(ErrorOf([&] { Run("DO $$ BEGIN NULL; END $$"); }).Description(), kNoAnswer);
}

TEST_F(FrozenSession, IsGivenUpInTheMiddleOfAResult) {
  const auto recordset = Read(connection_, "SELECT i, repeat('x', 1000) FROM generate_series(1, 50000) i");
  EXPECT_FALSE(recordset->Eof());
  Freeze();
  const auto error = ErrorOf([&] {
    while (!recordset->Eof()) recordset->MoveNext();
  });
  EXPECT_EQ(error.Description(), kNoAnswer);
}

TEST_F(FrozenSession, IsGivenUpByARecordToSave) {
  Run("CREATE TABLE t (i integer PRIMARY KEY)");
  Run("INSERT INTO t VALUES (1)");
  const auto recordset = Edit(connection_, "SELECT i FROM t");
  FieldOf(*recordset, "i").SetValue("2");
  Freeze();
  EXPECT_EQ(ErrorOf([&] { recordset->Update(); }).Description(), kNoAnswer);
}

TEST_F(FrozenSession, IsGivenUpWhileALongParameterIsSent) {
  Freeze();
  const auto command = MakeCommand(connection_, "SELECT length(?)", {std::string(20'000'000, 'x')});
  EXPECT_EQ(ErrorOf([&] { RowsOf(command); }).Description(), kNoAnswer);
}

TEST_F(FrozenSession, IsGivenUpByAChildOfTheProcess) {
  EXPECT_TRUE(HoldsInChild([&] {
    connection_ = Another(";Query Timeout=1;Application Name=child");
    pid_ = Server();
    Freeze();
    const auto error = ErrorOf([&] { Ask("SELECT 7", 5); });
    kill(pid_, SIGCONT);
    return error.Description() == kNoAnswer;
  }));
}

class Failing : public PostgreSqlProvider {
 protected:
  void EndServer() const {
    Rows(Another(), "SELECT pg_terminate_backend(" + std::to_string(Server()) + ", 5000)");
  }
};

TEST_F(Failing, ReportsASlowStatementAndKeepsTheConnection) {
  connection_ = Another(";Query Timeout=1");
  const int server = Server();
  const auto error = ErrorOf([&] { Ask("SELECT pg_sleep(20)", 1); });
  EXPECT_EQ(error.SqlState(), "57014");
  EXPECT_EQ(error.Source(), "SELECT pg_sleep(20)");
  EXPECT_EQ(ErrorOf([&] { Run("CREATE TABLE slow AS SELECT pg_sleep(20)::text"); }).SqlState(), "57014");
  EXPECT_EQ(Server(), server);
}

TEST_F(Failing, ReportsAFunctionWhoseRowsNobodyReads) {
  Run("CREATE FUNCTION refuse(integer) RETURNS integer LANGUAGE plpgsql AS $$ BEGIN RAISE 'not today'; END "
      "$$");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(ErrorOf([&] { Run("SELECT refuse(1)"); }).Description(), "not today (SQLSTATE P0001)");
  }
}

TEST_F(Failing, DoesNothingByAFunctionThatTakesTooLong) {
  connection_ = Another(";Query Timeout=1");
  Run("CREATE TABLE done (i integer)");
  Run("CREATE FUNCTION slow() RETURNS integer LANGUAGE plpgsql AS $$ BEGIN PERFORM pg_sleep(3.1); INSERT "
      "INTO "
      "done VALUES (1); RETURN 1; END $$");
  const int server = Server();
  EXPECT_EQ(ErrorOf([&] { Run("SELECT slow()"); }).SqlState(), "57014");
  EXPECT_EQ(Server(), server);
  std::this_thread::sleep_for(std::chrono::seconds(2));
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM done"), Lines{"0"});
}

TEST_F(Failing, HasNoLimitOfItsOwnWhenTheUserHasChangedThatOfTheServer) {
  connection_ = Another(";Query Timeout=1");
  Run("SET statement_timeout = 0");
  EXPECT_NO_THROW(Run("CREATE TABLE slow AS SELECT pg_sleep(3.5)::text"));
}

TEST_F(Failing, GivesUpALongResultThatIsSlowAndGoesOnOverAnotherConnection) {
  connection_ = Another(";Query Timeout=1");
  const auto error = ErrorOf(
      [&] { Ask("SELECT i FROM generate_series(1, 20000) i, generate_series(1, 20000) j WHERE i + j < 0"); });
  EXPECT_EQ(error.Description(), kNoAnswer);
  EXPECT_EQ(Ask("SELECT 7"), Lines{"7"});
}

TEST_F(Failing, WaitsForEachPartOfALongResultAsLongAsForTheFirst) {
  connection_ = Another(";Query Timeout=2");
  Run("CREATE VIEW slow AS SELECT i, pg_sleep(0.017)::text, repeat('x', 9000) FROM generate_series(1, 300) "
      "i");
  EXPECT_EQ(Ask("SELECT * FROM slow").size(), 300u);
}

TEST_F(Failing, ReportsAServerThatEndsInTheMiddleOfAResult) {
  const auto recordset = Read(connection_, "SELECT i, repeat('x', 1000) FROM generate_series(1, 50000) i");
  EXPECT_FALSE(recordset->Eof());
  Rows(Another(),
       "SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE query LIKE '%50000%' AND "
       "pid <> pg_backend_pid()");
  const auto error = ErrorOf([&] {
    while (!recordset->Eof()) recordset->MoveNext();
  });
  EXPECT_TRUE(error.SqlState() == "57P01" || error.SqlState() == "08006") << error.Description();
  EXPECT_EQ(error.Source(), "SELECT i, repeat('x', 1000) FROM generate_series(1, 50000) i");
}

TEST_F(Failing, ReportsAServerThatEndedAndDoesNotRepeatAChange) {
  Run("CREATE TABLE t (i integer)");
  EndServer();
  EXPECT_THROW(Run("INSERT INTO t VALUES (1)"), platform::Error);
  EXPECT_THROW(Ask("SELECT i FROM t"), platform::Error) << "in use, so not opened again";
  EXPECT_EQ(Rows(Another(), "SELECT COUNT(*) FROM t"), Lines{"0"});
}

TEST_F(Failing, KeepsTheTransactionOfTheUserWhenAStatementFails) {
  Run("CREATE TABLE t (i integer PRIMARY KEY)");
  Run("BEGIN");
  Run("INSERT INTO t VALUES (1)");
  EXPECT_EQ(ErrorOf([&] { Run("INSERT INTO t VALUES (1)"); }).SqlState(), "23505");
  EXPECT_EQ(ErrorOf([&] { Ask("SELECT 1 / (i - 300) FROM generate_series(1, 600) i"); }).SqlState(), "22012");
  EXPECT_EQ(ErrorOf([&] { Ask("SELECT nothing FROM t", 5); }).SqlState(), "42703");
  Run("SAVEPOINT own");
  Run("INSERT INTO t VALUES (2)");
  Run("ROLLBACK TO own");
  Run("INSERT INTO t VALUES (3)");
  Run("COMMIT");
  EXPECT_EQ(Rows(Another(), "SELECT i FROM t ORDER BY i"), (Lines{"1", "3"}));
}

TEST_F(Failing, SaysThatTheClientCopiesNothing) {
  Run("CREATE TABLE t (i integer)");
  EXPECT_THROW(Run("COPY t FROM STDIN"), platform::Error);
  EXPECT_EQ(Rows(Another(), "SELECT COUNT(*) FROM t"), Lines{"0"});
}

TEST_F(Failing, RefusesSeveralStatementsInOne) {
  Run("CREATE TABLE t (i integer)");
  EXPECT_EQ(ErrorOf([&] { Run("INSERT INTO t VALUES (1); DROP TABLE t"); }).SqlState(), "42601");
  EXPECT_EQ(ErrorOf([&] { Ask("SELECT 1; DROP TABLE t"); }).SqlState(), "42601");
  EXPECT_EQ(ErrorOf([&] { Ask("SELECT 1; DROP TABLE t", 5); }).SqlState(), "42601");
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM t"), Lines{"0"});
}

TEST_F(Failing, EndsAStatementWhenTheHostWantsToStop) {
  static std::atomic<bool> wants_to_stop = false;
  database::StopStatementsWhen([]() noexcept { return wants_to_stop.load(); });
  std::thread host([] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    wants_to_stop = true;
  });
  const auto start = std::chrono::steady_clock::now();
  std::string message;
  try {
    Ask("SELECT pg_sleep(20)", 1);
  } catch (const platform::Error& error) {
    message = error.what();
  }
  const auto taken = std::chrono::steady_clock::now() - start;
  host.join();
  database::StopStatementsWhen(nullptr);
  EXPECT_EQ(message, "The statement was ended: the host wants to stop");
  EXPECT_LT(taken, std::chrono::seconds(5));
}

TEST_F(Failing, KeepsNoSessionOfAServerThatTakesNoChanges) {
  Run("CREATE TABLE t (i integer)");
  const auto again = [&] {
    const int server = Server();
    connection_->Close();
    connection_->Open(database_.ConnectionString());
    return server == Server();
  };
  EXPECT_TRUE(again());
  Run("BEGIN READ ONLY");
  EXPECT_EQ(ErrorOf([&] { Run("INSERT INTO t VALUES (1)"); }).SqlState(), "25006");
  EXPECT_FALSE(again());
}

TEST_F(Failing, LeavesNoticesOfTheServerAlone) {
  testing::internal::CaptureStderr();
  Run("DROP TABLE IF EXISTS nothing");
  Run("DO $$ BEGIN RAISE WARNING 'careful'; END $$");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace

}  // namespace dralo::tests
