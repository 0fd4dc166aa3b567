#include <string_view>
#include <utility>

#include "unit/database/odbc/driver_test.h"

namespace dralo::tests {

namespace {

/// Queries of a page that come again and again, as those of a site do.
class RepeatedQuery : public PostgreSqlDriver {
 protected:
  static constexpr int kPageRows = 5;

  /// So that it is prepared, kept and taken again.
  Lines AskThrice(std::string_view sql, std::int64_t max_records = kPageRows) const {
    Ask(sql, max_records);
    Ask(sql, max_records);
    return Ask(sql, max_records);
  }

  Lines Names(std::string_view sql) const {
    Lines names;
    const auto recordset = Read(connection_, sql, kPageRows);
    for (const platform::Field* field : recordset->Fields()) names.emplace_back(field->Name());
    return names;
  }

  int Prepared() const {
    return std::stoi(
        Ask("SELECT COUNT(*) FROM pg_prepared_statements WHERE statement ~ 'FROM [g]oods'").front());
  }

  void MakeGoods() const {
    Run("CREATE TABLE goods (id integer PRIMARY KEY, name varchar(20), stock integer)");
    Run("INSERT INTO goods SELECT i, 'good ' || i, i % 3 FROM generate_series(1, 300) i");
  }
};

TEST_F(RepeatedQuery, IsPreparedOnce) {
  MakeGoods();
  Ask("SELECT id FROM goods", 5);
  Ask("SELECT id FROM goods", 5);
  EXPECT_EQ(Prepared(), 1);
  Ask("SELECT id FROM goods", 7);
  Page(connection_, "SELECT id FROM goods", 100, 95);
  EXPECT_EQ(Prepared(), 1);
}

TEST_F(RepeatedQuery, KnowsWhichColumnsMayBeNull) {
  MakeGoods();
  for (const int max_records : {5, 1, 5, 1, 5, 1, 0}) {
    const auto recordset = Read(connection_, "SELECT * FROM goods", max_records);
    EXPECT_EQ(FieldOf(*recordset, "id").Attributes(), 0);
    EXPECT_EQ(FieldOf(*recordset, "name").Attributes(), platform::kFieldIsNullable);
  }
}

TEST_F(RepeatedQuery, SeesWhatWasChangedSince) {
  MakeGoods();
  for (int i = 0; i < 4; ++i) {
    Run("UPDATE goods SET stock = " + std::to_string(i) + " WHERE id = 1");
    EXPECT_EQ(Ask("SELECT stock FROM goods WHERE id = 1", 5), Lines{std::to_string(i)});
    EXPECT_EQ(Ask("SELECT SUM(stock) FROM goods WHERE id = 1", 1), Lines{std::to_string(i)});
  }
}

TEST_F(RepeatedQuery, ShowsAnyPart) {
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

TEST_F(RepeatedQuery, HasAllRowsAgainAfterSomeWhereItTakesNoLimit) {
  MakeGoods();
  const std::string sql = "SELECT id FROM goods ORDER BY id LIMIT 50";
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Page(connection_, sql, 5, 3), (Lines{"4", "5"}));
    EXPECT_EQ(Ask(sql).size(), 50u);
    EXPECT_EQ(Page(connection_, sql, 9, 7), (Lines{"8", "9"}));
  }
}

TEST_F(RepeatedQuery, ReadsTheSameValuesEachTime) {
  const std::string sql =
      "SELECT i, NULL AS nothing, '' AS empty, repeat('\"\\, ()', i * 4000) AS long, '\\x00ff'::bytea AS "
      "bytes, "
      "timestamp '2024-02-29 10:20:30.000001' AS moment, 0.10::numeric(5,2) AS price, i % 2 = 0 AS even FROM "
      "generate_series(1, 4) i";
  const Lines rows = Ask(sql);
  EXPECT_EQ(rows.size(), 4u);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Ask(sql, 5), rows);
}

TEST_F(RepeatedQuery, HasNoRowsWhenThereAreNone) {
  MakeGoods();
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Ask("SELECT * FROM goods WHERE id < 0", 5), Lines{});
    EXPECT_EQ(Ask("SELECT * FROM goods WHERE id < 0", 1), Lines{});
    EXPECT_EQ(Ask("SELECT NULL FROM goods WHERE id < 3", 5), (Lines{"null", "null"}));
    EXPECT_EQ(Names("SELECT * FROM goods WHERE id < 0"), (Lines{"id", "name", "stock"}));
  }
}

