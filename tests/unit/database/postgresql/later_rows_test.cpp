#include "unit/database/postgresql/known_query.h"

namespace dralo::tests {

namespace {

/// Pages behind the first of a query that comes again and again.
class LaterRows : public KnownQuery {
 protected:
  void SetUp() override { MakeGoods(); }

  /// How often the server has run such pages by a plan that it keeps, and by plans for one run.
  std::string Plans() const {
    return Ask("SELECT coalesce(SUM(generic_plans), 0)::integer, coalesce(SUM(custom_plans), 0)::integer "
               "FROM "
               "pg_prepared_statements WHERE statement LIKE '%FROM goods%' AND statement LIKE '%OFFSET%$2%' "
               "AND statement NOT LIKE '%pg_prepared%'")
        .front();
  }

  std::string Mode() const { return Ask("SHOW plan_cache_mode").front(); }

  Lines Second(std::string_view sql) const { return Page(connection_, sql, 2 * kPageRows, kPageRows); }
};

TEST_F(LaterRows, ArePlannedOnceForAllPagesOfASingleTable) {
  const std::string sql = "SELECT id, 1000 / (id - 50) FROM goods";
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Second(sql).front(), "6 -22");
  EXPECT_EQ(Page(connection_, sql, 42, 40), (Lines{"41 -111", "42 -125"}));
  EXPECT_EQ(Plans(), "3 0");
  EXPECT_EQ(Mode(), "'force_custom_plan'");
}

TEST_F(LaterRows, ThatFailLeaveNoPlanToBeKept) {
  const std::string sql = "SELECT id, 1000 / (id - 50) FROM goods";
  for (int i = 0; i < 3; ++i) Second(sql);
  EXPECT_EQ(ErrorOf([&] { Page(connection_, sql, 52, 47); }).SqlState(), "22012");
  EXPECT_EQ(Mode(), "'force_custom_plan'");
  EXPECT_EQ(Second(sql).front(), "6 -22");
}

TEST_F(LaterRows, ArePlannedEachTimeWhereTheirNumberOrThePlanCounts) {
  for (const std::string sql : {"SELECT * FROM goods ORDER BY stock", "SELECT * FROM goods WHERE id > 7",
                                "SELECT DISTINCT name FROM goods"}) {
    for (int i = 0; i < 3; ++i) Second(sql);
    EXPECT_EQ(Plans(), "0 2") << sql;
    Run("DEALLOCATE ALL");
  }
}

TEST_F(LaterRows, ArePlannedAsThePageHasSetIt) {
  const std::string sql = "SELECT * FROM goods";
  Run("SET plan_cache_mode TO auto");
  for (int i = 0; i < 3; ++i) Second(sql);
  EXPECT_EQ(Mode(), "'auto'");
  Run("BEGIN");
  EXPECT_EQ(Second(sql).front(), "6 'good 6' 0");
  EXPECT_EQ(Mode(), "'auto'");
  Run("ROLLBACK");
  EXPECT_EQ(Plans(), "0 3");
}

}  // namespace

}  // namespace dralo::tests
