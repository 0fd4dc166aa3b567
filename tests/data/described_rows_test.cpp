#include "data/commands.h"
#include "data/databases.h"

namespace dralo::tests {

namespace {

/// Rows of a query inside of another one, which are written to the table of the inner one.
class DescribedRows : public DatabaseContract {
 protected:
  static constexpr const char* kWanted = "SELECT Name, ID, Stock FROM Goods WHERE Stock < ?";

  RecordsetPtr Open(std::int64_t id, const std::string& wanted = kWanted,
                    std::vector<platform::Variant> values = {std::int64_t{9}}) {
    const auto described = MakeCommand(connection_, wanted, values);
    values.emplace_back(id);
    const auto rows = MakeCommand(
        nullptr, "SELECT * FROM (" + wanted + "\n) T WHERE " + Quoted(Named("ID")) + " = ?", values);
    auto recordset = database::MakeRecordset();
    recordset->SetCursorLocation(platform::CursorLocation::kClient);
    recordset->SetUpdateCriteria(platform::UpdateCriteria::kAllColumns);
    recordset->SetMaxRecords(2);
    recordset->OpenDescribed(*described, *rows);
    return recordset;
  }

  Lines Goods() { return Rows(connection_, "SELECT ID, Name, Stock FROM Goods ORDER BY ID"); }
};
INSTANTIATE_TEST_SUITE_P(Databases, DescribedRows, kDatabases, DatabaseName);

TEST_P(DescribedRows, AreThoseOfTheOuterQuery) {
  const auto row = Open(1);
  ASSERT_EQ(row->Fields().size(), 3U);
  EXPECT_EQ(row->Fields()[0]->Name(), Named("Name"));
  EXPECT_EQ(row->Fields()[2]->Type(), GetParam().small.code);
  EXPECT_EQ(Rest(*row), Lines{"'Anvil' 1 3"});
  EXPECT_TRUE(Open(2)->Eof()) << "outside of the inner query";
  EXPECT_TRUE(Open(9)->Eof());
}

TEST_P(DescribedRows, AreWrittenToTheTableOfTheInnerQuery) {
  const auto row = Open(1);
  FieldOf(*row, "Name").SetValue(std::string("Big anvil"));
  FieldOf(*row, "Stock").SetValue(std::int64_t{77});
  row->Update();
  EXPECT_EQ(Goods(),
            (Lines{"1 'Big anvil' 77", "2 'Bell' 10", "3 'Candle' null", "4 'Drum' 1", "5 'Easel' 2"}));
}

TEST_P(DescribedRows, AreNotWrittenWhenTheyHaveChanged) {
  const auto row = Open(1);
  EXPECT_EQ(ValueOf(*row, "Stock"), "3");
  connection_->Run("UPDATE Goods SET Stock = 4 WHERE ID = 1");
  FieldOf(*row, "Name").SetValue(std::string("Big anvil"));
  EXPECT_THROW(row->Update(), platform::Error);
  EXPECT_EQ(Rows(connection_, "SELECT Name, Stock FROM Goods WHERE ID = 1"), Lines{"'Anvil' 4"});
}

TEST_P(DescribedRows, NameTheColumnsOfTheTable) {
  const auto row = Open(1);
  EXPECT_EQ(FieldOf(*row, "ID").BaseName(), Quoted(Named("ID")));
  const auto computed = Open(1, "SELECT ID, Name, Stock + 1 AS More FROM Goods WHERE Stock < ?");
  EXPECT_EQ(FieldOf(*computed, "More").BaseName(), "");
  EXPECT_EQ(ValueOf(*computed, "More"), "4");
}

TEST_P(DescribedRows, AreFoundByAValueOfTheirType) {
  const auto row = Open(1);
  const std::string condition = FieldOf(*row, "ID").BoundComparison("ID");
  const std::vector<platform::Variant> five = {std::int64_t{5}};
  EXPECT_EQ(RowsOf(MakeCommand(connection_, "SELECT Name FROM Goods WHERE " + condition, five)),
            Lines{"'Easel'"});
}

TEST_P(DescribedRows, AreLockedAsTheyWereRead) {
  connection_->Begin();
  const auto row = Open(1);
  EXPECT_FALSE(row->Eof());
  row->LockRow();
  connection_->Rollback();

  connection_->Run("UPDATE Goods SET Name = 'Other' WHERE ID = 1");
  EXPECT_EQ(MessageOf([&] { row->LockRow(); }),
            "Row cannot be located for updating. Some values may have been changed since it was last read.");
}

TEST_P(DescribedRows, CannotBeOfAnotherShape) {
  const auto described = MakeCommand(connection_, "SELECT ID, Name FROM Goods");
  const auto rows = MakeCommand(nullptr, "SELECT ID FROM Goods");
  const auto recordset = database::MakeRecordset();
  recordset->OpenDescribed(*described, *rows);
  EXPECT_EQ(MessageOf([&] { recordset->Eof(); }),
            "The rows have other columns than the statement that describes them");
}

TEST_P(DescribedRows, HaveTheColumnsThatTheirTableHasNow) {
  const std::string all = "SELECT * FROM Goods WHERE Stock < ?";
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(Open(1, all)->Eof());
  const std::size_t before = Open(1, all)->Fields().size();
  Connect(ConnectionString() + ";Query Timeout=9")->Execute("ALTER TABLE Goods ADD Remark VARCHAR(20)");
  for (int i = 0; i < 3; ++i) {
    const auto row = Open(1, all);
    ASSERT_EQ(row->Fields().size(), before + 1);
    EXPECT_EQ(ValueOf(*row, "Remark"), i == 0 ? "null" : "'new'");
    FieldOf(*row, "Remark").SetValue(std::string("new"));
    row->Update();
  }
}

TEST_P(DescribedRows, HaveTheirColumnsOfNowThoughTheyAreReadBeforeTheirFields) {
  const std::string all = "SELECT * FROM Goods WHERE Stock < ?";
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(Open(1, all)->Eof());
  const auto other = Connect(ConnectionString() + ";Query Timeout=9");
  other->Execute("ALTER TABLE Goods ADD Remark VARCHAR(20)");
  for (int i = 0; i < 3; ++i) {
    const auto row = Open(1, all);
    ASSERT_FALSE(row->Eof());
    EXPECT_EQ(ValueOf(*row, "Remark"), i == 0 ? "null" : "'new'");
    FieldOf(*row, "Remark").SetValue(std::string("new"));
    row->Update();
  }
  other->Execute("ALTER TABLE Goods DROP COLUMN Active");
  for (int i = 0; i < 3; ++i) {
    const auto row = Open(1, all);
    ASSERT_FALSE(row->Eof());
    EXPECT_EQ(ValueOf(*row, "Remark"), "'new'");
  }
}

TEST_P(DescribedRows, AreNotWrittenThroughExpressions) {
  const auto row = Open(1, "SELECT ID, Stock + 1 AS More, Stock FROM Goods WHERE Stock < ?");
  EXPECT_EQ(ValueOf(*row, "More"), "4");
  const auto change = [&] {
    FieldOf(*row, "More").SetValue(std::int64_t{9});
    row->Update();
  };
  EXPECT_THROW(change(), platform::Error);
  EXPECT_EQ(Rows(connection_, "SELECT Stock FROM Goods WHERE ID = 1"), Lines{"3"});
}

}  // namespace

}  // namespace dralo::tests
