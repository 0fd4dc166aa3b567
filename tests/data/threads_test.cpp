#include <atomic>
#include <thread>

#include "data/editing_contract.h"
#include "data/key_journey.h"

/// Pages of several threads at once, each with a connection of the pool. The long run has it watched by
/// ThreadSanitizer.
namespace dralo::tests {

namespace {

class Threads : public EditingContract {
 protected:
  static constexpr int kRounds = 15;

  /// Runs `work`, which is given the number of the thread, in two threads. What fails in one is told.
  template <class Work>
  static void InTwo(const Work& work) {
    std::array<std::string, 2> failures;
    const auto guarded = [&](std::size_t number) {
      try {
        work(static_cast<int>(number));
      } catch (const std::exception& error) {
        failures[number] = error.what();
      }
    };
    std::thread other(guarded, 1);
    guarded(0);
    other.join();
    EXPECT_EQ(failures[0], "");
    EXPECT_EQ(failures[1], "");
  }

  /// Whoever comes second reads again.
  void AddOne() const {
    while (true) {
      const auto recordset = Edit(Connect(ConnectionString()), "SELECT ID, Stock FROM Goods WHERE ID = 1");
      const auto stock = std::get<std::int64_t>(FieldOf(*recordset, "Stock").Value());
      Set(recordset, "Stock", stock + 1);
      try {
        return recordset->Update();
      } catch (const platform::Error& error) {
        if (error.Description() != kConflict && error.SqlState() != "40001") throw;
      }
    }
  }
};
INSTANTIATE_TEST_SUITE_P(Databases, Threads, kDatabases, DatabaseName);

TEST_P(Threads, LoseNoChangeOfEachOther) {
  const Lines before = Rows(connection_, "SELECT Stock FROM Goods WHERE ID = 1");
  InTwo([&](int) {
    for (int round = 0; round < kRounds; ++round) AddOne();
  });
  EXPECT_EQ(Rows(connection_, "SELECT Stock FROM Goods WHERE ID = 1"),
            Lines{std::to_string(std::stoi(before.front()) + 2 * kRounds)});
}

TEST_P(Threads, ShowPagesSideBySide) {
  connection_->Execute("CREATE TABLE Pages (K INTEGER PRIMARY KEY, Note VARCHAR(20))");
  for (int key = 1; key <= 30; ++key) {
    const std::string number = std::to_string(key);
    connection_->Execute("INSERT INTO Pages VALUES (" + number + ", 'note " + number + "')");
  }
  const std::string expected = KeyJourney(ConnectionString(), "Pages").Show({});
  std::atomic<int> different = 0;
  InTwo([&](int) {
    for (int round = 0; round < kRounds; ++round) {
      KeyJourney visitor(ConnectionString(), "Pages");
      if (visitor.Show({}) != expected || !visitor.Error().empty()) ++different;
    }
  });
  EXPECT_NE(expected.find("note 19"), std::string::npos);
  EXPECT_EQ(different, 0);
}

}  // namespace

}  // namespace dralo::tests
