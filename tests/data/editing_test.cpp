#include "data/editing_contract.h"

namespace dralo::tests {

namespace {

using platform::DateTime;
using platform::Null;

class Editing : public EditingContract {};
INSTANTIATE_TEST_SUITE_P(Databases, Editing, kDatabases, DatabaseName);

TEST_P(Editing, WritesTheChangedFields) {
  const auto recordset = EditRecord(1);
  Set(recordset, "Name", "Hammer");
  Set(recordset, "Price", "7.25");
  Set(recordset, "Stock", "12");
  Set(recordset, "Active", false);
  Set(recordset, "Born", "2021-03-04");
  Set(recordset, "Seen", DateTime{2021, 3, 4, 5, 6, 7});
  Set(recordset, "Weight", "1.5");
  Save(recordset, "Note", Null{});

  EXPECT_EQ(Record(1), Lines{"'Hammer' " + Decimal("7.25") +
                             " 12 false 2021-03-04 00:00:00 2021-03-04 05:06:07 1.5 null"});
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods WHERE Name = 'Hammer'"), Lines{"1"});
}

TEST_P(Editing, ShowsTheNewValuesBeforeAndAfterTheUpdate) {
  const auto recordset = EditRecord(1);
  Set(recordset, "Name", "Hammer");
  EXPECT_EQ(ValueOf(*recordset, "Name"), "'Hammer'");
  recordset->Update();
  EXPECT_EQ(ValueOf(*recordset, "Name"), "'Hammer'");
  EXPECT_EQ(ValueOf(*recordset, "Note"), "'heavy'");
}

TEST_P(Editing, ChangesTheSameRecordTwice) {
  const auto recordset = EditRecord(1);
  Set(recordset, "Price", "1.5");
  Save(recordset, "Seen", "2001-01-01 01:01:01");
  Set(recordset, "Price", "2.5");
  Save(recordset, "Seen", "2002-02-02");

  EXPECT_EQ(Rows(connection_, "SELECT Price, Seen FROM Goods WHERE ID = 1"),
            Lines{Decimal("2.50") + " 2002-02-02 00:00:00"});
}

TEST_P(Editing, ChangesTheKeyOfARecord) {
  const auto recordset = EditRecord(2);
  Save(recordset, "ID", std::int64_t{20});
  Save(recordset, "Name", "Moved");

  EXPECT_EQ(Rows(connection_, "SELECT ID, Name FROM Goods WHERE ID IN (2, 20)"), Lines{"20 'Moved'"});
}

TEST_P(Editing, ChangesEveryRecordOfALoop) {
  const auto recordset = Edit(connection_, "SELECT ID, Stock FROM Goods ORDER BY ID");
  for (; !recordset->Eof(); recordset->MoveNext()) {
    Save(recordset, "Stock", std::int64_t{7});
  }
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods WHERE Stock = 7"), Lines{"5"});
}

TEST_P(Editing, WritesNothingWithoutAChange) {
  const auto recordset = EditRecord(1);
  recordset->Update();
  Set(recordset, "Name", "Anvil");
  Set(recordset, "Price", "12.50");
  Set(recordset, "Born", "2024-02-29");
  connection_->Execute("DELETE FROM Goods WHERE ID = 1");

  recordset->Update();

  EXPECT_EQ(Record(1), Lines{});
}

TEST_P(Editing, ForgetsChangesThatAreCancelled) {
  const auto recordset = EditRecord(1);
  Set(recordset, "Name", "Hammer");
  recordset->CancelUpdate();

  EXPECT_EQ(ValueOf(*recordset, "Name"), "'Anvil'");
  recordset->Update();
  EXPECT_EQ(Rows(connection_, "SELECT Name FROM Goods WHERE ID = 1"), Lines{"'Anvil'"});
}

TEST_P(Editing, DropsUnsavedChangesWhenItIsClosed) {
  const auto recordset = EditRecord(1);
  Set(recordset, "Name", "Hammer");
  recordset->Close();
  EXPECT_EQ(Rows(connection_, "SELECT Name FROM Goods WHERE ID = 1"), Lines{"'Anvil'"});
}

TEST_P(Editing, DoesNotLeaveARecordWithUnsavedChanges) {
  const auto recordset = Edit(connection_, "SELECT * FROM Goods");
  Set(recordset, "Name", "Hammer");
  EXPECT_THROW(recordset->MoveNext(), platform::Error);
  EXPECT_THROW(recordset->Move(1), platform::Error);
  EXPECT_THROW(recordset->AddNew(), platform::Error);
  EXPECT_EQ(ValueOf(*recordset, "Name"), "'Hammer'");
}

TEST_P(Editing, AddsARecordOfTheFieldsThatWereSet) {
  const auto recordset = Edit(connection_, "SELECT * FROM Goods");
  recordset->AddNew();
  EXPECT_FALSE(recordset->Eof());
  EXPECT_EQ(ValueOf(*recordset, "Name"), "null");
  EXPECT_EQ(FieldOf(*recordset, "Name").ActualSize(), 0);
  Set(recordset, "Name", "Flute");
  Set(recordset, "Price", "19.90");
  Save(recordset, "Active", "TRUE");

  EXPECT_EQ(ValueOf(*recordset, "ID"), "6");
  EXPECT_EQ(ValueOf(*recordset, "Name"), "'Flute'");
  EXPECT_EQ(Record(6), Lines{"'Flute' " + Decimal("19.90") + " null true null null null null"});
}

TEST_P(Editing, ChangesTheRecordThatWasAdded) {
  const auto recordset = Edit(connection_, "SELECT ID, Name, Stock FROM Goods");
  recordset->AddNew();
  Save(recordset, "Name", "Flute");
  Set(recordset, "Name", "Fife");
  Save(recordset, "Stock", "4");

  EXPECT_EQ(Rows(connection_, "SELECT Name, Stock FROM Goods WHERE ID = 6"), Lines{"'Fife' 4"});
  recordset->MoveNext();
  EXPECT_TRUE(recordset->Eof());
}

TEST_P(Editing, AddsSeveralRecords) {
  const auto recordset = Edit(connection_, "SELECT ID, Name FROM Goods WHERE ID = 0");
  for (const char* name : {"Flute", "Gong", "Harp"}) {
    recordset->AddNew();
    Save(recordset, "Name", name);
  }
  EXPECT_EQ(Rows(connection_, "SELECT ID, Name FROM Goods WHERE ID > 5 ORDER BY ID"),
            (Lines{"6 'Flute'", "7 'Gong'", "8 'Harp'"}));
}

TEST_P(Editing, GoesBackFromANewRecordThatIsCancelled) {
  const auto recordset = Edit(connection_, "SELECT ID, Name FROM Goods ORDER BY ID");
  recordset->MoveNext();
  recordset->AddNew();
  Set(recordset, "Name", "Flute");
  recordset->CancelUpdate();

  EXPECT_EQ(Line(*recordset), "2 'Bell'");
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods"), Lines{"5"});
}

TEST_P(Editing, AddsARecordToAnEmptyResult) {
  const auto recordset = Edit(connection_, "SELECT ID, Name FROM Goods WHERE ID = 0");
  EXPECT_TRUE(recordset->Eof());
  EXPECT_EQ(RefusalOf(recordset, "Name", "x"), "There is no current record to change");
  recordset->AddNew();
  EXPECT_FALSE(recordset->Eof());
}

}  // namespace

}  // namespace dralo::tests
