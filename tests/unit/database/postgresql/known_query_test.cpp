#include "unit/database/postgresql/known_query.h"

#include <algorithm>
#include <functional>

namespace dralo::tests {

namespace {

TEST_F(KnownQuery, IsPreparedWhenItComesAgain) {
  MakeGoods();
  Ask("SELECT id FROM goods", 5);
  EXPECT_EQ(Prepared(), 0);
  Ask("SELECT id FROM goods", 5);
  EXPECT_EQ(Prepared(), 1);
  Ask("SELECT id FROM goods WHERE id > 0", 5);
  Ask("SELECT id FROM goods WHERE id > 0", 7);
  Page(connection_, "SELECT id FROM goods WHERE id > 0", 100, 95);
  EXPECT_EQ(Prepared(), 2);
}

TEST_F(KnownQuery, IsPreparedOnceForOneRowAndOnceForMore) {
  MakeGoods();
  const auto statements = [&] {
    return Ask(
        "SELECT name FROM pg_prepared_statements WHERE statement LIKE '%goods%' AND statement NOT LIKE "
        "'%pg_prepared%' ORDER BY name");
  };
  for (int i = 0; i < 3; ++i) {
    Ask("SELECT * FROM goods", 1);
    Ask("SELECT * FROM goods", 5);
  }
  const Lines prepared = statements();
  EXPECT_EQ(prepared.size(), 2u);
  Ask("SELECT * FROM goods", 1);
  Ask("SELECT * FROM goods", 5);
  EXPECT_EQ(statements(), prepared);
}

TEST_F(KnownQuery, KnowsWhichColumnsMayBeNull) {
  MakeGoods();
  for (const int max_records : {5, 1, 5, 1, 5, 1, 0}) {
    const auto recordset = Read(connection_, "SELECT * FROM goods", max_records);
    EXPECT_EQ(FieldOf(*recordset, "id").Attributes(), 0);
    EXPECT_EQ(FieldOf(*recordset, "name").Attributes(), platform::kFieldIsNullable);
  }
}

TEST_F(KnownQuery, SeesWhatWasChangedSince) {
  MakeGoods();
  for (int i = 0; i < 4; ++i) {
    Run("UPDATE goods SET stock = " + std::to_string(i) + " WHERE id = 1");
    EXPECT_EQ(Ask("SELECT stock FROM goods WHERE id = 1", 5), Lines{std::to_string(i)});
    EXPECT_EQ(Ask("SELECT SUM(stock) FROM goods WHERE id = 1", 1), Lines{std::to_string(i)});
  }
}

TEST_F(KnownQuery, ShowsAnyPart) {
  MakeGoods();
  const std::string sql = "SELECT id FROM goods ORDER BY id";
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Page(connection_, sql, 3, 0), (Lines{"1", "2", "3"}));
    EXPECT_EQ(Page(connection_, sql, 3, 2), Lines{"3"});
    EXPECT_EQ(Page(connection_, sql, 3, 3), Lines{});
    EXPECT_EQ(Page(connection_, sql, 3, 4), Lines{});
    EXPECT_EQ(Page(connection_, sql, 1, 0), Lines{"1"});
    EXPECT_EQ(Page(connection_, sql, 1, 1), Lines{});
    EXPECT_EQ(Page(connection_, sql, 300, 298), (Lines{"299", "300"}));
    EXPECT_EQ(Page(connection_, sql, 400, 299), Lines{"300"});
    EXPECT_EQ(Page(connection_, sql, 400, 300), Lines{});
    EXPECT_EQ(Page(connection_, sql, 400, 0).size(), 300u);
    EXPECT_EQ(Page(connection_, sql, 290, 10).size(), 280u);
    EXPECT_EQ(Page(connection_, sql, 0, 298), (Lines{"299", "300"}));
  }
}

TEST_F(KnownQuery, ReadsTheSameValuesEachTime) {
  const std::string sql =
      "SELECT i, NULL AS nothing, '' AS empty, repeat('\"\\, ()', i * 4000) AS long, '\\x00ff'::bytea AS "
      "bytes, "
      "timestamp '2024-02-29 10:20:30.000001' AS moment, 0.10::numeric(5,2) AS price, i % 2 = 0 AS even FROM "
      "generate_series(1, 4) i";
  const Lines rows = Ask(sql);
  EXPECT_EQ(rows.size(), 4u);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Ask(sql, 5), rows);
}

TEST_F(KnownQuery, HasNoRowsWhenThereAreNone) {
  MakeGoods();
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Ask("SELECT * FROM goods WHERE id < 0", 5), Lines{});
    EXPECT_EQ(Ask("SELECT * FROM goods WHERE id < 0", 1), Lines{});
    EXPECT_EQ(Ask("SELECT NULL FROM goods WHERE id < 3", 5), (Lines{"null", "null"}));
    EXPECT_EQ(Names("SELECT * FROM goods WHERE id < 0"), (Lines{"id", "name", "stock"}));
  }
}

