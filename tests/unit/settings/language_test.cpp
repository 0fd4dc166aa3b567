#include "settings/language.h"

#include <gtest/gtest.h>

namespace dralo::settings {
namespace {

using Texts = std::vector<std::string>;

TEST(BuiltInTables, HoldTheEnglishTexts) {
  const auto tables = BuiltInTables("ENG");

  ASSERT_NE(tables, nullptr);
  EXPECT_EQ(tables->navigation, (Texts{"Next", "Next", "Previous", "Previous", "Record", "Records", "List",
                                       "of", "First", "Last", "Records per Page", "Page"}));
  EXPECT_EQ(tables->buttons, (Texts{"Edit", "Save", "Close", "Add", "Delete"}));
  EXPECT_EQ(tables->updates, (Texts{"[New record saved ok]", "[Record saved ok]", "[Record deleted]",
                                    "Record WAS NOT SAVED. Fill out all required fields."}));
}

TEST(BuiltInTables, HoldTheGermanNavigationTextsInUtf8) {
  const auto tables = BuiltInTables("GER");

  ASSERT_NE(tables, nullptr);
  EXPECT_EQ(tables->navigation, (Texts{"N\xC3\xA4"
                                       "chster",
                                       "N\xC3\xA4"
                                       "chste",
                                       "Vorheriger", "Vorherige", "Datensatz",
                                       "Datens\xC3\xA4"
                                       "tze",
                                       "Liste", "von", "Erste", "Letzter",
                                       "Datens\xC3\xA4"
                                       "tze pro Seite",
                                       "Seite"}));
}

TEST(BuiltInTables, KeepEnglishButtonsAndMessagesInGerman) {
  const auto english = BuiltInTables("ENG");
  const auto german = BuiltInTables("GER");

  EXPECT_EQ(german->buttons, english->buttons);
  EXPECT_EQ(german->updates, english->updates);
}

TEST(BuiltInTables, HoldTheNorwegianTextsInUtf8) {
  const auto tables = BuiltInTables("NOR");

  ASSERT_NE(tables, nullptr);
  EXPECT_EQ(tables->navigation, (Texts{"Neste", "Neste", "Forrige", "Forrige", "post", "poster", "Liste",
                                       "av", "F\xC3\xB8rste", "Siste", "Poster per side", "side"}));
  EXPECT_EQ(tables->buttons, (Texts{"Rediger", "Lagre", "Lukk", "Ny", "Slett"}));
  EXPECT_EQ(tables->updates,
            (Texts{"[Ny datapost lagret]", "[Dataposten ble lagret]", "[Dataposten ble slettet]",
                   "Dataposten ble IKKE LAGRET. Fyll ut p\xC3\xA5krevde verdier."}));
}

TEST(BuiltInTables, AreFoundByTheExactUpperCaseCodeOnly) {
  for (const char* code : {"", "eng", "Eng", "ENG ", " ENG", "EN", "ENGL", "GERMAN", "NO", "nor", "FRA"}) {
    EXPECT_EQ(BuiltInTables(code), nullptr) << code;
  }
  EXPECT_EQ(BuiltInTables(std::string_view("ENG\0", 4)), nullptr);
}

TEST(BuiltInTables, AreSharedByAllViews) { EXPECT_EQ(BuiltInTables("GER"), BuiltInTables("GER")); }

TEST(NavigationSlots, NameTheTextsInTheirOrder) {
  const Texts& texts = BuiltInTables("GER")->navigation;

  EXPECT_EQ(texts[kNextRecord], "Nächster");
  EXPECT_EQ(texts[kNextPage], "Nächste");
  EXPECT_EQ(texts[kPreviousRecord], "Vorheriger");
  EXPECT_EQ(texts[kPreviousPage], "Vorherige");
  EXPECT_EQ(texts[kRecord], "Datensatz");
  EXPECT_EQ(texts[kRecords], "Datensätze");
  EXPECT_EQ(texts[kList], "Liste");
  EXPECT_EQ(texts[kOf], "von");
  EXPECT_EQ(texts[kFirst], "Erste");
  EXPECT_EQ(texts[kLast], "Letzter");
  EXPECT_EQ(texts[kRecordsPerPage], "Datensätze pro Seite");
  EXPECT_EQ(texts[kPage], "Seite");
}

TEST(ButtonSlots, NameTheCaptionsInTheirOrder) {
  const Texts& texts = BuiltInTables("NOR")->buttons;

  EXPECT_EQ(texts[kEdit], "Rediger");
  EXPECT_EQ(texts[kSave], "Lagre");
  EXPECT_EQ(texts[kClose], "Lukk");
  EXPECT_EQ(texts[kAdd], "Ny");
  EXPECT_EQ(texts[kDelete], "Slett");
}

TEST(UpdateText, IsTheMessageOfItsSlot) {
  const auto tables = BuiltInTables("ENG");

  EXPECT_EQ(tables->Update(kInserted), "[New record saved ok]");
  EXPECT_EQ(tables->Update(kUpdated), "[Record saved ok]");
  EXPECT_EQ(tables->Update(kDeleted), "[Record deleted]");
  EXPECT_EQ(tables->Update(kNotSaved), "Record WAS NOT SAVED. Fill out all required fields.");
}

TEST(UpdateText, IsEmptyWhenAListOfThreeHasNoFourth) {
  const LanguageTables tables{.navigation = {}, .buttons = {}, .updates = {"new", "saved", "deleted"}};

  EXPECT_EQ(tables.Update(kDeleted), "deleted");
  EXPECT_EQ(tables.Update(kNotSaved), "");
}

}  // namespace
}  // namespace dralo::settings
