#include <unistd.h>

#include <atomic>
#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "support/child_process.h"
#include "unit/database/odbc/driver_test.h"

namespace dralo::tests {

namespace {

using platform::TypeCode;

TEST_F(PostgreSqlDriver, ReadsTypesThatTheDriverDoesNotKnow) {
  EXPECT_EQ(
      Ask("SELECT '{\"a\": \"b\"}'::json, '{1,NULL,3}'::int[], B'101'::bit(3), '1 day'::interval, "
          "'6ba7b810-9dad-11d1-80b4-00c04fd430c8'::uuid, 'abc'::char(5), 1234.5::money",
          1),
      Lines{"'{\"a\": \"b\"}' '{1,NULL,3}' '101' '1 day' '6ba7b810-9dad-11d1-80b4-00c04fd430c8' 'abc  ' "
            "1234.50m"});
}

TEST_F(PostgreSqlDriver, ReadsTheSameFromShortAndLongResults) {
  const std::string sql =
      "SELECT i, i::smallint, i * 10000000000, i / 4.0::numeric(10,2), i * 0.1::real, i * 0.1::float8, i % 2 "
      "= 0, "
      "date '2024-02-29' + i, timestamp '2024-02-29 10:20:30.000001' + i * interval '1 hour', time "
      "'10:20:30.5', "
      "'x\"y\\z, (' || i, NULL, '', decode(repeat('00ff5c', i), 'hex'), 'a'::char(3) FROM generate_series(1, "
      "30) i";
  EXPECT_EQ(Ask(sql, 30), Ask(sql));
  EXPECT_EQ(Ask(sql, 100).size(), 30u);
}

TEST_F(PostgreSqlDriver, KeepsDaysThatAreInNoCalendar) {
  Run("CREATE TABLE days (day date, moment timestamp)");
  Run("INSERT INTO days VALUES ('infinity', '-infinity'), ('0044-03-15 BC', NULL), ('20240-01-01', NULL)");
  EXPECT_EQ(Ask("SELECT day, moment FROM days"),
            (Lines{"'infinity' '-infinity'", "'0044-03-15 BC' null", "'20240-01-01' null"}));
}

TEST_F(PostgreSqlDriver, ReadsNumbersOfAThousandDigits) {
  const std::string digits(1000, '7');
  EXPECT_EQ(Ask("SELECT " + digits + "." + digits), Lines{digits + "." + digits + "m"});
  EXPECT_EQ(Ask("SELECT " + digits + "." + digits, 1), Lines{digits + "." + digits + "m"});
}

TEST_F(PostgreSqlDriver, GivesNoSizeToTextsOfAnyLength) {
  const auto recordset =
      Read(connection_, "SELECT 'a'::varchar AS a, 'b'::varchar(300) AS b, '1'::jsonb AS c", 1);
  EXPECT_EQ(FieldOf(*recordset, "a").DefinedSize(), 0);
  EXPECT_EQ(FieldOf(*recordset, "a").Type(), TypeCode::kLongVarWideChar);
  EXPECT_EQ(FieldOf(*recordset, "b").DefinedSize(), 300);
  EXPECT_EQ(FieldOf(*recordset, "b").Type(), TypeCode::kVarWideChar);
  EXPECT_EQ(FieldOf(*recordset, "c").DefinedSize(), 0);
}

TEST_F(PostgreSqlDriver, ReadsTextsThatAreLongerThanTheBlockInAnyRow) {
  const std::string sql = "SELECT i, repeat(chr(128512), i * 97) FROM generate_series(1, 60) i";
  for (const int limit : {0, 60}) {
    const auto recordset = Read(connection_, sql, limit);
    for (std::size_t i = 1; !recordset->Eof(); recordset->MoveNext(), ++i) {
      const auto text = recordset->Fields()[1]->Value();
      ASSERT_EQ(std::get<std::string_view>(text).size(), i * 97 * 4);
      ASSERT_EQ(Shown(recordset->Fields()[0]->Value()), std::to_string(i));
    }
  }
}

/// The locale that the driver looks at.
class Locale {
 public:
  explicit Locale(const char* name) : before_(setlocale(LC_ALL, nullptr)) {
    setenv("LC_ALL", name, 1);
    setlocale(LC_ALL, name);
  }
  ~Locale() {
    unsetenv("LC_ALL");
    setlocale(LC_ALL, before_.c_str());
  }
  Locale(const Locale&) = delete;
  Locale& operator=(const Locale&) = delete;

