#include "support/stalling_proxy.h"
#include "unit/database/odbc/driver_test.h"

/// The connection is lost while a transaction is committed.
namespace dralo::tests {

namespace {

using Cut = StallingProxy::Cut;

class LostCommit : public ::testing::TestWithParam<Server> {
 protected:
  void SetUp() override { direct_->Execute("CREATE TABLE Goods (ID INTEGER PRIMARY KEY)"); }

  /// One that goes through the proxy.
  ConnectionPtr Watched() const {
    std::string text = database_.ConnectionString();
    const std::string port = "Port=" + PortOf(GetParam());
    text.replace(text.find(port), port.size(), "Port=" + proxy_.Port());
    return Connect(text);
  }

  /// What becomes of a transaction that adds `id`.
  platform::Error ErrorOfAdding(int id, Cut cut) {
    const ConnectionPtr connection = Watched();
    connection->Begin();
    connection->Execute("INSERT INTO Goods VALUES (" + std::to_string(id) + ")");
    proxy_.CutAt("COMMIT", cut);
    const platform::Error error = ErrorOf([&] { connection->Commit(); });
    connection->Rollback();
    return error;
  }

  Lines Goods() const { return Rows(direct_, "SELECT ID FROM Goods ORDER BY ID"); }

  NewServerDatabase database_{GetParam()};
  ConnectionPtr direct_ = Connect(database_.ConnectionString());
  StallingProxy proxy_{PortOf(GetParam())};
};

INSTANTIATE_TEST_SUITE_P(Drivers, LostCommit, ::testing::Values(Server::kPostgreSql, Server::kMariaDb),
                         [](const auto& test) {
                           return std::string(test.param == Server::kPostgreSql ? "PostgreSql" : "MariaDb");
                         });

TEST_P(LostCommit, HasAnOutcomeThatNobodyKnows) {
  for (const Cut cut : {Cut::kBefore, Cut::kBehind}) {
    const auto error = ErrorOfAdding(cut == Cut::kBefore ? 1 : 2, cut);
    EXPECT_EQ(error.SqlState(), "08007") << error.Description();
    EXPECT_TRUE(error.Description().starts_with(
        "It is not known whether the transaction was committed, for the connection was lost: "))
        << error.Description();
  }
  EXPECT_EQ(Goods(), Lines{"2"});
}

TEST_F(PostgreSqlDriver, TellsARefusedCommitFromALostOne) {
  Run("CREATE TABLE goods (id integer PRIMARY KEY DEFERRABLE INITIALLY DEFERRED)");
  connection_->Begin();
  Run("INSERT INTO goods VALUES (1), (1)");
  const auto error = ErrorOf([&] { connection_->Commit(); });
  EXPECT_EQ(error.Description(), "The database does not commit the transaction");
  connection_->Rollback();
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM goods"), Lines{"0"});
}

}  // namespace

}  // namespace dralo::tests
