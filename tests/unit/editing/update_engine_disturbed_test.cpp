#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "unit/editing/changes_of_customers.h"
#include "unit/editing/watched_environment.h"

namespace dralo::tests {

namespace {

/// Anna's update or Eve's insert, during which something happens before the last Update() or at another
/// place.
class Disturbed : public testing::Test {
 protected:
  /// Runs `disturb` before the `at`-th operation of that name. Returns whether it came to that.
  template <class Act, class Disturb>
  bool During(std::string_view operation, int at, Disturb&& disturb, Act&& act) {
    int count = 0;
    WatchedEnvironment environment([&](std::string_view name) {
      if (name == operation && ++count == at) disturb();
    });
    Saving saving(database, environment, ";Busy Timeout=20");
    is_saved = act(saving);
    message = saving.Message();
    status = saving.Status();
    return count >= at;
  }

  TemporaryDatabase database{kCustomers};
  bool is_saved = false;
  std::string message;
  std::string status;
};

bool Update(Saving& saving) { return PostChanges(saving).Save(); }
bool Insert(Saving& saving) { return PostNewRecord(saving).Insert(); }

TEST_F(Disturbed, SaveLosesAgainstAChangeOfTheSameFields) {
  During(
      "Update", 1, [&] { database.Run("UPDATE T SET Name='Zoe', Stock=1 WHERE ID=1"); }, Update);
  EXPECT_FALSE(is_saved);
  EXPECT_EQ(message, kConflict);
  EXPECT_EQ(status, "");
  EXPECT_EQ(Row(database), "1,'Zoe','Oslo',1,2.5,'2024-05-03',1,'first'");
}

TEST_F(Disturbed, SaveLosesAgainstADelete) {
  During(
      "Update", 1, [&] { database.Run("DELETE FROM T WHERE ID=1"); }, Update);
  EXPECT_FALSE(is_saved);
  EXPECT_EQ(message, kConflict);
  EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "1");
}

TEST_F(Disturbed, SaveFailsWhenAColumnIsGone) {
  During(
      "Update", 1, [&] { database.Run("ALTER TABLE T DROP COLUMN Notes"); }, Update);
  EXPECT_FALSE(is_saved);
  EXPECT_EQ(message.substr(0, 15), "Update failed: ") << message;
  EXPECT_EQ(Row(database, "ID=1", "Name,Stock"), "'Anna',3");
}

TEST_F(Disturbed, SaveFailsWhenColumnsCameInBetween) {
  for (const std::string_view change : {"ALTER TABLE T DROP COLUMN Notes",
                                        "ALTER TABLE T RENAME TO U; CREATE TABLE T(ID INTEGER PRIMARY KEY);"
                                        "INSERT INTO T VALUES(1)"}) {
    During(
        "Create", 2, [&] { database.Run(change); }, Update);
    EXPECT_FALSE(is_saved) << change;
    EXPECT_EQ(message, "The table was changed while the record was being saved in UpdateRecord.<br>");
  }
  EXPECT_EQ(database.Value("SELECT Name||Stock FROM U WHERE ID=1"), "Anna3");
}

TEST_F(Disturbed, SaveFailsWhenTheConnectionIsClosed) {
  for (const std::string_view operation : {"Eof", "Fields", "Update"}) {
    std::shared_ptr<platform::Connection> connection;
    WatchedEnvironment environment([&](std::string_view name) {
      if (name == operation && connection) connection->Close();
    });
    Saving saving(database, environment);
    connection = saving.settings.DrConnection->Connection();
    EXPECT_FALSE(Update(saving)) << operation;
    EXPECT_FALSE(saving.Message().empty());
    EXPECT_EQ(Row(database), kAnna);
    EXPECT_TRUE(IsFree(database));
  }
}

TEST_F(Disturbed, SaveSaysWhyNoRecordCanBeAdded) {
  During(
      "AddNew", 1, [] { throw platform::Error("Not here"); }, Insert);
  EXPECT_FALSE(is_saved);
  EXPECT_EQ(message, "Recordset does not support the AddNew method. Not here<br>");
  EXPECT_EQ(status, "");
}

TEST_F(Disturbed, SaveThatFailsAtAnyPlaceChangesNothingAndSaysSo) {
  int places = 0;
  for (const auto act : {Update, Insert}) {
    for (const std::string_view operation : {"Create", "Open", "Eof", "Fields", "AddNew", "Update"}) {
      for (int at = 1; During(
               operation, at, [] { throw platform::Error("Out of luck"); }, act);
           ++at) {
        ++places;
        EXPECT_FALSE(is_saved) << operation << at;
        EXPECT_NE(message.find("Out of luck"), std::string::npos) << operation << at;
        EXPECT_TRUE(message.ends_with("<br>")) << message;
        EXPECT_EQ(status, "");
        EXPECT_EQ(Row(database), kAnna);
        EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "2");
      }
      EXPECT_TRUE(is_saved) << "nothing failed";
      database.Run("DROP TABLE T;" + std::string(kCustomers));
    }
  }
  EXPECT_GT(places, 20);
}

TEST(MissingValue, CancelsWhatWasAssignedAndClosesTheRecordset) {
  const TemporaryDatabase database(kCustomers);
  std::string operations;
  WatchedEnvironment environment([&](std::string_view name) { operations.append(name).append(" "); });
  Saving saving(database, environment);
  saving.settings.EditSQL = "SELECT ID, Stock, Name FROM T";
  EXPECT_FALSE(saving.Post({{"ID", "1"}, {"Stock", "99"}, {"Name", ""}}).Save());
  EXPECT_TRUE(operations.ends_with("Fields CancelUpdate Close ")) << operations;
}

TEST(WrongValue, NeitherCancelsNorClosesButSavesNothing) {
  for (const auto& [field, value] : {std::pair("Stock", "x"), std::pair("Since", "x")}) {
    const TemporaryDatabase database(kCustomers);
    std::string operations;
    WatchedEnvironment environment([&](std::string_view name) { operations.append(name).append(" "); });
    Saving saving(database, environment);
    EXPECT_FALSE(saving.Post({{"ID", "1"}, {"Name", "Eve"}, {field, value}}).Save());
    EXPECT_EQ(operations.find("CancelUpdate"), std::string::npos);
    EXPECT_TRUE(operations.ends_with("Fields ")) << operations;
    EXPECT_EQ(Row(database), kAnna);
    EXPECT_TRUE(IsFree(database));
  }
}

TEST(Insert, ReadsNoRowOfTheTable) {
  const TemporaryDatabase database(kCustomers);
  std::string operations;
  WatchedEnvironment environment([&](std::string_view name) { operations.append(name).append(" "); });
  Saving saving(database, environment);
  EXPECT_TRUE(Insert(saving));
  const std::size_t second = operations.find("Create", 1);
  EXPECT_EQ(operations.substr(second, 19), "Create Open AddNew ") << operations;
  EXPECT_EQ(operations.find("Eof", second), std::string::npos);
}

}  // namespace

}  // namespace dralo::tests
