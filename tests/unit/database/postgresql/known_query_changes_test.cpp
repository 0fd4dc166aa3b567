#include "unit/database/postgresql/known_query.h"

namespace dralo::tests {

namespace {

TEST_F(KnownQuery, FollowsTheTableWhoseColumnsChange) {
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

TEST_F(KnownQuery, FollowsTheTableWhoseColumnsAnotherSessionChangesWhenAllOfItIsRead) {
  MakeGoods();
  const std::string sql = "SELECT * FROM goods WHERE id = 7";
  EXPECT_EQ(AskThrice(sql, 0), Lines{"7 'good 7' 1"});
  Another()->Execute("ALTER TABLE goods DROP name");
  EXPECT_EQ(AskThrice(sql, 0), Lines{"7 1"});
  Run("DEALLOCATE ALL");
  EXPECT_EQ(AskThrice(sql, 0), Lines{"7 1"});
}

TEST_F(KnownQuery, FollowsTheTableWhoseColumnsChangeBeforeItIsPrepared) {
  MakeGoods();
  const std::string sql = "SELECT * FROM goods WHERE id = 7";
  for (const int max_records : {1, 5}) {
    Ask(sql, max_records);
    Run("ALTER TABLE goods RENAME name TO title");
    Run("ALTER TABLE goods DROP stock");
    EXPECT_EQ(Names(sql), (Lines{"id", "title"}));
    EXPECT_EQ(Ask(sql, max_records), Lines{"7 'good 7'"});
    Run("DROP TABLE goods");
    MakeGoods();
  }
}

TEST_F(KnownQuery, SavesInTheTableThatItReadsNow) {
  for (const std::string schema : {"one", "two"}) {
    Run("CREATE SCHEMA " + schema);
    Run("CREATE TABLE " + schema + ".t (id integer PRIMARY KEY, v text)");
    Run("INSERT INTO " + schema + ".t VALUES (1, 'old')");
  }
  for (const std::string schema : {"one", "one", "one", "two"}) {
    Run("SET search_path TO " + schema);
    const auto recordset = Edit(connection_, "SELECT id, v FROM t");
    FieldOf(*recordset, "v").SetValue("of " + schema);
    recordset->Update();
  }
  EXPECT_EQ(Ask("SELECT one.t.v, two.t.v FROM one.t, two.t"), Lines{"'of one' 'of two'"});
}

TEST_F(KnownQuery, FailsWhenItsTableIsGoneAndWorksWhenItIsBack) {
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

TEST_F(KnownQuery, GoesOnWhenItsPreparedStatementIsGone) {
  MakeGoods();
  EXPECT_EQ(AskThrice("SELECT id FROM goods").size(), 5u);
  Run("DEALLOCATE ALL");
  EXPECT_EQ(AskThrice("SELECT id FROM goods").size(), 5u);
}

}  // namespace

}  // namespace dralo::tests
