#include "editing/update_engine.h"

#include <gtest/gtest.h>

#include "unit/editing/saving.h"

namespace dralo::tests {

namespace {

constexpr std::string_view kAnnaBefore = "1,'Anna','Oslo',3,2.5,'2024-05-03',1,'first'";

/// The whole form of Anna's record, as it is when nobody touched it.
Saving& PostAnna(Saving& saving) {
  return saving.Post({{"ID", "1"},
                      {"Name", "Anna"},
                      {"City", "Oslo"},
                      {"Stock", "3"},
                      {"Price", "2.5"},
                      {"Since", "5/3/2024"},
                      {"Active", "on"},
                      {"Notes", "first"}});
}

class UpdateEngine : public testing::Test {
 protected:
  /// The post was ignored: no message, nothing changed.
  void ExpectIgnored() {
    EXPECT_EQ(saving.Message(), "");
    EXPECT_EQ(saving.Status(), "");
    EXPECT_EQ(Row(database), kAnnaBefore);
    EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "2");
  }

  TemporaryDatabase database{kCustomers};
  Saving saving{database};
};

// When something is done

TEST_F(UpdateEngine, DoesNothingWithoutASaveOrDeleteInThePost) {
  saving.Post({{"ID", "1"}, {"Name", "Eve"}});
  EXPECT_TRUE(saving.Update());
  ExpectIgnored();
}

TEST_F(UpdateEngine, DoesNothingForAnInsertWithoutTheSaveButton) {
  saving.Post({{"ID", "3"}, {"Name", "Eve"}});
  saving.page.form.push_back({"Morvu1FormInsert", "1"});
  EXPECT_TRUE(saving.Update());
  ExpectIgnored();
}

TEST_F(UpdateEngine, DoesNothingForButtonsWithBlankValues) {
  saving.Post({{"ID", "1"}, {"Name", "Eve"}});
  saving.page.form.push_back({"Morvu1FormUpdate", "  "});
  saving.page.form.push_back({"Morvu1FormDelete", " "});
  EXPECT_TRUE(saving.Update());
  ExpectIgnored();
}

TEST_F(UpdateEngine, DoesNothingWithoutThePermissionToUpdate) {
  for (const std::string_view options : {"", "ADD", "DELETE", "NOVIEW", "ADD DELETE NOVIEW"}) {
    settings::SetEditOptions(saving.settings, options);
    saving.settings.DeleteSQL = "DELETE FROM T";
    PostAnna(saving).Post("Name", "Eve");
    EXPECT_TRUE(saving.Save()) << options;
    EXPECT_TRUE(saving.Delete()) << options;
    ExpectIgnored();
  }
}

TEST_F(UpdateEngine, TakesThePermissionOnlyFromTheWordInCapitals) {
  settings::SetEditOptions(saving.settings, "update");
  saving.Post({{"ID", "1"}, {"Name", "Eve"}});
  EXPECT_TRUE(saving.Save());
  ExpectIgnored();
}

TEST_F(UpdateEngine, TakesThePermissionFromTheWordsThatAllStandsFor) {
  settings::SetEditOptions(saving.settings, "all");
  PostAnna(saving);
  EXPECT_TRUE(saving.Save());
  EXPECT_EQ(saving.Status(), "&nbsp;[Record saved ok]");
}

TEST_F(UpdateEngine, NeedsNoWordButUpdateToInsertAndDelete) {
  settings::SetEditOptions(saving.settings, "UPDATE");
  saving.settings.DeleteSQL = "DELETE FROM T";
  saving.Post({{"ID", "1"}});
  EXPECT_TRUE(saving.Delete());
  EXPECT_EQ(saving.Status(), "&nbsp;[Record deleted]");

  Saving adding(database);
  settings::SetEditOptions(adding.settings, "UPDATE");
  adding.Post({{"ID", "9"}, {"Name", "Ida"}});
  EXPECT_TRUE(adding.Insert());
  EXPECT_EQ(adding.Status(), "&nbsp;[New record saved ok]");
}

TEST_F(UpdateEngine, DemandsPrimaryKeys) {
  for (const char* keys : {"", "  "}) {
    saving.settings.EditPrimaryKeys = keys;
    saving.settings.ErrorMessage = "Before.";
    PostAnna(saving).Post("Name", "Eve");
    EXPECT_FALSE(saving.Save());
    EXPECT_EQ(saving.Message(), "Before.Dralo property EditPrimaryKeys must be set!<br>");
    EXPECT_EQ(Row(database), kAnnaBefore);
  }
}

TEST_F(UpdateEngine, ReadsButtonsAndKeysFromTheQueryStringToo) {
  saving.settings.DeleteSQL = "DELETE FROM T";
  saving.page.query = {{"morvu1formdelete", "Delete"}, {"MORVU1_FORM_id", " 1 "}};
  EXPECT_TRUE(saving.Update());
  EXPECT_EQ(saving.Status(), "&nbsp;[Record deleted]");
  EXPECT_EQ(database.Value("SELECT group_concat(ID) FROM T"), "2");
}

TEST_F(UpdateEngine, ReadsFieldsFromThePostedFormOnly) {
  saving.page.query = {{"Morvu1_Form_City", "Rome"}, {"Morvu1_Form_ID", "1"}};
  saving.Post({{"Name", "Eve"}});
  EXPECT_FALSE(saving.Save());
  EXPECT_EQ(saving.Status(), "&nbsp;Record WAS NOT SAVED. Fill out all required fields.")
      << "the key is posted";
  saving.page.form.clear();
  saving.Post({{"ID", "1"}, {"Name", "Eve"}});
  EXPECT_TRUE(saving.Save());
  EXPECT_EQ(Row(database), "1,'Eve',NULL,NULL,NULL,NULL,0,NULL");
}

TEST_F(UpdateEngine, ReadsTheFormOfItsOwnTagOnly) {
  saving.page.form = {{"Morvu1_Form_Name", "One"}, {"Morvu1FormUpdate", "Save"}};
  saving.settings.Tag = "2";
  PostAnna(saving).Post("Name", "Two");
  EXPECT_TRUE(saving.Save());
  EXPECT_EQ(Row(database), kAnnaBefore);
}

TEST_F(UpdateEngine, TakesTheFirstOfInputsWithTheSameName) {
  saving.settings.EditSQL = "SELECT ID, Name FROM T";
  saving.Post({{"ID", "1"}, {"NAME", "Eve"}, {"Name", "Adam"}});
  EXPECT_TRUE(saving.Save());
  EXPECT_EQ(database.Value("SELECT Name FROM T WHERE ID=1"), "Eve");
}

// Updates

TEST_F(UpdateEngine, SavesWhatWasChangedAndNothingElse) {
  PostAnna(saving).page.form[2].value = "Rome";
  EXPECT_TRUE(saving.Save());
  EXPECT_EQ(saving.Status(), "&nbsp;[Record saved ok]");
  EXPECT_EQ(saving.Message(), "");
  EXPECT_EQ(Row(database), "1,'Anna','Rome',3,2.5,'2024-05-03',1,'first'");
  EXPECT_EQ(Row(database, "ID=2"), "2,'Bert','Bonn',NULL,NULL,NULL,0,NULL");
}

TEST_F(UpdateEngine, ReplacesTheOutcomeOfEarlierAndKeepsItsErrors) {
  saving.outcome.status_message = "Old.";
  saving.settings.ErrorMessage = "Old.";
  PostAnna(saving);
  EXPECT_TRUE(saving.Save());
  EXPECT_EQ(saving.Status(), "&nbsp;[Record saved ok]");
  EXPECT_EQ(saving.Message(), "Old.");
}

TEST_F(UpdateEngine, FailsWhenNoRecordHasThePostedKey) {
  PostAnna(saving).page.form[0].value = "77";
  EXPECT_FALSE(saving.Save());
  EXPECT_EQ(saving.Message(), "There is no record with the posted key in UpdateRecord.<br>");
  EXPECT_EQ(saving.Status(), "");
  EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "2");
}

