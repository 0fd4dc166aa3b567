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
  EXPECT_EQ(tables->navigation,
            (Texts{"Nächster", "Nächste", "Vorheriger", "Vorherige", "Datensatz", "Datensätze", "Liste",
                   "von", "Erste", "Letzter", "Datensätze pro Seite", "Seite"}));
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

TEST(BuiltInTables, HaveEveryRefusalInEveryLanguageWithTheSamePlaces) {
  const Texts english = BuiltInTables("ENG")->refusals;
  ASSERT_EQ(english.size(), std::size_t{kMayBeChanged} + 1);
  EXPECT_EQ(english[kTooEarly], "This must be {} or later.");
  for (const char* code : {"GER", "NOR"}) {
    const Texts texts = BuiltInTables(code)->refusals;
    ASSERT_EQ(texts.size(), english.size()) << code;
    for (std::size_t slot = 0; slot < texts.size(); ++slot) {
      EXPECT_NE(texts[slot], english[slot]) << code;
      EXPECT_EQ(texts[slot].find("{}") == std::string::npos, english[slot].find("{}") == std::string::npos)
          << texts[slot];
    }
  }
}

TEST(BuiltInTables, AreFoundByTheExactUpperCaseCodeOnly) {
  for (const char* code : {"", "eng", "Eng", "ENG ", " ENG", "EN", "ENGL", "GERMAN", "NO", "nor", "FRA"}) {
    EXPECT_EQ(BuiltInTables(code), nullptr) << code;
  }
  EXPECT_EQ(BuiltInTables(std::string_view("ENG\0", 4)), nullptr);
}

TEST(BuiltInTables, AreSharedByAllViews) { EXPECT_EQ(BuiltInTables("GER"), BuiltInTables("GER")); }

TEST(Slots, NameTheTextsInTheirOrder) {
  EXPECT_EQ((std::vector<int>{kNextRecord, kNextPage, kPreviousRecord, kPreviousPage, kRecord, kRecords,
                              kList, kOf, kFirst, kLast, kRecordsPerPage, kPage}),
            (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
  EXPECT_EQ((std::vector<int>{kEdit, kSave, kClose, kAdd, kDelete}), (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST(UpdateText, IsTheMessageOfItsSlot) {
  const LanguageTables tables{.navigation = {}, .buttons = {}, .updates = {"new", "saved", "deleted", "not"}};

  EXPECT_EQ(tables.Update(kInserted), "new");
  EXPECT_EQ(tables.Update(kUpdated), "saved");
  EXPECT_EQ(tables.Update(kDeleted), "deleted");
  EXPECT_EQ(tables.Update(kNotSaved), "not");
}

TEST(UpdateText, IsEmptyWhenAListOfThreeHasNoFourth) {
  const LanguageTables tables{.navigation = {}, .buttons = {}, .updates = {"new", "saved", "deleted"}};

  EXPECT_EQ(tables.Update(kDeleted), "deleted");
  EXPECT_EQ(tables.Update(kNotSaved), "");
}

}  // namespace
}  // namespace dralo::settings
