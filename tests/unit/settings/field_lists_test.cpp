#include "settings/field_lists.h"

#include <gtest/gtest.h>

namespace dralo::tests {
namespace {

using settings::Settings;

TEST(GridFieldsHide, NamesFieldsInAnyLetterCase) {
  Settings settings;
  settings.GridFieldsHide = "ID,Name";

  EXPECT_FALSE(settings::IsGridFieldShown(settings, "name", 2));
  EXPECT_FALSE(settings::IsGridFieldShown(settings, "Id", 1));
  EXPECT_TRUE(settings::IsGridFieldShown(settings, "City", 3));
}

TEST(GridFieldsHide, DoesNotTrimItsItems) {
  Settings settings;
  settings.GridFieldsHide = "ID, Name";

  EXPECT_TRUE(settings::IsGridFieldShown(settings, "Name", 2));
  EXPECT_FALSE(settings::IsGridFieldShown(settings, " Name", 2));
}

TEST(GridFieldsHide, NamesFieldsByNumber) {
  Settings settings;
  settings.GridFieldsHide = "x,2";

  EXPECT_FALSE(settings::IsGridFieldShown(settings, "Name", 2));
  EXPECT_TRUE(settings::IsGridFieldShown(settings, "Name", 12));
}

TEST(GridFieldsHide, MakesTheShowListIgnored) {
  Settings settings;
  settings.GridFieldsHide = "Price";
  settings.GridFieldsShow = "Name";

  EXPECT_FALSE(settings::IsGridFieldShown(settings, "Price", 3));
  EXPECT_TRUE(settings::IsGridFieldShown(settings, "Name", 1));
  EXPECT_TRUE(settings::IsGridFieldShown(settings, "City", 2));
}

TEST(GridFieldsHide, CountsAsEmptyWhenItIsBlank) {
  Settings settings;
  settings.GridFieldsHide = "  ";
  settings.GridFieldsShow = "Name";

  EXPECT_TRUE(settings::IsGridFieldShown(settings, "Name", 1));
  EXPECT_FALSE(settings::IsGridFieldShown(settings, "City", 2));
}

TEST(GridFieldsHide, GivesAStarNoMeaning) {
  Settings settings;
  settings.GridFieldsHide = "*";
  EXPECT_TRUE(settings::IsGridFieldShown(settings, "Name", 1));
  EXPECT_FALSE(settings::IsGridFieldShown(settings, "*", 2));

  settings.GridFieldsHide = "";
  settings.GridFieldsShow = "*";
  EXPECT_FALSE(settings::IsGridFieldShown(settings, "Name", 1));
}

TEST(GridFieldsShow, ShowsNamedAndNumberedFieldsOnly) {
  Settings settings;
  settings.GridFieldsShow = "NAME,3";

  EXPECT_TRUE(settings::IsGridFieldShown(settings, "Name", 1));
  EXPECT_FALSE(settings::IsGridFieldShown(settings, "City", 2));
  EXPECT_TRUE(settings::IsGridFieldShown(settings, "Price", 3));
}

TEST(GridFieldsShow, ShowsEveryFieldWhenBothListsAreEmpty) {
  EXPECT_TRUE(settings::IsGridFieldShown(Settings(), "Name", 1));
  EXPECT_TRUE(settings::IsGridFieldShown(Settings(), "", 2));
}

TEST(FieldLists, NeverMatchAnEmptyNameButItsNumber) {
  Settings settings;
  settings.GridFieldsHide = "a,,b";
  EXPECT_TRUE(settings::IsGridFieldShown(settings, "", 2));
  EXPECT_TRUE(settings::IsGridFieldShown(settings, " ", 2));

  settings.GridFieldsHide = "a,,2";
  EXPECT_FALSE(settings::IsGridFieldShown(settings, "", 2));
}

TEST(FormFields, HaveListsOfTheirOwn) {
  Settings settings;
  settings.GridFieldsHide = "Name";
  settings.FormFieldsHide = "City";
  EXPECT_TRUE(settings::IsFormFieldShown(settings, "Name", 1));
  EXPECT_FALSE(settings::IsFormFieldShown(settings, "City", 2));

  settings.FormFieldsHide = "";
  settings.FormFieldsShow = "2";
  EXPECT_FALSE(settings::IsFormFieldShown(settings, "Name", 1));
  EXPECT_TRUE(settings::IsFormFieldShown(settings, "City", 2));
}

/// The lists in which "*" means every column.
struct StarList {
  std::string Settings::*list;
  bool (*is_listed)(const Settings&, std::string_view, int);
};

class StarLists : public testing::TestWithParam<StarList> {};

TEST_P(StarLists, AreFalseWhenEmpty) {
  Settings settings;
  EXPECT_FALSE(GetParam().is_listed(settings, "Name", 1));
  settings.*GetParam().list = "   ";
  EXPECT_FALSE(GetParam().is_listed(settings, "Name", 1));
}

TEST_P(StarLists, HoldEveryColumnForAStarWithBlanksAround) {
  Settings settings;
  settings.*GetParam().list = "  * ";
  EXPECT_TRUE(GetParam().is_listed(settings, "Name", 1));
  EXPECT_TRUE(GetParam().is_listed(settings, "", 300));
}

TEST_P(StarLists, TakeAStarAmongOthersAsAName) {
  Settings settings;
  settings.*GetParam().list = "*,City";
  EXPECT_FALSE(GetParam().is_listed(settings, "Name", 1));
}

TEST_P(StarLists, HoldNamesInAnyLetterCaseAndNumbers) {
  Settings settings;
  settings.*GetParam().list = "NAME,3";
  EXPECT_TRUE(GetParam().is_listed(settings, "Name", 1));
  EXPECT_FALSE(GetParam().is_listed(settings, "City", 2));
  EXPECT_TRUE(GetParam().is_listed(settings, "Price", 3));
}

INSTANTIATE_TEST_SUITE_P(Properties, StarLists,
                         testing::Values(StarList{&Settings::EditFieldsReadOnly, settings::IsFieldReadOnly},
                                         StarList{&Settings::GridColsNoSort, settings::IsGridColNoSort},
                                         StarList{&Settings::GridCellsNoBr, settings::IsGridCellNoBr}));

TEST(SuppressDuplicatePosition, IsThatOfTheNameElseOfTheNumber) {
  Settings settings;
  settings.GridFieldsSupressDup = "1,city,Name";

  EXPECT_EQ(settings::SuppressDuplicatePosition(settings, "Name", 1), 3);
  EXPECT_EQ(settings::SuppressDuplicatePosition(settings, "ID", 1), 1);
  EXPECT_EQ(settings::SuppressDuplicatePosition(settings, "City", 9), 2);
  EXPECT_EQ(settings::SuppressDuplicatePosition(settings, "Price", 4), 0);
}

TEST(SuppressDuplicatePosition, GivesAStarNoMeaning) {
  Settings settings;
  settings.GridFieldsSupressDup = "*";
  EXPECT_EQ(settings::SuppressDuplicatePosition(settings, "Name", 1), 0);
}

TEST(DisplayNames, NameColumnsByPosition) {
  Settings settings;
  settings.GridDisplayFieldNames = "Id,,Price";

  EXPECT_EQ(settings::GridDisplayName(settings, "ART_ID", 1), "Id");
  EXPECT_EQ(settings::GridDisplayName(settings, "NAME", 2), "NAME");
  EXPECT_EQ(settings::GridDisplayName(settings, "PRC", 3), "Price");
}

TEST(DisplayNames, LeaveTheOtherColumnsTheirFieldNames) {
  Settings settings;
  settings.GridDisplayFieldNames = "Id";

  EXPECT_EQ(settings::GridDisplayName(settings, "NAME", 2), "NAME");
  EXPECT_EQ(settings::GridDisplayName(settings, "NAME", 300), "NAME");
  EXPECT_EQ(settings::GridDisplayName(Settings(), "NAME", 1), "NAME");
}

TEST(DisplayNames, GiveAnEmptyHeaderForBlanksAndKeepBlanksAroundWords) {
  Settings settings;
  settings.GridDisplayFieldNames = "Id, ,  the price ";

  EXPECT_EQ(settings::GridDisplayName(settings, "NAME", 2), "&nbsp;");
  EXPECT_EQ(settings::GridDisplayName(settings, "PRC", 3), "  the price ");
}

TEST(DisplayNames, OfTheFormHaveAListOfTheirOwn) {
  Settings settings;
  settings.GridDisplayFieldNames = "grid";
  settings.FormDisplayFieldNames = "form";

  EXPECT_EQ(settings::FormDisplayName(settings, "NAME", 1), "form");
  EXPECT_EQ(settings::FormDisplayName(settings, "NAME", 2), "NAME");
}

TEST(GridColumnSpan, SubtractsHiddenAndAddsShownItemsAndTheIndex) {
  Settings settings;
  EXPECT_EQ(settings::GridColumnSpan(settings, 5), 6);

  settings.GridDisplayIndex = false;
  EXPECT_EQ(settings::GridColumnSpan(settings, 5), 5);

  settings.GridFieldsHide = "a,b";
  EXPECT_EQ(settings::GridColumnSpan(settings, 5), 3);

  settings.GridFieldsShow = "c,d,e";
  EXPECT_EQ(settings::GridColumnSpan(settings, 5), 6);

  settings.GridFieldsHide = "  ";
  EXPECT_EQ(settings::GridColumnSpan(settings, 5), 8);
}

}  // namespace
}  // namespace dralo::tests