 private:
  const std::string before_;
};

TEST_F(PostgreSqlDriver, KeepsTextsWhateverTheLocaleOfTheProcess) {
  const Locale locale("C");
  const auto connection = Connect(database_.ConnectionString() + ";Query Timeout=29");
  const std::string text = "\xC3\xA9\xF0\x9F\x98\x80";
  platform::Command command;
  command.active_connection = connection;
  command.command_text = "SELECT '" + text + "', ?::text, repeat('" + text + "', 500)";
  command.parameters = {text};
  const auto recordset = database::MakeRecordset();
  recordset->Open(command);
  std::string repeated;
  for (int i = 0; i < 500; ++i) repeated += text;
  EXPECT_EQ(Rest(*recordset), Lines{"'" + text + "' '" + text + "' '" + repeated + "'"});
}

TEST_F(PostgreSqlDriver, FetchesNoMoreThanIsAskedFor) {
  Run("CREATE SEQUENCE seen");
  EXPECT_EQ(Ask("SELECT nextval('seen') FROM generate_series(1, 100000)", 5).size(), 5u);
  EXPECT_EQ(Ask("SELECT last_value FROM seen"), Lines{"5"});
}

TEST_F(PostgreSqlDriver, PassesOverRowsOnTheServer) {
  EXPECT_EQ(Page(connection_, "SELECT i FROM generate_series(1, 100000) i", 90003, 90000),
            (Lines{"90001", "90002", "90003"}));
  EXPECT_EQ(Page(connection_, "SELECT i FROM generate_series(1, 50) i", 0, 48), (Lines{"49", "50"}));
  EXPECT_EQ(Page(connection_, "SELECT i FROM generate_series(1, 50) i", 0, 60), Lines{});
}

TEST_F(PostgreSqlDriver, LeavesALongResultOnTheServerUntilItIsRead) {
  Run("CREATE SEQUENCE seen");
  const auto produced = [&] {
    return std::stoi(Rows(Connect(database_.ConnectionString()), "SELECT last_value FROM seen").front());
  };
  const auto recordset = Read(connection_, "SELECT nextval('seen') FROM generate_series(1, 100000)");
  for (int i = 1; i <= 20000; ++i, recordset->MoveNext()) ASSERT_EQ(Line(*recordset), std::to_string(i));
  EXPECT_GE(produced(), 20000);
  EXPECT_LT(produced(), 22000);
}

TEST_F(PostgreSqlDriver, CommitsOtherStatementsWhileItStreams) {
  Run("CREATE TABLE done (i integer)");
  const auto recordset = Read(connection_, "SELECT i FROM generate_series(1, 5000) i");
  std::int64_t rows = 0;
  for (; !recordset->Eof(); recordset->MoveNext()) {
    if (++rows % 2500 == 1) Run("INSERT INTO done VALUES (1)");
  }
  EXPECT_EQ(rows, 5000);
  EXPECT_EQ(Rows(Connect(database_.ConnectionString()), "SELECT COUNT(*) FROM done"), Lines{"2"});
}

TEST_F(PostgreSqlDriver, StreamsSeveralResultsSideBySide) {
  const auto one = Read(connection_, "SELECT i FROM generate_series(1, 3000) i");
  const auto other = Read(connection_, "SELECT -i FROM generate_series(1, 3000) i");
  for (int i = 1; i <= 3000; ++i, one->MoveNext(), other->MoveNext()) {
    ASSERT_EQ(Line(*one), std::to_string(i));
    ASSERT_EQ(Line(*other), std::to_string(-i));
  }
  EXPECT_TRUE(one->Eof());
  EXPECT_TRUE(other->Eof());
}

TEST_F(PostgreSqlDriver, LeavesNoTransactionBehindAResultThatIsLeft) {
  Read(connection_, "SELECT i FROM generate_series(1, 5000) i")->Eof();
  EXPECT_EQ(Rows(Connect(database_.ConnectionString()),
                 "SELECT COUNT(*) FROM pg_stat_activity WHERE state LIKE 'idle in%' AND datname = "
                 "current_database()"),
            Lines{"0"});
}

TEST_F(PostgreSqlDriver, GoesOnAfterAFailureInTheMiddleOfAResult) {
  const auto recordset = Read(connection_, "SELECT 1 / (i - 3000) FROM generate_series(1, 5000) i");
  const auto error = ErrorOf([&] {
    while (!recordset->Eof()) recordset->MoveNext();
  });
  EXPECT_EQ(error.Description(), "division by zero (SQLSTATE 22012)");
  EXPECT_EQ(error.Source(), "SELECT 1 / (i - 3000) FROM generate_series(1, 5000) i");
  EXPECT_EQ(Ask("SELECT 7"), Lines{"7"});
}

/// Rows come soon up to the 1,200th, then hardly ever.
constexpr std::string_view kEndlessFrom1200 =
    "SELECT i, CASE WHEN i > 1200 THEN pg_sleep(3600) END FROM generate_series(1, 5000) i";

void ReadTo1050(platform::Recordset& recordset) {
  for (int i = 1; i < 1050; ++i) recordset.MoveNext();
}

TEST_F(PostgreSqlDriver, LeavesAResultWhoseNextRowsTakeLong) {
  connection_ = Connect(database_.ConnectionString() + ";Query Timeout=0");
  Run("CREATE TABLE t (i integer)");
  {
    const auto recordset = Read(connection_, kEndlessFrom1200);
    ReadTo1050(*recordset);
    EXPECT_TRUE(Line(*recordset).starts_with("1050 "));
  }
  EXPECT_EQ(Ask("SELECT i FROM t"), Lines{});
  connection_->Close();
  EXPECT_EQ(Rows(Connect(database_.ConnectionString()), "SELECT COUNT(*) FROM t"), Lines{"0"});
}

TEST_F(PostgreSqlDriver, KeepsTheTransactionOfAResultThatIsLeftWhileRowsAreFetched) {
  Run("CREATE TABLE t (i integer)");
  Run("BEGIN");
  Run("INSERT INTO t VALUES (1)");
  {
    const auto recordset = Read(
        connection_, "SELECT i, CASE WHEN i = 1200 THEN pg_sleep(0.3) END FROM generate_series(1, 5000) i");
    ReadTo1050(*recordset);
  }
  Run("INSERT INTO t VALUES (2)");
  Run("COMMIT");
  EXPECT_EQ(Ask("SELECT i FROM t ORDER BY i"), (Lines{"1", "2"}));
}

TEST_F(PostgreSqlDriver, RunsOtherStatementsWhileRowsAreFetched) {
  Run("CREATE TABLE t (i integer)");
  const auto recordset = Read(
      connection_, "SELECT i, CASE WHEN i = 1200 THEN pg_sleep(0.3) END FROM generate_series(1, 5000) i");
  ReadTo1050(*recordset);
  Run("INSERT INTO t VALUES (1)");
  EXPECT_EQ(Ask("SELECT i FROM t", 5), Lines{"1"});
  EXPECT_EQ(Ask("SELECT i FROM t", 5), Lines{"1"});
  EXPECT_EQ(Edit(connection_, "SELECT i FROM t")->Fields().size(), 1u);
  int rows = 1050;
  for (recordset->MoveNext(); !recordset->Eof(); recordset->MoveNext()) ++rows;
  EXPECT_EQ(rows, 5000);
}

std::atomic<int> signals_here = 0;
std::atomic<int> signals_elsewhere = 0;

TEST_F(PostgreSqlDriver, HandlesSignalsOnlyInTheThreadOfTheProgram) {
  struct sigaction action {};
  struct sigaction before {};
  action.sa_handler = [](int) { ++(gettid() == getpid() ? signals_here : signals_elsewhere); };
  sigaction(SIGUSR1, &action, &before);
  const auto recordset = Read(
      connection_, "SELECT i, CASE WHEN i = 1200 THEN pg_sleep(0.3) END FROM generate_series(1, 5000) i");
  ReadTo1050(*recordset);

  sigset_t user_signal;
  sigemptyset(&user_signal);
  sigaddset(&user_signal, SIGUSR1);
  pthread_sigmask(SIG_BLOCK, &user_signal, nullptr);
  kill(getpid(), SIGUSR1);
  while (!recordset->Eof()) recordset->MoveNext();
  EXPECT_EQ(signals_elsewhere, 0);
  pthread_sigmask(SIG_UNBLOCK, &user_signal, nullptr);
  EXPECT_EQ(signals_here, 1);
  sigaction(SIGUSR1, &before, nullptr);
}

TEST_F(PostgreSqlDriver, ReadsRecordsOfNullsAndArraysOfThem) {
  Run("CREATE TYPE pair AS (a integer, b text)");
  const std::string sql =
      "SELECT i, ROW(NULL, NULL)::pair AS nulls, NULL::pair AS nothing, ARRAY[NULL]::text[] AS list, i AS "
      "last FROM "
      "generate_series(1, 3) i";
  const Lines rows = {"1 '(,)' null '{NULL}' 1", "2 '(,)' null '{NULL}' 2", "3 '(,)' null '{NULL}' 3"};
  EXPECT_EQ(Ask(sql), rows);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Ask(sql, 5), rows);
}

TEST_F(PostgreSqlDriver, ReadsRowsOfAnyWidth) {
  for (const int width : {1, 2, 62, 63, 64, 65, 101, 200}) {
    std::string sql = "SELECT ";
    std::string expected;
    for (int i = 1; i <= width; ++i) {
      const std::string value = i % 5 == 0 ? "NULL" : std::to_string(i);
      sql.append(i > 1 ? ", " : "").append(value).append(" AS f").append(std::to_string(i));
      expected.append(i > 1 ? " " : "").append(i % 5 == 0 ? "null" : value);
    }
    sql += " FROM generate_series(1, 2)";
    EXPECT_EQ(Ask(sql), (Lines{expected, expected})) << width;
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Ask(sql, 5), (Lines{expected, expected})) << width;
  }
}

