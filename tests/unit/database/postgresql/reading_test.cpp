#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "data/commands.h"
#include "support/child_process.h"
#include "unit/database/postgresql/native_test.h"

namespace dralo::tests {

namespace {

using platform::TypeCode;

class NativeReading : public PostgreSqlProvider {};

TEST_F(NativeReading, ReadsTypesOfAllKinds) {
  EXPECT_EQ(
      Ask("SELECT '{\"a\": \"b\"}'::json, '{1,NULL,3}'::int[], B'101'::bit(3), '1 day'::interval, "
          "'6ba7b810-9dad-11d1-80b4-00c04fd430c8'::uuid, 'abc'::char(5), 1234.5::money",
          1),
      Lines{"'{\"a\": \"b\"}' '{1,NULL,3}' '101' '1 day' '6ba7b810-9dad-11d1-80b4-00c04fd430c8' 'abc  ' "
            "1234.50m"});
}

TEST_F(NativeReading, YieldsTheSameFromShortAndLongResults) {
  const std::string sql =
      "SELECT i, i::smallint, i * 10000000000, i / 4.0::numeric(10,2), i * 0.1::real, i * 0.1::float8, i % 2 "
      "= 0, date '2024-02-29' + i, timestamp '2024-02-29 10:20:30.000001' + i * interval '1 hour', time "
      "'10:20:30.5', 'x\"y\\z, (' || i, NULL, '', decode(repeat('00ff5c', i), 'hex'), 'a'::char(3) FROM "
      "generate_series(1, 30) i";
  EXPECT_EQ(Ask(sql, 30), Ask(sql));
  EXPECT_EQ(Ask(sql, 100).size(), 30u);
}

TEST_F(NativeReading, KeepsDaysThatAreInNoCalendar) {
  Run("CREATE TABLE days (day date, moment timestamp)");
  Run("INSERT INTO days VALUES ('infinity', '-infinity'), ('0044-03-15 BC', NULL), ('20240-01-01', NULL)");
  const Lines days = {"'infinity' '-infinity'", "'0044-03-15 BC' null", "'20240-01-01' null"};
  EXPECT_EQ(Ask("SELECT day, moment FROM days"), days);
  EXPECT_EQ(Ask("SELECT day, moment FROM days", 5), days);
}

TEST_F(NativeReading, DropsTheOffsetOfATimeZone) {
  Run("SET TimeZone = 'Asia/Kolkata'");
  EXPECT_EQ(Ask("SELECT timestamptz '2024-03-01 00:00:00.5+00'"), Lines{"2024-03-01 05:30:00.500000000"});
}

TEST_F(NativeReading, ReadsNumbersOfAThousandDigits) {
  const std::string digits(1000, '7');
  EXPECT_EQ(Ask("SELECT " + digits + "." + digits), Lines{digits + "." + digits + "m"});
}

TEST_F(NativeReading, GivesNoSizeToTextsOfAnyLength) {
  const auto recordset =
      Read(connection_, "SELECT 'a'::varchar AS a, 'b'::varchar(300) AS b, '1'::jsonb AS c", 1);
  EXPECT_EQ(FieldOf(*recordset, "a").DefinedSize(), 0);
  EXPECT_EQ(FieldOf(*recordset, "a").Type(), TypeCode::kLongVarWideChar);
  EXPECT_EQ(FieldOf(*recordset, "b").DefinedSize(), 300);
  EXPECT_EQ(FieldOf(*recordset, "b").Type(), TypeCode::kVarWideChar);
  EXPECT_EQ(FieldOf(*recordset, "c").DefinedSize(), 0);
}

TEST_F(NativeReading, ReadsBytesInTheOlderSpelling) {
  Run("SET bytea_output = 'escape'");
  EXPECT_EQ(Ask("SELECT '\\x00ff5c27'::bytea"), Lines{"x'00FF5C27'"});
}

TEST_F(NativeReading, KnowsThatAnOuterJoinAddsNulls) {
  Run("CREATE TABLE t (id integer PRIMARY KEY)");
  const auto is_nullable = [&](const std::string& sql) {
    return (Read(connection_, sql, 5)->Fields()[0]->Attributes() & platform::kFieldIsNullable) != 0;
  };
  EXPECT_FALSE(is_nullable("SELECT id FROM t"));
  EXPECT_FALSE(is_nullable("SELECT b.id FROM t a JOIN t b ON a.id = b.id"));
  EXPECT_TRUE(is_nullable("SELECT b.id FROM t a LEFT JOIN t b ON false"));
  EXPECT_TRUE(is_nullable("SELECT id FROM t GROUP BY ROLLUP (id)"));
  EXPECT_TRUE(is_nullable("SELECT id + 1 FROM t"));
}

TEST_F(NativeReading, FetchesNoMoreThanIsAskedFor) {
  Run("CREATE SEQUENCE seen");
  EXPECT_EQ(Ask("SELECT nextval('seen') FROM generate_series(1, 100000)", 5).size(), 5u);
  EXPECT_EQ(Ask("SELECT last_value FROM seen"), Lines{"5"});
}

TEST_F(NativeReading, PassesOverRowsOnTheServer) {
  const std::string sql = "SELECT i FROM generate_series(1, 100000) i";
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Page(connection_, sql, 90003, 90000), (Lines{"90001", "90002", "90003"}));
    EXPECT_EQ(Page(connection_, sql, 0, 99998), (Lines{"99999", "100000"}));
    EXPECT_EQ(Page(connection_, sql, 0, 100007), Lines{});
  }
}

