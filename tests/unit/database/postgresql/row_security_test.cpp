#include "unit/database/postgresql/known_query.h"

namespace dralo::tests {

namespace {

/// Pages of a table whose policy shows each user and tenant rows of their own: of 300, those with stock 0
/// are the clerk's, those with stock 1 the porter's. The user of the tests sees all.
class RowSecurity : public KnownQuery {
 protected:
  void SetUp() override {
    MakeGoods();
    for (const std::string& role : {clerk_, porter_}) {
      Run("CREATE ROLE " + role);
      Run("GRANT SELECT ON goods TO " + role);
    }
    Run("ALTER TABLE goods ENABLE ROW LEVEL SECURITY");
  }

  void TearDown() override {
    Run("RESET ROLE");
    for (const std::string& role : {clerk_, porter_}) {
      Run("DROP OWNED BY " + role);
      Run("DROP ROLE " + role);
    }
  }

  void ShowByUser() const {
    Run("CREATE POLICY own ON goods USING (stock = CASE current_user WHEN '" + clerk_ + "' THEN 0 WHEN '" +
        porter_ + "' THEN 1 END)");
  }

  void ShowByTenant() const {
    Run("CREATE POLICY own ON goods USING (stock::text = current_setting('shop.tenant', true))");
  }

  /// The numbers of rows and of plans, kept ones and those for one run, that the session's first pages took.
  std::string Plans() const {
    return Ask("SELECT coalesce(SUM(generic_plans), 0)::integer, coalesce(SUM(custom_plans), 0)::integer "
               "FROM pg_prepared_statements WHERE statement LIKE '%FROM goods%' AND statement NOT LIKE "
               "'%pg_prepared%'")
        .front();
  }

  /// Roles are those of the whole server, which other tests use too.
  const std::string database_name_ = Ask("SELECT current_database()::text").front();
  const std::string own_ = database_name_.substr(1, database_name_.size() - 2);
  const std::string clerk_ = own_ + "_clerk";
  const std::string porter_ = own_ + "_porter";
  const std::string sql_ = "SELECT id FROM goods ORDER BY name DESC";
};

const Lines kOfClerk{"99", "96", "93", "90", "9"};
const Lines kOfPorter{"97", "94", "91", "88", "85"};
const Lines kAll{"99", "98", "97", "96", "95"};

TEST_F(RowSecurity, HoldsForTheUserOfThisPageAlsoInAPlanThatIsKept) {
  ShowByUser();
  EXPECT_EQ(AskThrice(sql_), kAll);
  ASSERT_EQ(Plans(), "2 0") << "The first page is not planned once, so this test says nothing";
  for (int i = 0; i < 3; ++i) {
    Run("SET ROLE " + clerk_);
    EXPECT_EQ(Ask(sql_, kPageRows), kOfClerk);
    Run("SET ROLE " + porter_);
    EXPECT_EQ(Ask(sql_, kPageRows), kOfPorter);
    Run("RESET ROLE");
    EXPECT_EQ(Ask(sql_, kPageRows), kAll);
  }
  EXPECT_EQ(Plans(), "11 0");
}

TEST_F(RowSecurity, HoldsForTheSettingOfThisPageAlsoInAPlanThatIsKept) {
  ShowByTenant();
  Run("SET ROLE " + clerk_);
  EXPECT_EQ(AskThrice(sql_), Lines());
  ASSERT_EQ(Plans(), "2 0") << "The first page is not planned once, so this test says nothing";
  for (int i = 0; i < 3; ++i) {
    Run("SET shop.tenant TO '0'");
    EXPECT_EQ(Ask(sql_, kPageRows), kOfClerk);
    Run("SET shop.tenant TO '1'");
    EXPECT_EQ(Ask(sql_, kPageRows), kOfPorter);
    Run("RESET shop.tenant");
    EXPECT_EQ(Ask(sql_, kPageRows), Lines());
  }
  EXPECT_EQ(Plans(), "11 0");
}

TEST_F(RowSecurity, HoldsFromTheMomentItIsSwitchedOn) {
  Run("ALTER TABLE goods DISABLE ROW LEVEL SECURITY");
  ShowByUser();
  Run("SET ROLE " + clerk_);
  EXPECT_EQ(AskThrice(sql_), kAll);
  Another()->Execute("ALTER TABLE goods ENABLE ROW LEVEL SECURITY");
  EXPECT_EQ(Ask(sql_, kPageRows), kOfClerk);
  Run("SET row_security TO off");
  EXPECT_EQ(ErrorOf([&] { Ask(sql_, kPageRows); }).SqlState(), "42501");
}

/// The condition of a policy chooses rows, so the plan gives them their order.
TEST_F(RowSecurity, HasFirstRowsPlannedEachTimeUnlessTheKeyOrdersThem) {
  ShowByUser();
  Run("SET ROLE " + clerk_);
  EXPECT_EQ(AskThrice("SELECT id FROM goods"), (Lines{"3", "6", "9", "12", "15"}));
  EXPECT_EQ(Plans(), "0 2");
}

}  // namespace

}  // namespace dralo::tests
