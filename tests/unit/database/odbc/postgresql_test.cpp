#include <clocale>
#include <cstdlib>

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

/// The driver makes another day of these, or none.
TEST_F(PostgreSqlDriver, DoesNotSaveOverDaysThatItCannotRead) {
  Run("CREATE TABLE days (id integer PRIMARY KEY, day date, moment timestamp, note text)");
  Run("INSERT INTO days VALUES (1, 'infinity', NULL, 'a'), (2, '0044-03-15 BC', NULL, 'a'), "
      "(3, NULL, '-infinity', 'a'), (4, '10000-01-01', NULL, 'a')");
  for (int id = 1; id <= 4; ++id) {
    const auto recordset = Edit(connection_, "SELECT * FROM days WHERE id = " + std::to_string(id));
    recordset->SetUpdateCriteria(platform::UpdateCriteria::kAllColumns);
    FieldOf(*recordset, "note").SetValue("b");
    EXPECT_THROW(recordset->Update(), platform::Error) << id;
  }
  EXPECT_EQ(Ask("SELECT concat(day, moment), note FROM days ORDER BY id"),
            (Lines{"'infinity' 'a'", "'0044-03-15 BC' 'a'", "'-infinity' 'a'", "'10000-01-01' 'a'"}));
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

TEST_F(PostgreSqlDriver, LeavesALongResultOnTheServerWhereItsDriverIsToldTo) {
  connection_ = Connect(database_.ConnectionString() + ";UseDeclareFetch=1");
  Run("CREATE SEQUENCE seen");
  const auto recordset =
      Read(connection_, "SELECT i FROM generate_series(1, 20000) i WHERE nextval('seen') > 0");
  EXPECT_EQ(Line(*recordset), "1");
  const auto other = Connect(database_.ConnectionString());
  EXPECT_LT(std::stoi(Rows(other, "SELECT last_value FROM seen").front()), 1000);

  Run("CREATE TABLE done (i integer)");
  EXPECT_EQ(Rows(other, "SELECT COUNT(*) FROM done"), Lines{"0"});
  const Lines rows = Rest(*recordset);
  EXPECT_EQ(rows.size(), 20000u);
  EXPECT_EQ(rows.back(), "20000");
}

TEST_F(PostgreSqlDriver, CommitsOtherStatementsWhileItReads) {
  Run("CREATE TABLE done (i integer)");
  const auto recordset = Read(connection_, "SELECT i FROM generate_series(1, 5000) i");
  std::int64_t rows = 0;
  for (; !recordset->Eof(); recordset->MoveNext()) {
    if (++rows % 2500 == 1) Run("INSERT INTO done VALUES (1)");
  }
  EXPECT_EQ(rows, 5000);
  EXPECT_EQ(Rows(Connect(database_.ConnectionString()), "SELECT COUNT(*) FROM done"), Lines{"2"});
}

TEST_F(PostgreSqlDriver, ReadsSeveralResultsSideBySide) {
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
  const auto error = ErrorOf([&] { Ask("SELECT 1 / (i - 3000) FROM generate_series(1, 5000) i"); });
  EXPECT_EQ(error.Description(), "division by zero (SQLSTATE 22012)");
  EXPECT_EQ(error.Source(), "SELECT 1 / (i - 3000) FROM generate_series(1, 5000) i");
  EXPECT_EQ(Ask("SELECT 7"), Lines{"7"});
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

TEST_F(PostgreSqlDriver, RunsStatementsThatTakeNoLimit) {
  EXPECT_EQ(Ask("SHOW DateStyle"), Lines{"'ISO, MDY'"});
  EXPECT_EQ(Ask("EXPLAIN SELECT 1").size(), 1u);
  Run("CREATE TABLE t (i integer)");
  EXPECT_EQ(Ask("WITH new AS (INSERT INTO t VALUES (1), (2) RETURNING i) SELECT i FROM new"),
            (Lines{"1", "2"}));
  EXPECT_EQ(Ask("SELECT i FROM t ORDER BY i FOR UPDATE", 9), (Lines{"1", "2"}));
  EXPECT_EQ(Ask("SELECT i FROM t ORDER BY i LIMIT 1;", 9), Lines{"1"});
  EXPECT_EQ(Ask("SELECT i FROM t -- the end", 9), (Lines{"1", "2"}));
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
