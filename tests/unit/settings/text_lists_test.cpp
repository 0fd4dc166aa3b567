#include <gtest/gtest.h>

#include "settings/setters.h"
#include "support/named_cases.h"

namespace dralo::settings {
namespace {

struct TextLists : ::testing::Test {
  Settings settings;
};

std::string Twelve(std::string_view last) { return "a,b,c,d,e,f,g,h,i,j,k," + std::string(last); }

TEST_F(TextLists, LanguageInLowerCaseLeavesTheTablesAndTheCode) {
  SetLanguage(settings, "NOR");
  SetLanguage(settings, "eng");
  EXPECT_EQ(settings.Language, "NOR");
  EXPECT_EQ(settings.language_tables->navigation[kNextPage], "Neste");
}

TEST(Language, ThatIsUnknownIsIgnoredWithoutAMessage) {
  for (const char* code : {"", "eng", "FRA", "ENG ", "Nor"}) {
    Settings settings;
    SetLanguageString(settings, Twelve("Leaf"));
    SetLanguage(settings, code);
    EXPECT_EQ(settings.language_tables->navigation[kPage], "Leaf") << code;
    EXPECT_EQ(settings.Language, "ENG") << code;
    EXPECT_EQ(settings.ErrorMessage, "") << code;
  }
}

TEST_F(TextLists, LanguageSetAfterACustomListOverwritesIt) {
  SetLanguageString(settings, Twelve("Leaf"));
  SetLanguage(settings, "ENG");
  EXPECT_EQ(settings.language_tables->navigation[kPage], "Page");
}

TEST_F(TextLists, LanguageOverwritesAllThreeCustomListsAtOnce) {
  SetLanguageString(settings, Twelve("Leaf"));
  SetLanguageBtnString(settings, "Change,Store,Back,New,Drop");
  SetLangUpdString(settings, "new,saved,gone");
  SetLanguage(settings, "NOR");
  EXPECT_EQ(settings.language_tables->navigation, BuiltInTables("NOR")->navigation);
  EXPECT_EQ(settings.language_tables->buttons, BuiltInTables("NOR")->buttons);
  EXPECT_EQ(settings.language_tables->updates, BuiltInTables("NOR")->updates);
}

TEST_F(TextLists, CustomListsOfOneViewLeaveTheOthersAlone) {
  SetLanguageString(settings, Twelve("Leaf"));
  SetLanguageBtnString(settings, "Change,Store,Back,New,Drop");
  SetLangUpdString(settings, "new,saved,gone");
  EXPECT_EQ(BuiltInTables("ENG")->navigation[kPage], "Page");
  EXPECT_EQ(Settings().language_tables->buttons[kEdit], "Edit");
  EXPECT_EQ(Settings().language_tables->Update(kInserted), "[New record saved ok]");
}

TEST_F(TextLists, LanguageSetBeforeACustomListIsKeptForTheOtherTables) {
  SetLanguage(settings, "NOR");
  SetLanguageString(settings, Twelve("Leaf"));
  EXPECT_EQ(settings.language_tables->navigation[kPage], "Leaf");
  EXPECT_EQ(settings.language_tables->buttons[kSave], "Lagre");
}

struct ShortList {
  std::string_view name;
  void (*set)(Settings&, std::string_view);
  std::string_view list, message;
};

class ShortTextList : public testing::TestWithParam<ShortList> {};

TEST_P(ShortTextList, IsRefusedWithTheNumberOfItsLastItem) {
  Settings settings;
  GetParam().set(settings, GetParam().list);
  EXPECT_EQ(settings.ErrorMessage, GetParam().message);
  EXPECT_EQ(settings.language_tables, BuiltInTables("ENG"));
}

constexpr ShortList kShortLists[] = {
    {"OfElevenNavigationTexts", SetLanguageString, "a,b,c,d,e,f,g,h,i,j,k",
     "Wrong number of strings set in the LanguageString. 10 was given. The correct number of strings "
     "separated by comma is 12!<br>"},
    {"OfNoNavigationText", SetLanguageString, "",
     "Wrong number of strings set in the LanguageString. 0 was given. The correct number of strings "
     "separated by comma is 12!<br>"},
    {"OfFourCaptions", SetLanguageBtnString, "a,b,c,d",
     "Wrong number of strings set in the LanguageBtnString. 3 was given. The correct number of strings "
     "separated by comma is 5!<br>"},
    {"OfTwoOutcomesUnderItsOtherName", SetLangUpdString, "a,b",
     "Wrong number of strings set in the LanguageUpdString. 1 was given. The correct number of strings "
     "separated by comma is 3!<br>"},
};

INSTANTIATE_TEST_SUITE_P(Lists, ShortTextList, testing::ValuesIn(kShortLists), tests::kByName);

TEST_F(TextLists, LanguageStringOfMoreThanTwelveItemsKeepsThemAll) {
  SetLanguageString(settings, Twelve("l,m,n"));
  EXPECT_EQ(settings.ErrorMessage, "");
  EXPECT_EQ(settings.language_tables->navigation.size(), 14U);
  EXPECT_EQ(settings.language_tables->navigation[kPage], "l");
}

TEST_F(TextLists, LanguageStringKeepsBlanksAndEmptyItems) {
  SetLanguageString(settings, " a,,c,d,e,f,g,h,i,j,k,l");
  EXPECT_EQ(settings.language_tables->navigation[0], " a");
  EXPECT_EQ(settings.language_tables->navigation[1], "");
}

TEST_F(TextLists, LanguageBtnStringWithSixItemsIsAccepted) {
  SetLanguageBtnString(settings, "Change,Store,Back,New,Drop,Extra");
  EXPECT_EQ(settings.ErrorMessage, "");
  EXPECT_EQ(settings.language_tables->buttons[kDelete], "Drop");
}

TEST_F(TextLists, LangUpdStringWithFourItemsReplacesAllMessages) {
  SetLangUpdString(settings, "a,b,c,d");
  EXPECT_EQ(settings.ErrorMessage, "");
  EXPECT_EQ(settings.language_tables->Update(kNotSaved), "d");
}

TEST_F(TextLists, LangUpdStringWithThreeItemsHasAnEmptyFourth) {
  SetLangUpdString(settings, "a,b,c");
  EXPECT_EQ(settings.ErrorMessage, "");
  EXPECT_EQ(settings.language_tables->Update(kDeleted), "c");
  EXPECT_EQ(settings.language_tables->Update(kNotSaved), "");
}

TEST_F(TextLists, RefusedListsAreReportedOneBehindTheOther) {
  SetLangUpdString(settings, "a");
  SetLanguageBtnString(settings, "a");
  EXPECT_NE(settings.ErrorMessage.find("3!<br>Wrong number"), std::string::npos);
}

}  // namespace
}  // namespace dralo::settings
