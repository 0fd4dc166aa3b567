#include "data/commands.h"
#include "data/databases.h"

/// Records that are counted when they are opened.
namespace dralo::tests {

namespace {

class Counting : public DatabaseContract {
 protected:
  RecordsetPtr Open(const std::string& sql, const std::string& counting) {
    auto recordset = database::MakeRecordset();
    recordset->SetMaxRecords(5);
    recordset->SetCounting(counting);
    recordset->Open(sql, connection_);
    return recordset;
  }

  std::string Total() { return Rows(connection_, "SELECT COUNT(*) FROM Goods").at(0); }
};

INSTANTIATE_TEST_SUITE_P(Databases, Counting, kDatabases, DatabaseName);

TEST_P(Counting, TellsTheNumberBesideTheRows) {
  const auto goods = Open("SELECT ID FROM Goods ORDER BY ID", "SELECT COUNT(*) FROM Goods");
  EXPECT_EQ(Shown(platform::View(goods->Counted())), Total());
  EXPECT_EQ(Rest(*goods), (Lines{"1", "2", "3", "4", "5"}));
}

TEST_P(Counting, LeavesTheFirstMoveToTheDatabase) {
  const auto goods = Open("SELECT ID FROM Goods ORDER BY ID", "SELECT COUNT(*) FROM Goods");
  goods->Move(3);
  EXPECT_EQ(Shown(platform::View(goods->Counted())), Total());
  EXPECT_EQ(Rest(*goods), (Lines{"4", "5"}));
}

TEST_P(Counting, IsDoneForRowsThatWereReadAlready) {
  const auto goods = Open("SELECT ID FROM Goods ORDER BY ID", "SELECT COUNT(*) FROM Goods");
  EXPECT_FALSE(goods->Eof());
  EXPECT_EQ(Shown(platform::View(goods->Counted())), Total());
  EXPECT_EQ(Rest(*goods).size(), 5U);
}

TEST_P(Counting, IsDoneForRowsThatCanBeChanged) {
  auto goods = database::MakeRecordset();
  goods->SetCursorLocation(platform::CursorLocation::kClient);
  goods->SetCounting("SELECT COUNT(*) FROM Goods");
  goods->Open("SELECT ID FROM Goods ORDER BY ID", connection_, platform::CursorType::kKeyset,
              platform::LockType::kOptimistic);
  EXPECT_EQ(Shown(platform::View(goods->Counted())), Total());
  EXPECT_EQ(std::to_string(Rest(*goods).size()), Total());
}

TEST_P(Counting, TakesParametersHoweverManyRowsAreWanted) {
  const std::vector<platform::Variant> two{std::int64_t{2}};
  const auto command = MakeCommand(connection_, "SELECT ID FROM Goods WHERE ID > ? ORDER BY ID", two);
  const Lines all = RowsOf(command);
  for (const int wanted : {0, 3, 1000}) {
    for (int i = 0; i < 3; ++i) {
      auto goods = database::MakeRecordset();
      goods->SetMaxRecords(wanted);
      goods->SetCounting("SELECT COUNT(*) FROM Goods WHERE ID > ?", two);
      goods->Open(*command);
      EXPECT_EQ(Shown(platform::View(goods->Counted())), std::to_string(all.size())) << wanted;
      EXPECT_EQ(Rest(*goods), wanted == 3 ? Lines(all.begin(), all.begin() + 3) : all) << wanted;
    }
  }
}

TEST_P(Counting, FailsWithItsOwnStatement) {
  const auto error =
      ErrorOf([&] { Open("SELECT ID FROM Goods", "SELECT COUNT(*) FROM Nowhere")->Counted(); });
  EXPECT_EQ(error.Source(), "SELECT COUNT(*) FROM Nowhere");
}

TEST_P(Counting, KeepsAChangeThatCannotBeCountedFromBeingRun) {
  const std::string before = Total();
  EXPECT_THROW(Open("DELETE FROM Goods", "SELECT COUNT(*) FROM (DELETE FROM Goods) x"), platform::Error);
  EXPECT_EQ(Total(), before);
}

TEST_P(Counting, NeedsAStatement) {
  const auto goods = Read(connection_, "SELECT ID FROM Goods");
  EXPECT_EQ(MessageOf([&] { goods->Counted(); }), "The recordset has no counting statement");
}

}  // namespace
}  // namespace dralo::tests
