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

TEST_P(Transactions, OfAConnectionKeepTheirParts) {
  connection_->Begin();
  connection_->Run("UPDATE Goods SET Stock = 50 WHERE ID = 1");
  connection_->Begin();
  connection_->Run("UPDATE Goods SET Stock = 51 WHERE ID = 2");
  connection_->Commit();
  connection_->Begin();
  connection_->Run("UPDATE Goods SET Stock = 52 WHERE ID = 4");
  connection_->Rollback();
  EXPECT_EQ(Stock(1), Lines{"3"});
  connection_->Commit();

  EXPECT_EQ(Stock(1), Lines{"50"});
  EXPECT_EQ(Stock(2), Lines{"51"});
  EXPECT_EQ(Stock(4), Lines{"1"});
}

TEST_P(Transactions, OfAConnectionAreUndoneWithTheirParts) {
  connection_->Begin();
  connection_->Begin();
  const auto recordset = Edit(connection_, "SELECT ID, Name, Stock FROM Goods WHERE ID = 1");
  FieldOf(*recordset, "Stock").SetValue("50");
  recordset->Update();
  connection_->Commit();
  connection_->Rollback();
  EXPECT_EQ(Stock(1), Lines{"3"});
  connection_->Run("UPDATE Goods SET Stock = 60 WHERE ID = 1");
  EXPECT_EQ(Stock(1), Lines{"60"});
}

TEST_P(Transactions, GoOnAfterAPartThatFailed) {
  connection_->Begin();
  connection_->Run("UPDATE Goods SET Stock = 50 WHERE ID = 1");
  connection_->Begin();
  EXPECT_THROW(connection_->Run("INSERT INTO Goods (ID, Name) VALUES (1, 'Twice')"), platform::Error);
  connection_->Rollback();
  connection_->Run("UPDATE Goods SET Stock = 51 WHERE ID = 2");
  connection_->Commit();
  EXPECT_EQ(Stock(1), Lines{"50"});
  EXPECT_EQ(Stock(2), Lines{"51"});
}

TEST_P(Transactions, ArePartsOfOneThatAStatementBegan) {
  connection_->Execute("BEGIN");
  connection_->Begin();
  connection_->Run("UPDATE Goods SET Stock = 50 WHERE ID = 1");
  connection_->Commit();
  connection_->Begin();
  connection_->Run("UPDATE Goods SET Stock = 51 WHERE ID = 2");
  connection_->Rollback();
  EXPECT_EQ(Stock(1), Lines{"3"});
  connection_->Execute("COMMIT");
  EXPECT_EQ(Stock(1), Lines{"50"});
  EXPECT_EQ(Stock(2), Lines{"10"});
}

TEST_P(Transactions, AreUndoneWithTheirConnection) {
  connection_->Begin();
  connection_->Run("UPDATE Goods SET Stock = 50 WHERE ID = 1");
  connection_->Close();
  EXPECT_EQ(Stock(1), Lines{"3"});
  connection_->Rollback();
  connection_->Open(ConnectionString());
  EXPECT_EQ(MessageOf([&] { connection_->Commit(); }), "There is no transaction to commit; begin one first");
}

TEST_P(Transactions, LetRecordsBeReadOn) {
  const auto goods = Read(connection_, "SELECT ID FROM Goods ORDER BY ID");
  EXPECT_EQ(Line(*goods), "1");
  connection_->Begin();
  connection_->Run("UPDATE Goods SET Stock = 50 WHERE ID = 1");
  connection_->Commit();
  goods->MoveNext();
  EXPECT_EQ(Rest(*goods), (Lines{"2", "3", "4", "5"}));
}

}  // namespace

}  // namespace dralo::tests
