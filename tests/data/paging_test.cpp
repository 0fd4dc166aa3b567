#include <algorithm>
#include <functional>

#include "data/databases.h"

namespace dralo::tests {

namespace {

class Paging : public DatabaseContract {};
INSTANTIATE_TEST_SUITE_P(Databases, Paging, kDatabases, DatabaseName);

constexpr const char* kByName = "SELECT ID, Name FROM Goods ORDER BY Name DESC";

TEST_P(Paging, EndsAtTheRecordLimit) {
  EXPECT_EQ(Page(connection_, kByName, 2, 0), (Lines{"5 'Easel'", "4 'Drum'"}));
}

TEST_P(Paging, CountsTheLimitFromTheFirstRecord) {
  EXPECT_EQ(Page(connection_, kByName, 3, 2), (Lines{"3 'Candle'"}));
  EXPECT_EQ(Page(connection_, kByName, 3, 3), Lines{});
  EXPECT_EQ(Page(connection_, kByName, 3, 4), Lines{});
}

TEST_P(Paging, ReadsAllWithoutALimit) {
  EXPECT_EQ(Page(connection_, kByName, 0, 3), (Lines{"2 'Bell'", "1 'Anvil'"}));
}

TEST_P(Paging, StopsAtTheEndWhenThereAreFewerRecords) {
  EXPECT_EQ(Page(connection_, kByName, 100, 4), Lines{"1 'Anvil'"});
  EXPECT_EQ(Page(connection_, kByName, 100, 5), Lines{});
  EXPECT_EQ(Page(connection_, kByName, 0, 1000), Lines{});
}

TEST_P(Paging, MovesOnFromARecordThatWasRead) {
  const auto recordset = Read(connection_, kByName, 5);
  EXPECT_EQ(Line(*recordset), "5 'Easel'");

  recordset->Move(2);
  EXPECT_EQ(Line(*recordset), "3 'Candle'");
  recordset->Move(0);
  EXPECT_EQ(Line(*recordset), "3 'Candle'");
  recordset->Move(7);
  EXPECT_TRUE(recordset->Eof());
}

TEST_P(Paging, MovesTwiceBeforeItReads) {
  const auto recordset = Read(connection_, kByName, 4);
  recordset->Move(1);
  recordset->Move(2);
  EXPECT_EQ(Rest(*recordset), Lines{"2 'Bell'"});
}

TEST_P(Paging, KeepsTheParametersOfACommand) {
  platform::Command command;
  command.active_connection = connection_;
  command.command_text = "SELECT ID FROM Goods WHERE ID > ? AND ID < ? ORDER BY ID";
  command.parameters = {std::int64_t{1}, std::int64_t{5}};
  const auto recordset = database::MakeRecordset();
  recordset->SetMaxRecords(3);
  recordset->Open(command);
  command.parameters.clear();
  recordset->Move(1);

  EXPECT_EQ(Rest(*recordset), (Lines{"3", "4"}));
}

TEST_P(Paging, HasTheSameOrderOfEqualKeysOnAllPages) {
  connection_->Execute("DELETE FROM Goods");
  for (int i = 1; i <= 60; ++i) {
    connection_->Execute("INSERT INTO Goods (ID, Name, Stock) VALUES (" + std::to_string(i) + ", 'x', " +
                         std::to_string(i * 7 % 3) + ")");
  }
  const std::string sql = "SELECT ID, Stock FROM Goods ORDER BY Stock DESC";
  const Lines all = Rows(connection_, sql);

  Lines pages;
  for (int passed = 0; passed < 60; passed += 7) {
    const Lines page = Page(connection_, sql, passed + 7, passed);
    pages.insert(pages.end(), page.begin(), page.end());
  }

  EXPECT_EQ(all.size(), 60u);
  EXPECT_EQ(pages.size(), 60u);
  const auto stock = [](const std::string& line) { return line.substr(line.find(' ')); };
  EXPECT_TRUE(std::ranges::is_sorted(pages, std::greater{}, stock));
  if (!GetParam().orders_equal_keys_alike) return;
  EXPECT_EQ(pages, all);
  EXPECT_EQ(Page(connection_, sql, 0, 30), Lines(all.begin() + 30, all.end()));
}

TEST_P(Paging, RefusesANegativeLimitAndChangesWhileOpen) {
  const auto recordset = database::MakeRecordset();
  EXPECT_THROW(recordset->SetMaxRecords(-1), platform::Error);
  recordset->SetMaxRecords(7);
  EXPECT_EQ(recordset->MaxRecords(), 7);

  recordset->Open("Goods", connection_);
  EXPECT_THROW(recordset->SetMaxRecords(1), platform::Error);
  EXPECT_THROW(recordset->SetCursorLocation(platform::CursorLocation::kClient), platform::Error);
}

TEST_P(Paging, LimitsTheRecordsThatCanBeChanged) {
  const auto recordset = database::MakeRecordset();
  recordset->SetMaxRecords(3);
  recordset->SetCursorLocation(platform::CursorLocation::kClient);
  recordset->Open(kByName, connection_, platform::CursorType::kKeyset, platform::LockType::kOptimistic);
  recordset->Move(1);

  EXPECT_EQ(Rest(*recordset), (Lines{"4 'Drum'", "3 'Candle'"}));
}

}  // namespace

}  // namespace dralo::tests