TEST_F(UpdateEngine, ShowsTheStatementInDebugMessages) {
  saving.settings.DisplayDebug = true;
  PostAnna(saving).page.form[0].value = "77";
  EXPECT_FALSE(saving.Save());
  EXPECT_EQ(
      saving.Message(),
      "There is no record with the posted key in UpdateRecord.<br>sql='SELECT * FROM T WHERE (ID=77)'<br>");
}

TEST_F(UpdateEngine, TellsThatEditSqlFails) {
  saving.settings.EditSQL = "SELECT * FROM Nowhere";
  PostAnna(saving);
  EXPECT_FALSE(saving.Save());
  EXPECT_EQ(saving.Message(), "no such table: Nowhere in UpdateRecord.<br>");

  saving.settings.ErrorMessage.clear();
  saving.settings.DisplayDebug = true;
  EXPECT_FALSE(saving.Update());
  EXPECT_EQ(saving.Message(), "no such table: Nowhere in UpdateRecord.<br>sql='SELECT * FROM Nowhere'<br>");
}

TEST_F(UpdateEngine, TellsThatThereIsNoConnection) {
  saving.settings.DrConnection = nullptr;
  PostAnna(saving);
  EXPECT_FALSE(saving.Save());
  EXPECT_EQ(saving.Message(),
            "There is no database connection: set ConnectionString or DrConnection in UpdateRecord.<br>");
}

// Deletes

TEST_F(UpdateEngine, DeletesWithTheStatementAndThePostedKey) {
  saving.settings.DeleteSQL = "DELETE FROM T";
  PostAnna(saving);
  EXPECT_TRUE(saving.Delete());
  EXPECT_EQ(saving.Status(), "&nbsp;[Record deleted]");
  EXPECT_EQ(saving.Message(), "");
  EXPECT_EQ(database.Value("SELECT group_concat(ID) FROM T"), "2");
}

TEST_F(UpdateEngine, SavesThePostedValuesWhenThereIsNoStatementToDeleteWith) {
  PostAnna(saving).page.form[1].value = "Eve";
  EXPECT_TRUE(saving.Delete());
  EXPECT_EQ(saving.Status(), "&nbsp;[Record saved ok]");
  EXPECT_EQ(Row(database), "1,'Eve','Oslo',3,2.5,'2024-05-03',1,'first'");
}