TEST_F(NativeReading, RunsStatementsThatCannotBeLimited) {
  EXPECT_EQ(Ask("SHOW DateStyle"), Lines{"'ISO, MDY'"});
  EXPECT_EQ(Ask("SHOW DateStyle", 1), Lines{"'ISO, MDY'"});
  EXPECT_EQ(Ask("EXPLAIN SELECT 1", 5).size(), 1u);
  EXPECT_EQ(Ask("SELECT 'a'::cstring", 5), Lines{"'a'"});
  EXPECT_EQ(Ask("SELECT 'a'::cstring FROM generate_series(1, 9)", 5).size(), 5u);
  Run("CREATE TABLE t (i integer)");
  EXPECT_EQ(Ask("WITH new AS (INSERT INTO t VALUES (1), (2) RETURNING i) SELECT i FROM new"),
            (Lines{"1", "2"}));
  EXPECT_EQ(Ask("INSERT INTO t VALUES (3) RETURNING i", 5), Lines{"3"});
  EXPECT_EQ(Ask("SELECT i FROM t ORDER BY i FOR UPDATE", 2), (Lines{"1", "2"}));
  EXPECT_EQ(Ask("SELECT i FROM t ORDER BY i LIMIT 1;"), Lines{"1"});
  EXPECT_EQ(Ask("SELECT i FROM t ORDER BY i -- the end", 1), Lines{"1"});
  EXPECT_EQ(Ask("SELECT 1 AS a, 2 AS a", 5), Lines{"1 2"});
}

TEST_F(NativeReading, GivesParametersTheTypesOfLiterals) {
  const auto rows = [&](const std::string& sql, std::vector<platform::Variant> values) {
    return RowsOf(MakeCommand(connection_, sql, std::move(values)));
  };
  EXPECT_EQ(rows("SELECT pg_typeof(?), pg_typeof(?), pg_typeof(?), pg_typeof(?)",
                 {std::int64_t{1}, std::int64_t{1} << 40, true, platform::Decimal{"1.5"}}),
            Lines{"'integer' 'bigint' 'boolean' 'numeric'"});
  EXPECT_EQ(rows("SELECT repeat('x', ?), date '2024-02-28' + ?", {std::int64_t{3}, std::int64_t{2}}),
            Lines{"'xxx' 2024-03-01 00:00:00"});
  EXPECT_EQ(rows("SELECT 1 WHERE uuid '6ba7b810-9dad-11d1-80b4-00c04fd430c8' = ? AND 5 = ?",
                 {std::string("6ba7b810-9dad-11d1-80b4-00c04fd430c8"), std::string("5")}),
            Lines{"1"});
  EXPECT_EQ(rows("SELECT '{\"k\": 1}'::jsonb ?? ?, '{\"k\": 1}'::jsonb ?? 'z'", {std::string("k")}),
            Lines{"true false"});
}

/// Long results are read as they come, while other statements run.
class LongResult : public PostgreSqlProvider {};

