#include "data/editing_contract.h"

namespace dralo::tests {

namespace {

class ConcurrentEditing : public EditingContract {};
INSTANTIATE_TEST_SUITE_P(Databases, ConcurrentEditing, kDatabases, DatabaseName);

TEST_P(ConcurrentEditing, FindsThatSomebodyElseChangedAValue) {
  const auto recordset = EditRecord(1);
  Set(recordset, "Name", "Mine");
  Set(recordset, "Stock", std::int64_t{99});
  Connect(ConnectionString())->Execute("UPDATE Goods SET Name = 'Theirs' WHERE ID = 1");

  const auto error = ErrorOf([&] { recordset->Update(); });

  EXPECT_EQ(error.Description(), kConflict);
  EXPECT_NE(error.Source(), "");
  EXPECT_EQ(Rows(connection_, "SELECT Name, Stock FROM Goods WHERE ID = 1"), Lines{"'Theirs' 3"});
  EXPECT_EQ(ValueOf(*recordset, "Name"), "'Mine'");
}

TEST_P(ConcurrentEditing, FindsAChangeFromAndToNull) {
  const auto from_null = EditRecord(3);
  Set(from_null, "Note", "mine");
  const auto to_null = EditRecord(1);
  Set(to_null, "Note", "mine");
  Connect(ConnectionString())->Execute("UPDATE Goods SET Note = 'theirs' WHERE ID = 3");
  Connect(ConnectionString())->Execute("UPDATE Goods SET Note = NULL WHERE ID = 1");

  EXPECT_EQ(MessageOf([&] { from_null->Update(); }), kConflict);
  EXPECT_EQ(MessageOf([&] { to_null->Update(); }), kConflict);
}

TEST_P(ConcurrentEditing, FindsAChangeOfLetterCaseOnly) {
  const auto recordset = EditRecord(1);
  Set(recordset, "Name", "Mine");
  Connect(ConnectionString())->Execute("UPDATE Goods SET Name = 'ANVIL' WHERE ID = 1");
  EXPECT_EQ(MessageOf([&] { recordset->Update(); }), kConflict);
}

TEST_P(ConcurrentEditing, FindsThatTheRecordIsGone) {
  const auto recordset = EditRecord(1);
  Set(recordset, "Name", "Mine");
  Connect(ConnectionString())->Execute("DELETE FROM Goods WHERE ID = 1");
  EXPECT_EQ(MessageOf([&] { recordset->Update(); }), kConflict);
}

TEST_P(ConcurrentEditing, LetsSomebodyElseChangeOtherFields) {
  const auto recordset = EditRecord(1);
  Set(recordset, "Name", "Mine");
  Set(recordset, "Note", "heavy");
  Connect(ConnectionString())->Execute("UPDATE Goods SET Stock = 77, Note = 'theirs' WHERE ID = 1");

  recordset->Update();

  EXPECT_EQ(Rows(connection_, "SELECT Name, Stock, Note FROM Goods WHERE ID = 1"),
            Lines{"'Mine' 77 'theirs'"});
}

TEST_P(ConcurrentEditing, LetsNobodyElseChangeOtherFieldsWhenAllAreCompared) {
  const auto recordset = EditRecord(1);
  recordset->SetUpdateCriteria(platform::UpdateCriteria::kAllColumns);
  Set(recordset, "Name", "Mine");
  Connect(ConnectionString())->Execute("UPDATE Goods SET Stock = 77 WHERE ID = 1");

  EXPECT_EQ(MessageOf([&] { recordset->Update(); }), kConflict);

  EXPECT_EQ(Rows(connection_, "SELECT Stock FROM Goods WHERE ID = 1 AND Name <> 'Mine'"), Lines{"77"});
}

TEST_P(ConcurrentEditing, ComparesValuesOfEveryKindWithThemselves) {
  const auto recordset = EditRecord(1);
  recordset->SetUpdateCriteria(platform::UpdateCriteria::kAllColumns);
  Save(recordset, "Name", "Mine");
  Save(recordset, "Name", "Mine again");

  EXPECT_EQ(Rows(connection_, "SELECT Name FROM Goods WHERE ID = 1"), Lines{"'Mine again'"});
}

TEST_P(ConcurrentEditing, LeavesTheDatabaseToOthersWhileARecordIsEdited) {
  const auto recordset = Edit(connection_, "SELECT * FROM Goods");
  Set(recordset, "Name", "Mine");
  const auto other = Connect(ConnectionString());
  other->Execute("UPDATE Goods SET Name = 'Theirs' WHERE ID = 5");
  recordset->Update();

  EXPECT_EQ(Rows(other, "SELECT Name FROM Goods WHERE ID IN (1, 5) ORDER BY ID"),
            (Lines{"'Mine'", "'Theirs'"}));
}

TEST_P(ConcurrentEditing, WritesWhileAnotherRecordsetOfTheConnectionIsRead) {
  const auto reading = Read(connection_, "SELECT ID FROM Goods ORDER BY ID");
  EXPECT_EQ(Line(*reading), "1");
  const auto recordset = EditRecord(1);
  Save(recordset, "Name", "Hammer");

  EXPECT_EQ(Rest(*reading), (Lines{"1", "2", "3", "4", "5"}));
  EXPECT_EQ(Rows(Connect(ConnectionString()), "SELECT Name FROM Goods WHERE ID = 1"), Lines{"'Hammer'"});
}

TEST_P(ConcurrentEditing, IsPartOfATransactionThatIsOpen) {
  connection_->Execute("BEGIN");
  const auto recordset = EditRecord(1);
  Save(recordset, "Name", "Kept");
  Set(recordset, "ID", "2");
  EXPECT_THROW(recordset->Update(), platform::Error);
  recordset->CancelUpdate();
  connection_->Execute("COMMIT");

  EXPECT_EQ(Rows(connection_, "SELECT Name FROM Goods WHERE ID IN (1, 2) ORDER BY ID"),
            (Lines{"'Kept'", "'Bell'"}));
}

}  // namespace

}  // namespace dralo::tests
