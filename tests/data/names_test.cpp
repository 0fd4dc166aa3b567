#include <array>

#include "data/commands.h"
#include "data/databases.h"

namespace dralo::tests {

namespace {

constexpr const char* kTable =
    "Gr\xC3\xB6\xC3\x9F"
    "e \"a\" `b` 'c' d.e";

/// Tables and columns with names that need quotes.
class Names : public DatabaseContract {
 protected:
  static constexpr std::array<const char*, 6> kColumns = {
      "Order", "two words", "What?", "it's \"so\"", "back`tick; --", "\xE4\xBB\xB7\xE6\xA0\xBC"};

  void SetUp() override {
    DatabaseContract::SetUp();
    std::string columns = Quoted("Select") + " INTEGER NOT NULL PRIMARY KEY";
    for (const char* column : kColumns) columns += ", " + Quoted(column) + " VARCHAR(20)";
    connection_->Execute("CREATE TABLE " + Quoted(kTable) + " (" + columns + ")");
    connection_->Execute("INSERT INTO " + Quoted(kTable) + " VALUES (1, 'a', 'b', 'c', 'd', 'e', 'f')");
  }

  static std::string Select() { return "SELECT * FROM " + Quoted(kTable); }
};
INSTANTIATE_TEST_SUITE_P(Databases, Names, kDatabases, DatabaseName);

TEST_P(Names, AreReadAsTheyAre) {
  const auto recordset = Read(connection_, Select());
  EXPECT_EQ(recordset->Fields()[0]->Name(), "Select");
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    EXPECT_EQ(recordset->Fields()[i + 1]->Name(), kColumns[i]);
  }
}

TEST_P(Names, AreWrittenTo) {
  const auto recordset = Edit(connection_, Select());
  for (const char* column : kColumns) FieldOf(*recordset, column).SetValue(std::string(column).substr(0, 3));
  recordset->Update();
  recordset->AddNew();
  FieldOf(*recordset, "Select").SetValue(std::int64_t{2});
  for (const char* column : kColumns) FieldOf(*recordset, column).SetValue("new");
  recordset->Update();

  EXPECT_EQ(
      Rows(connection_, Select() + " ORDER BY 1"),
      (Lines{"1 'Ord' 'two' 'Wha' 'it'' 'bac' '\xE4\xBB\xB7'", "2 'new' 'new' 'new' 'new' 'new' 'new'"}));
}

TEST_P(Names, StandForAWholeTableInACommand) {
  const auto command = MakeCommand(connection_, kTable);
  command->command_type = platform::CommandType::kTable;
  EXPECT_EQ(RowsOf(command), Lines{"1 'a' 'b' 'c' 'd' 'e' 'f'"});
}

TEST_P(Names, HoldNoParameters) {
  const auto command = MakeCommand(
      connection_, "SELECT 'who?' FROM " + Quoted(kTable) + " WHERE " + Quoted("What?") + " = ? /* why? */",
      {std::string("c")});
  EXPECT_EQ(RowsOf(command), Lines{"'who?'"});
}

TEST_P(Names, OfColumnsMayHaveAnAlias) {
  const auto recordset = Edit(connection_, "SELECT " + Quoted("Select") + ", " + Quoted("two words") +
                                               " AS Words FROM " + Quoted(kTable));
  EXPECT_EQ(recordset->Fields()[1]->Name(), Named("Words"));
  FieldOf(*recordset, "Words").SetValue("changed");
  recordset->Update();
  EXPECT_EQ(Rows(connection_, "SELECT " + Quoted("two words") + " FROM " + Quoted(kTable)),
            Lines{"'changed'"});
}

TEST_P(Names, OfKeysMayBeSeveral) {
  connection_->Execute("CREATE TABLE Parts (Good INTEGER NOT NULL, " + Quoted("Part No") +
                       " VARCHAR(9) NOT NULL, Amount INTEGER, PRIMARY KEY (Good, " + Quoted("Part No") +
                       "))");
  connection_->Execute("INSERT INTO Parts VALUES (1, 'a', 10), (1, 'b', 20), (2, 'a', 30)");
  const auto recordset = Edit(connection_, "SELECT * FROM Parts ORDER BY Amount");
  recordset->Move(1);
  FieldOf(*recordset, "Amount").SetValue("21");
  recordset->Update();

  EXPECT_EQ(Rows(connection_, "SELECT * FROM Parts ORDER BY Amount"),
            (Lines{"1 'a' 10", "1 'b' 21", "2 'a' 30"}));
  EXPECT_NO_THROW(Edit(connection_, "SELECT Good, Amount FROM Parts")->AddNew());
}

}  // namespace

}  // namespace dralo::tests
