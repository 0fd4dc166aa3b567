#include "data/editing_contract.h"

namespace dralo::tests {

namespace {

using platform::Null;

class RefusedEditing : public EditingContract {};
INSTANTIATE_TEST_SUITE_P(Databases, RefusedEditing, kDatabases, DatabaseName);

TEST_P(RefusedEditing, KeepsTheValuesOfARecordThatBreaksARule) {
  const auto recordset = Edit(connection_, "SELECT * FROM Goods");
  recordset->AddNew();
  Set(recordset, "Stock", "5");
  const auto error = ErrorOf([&] { recordset->Update(); });

  EXPECT_NE(error.Number(), 0);
  EXPECT_EQ(ValueOf(*recordset, "Stock"), "5");
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods"), Lines{"5"});

  Save(recordset, "Name", "Flute");
  EXPECT_EQ(Rows(connection_, "SELECT Name FROM Goods WHERE Stock = 5"), Lines{"'Flute'"});
}

TEST_P(RefusedEditing, ReportsANullWhereNoneIsAllowed) {
  const auto recordset = EditRecord(1);
  Set(recordset, "Name", Null{});
  Set(recordset, "Stock", "5");
  EXPECT_THROW(recordset->Update(), platform::Error);
  EXPECT_EQ(Rows(connection_, "SELECT Name, Stock FROM Goods WHERE ID = 1"), Lines{"'Anvil' 3"});
}

TEST_P(RefusedEditing, RefusesWhatCannotBeConverted) {
  const auto recordset = EditRecord(1);
  const auto refusal = [&](const char* name, const char* value) {
    const std::string message = RefusalOf(recordset, name, value);
    const std::string begin = "The value for the field " + Named(name) + " ";
    return message.starts_with(begin) ? message.substr(begin.size()) : message;
  };

  EXPECT_EQ(refusal("Price", "dear"), "is not a number");
  EXPECT_EQ(refusal("Stock", "1.5"), "is not a whole number");
  EXPECT_EQ(refusal("Stock", "40000"), "is not between -32768 and 32767");
  EXPECT_EQ(refusal("Active", "maybe"), "is neither True nor False");
  EXPECT_EQ(refusal("Born", "2023-02-29"), "is not a date");
  EXPECT_EQ(refusal("Name", "more than 20 letters!"), "is longer than 20 characters");
  EXPECT_EQ(Line(*recordset), "1 'Anvil' " + Decimal("12.50") +
                                  " 3 true 2024-02-29 00:00:00 2024-03-01 10:20:30 99.5 'heavy' null");
}

TEST_P(RefusedEditing, KeepsAnEarlierValueWhenALaterOneIsRefused) {
  const auto recordset = EditRecord(1);
  Set(recordset, "Stock", "5");
  EXPECT_THROW(Set(recordset, "Stock", "many"), platform::Error);
  EXPECT_EQ(ValueOf(*recordset, "Stock"), "5");
}

TEST_P(RefusedEditing, CountsCharactersNotBytes) {
  const auto recordset = EditRecord(1);
  std::string name;
  for (int i = 0; i < 20; ++i) name += "\xC3\xA4";
  Save(recordset, "Name", name);
  EXPECT_EQ(Rows(connection_, "SELECT Name FROM Goods WHERE ID = 1"), Lines{"'" + name + "'"});
}

TEST_P(RefusedEditing, NeedsAnUpdatableRecordset) {
  const auto recordset = Read(connection_, "SELECT * FROM Goods");
  EXPECT_THROW(recordset->AddNew(), platform::Error);
  EXPECT_THROW(Set(recordset, "Name", "x"), platform::Error);
  recordset->Update();
  EXPECT_EQ(Rows(connection_, "SELECT Name FROM Goods WHERE ID = 1"), Lines{"'Anvil'"});
}

TEST_P(RefusedEditing, CannotChangeTheRecordsOfSeveralTables) {
  connection_->Execute("CREATE TABLE Makers (MakerID " + GetParam().identity.name +
                       ", GoodID INTEGER, City VARCHAR(20))");
  connection_->Execute("INSERT INTO Makers (GoodID, City) VALUES (1, 'Oslo')");
  const auto recordset =
      Edit(connection_, "SELECT g.ID, g.Name, m.City FROM Goods g JOIN Makers m ON m.GoodID = g.ID");

  EXPECT_THROW(recordset->AddNew(), platform::Error);
  Set(recordset, "Name", "x");
  EXPECT_THROW(recordset->Update(), platform::Error);
  EXPECT_EQ(Rows(connection_, "SELECT Name FROM Goods WHERE ID = 1"), Lines{"'Anvil'"});
}

TEST_P(RefusedEditing, CannotChangeExpressions) {
  const auto counts = Edit(connection_, "SELECT COUNT(*) AS n FROM Goods");
  EXPECT_THROW(counts->AddNew(), platform::Error);

  const auto recordset = Edit(connection_, "SELECT ID, Name, Stock * 2 AS Twice FROM Goods ORDER BY ID");
  EXPECT_EQ(RefusalOf(recordset, "Twice", std::int64_t{1}),
            "The field " + Named("Twice") + " is computed and cannot be set");
  Save(recordset, "Name", "Hammer");
  EXPECT_EQ(Rows(connection_, "SELECT Name FROM Goods WHERE ID = 1"), Lines{"'Hammer'"});
}

}  // namespace

}  // namespace dralo::tests
