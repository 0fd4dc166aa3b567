#include "editing/update_engine.h"

#include <gtest/gtest.h>

#include "support/named_cases.h"
#include "unit/editing/saving.h"

namespace dralo::tests {

namespace {

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
    EXPECT_EQ(Row(database), kAnna);
    EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "2");
  }

  TemporaryDatabase database{kCustomers};
  Saving saving{database};
};

// When something is done

TEST_F(UpdateEngine, DoesNothingWithoutTheSaveOrDeleteButton) {
  saving.Post({{"ID", "1"}, {"Name", "Eve"}});
  EXPECT_TRUE(saving.Update());
  ExpectIgnored();
  saving.page.form.push_back({"Morvu1FormUpdate", "  "});
  saving.page.form.push_back({"Morvu1FormDelete", " "});
  EXPECT_TRUE(saving.Update());
  ExpectIgnored();
  saving.page.form = {{"Morvu1_Form_ID", "3"}, {"Morvu1_Form_Name", "Eve"}, {"Morvu1FormInsert", "1"}};
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
    EXPECT_EQ(Row(database), kAnna);
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
  EXPECT_EQ(Row(database), kAnna);
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

struct DeleteCase {
  std::string_view name, rule, statement, key;
  bool result;
  std::string_view status, message, left;
};

class Deletion : public UpdateEngine, public testing::WithParamInterface<DeleteCase> {};

TEST_P(Deletion, RunsTheStatementWithThePostedKey) {
  database.Run(GetParam().rule);
  saving.settings.DeleteSQL = GetParam().statement;
  PostAnna(saving).page.form[0].value = GetParam().key;
  EXPECT_EQ(saving.Delete(), GetParam().result);
  EXPECT_EQ(saving.Status(), GetParam().status);
  EXPECT_EQ(saving.Message(), GetParam().message);
  EXPECT_EQ(database.Value("SELECT group_concat(ID) FROM T"), GetParam().left);
}

constexpr DeleteCase kDeletions[] = {
    {"AndRemovesTheRecord", "", "DELETE FROM T", "1", true, "&nbsp;[Record deleted]", "", "2"},
    {"AndTellsInTheStatusThatItFailed",
     "CREATE TRIGGER Keep BEFORE DELETE ON T BEGIN SELECT RAISE(ABORT, 'Customers are kept'); END",
     "DELETE FROM T", "1", false, "Delete failed: Customers are kept<br>", "", "1,2"},
    {"ButNotOneThatHasAWhereOfItsOwn", "", "DELETE FROM T WHERE Active=1", "1", false,
     "Delete failed: near \"WHERE\": syntax error<br>", "", "1,2"},
    {"AndSaysDeletedAndWhyNotWhenTheRecordWasGoneAlready", "", "DELETE FROM T", "77", true,
     "&nbsp;[Record deleted]", "There is no record with the posted key in UpdateRecord.<br>", "1,2"},
    {"ButRemovesNothingThatAnExpressionFinds", "", "DELETE FROM T", "1 OR 1=1", false, "",
     "Several records have the posted key, so none was deleted in UpdateRecord.<br>", "1,2"},
};

INSTANTIATE_TEST_SUITE_P(Deletions, Deletion, testing::ValuesIn(kDeletions), kByName);

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

// The texts of the interface language

struct LanguageCase {
  std::string_view name;
  void (*set)(settings::Settings&);
  std::string_view inserted, updated, deleted, not_saved;
};

class UpdateMessages : public testing::TestWithParam<LanguageCase> {
 protected:
  /// The outcome of one save.
  std::string Outcome(auto&& act) {
    Saving saving(database_);
    GetParam().set(saving.settings);
    saving.settings.DeleteSQL = "DELETE FROM T";
    act(saving);
    return saving.Status();
  }

 private:
  TemporaryDatabase database_{kCustomers};
};

TEST_P(UpdateMessages, AreThoseOfTheLanguage) {
  const auto insert = [](Saving& saving) { saving.Post({{"ID", "7"}, {"Name", "Ida"}}).Insert(); };
  EXPECT_EQ(Outcome(insert), GetParam().inserted);
  EXPECT_EQ(Outcome([](Saving& saving) { PostAnna(saving).Save(); }), GetParam().updated);
  EXPECT_EQ(Outcome([](Saving& saving) { saving.Post("ID", "7").Delete(); }), GetParam().deleted);
  const auto save_nobody = [](Saving& saving) { saving.Post({{"ID", "1"}, {"Name", ""}}).Save(); };
  EXPECT_EQ(Outcome(save_nobody), GetParam().not_saved);
}

constexpr LanguageCase kLanguages[] = {
    {"English",
     [](settings::Settings& settings) { settings.language_tables = settings::BuiltInTables("ENG"); },
     "&nbsp;[New record saved ok]", "&nbsp;[Record saved ok]", "&nbsp;[Record deleted]",
     "&nbsp;Record WAS NOT SAVED. Fill out all required fields."},
    {"Norwegian",
     [](settings::Settings& settings) { settings.language_tables = settings::BuiltInTables("NOR"); },
     "&nbsp;[Ny datapost lagret]", "&nbsp;[Dataposten ble lagret]", "&nbsp;[Dataposten ble slettet]",
     "&nbsp;Dataposten ble IKKE LAGRET. Fyll ut påkrevde verdier."},
    {"APagesOwnListThatIsTooShort",
     [](settings::Settings& settings) { settings::SetLangUpdString(settings, "new,saved, gone"); },
     "&nbsp;new", "&nbsp;saved", "&nbsp; gone", "&nbsp;"},
};

INSTANTIATE_TEST_SUITE_P(Languages, UpdateMessages, testing::ValuesIn(kLanguages), kByName);

}  // namespace

}  // namespace dralo::tests
