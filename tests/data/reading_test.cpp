#include "data/commands.h"
#include "data/databases.h"

namespace dralo::tests {

namespace {

class Reading : public DatabaseContract {};
INSTANTIATE_TEST_SUITE_P(Databases, Reading, kDatabases, DatabaseName);

TEST_P(Reading, YieldsEveryKindOfValue) {
  EXPECT_EQ(Rows(connection_,
                 "SELECT ID, Name, Price, Stock, Active, Born, Seen, Weight, Note FROM Goods WHERE ID = 1"),
            Lines{"1 'Anvil' " + Decimal("12.50") +
                  " 3 true 2024-02-29 00:00:00 2024-03-01 10:20:30 99.5 'heavy'"});
}

TEST_P(Reading, YieldsNullForAnAbsentValue) {
  EXPECT_EQ(
      Rows(connection_, "SELECT Price, Stock, Active, Born, Seen, Weight, Note FROM Goods WHERE ID = 3"),
      Lines{"null null null null null null null"});
}

TEST_P(Reading, DescribesTheColumns) {
  const auto recordset = Read(connection_, "SELECT * FROM Goods");
  const auto type = [&](const char* name) { return FieldOf(*recordset, name).Type(); };

  EXPECT_EQ(recordset->Fields().size(), 10u);
  EXPECT_EQ(type("ID"), GetParam().identity.code);
  EXPECT_EQ(type("Name"), GetParam().text.code);
  EXPECT_EQ(type("Price"), GetParam().decimal.code);
  EXPECT_EQ(type("Stock"), GetParam().small.code);
  EXPECT_EQ(type("Active"), GetParam().boolean.code);
  EXPECT_EQ(type("Born"), GetParam().date.code);
  EXPECT_EQ(type("Seen"), GetParam().timestamp.code);
  EXPECT_EQ(type("Weight"), GetParam().number.code);
  EXPECT_EQ(type("Note"), GetParam().long_text.code);
  EXPECT_EQ(type("Picture"), GetParam().bytes.code);
  EXPECT_EQ(FieldOf(*recordset, "Name").DefinedSize(), 20);
  EXPECT_EQ(FieldOf(*recordset, "Note").DefinedSize(), 0);
  EXPECT_EQ(FieldOf(*recordset, "Name").Attributes() & platform::kFieldIsNullable, 0);
  EXPECT_EQ(FieldOf(*recordset, "ID").Attributes() & platform::kFieldIsNullable, 0);
  EXPECT_NE(FieldOf(*recordset, "Price").Attributes() & platform::kFieldIsNullable, 0);
}

TEST_P(Reading, TellsTheSizeOfAValueInBytes) {
  const auto recordset = Read(connection_, "SELECT Note, Price FROM Goods ORDER BY ID");
  platform::Field& note = *recordset->Fields()[0];

  EXPECT_EQ(note.ActualSize(), 5);
  recordset->MoveNext();
  EXPECT_EQ(note.ActualSize(), 0);
}

TEST_P(Reading, KeepsTheNameOfAnAlias) {
  EXPECT_EQ(Read(connection_, "SELECT COUNT(*) AS ANT FROM Goods")->Fields()[0]->Name(), Named("ANT"));
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) AS ANT FROM (SELECT * FROM Goods) DRALOALIAS"), Lines{"5"});
}

TEST_P(Reading, KeepsTheSameFieldsWhileItMoves) {
  const auto recordset = Read(connection_, "SELECT Name FROM Goods ORDER BY ID");
  platform::Field* const field = recordset->Fields()[0];

  recordset->MoveNext();

  EXPECT_EQ(recordset->Fields()[0], field);
  EXPECT_EQ(Shown(field->Value()), "'Bell'");
}

TEST_P(Reading, KnowsTheColumnsOfAnEmptyResult) {
  const auto recordset = Read(connection_, "SELECT ID, Name FROM Goods WHERE ID = 0");

  EXPECT_TRUE(recordset->Eof());
  EXPECT_EQ(recordset->Fields()[1]->Name(), Named("Name"));
  EXPECT_THROW(recordset->Fields()[1]->Value(), platform::Error);
}

TEST_P(Reading, StandsOnTheFirstRecordAtOnce) {
  EXPECT_EQ(ValueOf(*Read(connection_, "SELECT Name FROM Goods ORDER BY ID"), "Name"), "'Anvil'");
}

TEST_P(Reading, ReportsAWrongStatementWhenItIsOpened) {
  const auto error = ErrorOf([&] { Read(connection_, "SELECT Nothing FROM Goods"); });

  EXPECT_NE(error.Description(), "");
  EXPECT_NE(error.Number(), 0);
  EXPECT_EQ(error.Source(), "SELECT Nothing FROM Goods");
}

TEST_P(Reading, CannotGoBeyondTheEnd) {
  const auto recordset = Read(connection_, "SELECT ID FROM Goods WHERE ID = 1");
  recordset->MoveNext();

  EXPECT_TRUE(recordset->Eof());
  EXPECT_EQ(MessageOf([&] { recordset->MoveNext(); }),
            "There is no next record; the recordset is at its end");
}

TEST_P(Reading, MovesForwardOnly) {
  const auto recordset = Read(connection_, "SELECT ID FROM Goods");
  EXPECT_EQ(MessageOf([&] { recordset->Move(-1); }), "The recordset moves forward only");
}

TEST_P(Reading, TakesABareTableNameAsTheWholeTable) {
  EXPECT_EQ(Rest(*Read(connection_, "Goods")).size(), 5u);
  EXPECT_EQ(Rest(*Read(connection_, "  Goods ")).size(), 5u);
}

TEST_P(Reading, TakesATableNameForAStatementWhenTheOptionsSaySo) {
  const auto open = [&](std::string_view source, int options) {
    auto recordset = database::MakeRecordset();
    recordset->Open(source, connection_, platform::CursorType::kForwardOnly, platform::LockType::kReadOnly,
                    options);
    return Rest(*recordset);
  };
  EXPECT_EQ(open("Goods", -1).size(), 5u);
  EXPECT_EQ(open("SELECT ID FROM Goods", 1).size(), 5u);
  EXPECT_EQ(Rest(*connection_->Execute("Goods", nullptr, -1)).size(), 5u);
  EXPECT_EQ(Rest(*connection_->Execute("SELECT ID FROM Goods", nullptr, 1)).size(), 5u);
  EXPECT_THROW(open("Goods", 1), platform::Error);
  EXPECT_THROW(connection_->Execute("Goods", nullptr, 1), platform::Error);
}

TEST_P(Reading, RefusesOtherOptionsBeforeAnythingRuns) {
  const auto command = MakeCommand(connection_, "DELETE FROM Goods");
  for (const int options : {-2, 0, 2, 4, 8, 128, 129}) {
    const auto recordset = database::MakeRecordset();
    const auto open = [&](auto&&... source) {
      recordset->Open(source..., platform::CursorType::kForwardOnly, platform::LockType::kReadOnly, options);
    };
    for (const std::string& message :
         {MessageOf([&] { open("DELETE FROM Goods", connection_); }), MessageOf([&] { open(*command); }),
          MessageOf([&] { connection_->Execute("DELETE FROM Goods", nullptr, options); })}) {
      EXPECT_EQ(
          message,
          "The options must be -1 or 1; a table or a stored procedure is run by a command of that type");
    }
    EXPECT_FALSE(recordset->IsOpen());
  }
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods"), Lines{"5"});
}

TEST_P(Reading, RunsSeveralRecordsetsSideBySide) {
  const auto outer = Read(connection_, "SELECT ID FROM Goods ORDER BY ID");
  Lines names;
  for (; !outer->Eof(); outer->MoveNext()) {
    names.push_back(Rows(connection_, "SELECT Name FROM Goods WHERE ID = " + Line(*outer)).front());
  }
  EXPECT_EQ(names, (Lines{"'Anvil'", "'Bell'", "'Candle'", "'Drum'", "'Easel'"}));
}

TEST_P(Reading, CanBeOpenedAgainAfterClosing) {
  const auto recordset = Read(connection_, "SELECT ID FROM Goods WHERE ID = 1");
  EXPECT_THROW(recordset->Open("SELECT ID FROM Goods", connection_), platform::Error);

  recordset->Close();
  recordset->Open("SELECT Name, ID FROM Goods WHERE ID = 2", connection_);

  EXPECT_EQ(Line(*recordset), "'Bell' 2");
}

TEST_P(Reading, SaysThatAClosedRecordsetIsClosed) {
  const auto recordset = Read(connection_, "SELECT ID FROM Goods");
  platform::Field& field = *recordset->Fields()[0];
  recordset->Close();
  recordset->Close();

  EXPECT_FALSE(recordset->IsOpen());
  EXPECT_EQ(MessageOf([&] { recordset->Eof(); }), "The recordset is closed");
  EXPECT_EQ(MessageOf([&] { recordset->MoveNext(); }), "The recordset is closed");
  EXPECT_EQ(MessageOf([&] { recordset->Fields(); }), "The recordset is closed");
  EXPECT_EQ(MessageOf([&] { field.Value(); }), "The recordset is closed");
}

}  // namespace

}  // namespace dralo::tests