TEST_F(KnownQuery, IsNotPreparedWhenTheConnectionStringSaysSo) {
  connection_ = Connect(database_.ConnectionString() + ";Prepare=0");
  MakeGoods();
  const std::string sql = "SELECT * FROM goods WHERE id = 7";
  EXPECT_EQ(AskThrice(sql), Lines{"7 'good 7' 1"});
  EXPECT_EQ(AskThrice(sql, 1), Lines{"7 'good 7' 1"});
  EXPECT_EQ(Prepared(), 0);
  Run("ALTER TABLE goods RENAME name TO title");
  EXPECT_EQ(Names(sql), (Lines{"id", "title", "stock"}));
}

TEST_F(KnownQuery, ReadsTheColumnsThatItsTableHasNowWhereNothingStaysPrepared) {
  connection_ = Another(";Prepare=0");
  Run("CREATE TABLE t (id integer, a text, b text, c text)");
  Run("INSERT INTO t VALUES (1, 'aa', 'bb', 'cc'), (2, 'aa', 'bb', 'cc')");
  const auto fields = [&] {
    const auto recordset = Read(connection_, "SELECT * FROM t ORDER BY id");
    recordset->Move(1);
    return ValueOf(*recordset, "id") + ValueOf(*recordset, "b") + ValueOf(*recordset, "c");
  };
  EXPECT_EQ(fields(), "2'bb''cc'");
  Another()->Execute("ALTER TABLE t DROP a");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(fields(), "2'bb''cc'");
  Another()->Execute("ALTER TABLE t ALTER id TYPE text USING 'no. ' || id");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(fields(), "'no. 2''bb''cc'");
}

TEST_F(KnownQuery, StaysPreparedWhenItsSessionIsKeptAndCleaned) {
  MakeGoods();
  const std::string sql = "SELECT id FROM goods";
  AskThrice(sql);
  Run("SET search_path = pg_catalog");
  const int server = Server();
  connection_->Close();
  connection_->Open(database_.ConnectionString());
  EXPECT_EQ(Server(), server);
  EXPECT_EQ(Ask("SHOW search_path"), Lines{"'\"$user\", public'"});
  EXPECT_EQ(Prepared(), 1);
  EXPECT_EQ(AskThrice(sql).size(), 5u);
}

TEST_F(KnownQuery, RunsInsideOfATransaction) {
  MakeGoods();
  const std::string sql = "SELECT * FROM goods WHERE id = 1";
  AskThrice(sql);
  Run("BEGIN");
  Run("ALTER TABLE goods DROP name");
  EXPECT_EQ(AskThrice(sql), Lines{"1 1"});
  Run("ROLLBACK");
  EXPECT_EQ(Prepared(), 1);
  EXPECT_EQ(AskThrice(sql), Lines{"1 'good 1' 1"});
}

TEST_F(KnownQuery, MayBeOpenTwiceAtOnce) {
  MakeGoods();
  const std::string sql = "SELECT id FROM goods ORDER BY id";
  AskThrice(sql);
  const auto one = Read(connection_, sql, 5);
  const auto other = Read(connection_, sql, 5);
  for (int i = 1; i <= 5; ++i, one->MoveNext(), other->MoveNext()) {
    EXPECT_EQ(Line(*one), std::to_string(i));
    EXPECT_EQ(Line(*other), std::to_string(i));
  }
  EXPECT_EQ(Ask(sql, 5).size(), 5u);
}

TEST_F(KnownQuery, KeepsAFewStatementsForManyQueries) {
  MakeGoods();
  for (int round = 0; round < 3; ++round) {
    for (int i = 1; i <= 50; ++i) {
      const std::string id = std::to_string(i);
      EXPECT_EQ(AskThrice("SELECT id FROM goods WHERE id = " + id), Lines{id});
    }
  }
  EXPECT_GT(Prepared(), 10);
  EXPECT_LE(Prepared(), 32);
}

TEST_F(KnownQuery, StaysPreparedWhenManyOthersComeOnce) {
  MakeGoods();
  AskThrice("SELECT id FROM goods");
  for (int i = 1; i <= 100; ++i) Ask("SELECT name FROM goods WHERE id = " + std::to_string(i), 5);
  EXPECT_EQ(Prepared(), 1);
}

TEST_F(KnownQuery, HasTheSameOrderOfEqualKeysOnAllPagesOfASortedView) {
  MakeGoods();
  Run("CREATE VIEW sorted AS SELECT id, stock FROM goods ORDER BY stock");
  for (const std::string sql : {"SELECT * FROM sorted", "SELECT id FROM goods ORDER BY stock"}) {
    const Lines all = Ask(sql);
    for (int passed = 0; passed < 300; passed += 50) {
      for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Page(connection_, sql, passed + 7, passed),
                  Lines(all.begin() + passed, all.begin() + passed + 7));
      }
    }
  }
}

