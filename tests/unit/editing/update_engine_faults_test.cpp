#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "unit/editing/changes_of_customers.h"

namespace dralo::tests {

namespace {

class FailedSave : public testing::Test {
 protected:
  /// The update fails with that message, and the table is as it was.
  void ExpectFailedUpdate(std::string_view message) {
    EXPECT_FALSE(PostChanges(saving).Save());
    EXPECT_EQ(saving.Message(), message);
    EXPECT_EQ(saving.Status(), "");
    ExpectUnchanged();
  }

  void ExpectFailedInsert(std::string_view message) {
    EXPECT_FALSE(PostNewRecord(saving).Insert());
    EXPECT_EQ(saving.Message(), message);
    EXPECT_EQ(saving.Status(), "");
    ExpectUnchanged();
  }

  void ExpectUnchanged() {
    EXPECT_EQ(Row(database), kAnna);
    EXPECT_EQ(database.Value("SELECT group_concat(ID) FROM T"), "1,2");
    EXPECT_TRUE(IsFree(database));
  }

  TemporaryDatabase database{kCustomers};
  Saving saving{database, AmericanEnvironment(), ";Busy Timeout=20"};
};

// Rules of the database

TEST_F(FailedSave, OfAValueThatMustBeUniqueChangesNothing) {
  database.Run("CREATE UNIQUE INDEX OneName ON T(Name); UPDATE T SET Name='Eve' WHERE ID=2");
  ExpectFailedUpdate("Update failed: UNIQUE constraint failed: T.Name<br>");
}

TEST_F(FailedSave, OfAKeyThatIsTakenAddsNothing) {
  database.Run("UPDATE T SET ID=9 WHERE ID=2");
  EXPECT_FALSE(PostNewRecord(saving).Insert());
  EXPECT_EQ(saving.Message(), "Update failed: UNIQUE constraint failed: T.ID<br>");
  EXPECT_EQ(database.Value("SELECT group_concat(ID||Name) FROM T"), "1Anna,9Bert");
}

TEST_F(FailedSave, OfAFieldThatTheFormDoesNotHaveAddsNothing) {
  saving.settings.EditSQL = "SELECT ID, Stock FROM T";
  ExpectFailedInsert("Update failed: NOT NULL constraint failed: T.Name<br>");
}

TEST(FailedCheck, ChangesAndAddsNothing) {
  const TemporaryDatabase database(
      "CREATE TABLE T(ID INTEGER PRIMARY KEY, A INT, B INT, CONSTRAINT Order_of_AB CHECK(A<=B));"
      "INSERT INTO T VALUES(1,2,3)");
  Saving saving(database);
  EXPECT_FALSE(saving.Post({{"ID", "1"}, {"A", "7"}, {"B", "6"}}).Save());
  EXPECT_EQ(saving.Message(), "Update failed: CHECK constraint failed: Order_of_AB<br>");
  Saving adding(database);
  EXPECT_FALSE(adding.Post({{"ID", "2"}, {"A", "7"}, {"B", "6"}}).Insert());
  EXPECT_EQ(adding.Message(), "Update failed: CHECK constraint failed: Order_of_AB<br>");
  EXPECT_EQ(database.Value("SELECT group_concat(ID||','||A||','||B,';') FROM T"), "1,2,3");
}

/// Orders that refer to customers; the key is tested at once, or at the end of the transaction.
class FailedReference : public testing::TestWithParam<std::string> {};

TEST_P(FailedReference, ChangesAddsAndDeletesNothing) {
  const TemporaryDatabase database(
      "CREATE TABLE C(ID INTEGER PRIMARY KEY); INSERT INTO C VALUES(1);"
      "CREATE TABLE T(ID INTEGER PRIMARY KEY, Customer INT REFERENCES C(ID) " +
      GetParam() + "); INSERT INTO T VALUES(1,1)");
  const auto message_of = [&](auto&& act) {
    Saving saving(database);
    saving.settings.DrConnection->Connection()->Execute("PRAGMA foreign_keys=ON");
    EXPECT_FALSE(act(saving));
    EXPECT_TRUE(IsFree(database));
    return saving.Message() + saving.Status();
  };
  EXPECT_EQ(message_of([](Saving& saving) {
              return saving.Post({{"ID", "1"}, {"Customer", "5"}}).Save();
            }),
            "Update failed: FOREIGN KEY constraint failed<br>");
  EXPECT_EQ(message_of([](Saving& saving) {
              return saving.Post({{"ID", "2"}, {"Customer", "5"}}).Insert();
            }),
            "Update failed: FOREIGN KEY constraint failed<br>");
  EXPECT_EQ(message_of([](Saving& saving) {
              saving.settings.EditSQL = "SELECT * FROM C";
              saving.settings.DeleteSQL = "DELETE FROM C";
              return saving.Post("ID", "1").Delete();
            }),
            "Delete failed: FOREIGN KEY constraint failed<br>");
  EXPECT_EQ(database.Value("SELECT group_concat(ID||','||Customer) FROM T"), "1,1");
  EXPECT_EQ(database.Value("SELECT group_concat(ID) FROM C"), "1");
}

INSTANTIATE_TEST_SUITE_P(Kinds, FailedReference, testing::Values("", "DEFERRABLE INITIALLY DEFERRED"),
                         [](const auto& kind) { return kind.param.empty() ? "AtOnce" : "AtTheEnd"; });

/// Triggers that refuse a change after it was made, by the ways there are.
class FailingTrigger : public FailedSave, public testing::WithParamInterface<const char*> {};

TEST_P(FailingTrigger, UndoesTheChange) {
  database.Run("CREATE TABLE Log(Text)");
  for (const std::string change : {"UPDATE", "INSERT"}) {
    database.Run("CREATE TRIGGER On" + change + " AFTER " + change +
                 " ON T BEGIN INSERT INTO Log VALUES(new.Name);SELECT RAISE(" + GetParam() +
                 ",'Not on Sundays'); END");
  }
  ExpectFailedUpdate("Update failed: Not on Sundays<br>");
  saving.page.form.clear();
  saving.settings.ErrorMessage.clear();
  ExpectFailedInsert("Update failed: Not on Sundays<br>");
  EXPECT_EQ(database.Value("SELECT count(*) FROM Log"), "0");
}

INSTANTIATE_TEST_SUITE_P(Ways, FailingTrigger, testing::Values("ABORT", "FAIL", "ROLLBACK"),
                         [](const auto& way) { return way.param; });

TEST_F(FailedSave, ThatATriggerIgnoresIsToldAsAFailure) {
  database.Run(
      "CREATE TRIGGER R BEFORE UPDATE ON T BEGIN SELECT RAISE(IGNORE); END;"
      "CREATE TRIGGER S BEFORE INSERT ON T BEGIN SELECT RAISE(IGNORE); END");
  ExpectFailedUpdate(kConflict);
  Saving adding(database);
  EXPECT_FALSE(PostNewRecord(adding).Insert());
  EXPECT_EQ(adding.Message(),
            "Update failed: The row was not added; a rule of the database prevented it<br>");
  ExpectUnchanged();
}

// The database as a whole

TEST_F(FailedSave, OnAFullDatabaseChangesNothing) {
  auto& connection = *saving.settings.DrConnection->Connection();
  // Raised to what there is: the database cannot grow any more.
  EXPECT_FALSE(connection.Execute("PRAGMA max_page_count=1")->Eof());
  saving.Post({{"ID", "1"}, {"Name", "Eve"}, {"Notes", std::string(20'000, 'x')}});
  EXPECT_FALSE(saving.Save());
  EXPECT_EQ(saving.Message(), "Update failed: database or disk is full<br>");
  ExpectUnchanged();
}

TEST_F(FailedSave, OnADatabaseThatMayOnlyBeReadChangesNothing) {
  Saving reading(database, AmericanEnvironment(), ";Mode=Read");
  EXPECT_FALSE(PostChanges(reading).Save());
  EXPECT_EQ(reading.Message(), "Update failed: attempt to write a readonly database<br>");
  ExpectUnchanged();
}

class SqliteConnection {
 public:
  SqliteConnection(const std::string& path, const char* statement) {
    sqlite3* handle = nullptr;
    EXPECT_EQ(sqlite3_open(path.c_str(), &handle), SQLITE_OK);
    handle_.reset(handle);
    EXPECT_EQ(sqlite3_exec(handle, statement, nullptr, nullptr, nullptr), SQLITE_OK);
  }

 private:
  std::unique_ptr<sqlite3, decltype(&sqlite3_close)> handle_{nullptr, &sqlite3_close};
};

TEST_F(FailedSave, WhileSomebodyElseWritesChangesNothing) {
  auto other = std::make_unique<SqliteConnection>(database.Path(), "BEGIN IMMEDIATE");
  EXPECT_FALSE(PostChanges(saving).Save());
  EXPECT_EQ(saving.Message(), "Update failed: database is locked<br>");
  EXPECT_EQ(saving.Status(), "");
  saving.settings.DeleteSQL = "DELETE FROM T";
  EXPECT_FALSE(saving.Delete());
  EXPECT_EQ(saving.Status(), "Delete failed: database is locked<br>");
  other.reset();
  ExpectUnchanged();
}

TEST_F(FailedSave, WhileNobodyMayReadChangesNothing) {
  auto other = std::make_unique<SqliteConnection>(database.Path(), "BEGIN EXCLUSIVE");
  EXPECT_FALSE(PostChanges(saving).Save());
  EXPECT_EQ(saving.Message(), "database is locked in UpdateRecord.<br>");
  other.reset();
  ExpectUnchanged();
  EXPECT_TRUE(saving.Update()) << "the same post succeeds when the lock is gone";
  EXPECT_EQ(saving.Status(), "&nbsp;[Record saved ok]");
}

TEST_F(FailedSave, WithoutItsConnectionChangesNothing) {
  saving.settings.DrConnection->Connection()->Close();
  ExpectFailedUpdate("The connection is closed in UpdateRecord.<br>");
}

TEST_F(FailedSave, ToAFileThatWasReplacedChangesNeither) {
  const std::string old = database.Path() + ".old";
  std::filesystem::copy(database.Path(), database.Path() + ".new");
  std::filesystem::rename(database.Path(), old);
  std::filesystem::rename(database.Path() + ".new", database.Path());
  ExpectFailedUpdate("Update failed: attempt to write a readonly database<br>");
  std::filesystem::rename(old, database.Path());
  ExpectUnchanged();
}

TEST_F(FailedSave, ToAFileThatIsNoDatabaseAnyMoreChangesNothing) {
  saving.settings.DrConnection->Connection()->Close();
  std::filesystem::resize_file(database.Path(), 100);
  saving.settings.DrConnection->Connection()->Open(database.ConnectionString());
  EXPECT_FALSE(PostChanges(saving).Save());
  EXPECT_FALSE(saving.Message().empty());
  EXPECT_TRUE(saving.Message().ends_with(" in UpdateRecord.<br>")) << saving.Message();
  EXPECT_EQ(std::filesystem::file_size(database.Path()), 100U);
}

}  // namespace

}  // namespace dralo::tests