TEST_F(UpdateEngine, DeletesEvenWhenSaveAndInsertArePostedToo) {
  saving.settings.DeleteSQL = "DELETE FROM T";
  PostAnna(saving).page.form.push_back({"Morvu1FormDelete", "Delete"});
  EXPECT_TRUE(saving.Insert());
  EXPECT_EQ(saving.Status(), "&nbsp;[Record deleted]");
  EXPECT_EQ(database.Value("SELECT group_concat(ID) FROM T"), "2");
}

TEST_F(UpdateEngine, TellsInTheStatusThatADeleteFailed) {
  database.Run("CREATE TRIGGER Keep BEFORE DELETE ON T BEGIN SELECT RAISE(ABORT, 'Customers are kept'); END");
  saving.settings.DeleteSQL = "DELETE FROM T";
  PostAnna(saving);
  EXPECT_FALSE(saving.Delete());
  EXPECT_EQ(saving.Status(), "Delete failed: Customers are kept<br>");
  EXPECT_EQ(saving.Message(), "");
  EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "2");
}

TEST_F(UpdateEngine, CannotDeleteWithAStatementThatHasAWhereOfItsOwn) {
  saving.settings.DeleteSQL = "DELETE FROM T WHERE Active=1";
  PostAnna(saving);
  EXPECT_FALSE(saving.Delete());
  EXPECT_EQ(saving.Status(), "Delete failed: near \"WHERE\": syntax error<br>");
  EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "2");
}

TEST_F(UpdateEngine, SaysDeletedAndWhyNotWhenTheRecordWasGoneAlready) {
  saving.settings.DeleteSQL = "DELETE FROM T";
  saving.Post("ID", "77");
  EXPECT_TRUE(saving.Delete());
  EXPECT_EQ(saving.Status(), "&nbsp;[Record deleted]");
  EXPECT_EQ(saving.Message(), "There is no record with the posted key in UpdateRecord.<br>");
  EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "2");
}

TEST_F(UpdateEngine, DeletesNothingThatAnExpressionFinds) {
  saving.settings.DeleteSQL = "DELETE FROM T";
  saving.Post("ID", "1 OR 1=1");
  EXPECT_FALSE(saving.Delete());
  EXPECT_EQ(saving.Status(), "");
  EXPECT_EQ(saving.Message(),
            "Several records have the posted key, so none was deleted in UpdateRecord.<br>");
  EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "2");
}

// The texts of the interface language

struct Texts {
  std::string_view inserted, updated, deleted, not_saved;
};

/// The outcomes of one save of each kind.
void ExpectOutcomes(const std::function<void(settings::Settings&)>& set_language, const Texts& texts) {
  const TemporaryDatabase database(kCustomers);
  const auto outcome = [&](auto&& act) {
    Saving saving(database);
    set_language(saving.settings);
    saving.settings.DeleteSQL = "DELETE FROM T";
    act(saving);
    return saving.Status();
  };
  EXPECT_EQ(outcome([](Saving& saving) {
              saving.Post({{"ID", "7"}, {"Name", "Ida"}}).Insert();
            }),
            texts.inserted);
  EXPECT_EQ(outcome([](Saving& saving) { PostAnna(saving).Save(); }), texts.updated);
  EXPECT_EQ(outcome([](Saving& saving) { saving.Post("ID", "7").Delete(); }), texts.deleted);
  EXPECT_EQ(outcome([](Saving& saving) {
              saving.Post({{"ID", "1"}, {"Name", ""}}).Save();
            }),
            texts.not_saved);
}

TEST(UpdateMessages, AreTheSameInEnglishAndGerman) {
  for (const std::string_view code : {"ENG", "GER"}) {
    ExpectOutcomes(
        [&](settings::Settings& settings) { settings.language_tables = settings::BuiltInTables(code); },
        {"&nbsp;[New record saved ok]", "&nbsp;[Record saved ok]", "&nbsp;[Record deleted]",
         "&nbsp;Record WAS NOT SAVED. Fill out all required fields."});
  }
}

TEST(UpdateMessages, AreNorwegianInNorwegian) {
  ExpectOutcomes(
      [](settings::Settings& settings) { settings.language_tables = settings::BuiltInTables("NOR"); },
      {"&nbsp;[Ny datapost lagret]", "&nbsp;[Dataposten ble lagret]", "&nbsp;[Dataposten ble slettet]",
       "&nbsp;Dataposten ble IKKE LAGRET. Fyll ut påkrevde verdier."});
}

TEST(UpdateMessages, HaveNoTextWhereAPagesOwnListIsTooShort) {
  ExpectOutcomes(
      [](settings::Settings& settings) {
        settings.language_tables = std::make_shared<settings::LanguageTables>(
            settings::LanguageTables{{}, {}, {"new", "saved", " gone"}});
      },
      {"&nbsp;new", "&nbsp;saved", "&nbsp; gone", "&nbsp;"});
}

}  // namespace

}  // namespace dralo::tests