TEST_F(KnownQuery, IsNotSpreadOverWorkersButItsCountMayBe) {
  MakeGoods();
  Run("CREATE FUNCTION who() RETURNS integer LANGUAGE plpgsql PARALLEL SAFE AS 'BEGIN RETURN "
      "pg_backend_pid(); "
      "END'");
  for (const char* setting : {"parallel_setup_cost = 0", "parallel_tuple_cost = 0",
                              "min_parallel_table_scan_size = 0", "parallel_leader_participation = off"}) {
    Run("SET " + std::string(setting));
  }
  const Lines own = Ask("SELECT pg_backend_pid()");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Ask("SELECT DISTINCT who() FROM goods WHERE id > 3", 5), own);
    EXPECT_NE(Ask("SELECT MIN(who()) FROM goods WHERE id > 3", 1), own);
  }
}

TEST_F(KnownQuery, ComesBackAfterTheServerHasEndedTheIdleSession) {
  MakeGoods();
  const std::string sql = "SELECT id FROM goods";
  const std::function<Lines()> uses[] = {[&] { return Ask(sql, 5); }, [&] { return Ask(sql, 400); },
                                         [&] { return Ask(sql); },
                                         [&] { return Ask("SELECT COUNT(*) FROM goods", 1); }};
  for (const auto& use : uses) {
    const Lines expected = use();
    use();
    use();
    const Lines pid = Ask("SELECT pg_backend_pid()");
    connection_->Close();
    const auto other = Connect(database_.ConnectionString() + ";Query Timeout=28");
    // The server ends the session after the connection was found alive and before its first statement.
    connection_->Open(database_.ConnectionString());
    Rows(other, "SELECT pg_terminate_backend(" + pid.front() + ", 5000)");
    EXPECT_EQ(use(), expected);
    EXPECT_NE(Ask("SELECT pg_backend_pid()"), pid);
  }
}

TEST_F(KnownQuery, CallsItsFunctionsOnceEachTimeItIsOpened) {
  Run("CREATE SEQUENCE calls");
  const std::string sqls[] = {"SELECT nextval('calls')",
                              "SELECT nextval('calls'), ARRAY[true], '{1,2}'::int[]",
                              "SELECT nextval('calls'), 'a'::cstring"};
  int calls = 0;
  for (const std::string& sql : sqls) {
    for (const int max_records : {1, 5, 1, 5, 1, 5, 0, 0}) {
      Read(connection_, sql, max_records);
      EXPECT_EQ(Ask("SELECT last_value FROM calls"), Lines{std::to_string(++calls)}) << sql << max_records;
    }
  }
}

TEST_F(KnownQuery, HasTheRowsOfTheMomentItWasOpened) {
  MakeGoods();
  const std::string sql = "SELECT stock FROM goods WHERE id = 1";
  for (int i = 10; i < 18; ++i) {
    Run("UPDATE goods SET stock = " + std::to_string(i) + " WHERE id = 1");
    const auto recordset = Read(connection_, i % 2 == 0 ? sql : sql + " OR id < 0", i < 14 ? 5 : 200);
    Run("UPDATE goods SET stock = 0 WHERE id = 1");
    EXPECT_EQ(Rest(*recordset), Lines{std::to_string(i)});
  }
}

TEST_F(KnownQuery, ReadsTheTextOfItsOwnStatement) {
  const std::string sql =
      "SELECT 1 AS a, current_query() LIKE '%current_query%' AS b, current_query() AS q, 3 AS c";
  for (const int max_records : {1, 5, 5, 5, 0}) {
    const Lines rows = Ask(sql, max_records);
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_TRUE(rows.front().starts_with("1 true '")) << rows.front();
    EXPECT_TRUE(rows.front().ends_with(" 3")) << rows.front();
  }
}

TEST_F(KnownQuery, ReadsBytesInTheOlderSpelling) {
  Run("SET bytea_output = 'escape'");
  for (const int max_records : {1, 5, 5, 5, 0}) {
    EXPECT_EQ(Ask("SELECT '\\x00ff5c5c41'::bytea AS b, ''::bytea AS e", max_records),
              Lines{"x'00FF5C5C41' x''"});
  }
}

TEST_F(KnownQuery, RefusesWhatIsNoQueryEachTime) {
  MakeGoods();
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(ErrorOf([&] { Ask("SELECT FROM WHERE", 5); }).SqlState(), "42601");
    EXPECT_EQ(Ask("WITH new AS (UPDATE goods SET stock = 9 WHERE id = 1 RETURNING id) SELECT id FROM new", 5),
              Lines{"1"});
    EXPECT_EQ(Ask("SELECT id FROM goods WHERE id < 3 ORDER BY id FOR UPDATE", 5), (Lines{"1", "2"}));
    EXPECT_EQ(Ask("SELECT id FROM goods ORDER BY id LIMIT 2 -- the end", 5), (Lines{"1", "2"}));
    EXPECT_EQ(Ask("SELECT 1 AS dralo_row, 2 AS dralo_row, 3 AS dralo_page", 5), Lines{"1 2 3"});
    EXPECT_EQ(Ask("VALUES (1), (2)", 5), (Lines{"1", "2"}));
  }
}

}  // namespace

}  // namespace dralo::tests