TEST_F(PostgreSqlDriver, ReadsEveryCharacterOfATextAsItIs) {
  const std::string sql =
      "SELECT (SELECT string_agg(chr(i), '') FROM generate_series(1, 300) i) AS all, E'\x1f' AS unit, "
      "E'\x1f\x1f' "
      "AS units, ' ' AS blank FROM generate_series(1, 3)";
  const Lines rows = Ask(sql, 1);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_TRUE(rows.front().ends_with("'\x1F' '\x1F\x1F' ' '")) << rows.front();
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Ask(sql, 5), Lines(3, rows.front()));
    EXPECT_EQ(Ask(sql), Lines(3, rows.front()));
  }
}

TEST_F(PostgreSqlDriver, LetsStatementsTakeAsLongAsTheServerDoes) {
  connection_ = Connect(database_.ConnectionString() + ";Query Timeout=4");
  EXPECT_NO_THROW(
      Run("SELECT pg_sleep(1.3); SELECT pg_sleep(1.3); SELECT pg_sleep(1.3); SELECT pg_sleep(1.3); "
          "SELECT pg_sleep(1.3)"));
  connection_ = Connect(database_.ConnectionString() + ";Query Timeout=1");
  Run("SET statement_timeout = 0");
  EXPECT_NO_THROW(Run("CREATE TABLE slow AS SELECT pg_sleep(3.5)::text"));
  connection_ =
      Connect(database_.ConnectionString() + ";Query Timeout=1;ConnSettings=SET statement_timeout = 0");
  EXPECT_NO_THROW(Run("CREATE TABLE slower AS SELECT pg_sleep(3.5)::text"));
}

