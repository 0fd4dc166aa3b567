#include <thread>

#include "platform/transaction.h"
#include "unit/database/mariadb/native_session.h"
#include "unit/database/mariadb/native_test.h"

namespace dralo::tests {

namespace {

constexpr const char* kUndone =
    "The database has undone the transaction; roll it back and begin again (SQLSTATE 40000)";

/// The goods 1 to 200 with the stock 0, and somebody who changes them at the same time.
class MariaDbTransactions : public MariaDbNative {
 protected:
  MariaDbTransactions() {
    Run("CREATE TABLE Goods (ID INTEGER PRIMARY KEY, Stock INTEGER)");
    Run("INSERT INTO Goods SELECT seq, 0 FROM seq_1_to_200");
  }

  /// Runs `change_second`, which changes the record 2, in a transaction that has changed the record 1, while
  /// a rival does it the other way round. The rival has changed more, so its transaction is the one to stay.
  template <class Change>
  platform::Error ErrorInDeadlock(const Change& change_second) const {
    const auto rival = Connect(database_.ConnectionString());
    rival->Execute("BEGIN");
    rival->Execute("UPDATE Goods SET Stock = Stock + 100 WHERE ID BETWEEN 2 AND 100");
    std::thread other([&] { rival->Execute("UPDATE Goods SET Stock = Stock + 100 WHERE ID = 1"); });
    try {
      change_second();
    } catch (const platform::Error& error) {
      other.join();
      rival->Execute("ROLLBACK");
      return error;
    }
    other.join();
    throw std::logic_error("expected a deadlock");
  }

  static std::string Change(int id) { return "UPDATE Goods SET Stock = 1 WHERE ID = " + std::to_string(id); }

  /// As others see it.
  Lines Changed() const {
    return Rows(Connect(database_.ConnectionString()), "SELECT ID FROM Goods WHERE Stock > 0 ORDER BY ID");
  }
};

TEST_F(MariaDbTransactions, RefuseEverythingUntilTheOutermostIsRolledBackWhenADeadlockHasUndoneThem) {
  const auto session = NewSession(database_.ConnectionString());
  {
    platform::Transaction outer(*session);
    session->Run({Change(1)});
    const auto error = ErrorInDeadlock([&] {
      platform::Transaction inner(*session);
      session->Run({Change(2)});
    });
    EXPECT_EQ(error.Number(), 1213);
    EXPECT_EQ(MessageOf([&] { session->Run({Change(3)}); }), kUndone);
    EXPECT_EQ(MessageOf([&] { session->Ask({"SELECT 1"}); }), kUndone);
    EXPECT_EQ(MessageOf([&] { platform::Transaction(*session).Commit(); }), kUndone);
    EXPECT_EQ(MessageOf([&] { outer.Commit(); }), kUndone);
    EXPECT_EQ(ErrorOf([&] { outer.Commit(); }).SqlState(), "40000");
  }
  session->Run({Change(4)});
  EXPECT_EQ(Changed(), Lines{"4"});
}

TEST_F(MariaDbTransactions, OfAPageAreNotContinuedWhenADeadlockHasUndoneThem) {
  Run("BEGIN");
  Run(Change(1));
  EXPECT_EQ(ErrorInDeadlock([&] { connection_->ChangeOneRecord(Change(2)); }).Number(), 1213);
  EXPECT_EQ(MessageOf([&] { connection_->ChangeOneRecord(Change(3)); }), kUndone);
  EXPECT_EQ(MessageOf([&] { Run(Change(3)); }), kUndone);
  EXPECT_EQ(MessageOf([&] { Run("ROLLBACK TO SAVEPOINT own"); }), kUndone);
  EXPECT_EQ(MessageOf([&] { Run("COMMIT"); }), kUndone);
  Run(Change(4));
  EXPECT_EQ(Changed(), Lines{"4"});
}

TEST_F(MariaDbTransactions, OfAPageCanBeBegunAgainAfterADeadlock) {
  for (const char* end : {"/* x */ ROLLBACK", "BEGIN"}) {
    Run("BEGIN");
    Run(Change(1));
    EXPECT_EQ(ErrorInDeadlock([&] { Run(Change(2)); }).Number(), 1213);
    EXPECT_EQ(MessageOf([&] { Ask("SELECT 1"); }), kUndone);
    Run(end);
    Run(Change(3));
    Run("ROLLBACK");
  }
  EXPECT_EQ(Changed(), Lines{"3"});
}

TEST_F(MariaDbTransactions, GoOnAfterAStatementThatHasWaitedTooLong) {
  const auto rival = Connect(database_.ConnectionString());
  rival->Execute("BEGIN");
  rival->Execute(Change(2));
  Run("SET innodb_lock_wait_timeout = 0");
  Run("BEGIN");
  Run(Change(1));
  EXPECT_EQ(ErrorOf([&] { connection_->ChangeOneRecord(Change(2)); }).Number(), 1205);
  Run(Change(3));
  Run("COMMIT");
  EXPECT_EQ(Changed(), (Lines{"1", "3"}));
}

TEST_F(MariaDbTransactions, AreNotContinuedWhenAnyOtherCauseHasEndedThem) {
  const auto session = NewSession(database_.ConnectionString());
  for (const bool is_inside : {false, true}) {
    session->Begin();
    session->Run({Change(1)});
    if (is_inside) session->Begin();
    session->Run({"ROLLBACK"});
    if (is_inside) {
      session->Rollback();
    } else {
      EXPECT_EQ(MessageOf([&] { session->Begin(); }), kUndone);
    }
    EXPECT_EQ(MessageOf([&] { session->Run({Change(2)}); }), kUndone);
    EXPECT_EQ(MessageOf([&] { session->Commit(); }), kUndone);
    session->Rollback();
  }
  EXPECT_EQ(Changed(), Lines{});
}

TEST_F(MariaDbTransactions, ThatWereUndoneAreForgottenWithTheirUser) {
  Run("BEGIN");
  Run(Change(1));
  EXPECT_EQ(ErrorInDeadlock([&] { Run(Change(2)); }).Number(), 1213);
  connection_->Close();
  connection_->Open(database_.ConnectionString());
  Run(Change(3));
  EXPECT_EQ(Changed(), Lines{"3"});
}

}  // namespace

}  // namespace dralo::tests
