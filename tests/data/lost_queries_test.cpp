#include <gtest/gtest.h>

#include <string>

#include "data/new_database.h"
#include "data/shorthand.h"
#include "database/session_pool.h"
#include "support/stalling_proxy.h"

/// A query whose connection is lost is asked once more where nothing else was lost with it.
namespace dralo::tests {

namespace {

class LostQuery : public ::testing::TestWithParam<Server> {
 protected:
  void SetUp() override {
    direct_->Execute("CREATE TABLE Goods (ID INTEGER PRIMARY KEY)");
    direct_->Execute("INSERT INTO Goods VALUES (1), (2), (3)");
  }

  /// A session that goes through the proxy would keep others from it.
  void TearDown() override {
    connection_->Close();
    database::SessionPool::Instance().CloseIdle();
  }

  void LoseNextQuery() { proxy_.CutAt("FROM Goods", StallingProxy::Cut::kBehind); }

  Lines Goods(std::int64_t max_records = 0) const {
    return Rest(*Read(connection_, "SELECT ID FROM Goods ORDER BY ID", max_records));
  }

  NewServerDatabase database_{GetParam(), Way::kProvider};
  ConnectionPtr direct_ = Connect(database_.ConnectionString());
  StallingProxy proxy_{PortOf(GetParam())};
  ConnectionPtr connection_ = Connect(database_.ConnectionString() + ";Port=" + proxy_.Port());
};

INSTANTIATE_TEST_SUITE_P(Servers, LostQuery, ::testing::Values(Server::kPostgreSql, Server::kMariaDb),
                         [](const auto& test) {
                           return std::string(test.param == Server::kPostgreSql ? "PostgreSql" : "MariaDb");
                         });

TEST_P(LostQuery, IsAskedOnceMore) {
  for (int i = 0; i < 2; ++i) {
    LoseNextQuery();
    EXPECT_EQ(Goods(), (Lines{"1", "2", "3"}));
    LoseNextQuery();
    EXPECT_EQ(Goods(2), (Lines{"1", "2"}));
  }
}

TEST_P(LostQuery, IsLostWithATransactionOfThePage) {
  connection_->Execute("BEGIN");
  connection_->Execute("INSERT INTO Goods VALUES (4)");
  LoseNextQuery();
  EXPECT_TRUE(ErrorOf([&] { Goods(); }).SqlState().starts_with("08"));
  EXPECT_THROW(connection_->Execute("INSERT INTO Goods VALUES (5)"), platform::Error);
  EXPECT_THROW(Goods(), platform::Error);
  EXPECT_EQ(Rows(direct_, "SELECT COUNT(*) FROM Goods"), Lines{"3"});
}

TEST_P(LostQuery, IsLostWithATransactionOfAConnection) {
  connection_->Begin();
  connection_->Execute("INSERT INTO Goods VALUES (4)");
  LoseNextQuery();
  EXPECT_TRUE(ErrorOf([&] { Goods(); }).SqlState().starts_with("08"));
  EXPECT_THROW(connection_->Execute("INSERT INTO Goods VALUES (5)"), platform::Error);
  EXPECT_THROW(connection_->Commit(), platform::Error);
  connection_->Rollback();
  EXPECT_EQ(Goods(), (Lines{"1", "2", "3"})) << "what was begun is over";
}

TEST_P(LostQuery, IsLostWithASettingOfThePage) {
  connection_->Execute(GetParam() == Server::kPostgreSql ? "SET search_path = public, pg_catalog"
                                                         : "SET @trace = 1");
  LoseNextQuery();
  EXPECT_TRUE(ErrorOf([&] { Goods(); }).SqlState().starts_with("08"));
  EXPECT_THROW(Goods(), platform::Error);
}

TEST_P(LostQuery, SaysOfACommitThatNobodyKnowsItsOutcome) {
  connection_->Begin();
  connection_->Execute("INSERT INTO Goods VALUES (4)");
  proxy_.CutAt("COMMIT", StallingProxy::Cut::kBehind);
  const auto error = ErrorOf([&] { connection_->Commit(); });
  EXPECT_EQ(error.SqlState(), "08007");
  EXPECT_TRUE(error.Description().starts_with(
      "It is not known whether the transaction was committed, for the connection was lost: "))
      << error.Description();
  EXPECT_TRUE(error.Description().ends_with(" (SQLSTATE 08007)")) << error.Description();
  connection_->Rollback();
  EXPECT_EQ(Goods(), (Lines{"1", "2", "3", "4"}));
}

}  // namespace

}  // namespace dralo::tests
