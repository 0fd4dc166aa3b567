#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "data/shorthand.h"
#include "database/session_pool.h"
#include "support/own_server.h"

namespace dralo::tests {

namespace {

constexpr const char* kPreparedStatements = "--max-prepared-stmt-count=40";

/// A server with settings that are not the usual ones.
class MariaDbServerSettings : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    server_ = std::make_unique<OwnServer>(
        Server::kMariaDb, std::vector<std::string>{"--innodb-rollback-on-timeout=1", kPreparedStatements});
    NewConnection("mysql")->Execute("CREATE DATABASE shop");
  }
  static void TearDownTestSuite() {
    database::CloseIdleConnections();
    server_.reset();
  }

  static ConnectionPtr NewConnection(const std::string& database = "shop") {
    return Connect("Provider=MariaDB;Port=" + server_->Port() + ";Database=" + database +
                   ";User ID=" + kServerUser + ";Password={" + kServerPassword + "}");
  }

 private:
  static inline std::unique_ptr<OwnServer> server_;
};

TEST_F(MariaDbServerSettings, ThatUndoATransactionWhichHasWaitedTooLongAreMet) {
  const auto connection = NewConnection();
  connection->Execute("CREATE TABLE Goods (ID INTEGER PRIMARY KEY, Stock INTEGER)");
  connection->Execute("INSERT INTO Goods VALUES (1, 0), (2, 0), (3, 0)");
  const auto rival = NewConnection();
  rival->Execute("BEGIN");
  rival->Execute("UPDATE Goods SET Stock = 9 WHERE ID = 2");
  connection->Execute("SET innodb_lock_wait_timeout = 0");
  connection->Execute("BEGIN");
  connection->Execute("UPDATE Goods SET Stock = 1 WHERE ID = 1");
  EXPECT_EQ(ErrorOf([&] { connection->ChangeOneRecord("UPDATE Goods SET Stock = 1 WHERE ID = 2"); }).Number(),
            1205);
  EXPECT_EQ(ErrorOf([&] { connection->Execute("UPDATE Goods SET Stock = 1 WHERE ID = 3"); }).SqlState(),
            "40000");
  connection->Execute("ROLLBACK");
  EXPECT_EQ(Rows(connection, "SELECT SUM(Stock) FROM Goods"), Lines{"0m"});
}

TEST_F(MariaDbServerSettings, ThatAllowFewPreparedStatementsAreMet) {
  const auto query = [](int number) { return "SELECT " + std::to_string(number); };
  const auto first = NewConnection();
  for (int i = 0; i < 30; ++i) EXPECT_EQ(Rows(first, query(i)).size(), 1u);
  const auto second = NewConnection();
  for (int i = 0; i < 30; ++i) EXPECT_EQ(Rows(second, query(i)).size(), 1u);
}

}  // namespace

}  // namespace dralo::tests
