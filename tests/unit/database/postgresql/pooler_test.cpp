#include "unit/database/postgresql/native_test.h"
#include "unit/database/postgresql/proxy.h"

namespace dralo::tests {

namespace {

/// A pooler that has lost its server, and says so.
class LostServer : public PostgreSqlProvider {
 protected:
  void SetUp() override {
    Run("CREATE TABLE lost (pid integer)");
    Run("CREATE FUNCTION served() RETURNS integer LANGUAGE plpgsql AS $$ BEGIN IF pg_backend_pid() IN "
        "(SELECT pid FROM lost) THEN RAISE 'unable to read data from the server' USING ERRCODE = 'XX000'; "
        "END IF; RETURN pg_backend_pid(); END $$");
    Run("CREATE VIEW served_by AS SELECT served() AS pid");
    Run("CREATE TABLE goods (id integer DEFAULT served())");
    pooled_ = Another(";Port=" + proxy_.Port() + ";SSL Mode=disable");
  }

  Lines ServedBy() const { return Rows(pooled_, "SELECT pid FROM served_by"); }

  void Lose(const std::string& pid) const { Run("INSERT INTO lost VALUES (" + pid + ")"); }

  const Proxy proxy_{Proxy::Manner::kRefusesOptions, PortOf(dralo::tests::Server::kPostgreSql)};
  ConnectionPtr pooled_;
};

TEST_F(LostServer, IsAskedAgainOverAnotherConnection) {
  const Lines first = ServedBy();
  Lose(first.front());
  const Lines second = ServedBy();
  EXPECT_NE(second, first);
  EXPECT_EQ(ServedBy(), second);
}

TEST_F(LostServer, IsALostConnectionForAChange) {
  Lose(ServedBy().front());
  const auto error = ErrorOf([&] { pooled_->Execute("INSERT INTO goods DEFAULT VALUES"); });
  EXPECT_EQ(error.SqlState(), "08006");
  EXPECT_EQ(error.Description(), "unable to read data from the server (SQLSTATE 08006)");
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM goods"), Lines{"0"});
}

TEST_F(LostServer, IsAnErrorAsItComesWithoutAPooler) {
  Lose(std::to_string(Server()));
  EXPECT_EQ(ErrorOf([&] { Ask("SELECT pid FROM served_by"); }).SqlState(), "XX000");
}

}  // namespace

}  // namespace dralo::tests
