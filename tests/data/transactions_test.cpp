#include "data/commands.h"
#include "data/databases.h"

namespace dralo::tests {

namespace {

class Transactions : public DatabaseContract {
 protected:
  Lines Stock(int id) {
    return Rows(Connect(ConnectionString()), "SELECT Stock FROM Goods WHERE ID = " + std::to_string(id));
  }
};
INSTANTIATE_TEST_SUITE_P(Databases, Transactions, kDatabases, DatabaseName);

TEST_P(Transactions, AreNotNeededForAStatement) {
  connection_->Execute("UPDATE Goods SET Stock = 50 WHERE ID = 1");
  EXPECT_EQ(Stock(1), Lines{"50"});
  EXPECT_THROW(connection_->Execute("UPDATE Goods SET Nothing = 1"), platform::Error);
  connection_->Execute("UPDATE Goods SET Stock = 51 WHERE ID = 1");
  EXPECT_EQ(Stock(1), Lines{"51"});
}

TEST_P(Transactions, AreKeptFromOthersUntilTheyEnd) {
  connection_->Execute("BEGIN");
  connection_->Execute("UPDATE Goods SET Stock = 50 WHERE ID = 1");
  EXPECT_EQ(Stock(1), Lines{"3"});
  EXPECT_EQ(Rows(connection_, "SELECT Stock FROM Goods WHERE ID = 1"), Lines{"50"});
  connection_->Execute("COMMIT");
  EXPECT_EQ(Stock(1), Lines{"50"});
}

TEST_P(Transactions, AreUndone) {
  connection_->Execute("BEGIN");
  connection_->Execute("UPDATE Goods SET Stock = 50 WHERE ID = 1");
  connection_->Execute("ROLLBACK");
  EXPECT_EQ(Rows(connection_, "SELECT Stock FROM Goods WHERE ID = 1"), Lines{"3"});
  connection_->Execute("UPDATE Goods SET Stock = 60 WHERE ID = 1");
  EXPECT_EQ(Stock(1), Lines{"60"});
}

TEST_P(Transactions, GoOnAfterAStatementThatFails) {
  connection_->Execute("BEGIN");
  connection_->Execute("UPDATE Goods SET Stock = 50 WHERE ID = 1");
  EXPECT_THROW(connection_->Execute("INSERT INTO Goods (ID, Name) VALUES (1, 'Twice')"), platform::Error);
  EXPECT_THROW(Rows(connection_, "SELECT Nothing FROM Goods"), platform::Error);
  EXPECT_THROW(RowsOf(MakeCommand(connection_, "SELECT Nothing FROM Goods WHERE ID = ?", {std::int64_t{1}})),
               platform::Error);
  EXPECT_THROW(Rows(connection_, GetParam().fails_at_three), platform::Error);
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods"), Lines{"5"});
  connection_->Execute("UPDATE Goods SET Stock = 51 WHERE ID = 2");
  connection_->Execute("COMMIT");

  EXPECT_EQ(Stock(1), Lines{"50"});
  EXPECT_EQ(Stock(2), Lines{"51"});
}

TEST_P(Transactions, HoldSavedRecords) {
  connection_->Execute("BEGIN");
  const auto recordset = Edit(connection_, "SELECT ID, Name, Stock FROM Goods WHERE ID = 1");
  FieldOf(*recordset, "Stock").SetValue("50");
  recordset->Update();
  recordset->AddNew();
  FieldOf(*recordset, "Name").SetValue("Flute");
  recordset->Update();
  EXPECT_EQ(ValueOf(*recordset, "ID"), "6");
  EXPECT_EQ(Stock(1), Lines{"3"});
  connection_->Execute("ROLLBACK");

  EXPECT_EQ(Stock(1), Lines{"3"});
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods"), Lines{"5"});
}

}  // namespace

}  // namespace dralo::tests
