#include "data/editing_contract.h"

/// Records that no key of the database tells apart among the fields: of a table without one, with a unique
/// key that may be Null, or of a query that does not show the key.
namespace dralo::tests {

namespace {

using platform::Null;

constexpr const char* kEqual =
    "Several records are equal in all fields of the query, so none was changed. Add a field that tells them "
    "apart.";

class KeylessEditing : public EditingContract {
 protected:
  void SetUp() override {
    EditingContract::SetUp();
    connection_->Execute("CREATE TABLE Notes (Topic VARCHAR(20), Body VARCHAR(20), Code VARCHAR(20) UNIQUE)");
    connection_->Execute(
        "INSERT INTO Notes VALUES ('a', 'same', NULL), ('a', 'same', NULL), ('a', 'other', 'x'), "
        "(NULL, 'alone', NULL)");
  }

  RecordsetPtr EditNote(const std::string& condition, const std::string& fields = "*") {
    return Edit(connection_, "SELECT " + fields + " FROM Notes WHERE " + condition);
  }

  Lines Bodies() { return Rows(connection_, "SELECT Body FROM Notes ORDER BY Body"); }
};
INSTANTIATE_TEST_SUITE_P(Databases, KeylessEditing, kDatabases, DatabaseName);

TEST_P(KeylessEditing, ChangesTheRecordThatHasAllTheOldValues) {
  const auto recordset = EditNote("Topic = 'a' AND Body = 'other'");
  Save(recordset, "Body", "new");
  Save(recordset, "Topic", Null{});
  EXPECT_EQ(Rows(connection_, "SELECT Topic FROM Notes WHERE Body = 'new'"), Lines{"null"});
  EXPECT_EQ(Bodies(), (Lines{"'alone'", "'new'", "'same'", "'same'"}));
}

TEST_P(KeylessEditing, FindsARecordByItsNulls) {
  const auto recordset = EditNote("Topic IS NULL");
  Save(recordset, "Code", "y");
  EXPECT_EQ(Rows(connection_, "SELECT Body FROM Notes WHERE Code = 'y'"), Lines{"'alone'"});
}

TEST_P(KeylessEditing, ChangesNoneOfSeveralEqualRecords) {
  const auto recordset = EditNote("Body = 'same'");
  Set(recordset, "Body", "new");
  EXPECT_EQ(MessageOf([&] { recordset->Update(); }), kEqual);
  EXPECT_EQ(Bodies(), (Lines{"'alone'", "'other'", "'same'", "'same'"}));
}

TEST_P(KeylessEditing, ChangesNothingThatSomebodyElseHasChanged) {
  const auto recordset = EditNote("Body = 'alone'");
  Set(recordset, "Body", "new");
  connection_->Execute("UPDATE Notes SET Topic = 'b' WHERE Body = 'alone'");
  EXPECT_EQ(MessageOf([&] { recordset->Update(); }), kConflict);
  EXPECT_EQ(Rows(connection_, "SELECT Topic FROM Notes WHERE Body = 'alone'"), Lines{"'b'"});
}

TEST_P(KeylessEditing, AddsARecord) {
  const auto recordset = EditNote("1 = 0");
  recordset->AddNew();
  Save(recordset, "Body", "added");
  EXPECT_EQ(Bodies(), (Lines{"'added'", "'alone'", "'other'", "'same'", "'same'"}));
}

TEST_P(KeylessEditing, NeedsNotTheKeyThatTheTableHas) {
  const auto recordset = Edit(connection_, "SELECT Name, Stock FROM Goods WHERE ID = 1");
  Save(recordset, "Name", "Hammer");
  EXPECT_EQ(Rows(connection_, "SELECT Name FROM Goods WHERE ID = 1"), Lines{"'Hammer'"});
  recordset->AddNew();
  Save(recordset, "Name", "Flute");
  EXPECT_EQ(Rows(connection_, "SELECT ID FROM Goods WHERE Name = 'Flute'"), Lines{"6"});
}

TEST_P(KeylessEditing, IsToldApartByWhatTheFieldsDoNotShow) {
  connection_->Execute("UPDATE Goods SET Name = 'Same'");
  const auto recordset = Edit(connection_, "SELECT Name FROM Goods WHERE ID = 4");
  Set(recordset, "Name", "Drum");
  EXPECT_EQ(MessageOf([&] { recordset->Update(); }), kEqual);
  recordset->SetIdentity({.fields = {"ID", "name"}, .condition = "(ID=4) AND (1=1)"});
  recordset->Update();
  EXPECT_EQ(Rows(connection_, "SELECT Name FROM Goods ORDER BY ID"),
            (Lines{"'Same'", "'Same'", "'Same'", "'Drum'", "'Same'"}));
}

}  // namespace

}  // namespace dralo::tests