TEST_F(RepeatedQuery, FollowsTheTableWhoseColumnsChange) {
  MakeGoods();
  const std::string sql = "SELECT * FROM goods WHERE id = 7";
  const std::pair<std::string_view, Lines> changes[] = {
      {"RENAME name TO title", {"id", "title", "stock"}},
      {"ADD price integer DEFAULT 12", {"id", "title", "stock", "price"}},
      {"DROP stock", {"id", "title", "price"}},
      {"ALTER price TYPE text USING 'about ' || price", {"id", "title", "price"}}};
  EXPECT_EQ(AskThrice(sql), Lines{"7 'good 7' 1"});
  for (const auto& [change, names] : changes) {
    Run("ALTER TABLE goods " + std::string(change));
    EXPECT_EQ(Names(sql), names) << change;
    EXPECT_EQ(AskThrice(sql).size(), 1u);
  }
  EXPECT_EQ(Ask(sql, 5), Lines{"7 'good 7' 'about 12'"});
  EXPECT_EQ(AskThrice("SELECT * FROM goods WHERE id = 7", 1), Lines{"7 'good 7' 'about 12'"});
}

TEST_F(RepeatedQuery, FailsWhenItsTableIsGoneAndWorksWhenItIsBack) {
  MakeGoods();
  EXPECT_EQ(AskThrice("SELECT id FROM goods").size(), 5u);
  Run("DROP TABLE goods");
  for (int i = 0; i < 3; ++i) {
    const auto error = ErrorOf([&] { Ask("SELECT id FROM goods", 5); });
    EXPECT_EQ(error.SqlState(), "42P01");
    EXPECT_EQ(error.Source(), "SELECT id FROM goods");
  }
  MakeGoods();
  EXPECT_EQ(AskThrice("SELECT id FROM goods").size(), 5u);
}

TEST_F(RepeatedQuery, GoesOnWhenItsPreparedStatementIsGone) {
  MakeGoods();
  EXPECT_EQ(AskThrice("SELECT id FROM goods").size(), 5u);
  Run("DEALLOCATE ALL");
  EXPECT_EQ(AskThrice("SELECT id FROM goods").size(), 5u);
}

TEST_F(RepeatedQuery, IsNotPreparedWhenTheConnectionStringSaysSo) {
  connection_ = Connect(database_.ConnectionString() + ";UseServerSidePrepare=0");
  MakeGoods();
  const std::string sql = "SELECT * FROM goods WHERE id = 7";
  EXPECT_EQ(AskThrice(sql), Lines{"7 'good 7' 1"});
  EXPECT_EQ(AskThrice(sql, 1), Lines{"7 'good 7' 1"});
  EXPECT_EQ(Prepared(), 0);
  Run("ALTER TABLE goods RENAME name TO title");
  EXPECT_EQ(Names(sql), (Lines{"id", "title", "stock"}));
}

TEST_F(RepeatedQuery, RunsInsideOfATransaction) {
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

TEST_F(RepeatedQuery, MayBeOpenTwiceAtOnce) {
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

TEST_F(RepeatedQuery, KeepsAFewStatementsForManyQueries) {
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

TEST_F(RepeatedQuery, ReadsBytesInTheOlderSpelling) {
  Run("SET bytea_output = 'escape'");
  for (const int max_records : {1, 5, 5, 5, 0}) {
    EXPECT_EQ(Ask("SELECT '\\x00ff5c5c41'::bytea AS b, ''::bytea AS e", max_records),
              Lines{"x'00FF5C5C41' x''"});
  }
}

TEST_F(RepeatedQuery, RefusesWhatIsNoQueryEachTime) {
  MakeGoods();
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(ErrorOf([&] { Ask("SELECT FROM WHERE", 5); }).SqlState(), "42601");
    EXPECT_EQ(ErrorOf([&] { Ask("SELECT 1; SELECT 2 FROM nowhere", 5); }).SqlState(), "42P01");
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