TEST_F(LongResult, RunsBesidesOthers) {
  const auto one = Read(connection_, "SELECT i FROM generate_series(1, 3000) i");
  const auto other = Read(connection_, "SELECT -i FROM generate_series(1, 3000) i");
  for (int i = 1; i <= 3000; ++i, one->MoveNext(), other->MoveNext()) {
    ASSERT_EQ(Line(*one), std::to_string(i));
    ASSERT_EQ(Line(*other), std::to_string(-i));
  }
  EXPECT_TRUE(one->Eof());
  EXPECT_TRUE(other->Eof());
}

TEST_F(LongResult, IsSetAsideInAFileWhenItIsTooLongForMemory) {
  const auto recordset = Read(connection_,
                              "SELECT i, NULL, '', repeat(chr(64 + i % 20), 5000) FROM "
                              "generate_series(1, 5000) i");
  for (int i = 1; i <= 5000; ++i, recordset->MoveNext()) {
    if (i == 1000) {
      EXPECT_EQ(Ask("SELECT 7", 5), Lines{"7"});
    }
    ASSERT_EQ(Line(*recordset),
              std::to_string(i) + " null '' '" + std::string(5000, static_cast<char>(64 + i % 20)) + "'");
  }
  EXPECT_TRUE(recordset->Eof());
}

TEST_F(LongResult, KeepsTheValuesOfItsRowWhileOthersRun) {
  const auto recordset = Read(connection_, "SELECT i, 'x' || i FROM generate_series(1, 3000) i");
  recordset->Move(500);
  const auto value = recordset->Fields()[1]->Value();
  EXPECT_EQ(Ask("SELECT 7"), Lines{"7"});
  EXPECT_EQ(Shown(value), "'x501'");
  EXPECT_EQ(Line(*recordset), "501 'x501'");
  recordset->MoveNext();
  EXPECT_EQ(Line(*recordset), "502 'x502'");
}

TEST_F(LongResult, TellsItsFailureWhereItIs) {
  const std::string sql = "SELECT 1 / (i - 3000) FROM generate_series(1, 5000) i";
  for (const bool is_set_aside : {false, true}) {
    const auto recordset = Read(connection_, sql);
    EXPECT_FALSE(recordset->Eof());
    if (is_set_aside) {
      EXPECT_EQ(Ask("SELECT 7"), Lines{"7"});
    }
    int rows = 0;
    const auto error = ErrorOf([&] {
      for (; !recordset->Eof(); recordset->MoveNext()) ++rows;
    });
    // Where the client library takes rows in parts, the failure comes in place of the part that it ends.
    EXPECT_LE(rows, 2999);
    EXPECT_GT(rows, 2800);
    EXPECT_EQ(error.Description(), "division by zero (SQLSTATE 22012)");
    EXPECT_EQ(error.Source(), sql);
  }
}

TEST_F(LongResult, CommitsOtherStatementsWhileItIsRead) {
  Run("CREATE TABLE done (i integer)");
  const auto recordset = Read(connection_, "SELECT i FROM generate_series(1, 5000) i");
  std::int64_t rows = 0;
  for (; !recordset->Eof(); recordset->MoveNext()) {
    if (++rows % 2500 == 1) Run("INSERT INTO done VALUES (1)");
  }
  EXPECT_EQ(rows, 5000);
  EXPECT_EQ(Rows(Another(), "SELECT COUNT(*) FROM done"), Lines{"2"});
}

/// A child of fork() that ends by exit() may move the position of every file that it shares.
TEST_F(LongResult, IsNotDisturbedByAChildProcessWhileItIsSetAside) {
  const auto recordset = Read(connection_, "SELECT i, repeat('x', 1000) FROM generate_series(1, 30000) i");
  EXPECT_FALSE(recordset->Eof());
  EXPECT_EQ(Ask("SELECT 7"), Lines{"7"});
  int rows = 0;
  for (; !recordset->Eof(); recordset->MoveNext()) {
    ASSERT_EQ(ValueOf(*recordset, "i"), std::to_string(++rows));
    if (rows % 10000 != 2) continue;
    EXPECT_TRUE(HoldsInChild([] {
      for (int file = 3; file < 100; ++file) lseek(file, 0, SEEK_SET);
      return true;
    }));
  }
  EXPECT_EQ(rows, 30000);
}

