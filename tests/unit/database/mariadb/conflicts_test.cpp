#include <chrono>
#include <functional>
#include <stop_token>
#include <thread>

#include "unit/database/mariadb/native_test.h"

namespace dralo::tests {

namespace {

constexpr const char* kTryAgain =
    "The database has undone the transaction for another one that came first; try again (SQLSTATE 40001)";

/// Every change of goods locks their total, which somebody else locks before he changes the goods.
class MariaDbConflicts : public MariaDbNative {
 protected:
  MariaDbConflicts() {
    Run("CREATE TABLE Goods (ID INTEGER AUTO_INCREMENT PRIMARY KEY, Stock INTEGER, Name VARCHAR(9))");
    Run("CREATE TABLE Totals (ID INTEGER PRIMARY KEY, Changes INTEGER)");
    Run("INSERT INTO Goods VALUES (1, 10, 'Horn'), (2, 20, 'Lute')");
    Run("INSERT INTO Totals SELECT seq, 0 FROM seq_1_to_100");
    for (const char* event : {"INSERT", "UPDATE", "DELETE"}) {
      Run(std::string("CREATE TRIGGER After_") + event + " AFTER " + event +
          " ON Goods FOR EACH ROW UPDATE Totals SET Changes = Changes + 1 WHERE ID = 1");
    }
  }

  /// Runs `change` while somebody who has changed all totals waits for it in turn with `statement`, and then
  /// ends his transaction.
  void InConflict(const std::string& statement, const std::string& end,
                  const std::function<void()>& change) const {
    const auto rival = Connect(database_.ConnectionString());
    rival->Execute("BEGIN");
    rival->Execute("UPDATE Totals SET Changes = Changes + 1000");
    const std::jthread other([&](const std::stop_token& is_over) {
      const auto observer = Connect(database_.ConnectionString());
      while (!is_over.stop_requested() && Rows(observer, kWaiting) == Lines{"0"}) {
        std::this_thread::sleep_for(kAgeOfAnswers);
      }
      rival->Execute(statement);
      rival->Execute(end);
    });
    change();
  }

  Lines Goods() const { return Ask("SELECT ID, Stock, Name FROM Goods ORDER BY ID"); }
  Lines Changes() const { return Ask("SELECT Changes FROM Totals WHERE ID = 1"); }

 private:
  /// The server tells the same of locks again and again to those who ask more often.
  static constexpr std::chrono::milliseconds kAgeOfAnswers{150};

  static constexpr const char* kWaiting =
      "SELECT COUNT(*) FROM information_schema.INNODB_TRX JOIN information_schema.PROCESSLIST p "
      "ON trx_mysql_thread_id = p.ID WHERE trx_state = 'LOCK WAIT' AND DB = DATABASE()";
};

TEST_F(MariaDbConflicts, LetASaveBeCarriedOutOnceMore) {
  const auto recordset = Edit(connection_, "SELECT ID, Stock, Name FROM Goods WHERE ID = 1");
  FieldOf(*recordset, "Stock").SetValue("11");
  InConflict("UPDATE Goods SET Name = 'Harp' WHERE ID = 1", "COMMIT", [&] { recordset->Update(); });
  EXPECT_EQ(Goods(), (Lines{"1 11 'Harp'", "2 20 'Lute'"}));
  EXPECT_EQ(Changes(), Lines{"1002"}) << "once by each";
}

TEST_F(MariaDbConflicts, LetASaveNotOverwriteTheChangeThatCameFirst) {
  const auto recordset = Edit(connection_, "SELECT ID, Stock, Name FROM Goods WHERE ID = 1");
  FieldOf(*recordset, "Stock").SetValue("11");
  std::string message;
  InConflict("UPDATE Goods SET Stock = 9 WHERE ID = 1", "COMMIT",
             [&] { message = MessageOf([&] { recordset->Update(); }); });
  EXPECT_EQ(message,
            "Row cannot be located for updating. Some values may have been changed since it was last read.");
  EXPECT_EQ(Goods(), (Lines{"1 9 'Horn'", "2 20 'Lute'"}));
}

TEST_F(MariaDbConflicts, LetANewRecordBeAddedOnceMoreWithAKeyOfItsOwn) {
  const auto recordset = Edit(connection_, "SELECT ID, Stock, Name FROM Goods");
  recordset->AddNew();
  FieldOf(*recordset, "Stock").SetValue("30");
  InConflict("UPDATE Goods SET Stock = 0 WHERE ID > 1", "ROLLBACK", [&] { recordset->Update(); });
  EXPECT_EQ(Goods(), (Lines{"1 10 'Horn'", "2 20 'Lute'", ValueOf(*recordset, "ID") + " 30 null"}));
  EXPECT_EQ(Changes(), Lines{"1"});
}

TEST_F(MariaDbConflicts, LetADeleteBeCarriedOutOnceMore) {
  InConflict("UPDATE Goods SET Stock = 0 WHERE ID = 1", "ROLLBACK",
             [&] { EXPECT_EQ(connection_->ChangeOneRecord("DELETE FROM Goods WHERE ID = 1"), 1); });
  EXPECT_EQ(Goods(), Lines{"2 20 'Lute'"});
}

TEST_F(MariaDbConflicts, AreSaidWhereThePageHasDoneMoreBefore) {
  Run("CREATE TABLE Notes (Text VARCHAR(9))");
  Run("BEGIN");
  Run("INSERT INTO Notes VALUES ('first')");
  const auto recordset = Edit(connection_, "SELECT ID, Stock, Name FROM Goods WHERE ID = 1");
  FieldOf(*recordset, "Stock").SetValue("11");
  std::string message;
  InConflict("UPDATE Goods SET Stock = 0 WHERE ID = 1", "ROLLBACK",
             [&] { message = MessageOf([&] { recordset->Update(); }); });
  EXPECT_EQ(message, kTryAgain);
  Run("ROLLBACK");
  recordset->Update();
  EXPECT_EQ(Goods(), (Lines{"1 11 'Horn'", "2 20 'Lute'"})) << "what was assigned is kept";
  EXPECT_EQ(Ask("SELECT Text FROM Notes"), Lines{});
}

TEST_F(MariaDbConflicts, LetASaveBeTriedAgainThatWasKeptWaiting) {
  const auto rival = Connect(database_.ConnectionString());
  rival->Execute("BEGIN");
  rival->Execute("UPDATE Goods SET Stock = 9 WHERE ID = 1");
  Run("SET innodb_lock_wait_timeout = 1");
  const auto kept = Edit(connection_, "SELECT ID, Stock, Name FROM Goods WHERE ID = 1");
  FieldOf(*kept, "Stock").SetValue("11");
  EXPECT_EQ(MessageOf([&] { kept->Update(); }),
            "Another transaction has kept the record locked for too long; try again (SQLSTATE HY000)");
  rival->Execute("ROLLBACK");
  kept->Update();
  EXPECT_EQ(Goods(), (Lines{"1 11 'Horn'", "2 20 'Lute'"})) << "what was assigned is kept";
}

}  // namespace

}  // namespace dralo::tests
