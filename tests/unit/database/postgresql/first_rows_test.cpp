#include <chrono>
#include <thread>

#include "unit/database/postgresql/known_query.h"

namespace dralo::tests {

namespace {

/// The first page of a query that comes again and again.
class FirstRows : public KnownQuery {
 protected:
  void SetUp() override { MakeGoods(); }

  /// How often the server has run what it keeps prepared for queries of the table, by plans that it keeps and
  /// by plans for one run.
  std::string Plans() const {
    return Ask("SELECT coalesce(SUM(generic_plans), 0)::integer, coalesce(SUM(custom_plans), 0)::integer "
               "FROM "
               "pg_prepared_statements WHERE statement LIKE '%goods%' AND statement NOT LIKE '%pg_prepared%'")
        .front();
  }
};

TEST_F(FirstRows, ArePlannedOnceWhereTheirOrderDoesNotDependOnThePlan) {
  for (const std::string sql : {"SELECT * FROM goods", "SELECT * FROM goods WHERE id > 7 ORDER BY stock",
                                "SELECT id, 'x', 2 + 2 FROM goods g"}) {
    AskThrice(sql);
    EXPECT_EQ(Plans(), "2 0") << sql;
    Run("DEALLOCATE ALL");
  }
}

TEST_F(FirstRows, ArePlannedEachTimeWhereThePlanGivesTheOrder) {
  Run("CREATE VIEW shown_goods AS SELECT * FROM goods");
  for (const std::string sql :
       {"SELECT * FROM goods WHERE id > 7", "SELECT * FROM shown_goods", "SELECT * FROM goods, goods g",
        "SELECT * FROM shown_goods ORDER BY stock", "SELECT DISTINCT stock FROM goods",
        "SELECT * FROM (SELECT * FROM goods WHERE id > 7) g"}) {
    AskThrice(sql);
    EXPECT_EQ(Plans(), "0 2") << sql;
    Run("DEALLOCATE ALL");
  }
}

TEST_F(FirstRows, AreAsManyAsArePreparedOnly) {
  const std::string sql = "SELECT id FROM goods ORDER BY stock, id";
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Ask(sql, 2), (Lines{"3", "6"}));
    EXPECT_EQ(Ask(sql, 3), (Lines{"3", "6", "9"}));
    EXPECT_EQ(Ask(sql, 4), (Lines{"3", "6", "9", "12"}));
    EXPECT_EQ(Page(connection_, sql, 4, 1), (Lines{"6", "9", "12"}));
    EXPECT_EQ(Page(connection_, sql, 3, 3), Lines{});
    EXPECT_EQ(Ask(sql).size(), 300u);
  }
  EXPECT_EQ(Prepared(), 2);
}

TEST_F(FirstRows, HaveTheColumnsThatTheTableHasNow) {
  const std::string sql = "SELECT * FROM goods ORDER BY stock, id DESC";
  AskThrice(sql);
  for (int i = 0; i < 3; ++i) Page(connection_, sql, 6, 3);
  Another()->Execute("ALTER TABLE goods DROP name");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Ask(sql, kPageRows).front(), "300 0");
    EXPECT_EQ(Page(connection_, sql, 6, 3).front(), "291 0");
    EXPECT_EQ(Names(sql), (Lines{"id", "stock"}));
  }
  Another()->Execute("ALTER TABLE goods ADD note text DEFAULT 'n'");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Page(connection_, sql, 6, 3).front(), "291 0 'n'");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Ask(sql, kPageRows).front(), "300 0 'n'");
  Another()->Execute("ALTER TABLE goods DROP id");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(ErrorOf([&] { Ask(sql, kPageRows); }).SqlState(), "42703");
}

TEST_F(FirstRows, GoWithTheQueryThatIsKeptNoLonger) {
  for (int i = 1; i <= 50; ++i) AskThrice("SELECT id, " + std::to_string(i) + " FROM goods");
  AskThrice("SELECT name FROM goods");
  EXPECT_LE(Prepared(), 32);
  EXPECT_GT(Prepared(), 20);
}

/// An index that has all that is asked for is read instead of the table only where enough of it is wanted.
TEST_F(FirstRows, AreInTheOrderOfTheLaterOnes) {
  Run("CREATE TABLE wide_goods (id integer PRIMARY KEY, name varchar(40), memo text)");
  Run("INSERT INTO wide_goods SELECT i, 'good ' || md5(i::text), repeat('m', 250) FROM generate_series(1, "
      "700) i ORDER BY i DESC");
  const auto knows_visible_pages = [&] {
    Run("VACUUM ANALYZE wide_goods");
    return Ask("SELECT relallvisible FROM pg_class WHERE relname = 'wide_goods'") != Lines{"0"};
  };
  while (!knows_visible_pages()) std::this_thread::sleep_for(std::chrono::milliseconds(50));
  const std::string sql = "SELECT id FROM wide_goods";
  AskThrice(sql, 20);
  const Lines all = Ask(sql);
  for (int passed = 0; passed < 700; passed += 20) {
    EXPECT_EQ(Page(connection_, sql, passed + 20, passed),
              Lines(all.begin() + passed, all.begin() + passed + 20));
  }
}

TEST_F(FirstRows, AreReadInTransactionsToo) {
  const std::string sql = "SELECT id FROM goods";
  AskThrice(sql);
  Run("BEGIN");
  Run("DELETE FROM goods WHERE id = 1");
  EXPECT_EQ(AskThrice(sql).front(), "2");
  Run("ROLLBACK");
  EXPECT_EQ(AskThrice(sql).front(), "1");
}

}  // namespace

}  // namespace dralo::tests