/// A page whose server process is frozen ends with one message. The process is thawed by the end of the test.
class FrozenServer : public PostgreSqlDriver {
 protected:
  void SetUp() override {
    connection_ = Connect(database_.ConnectionString() + ";Query Timeout=1");
    pid_ = Ask("SELECT pg_backend_pid()").front();
  }
  void TearDown() override { kill(std::stoi(pid_), SIGCONT); }

  void Freeze() const { ASSERT_EQ(kill(std::stoi(pid_), SIGSTOP), 0); }

  /// Until so many rows have left the server and it waits for the next order.
  void WaitUntilSent(int rows) {
    const auto observer = Connect(database_.ConnectionString());
    const std::string sql =
        "SELECT 1 FROM sent, pg_stat_activity WHERE last_value >= " + std::to_string(rows) +
        " AND wait_event = 'ClientRead' AND pid = " + pid_;
    while (Rows(observer, sql).empty()) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }

  std::string pid_;
  static constexpr std::string_view kMessage =
      "The database has not answered in time; the connection is given up (SQLSTATE HYT00)";
};

TEST_F(FrozenServer, IsGivenUpByAQuery) {
  Ask("SELECT 7", 5);
  Ask("SELECT 7", 5);
  Freeze();
  const auto error = ErrorOf([&] { Ask("SELECT 7", 5); });
  EXPECT_EQ(error.Description(), kMessage);
  EXPECT_EQ(error.SqlState(), "HYT00");
  EXPECT_EQ(error.Source(), "SELECT 7");
  connection_->Close();
  EXPECT_EQ(Rows(Connect(database_.ConnectionString() + ";Query Timeout=1"), "SELECT 7"), Lines{"7"});
}

TEST_F(FrozenServer, IsNotAskedAgainOverAnotherConnection) {
  connection_->Close();
  connection_->Open(database_.ConnectionString() + ";Query Timeout=1");
  Freeze();
  EXPECT_EQ(ErrorOf([&] { Ask("SELECT 7", 5); }).Description(), kMessage);
}