TEST_F(LongResult, TellsThatItCannotBeSetAsideBehindTheRowsThatWere) {
  const std::string before = std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "/tmp";
  const auto recordset = Read(connection_, "SELECT i, repeat('x', 1000) FROM generate_series(1, 30000) i");
  EXPECT_FALSE(recordset->Eof());
  setenv("TMPDIR", "/nowhere", 1);
  EXPECT_EQ(Ask("SELECT 7"), Lines{"7"});
  setenv("TMPDIR", before.c_str(), 1);
  int rows = 0;
  const auto error = ErrorOf([&] {
    for (; !recordset->Eof(); recordset->MoveNext())
      EXPECT_EQ(ValueOf(*recordset, "i"), std::to_string(++rows));
  });
  EXPECT_EQ(error.Description(), "The folder for temporary files has no room for the rest of a result");
  EXPECT_GT(rows, 1000);
}

constexpr std::string_view kEndless =
    "SELECT i, repeat('x', 1000) FROM generate_series(1, 10000) i, generate_series(1, 10000) j, "
    "generate_series(1, 10000) k";

TEST_F(LongResult, IsLeftForAnotherConnection) {
  const auto start = std::chrono::steady_clock::now();
  const auto servers = [&] {
    return Rows(Another(),
                "SELECT pid FROM pg_stat_activity WHERE state = 'active' AND datname = current_database()");
  };
  const auto recordset = Read(connection_, kEndless);
  EXPECT_FALSE(recordset->Eof());
  EXPECT_EQ(servers().size(), 2u);
  recordset->Close();
  EXPECT_EQ(Ask("SELECT 7"), Lines{"7"});
  while (servers().size() > 1) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST_F(LongResult, IsLeftWithoutLosingATransactionOrASetting) {
  const std::string sql = "SELECT i, repeat('x', 1000) FROM generate_series(1, 30000) i";
  const int server = Server();
  Run("CREATE TABLE t (i integer)");
  Run("BEGIN");
  Run("INSERT INTO t VALUES (1)");
  EXPECT_FALSE(Read(connection_, sql)->Eof());
  Run("INSERT INTO t VALUES (2)");
  Run("COMMIT");
  EXPECT_EQ(Ask("SELECT i FROM t ORDER BY i"), (Lines{"1", "2"}));
  Run("SET search_path = pg_catalog");
  EXPECT_FALSE(Read(connection_, sql)->Eof());
  EXPECT_EQ(Ask("SHOW search_path"), Lines{"'pg_catalog'"});
  EXPECT_EQ(Server(), server);
}

TEST_F(LongResult, DoesNotCountTheTimeOfItsReader) {
  connection_ = Another(";Query Timeout=1");
  const auto recordset = Read(connection_, "SELECT i, repeat('x', 1000) FROM generate_series(1, 30000) i");
  EXPECT_FALSE(recordset->Eof());
  std::this_thread::sleep_for(std::chrono::seconds(2));
  int rows = 0;
  for (; !recordset->Eof(); recordset->MoveNext()) ++rows;
  EXPECT_EQ(rows, 30000);
  EXPECT_EQ(Ask("SHOW statement_timeout"), Lines{"'1s'"});
}

TEST_F(LongResult, DoesNotCountTheTimeOfItsReaderWhereItCallsFunctions) {
  connection_ = Another(";Query Timeout=4");
  Run("CREATE FUNCTION twice(i integer) RETURNS integer LANGUAGE plpgsql AS 'BEGIN RETURN 2 * i; END'");
  const auto recordset =
      Read(connection_, "SELECT twice(i), repeat('x', 1000) FROM generate_series(1, 8000) i");
  int rows = 0;
  for (; !recordset->Eof(); recordset->MoveNext()) {
    EXPECT_EQ(ValueOf(*recordset, "twice"), std::to_string(2 * ++rows));
    if (rows % 100 == 0 && rows <= 1600) std::this_thread::sleep_for(std::chrono::milliseconds(300));
  }
  EXPECT_EQ(rows, 8000);
}

TEST_F(LongResult, LeavesTheLimitOfStatementsInATransactionAsItWas) {
  Run("BEGIN");
  EXPECT_EQ(Ask("SELECT i FROM generate_series(1, 3000) i").size(), 3000u);
  EXPECT_EQ(Ask("SHOW statement_timeout"), Lines{"'30s'"});
  Run("ROLLBACK");
}

}  // namespace

}  // namespace dralo::tests