TEST_F(FrozenServer, IsGivenUpInTheMiddleOfAResult) {
  const auto recordset = Read(connection_, "SELECT i FROM generate_series(1, 50000) i");
  ReadTo1050(*recordset);
  Freeze();
  const auto error = ErrorOf([&] {
    while (!recordset->Eof()) recordset->MoveNext();
  });
  EXPECT_EQ(error.Description(), kMessage);
}

TEST_F(FrozenServer, IsGivenUpByAResultThatIsLeft) {
  {
    Run("CREATE SEQUENCE sent");
    const auto recordset = Read(connection_, "SELECT i, nextval('sent') FROM generate_series(1, 50000) i");
    ReadTo1050(*recordset);
    for (int i = 1050; i < 1150; ++i) recordset->MoveNext();
    WaitUntilSent(2150);
    Freeze();
    for (int i = 1150; i < 2150; ++i) recordset->MoveNext();
    EXPECT_EQ(Line(*recordset), "2150 2150");
  }
  EXPECT_EQ(ErrorOf([&] { Ask("SELECT 7", 5); }).Description(), kMessage);
}

TEST_F(FrozenServer, IsGivenUpByAStatementAndByARecordToSave) {
  Run("CREATE TABLE t (i integer PRIMARY KEY)");
  Run("INSERT INTO t VALUES (1)");
  const auto recordset = Edit(connection_, "SELECT i FROM t");
  FieldOf(*recordset, "i").SetValue("2");
  Freeze();
  EXPECT_EQ(ErrorOf([&] { recordset->Update(); }).Description(), kMessage);
  EXPECT_EQ(ErrorOf([&] { Run("INSERT INTO t VALUES (3)"); }).Description(), kMessage);
}

TEST_F(FrozenServer, IsGivenUpByAChildOfTheProcess) {
  EXPECT_TRUE(HoldsInChild([&] {
    connection_ = Connect(database_.ConnectionString() + ";Query Timeout=1;ApplicationName=child");
    pid_ = Ask("SELECT pg_backend_pid()").front();
    Freeze();
    const auto error = ErrorOf([&] { Ask("SELECT 7", 5); });
    kill(std::stoi(pid_), SIGCONT);
    return error.Description() == kMessage;
  }));
}

TEST_F(PostgreSqlDriver, RunsStatementsThatCannotHaveACursor) {
  EXPECT_EQ(Ask("SHOW DateStyle"), Lines{"'ISO, MDY'"});
  EXPECT_EQ(Ask("EXPLAIN SELECT 1").size(), 1u);
  Run("CREATE TABLE t (i integer)");
  EXPECT_EQ(Ask("WITH new AS (INSERT INTO t VALUES (1), (2) RETURNING i) SELECT i FROM new"),
            (Lines{"1", "2"}));
  EXPECT_EQ(Ask("SELECT i FROM t ORDER BY i FOR UPDATE"), (Lines{"1", "2"}));
  EXPECT_EQ(Ask("SELECT i FROM t ORDER BY i LIMIT 1;"), Lines{"1"});
  EXPECT_EQ(Ask("SELECT i FROM t -- the end"), (Lines{"1", "2"}));
  EXPECT_EQ(Ask("SELECT 1 AS a, 2 AS a"), Lines{"1 2"});
}

TEST_F(PostgreSqlDriver, SavesRecordsWithTypesThatCannotBeCompared) {
  Run("CREATE TABLE documents (id serial PRIMARY KEY, body json, note xml, share real, moment timestamptz)");
  Run("INSERT INTO documents (body, note, share, moment) VALUES ('{\"a\": 1}', '<a/>', 0.1, '2024-01-02 "
      "03:04:05')");
  const auto recordset = Edit(connection_, "SELECT * FROM documents");
  FieldOf(*recordset, "body").SetValue("[1]");
  FieldOf(*recordset, "share").SetValue("0.7");
  recordset->Update();
  EXPECT_EQ(Ask("SELECT body, share FROM documents"), Lines{"'[1]' 0.7"});
}

TEST_F(PostgreSqlDriver, StopsAStatementThatTakesTooLong) {
  const auto patient = Connect(database_.ConnectionString() + ";Query Timeout=1");
  EXPECT_EQ(ErrorOf([&] { patient->Execute("SELECT pg_sleep(20)"); }).SqlState(), "57014");
}

}  // namespace

}  // namespace dralo::tests
