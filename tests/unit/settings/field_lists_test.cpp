#include "settings/field_lists.h"

#include <gtest/gtest.h>

#include "support/named_cases.h"

namespace dralo::tests {
namespace {

using settings::Settings;

struct ShownCase {
  std::string_view name, hide, show, field;
  int number;
  bool is_shown;
};

class GridField : public testing::TestWithParam<ShownCase> {};

TEST_P(GridField, IsShownOrHidden) {
  Settings settings;
  settings.GridFieldsHide = GetParam().hide;
  settings.GridFieldsShow = GetParam().show;
  EXPECT_EQ(settings::IsGridFieldShown(settings, GetParam().field, GetParam().number), GetParam().is_shown);
}

constexpr ShownCase kHideLists[] = {
    {"HidesNamesInSmallLetters", "ID,Name", "", "name", 2, false},
    {"HidesNamesInAnyLetterCase", "ID,Name", "", "Id", 1, false},
    {"ShowsOtherNames", "ID,Name", "", "City", 3, true},
    {"DoesNotTrimItsItems", "ID, Name", "", "Name", 2, true},
    {"HidesNamesWithABlankInFront", "ID, Name", "", " Name", 2, false},
    {"HidesFieldsByNumber", "x,2", "", "Name", 2, false},
    {"HidesFieldsByTheWholeNumber", "x,2", "", "Name", 12, true},
    {"HidesItsFieldWhateverIsInTheShowList", "Price", "Name", "Price", 3, false},
    {"ShowsAFieldOfTheShowList", "Price", "Name", "Name", 1, true},
    {"MakesTheShowListIgnored", "Price", "Name", "City", 2, true},
    {"OfBlanksLeavesTheShowListValid", "  ", "Name", "Name", 1, true},
    {"OfBlanksCountsAsEmpty", "  ", "Name", "City", 2, false},
    {"GivesAStarNoMeaning", "*", "", "Name", 1, true},
    {"TakesAStarForAName", "*", "", "*", 2, false},
    {"DoesNotMatchAnEmptyName", "a,,b", "", "", 2, true},
    {"DoesNotMatchABlankName", "a,,b", "", " ", 2, true},
    {"MatchesTheNumberOfAnEmptyName", "a,,2", "", "", 2, false},
};

constexpr ShownCase kShowLists[] = {
    {"ShowsNamedFields", "", "NAME,3", "Name", 1, true},
    {"HidesOtherFields", "", "NAME,3", "City", 2, false},
    {"ShowsNumberedFields", "", "NAME,3", "Price", 3, true},
    {"GivesAStarNoMeaning", "", "*", "Name", 1, false},
    {"ThatIsEmptyShowsEveryField", "", "", "Name", 1, true},
    {"ThatIsEmptyShowsFieldsWithoutAName", "", "", "", 2, true},
};

INSTANTIATE_TEST_SUITE_P(HideList, GridField, testing::ValuesIn(kHideLists), kByName);
INSTANTIATE_TEST_SUITE_P(ShowList, GridField, testing::ValuesIn(kShowLists), kByName);

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
                                         StarList{&Settings::GridCellsNoBr, settings::IsGridCellNoBr},
                                         StarList{&Settings::GridColsHtml, settings::IsGridColHtml}));

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

struct NameCase {
  std::string_view name, list, field;
  int number;
  std::string_view shown;
};

class DisplayName : public testing::TestWithParam<NameCase> {};

TEST_P(DisplayName, IsTheItemAtThePositionElseTheFieldName) {
  Settings grid;
  grid.GridDisplayFieldNames = GetParam().list;
  grid.FormDisplayFieldNames = "form,form,form";
  EXPECT_EQ(settings::GridLabel(grid, GetParam().field, GetParam().number).text, GetParam().shown);
  Settings form;
  form.GridDisplayFieldNames = "grid,grid,grid";
  form.FormDisplayFieldNames = GetParam().list;
  EXPECT_EQ(settings::FormLabel(form, GetParam().field, GetParam().number).text, GetParam().shown);
}

constexpr NameCase kNames[] = {
    {"OfTheFirstColumn", "Id,,Price", "ART_ID", 1, "Id"},
    {"WithoutAnItem", "Id,,Price", "NAME", 2, "NAME"},
    {"OfALaterColumn", "Id,,Price", "PRC", 3, "Price"},
    {"BehindTheList", "Id", "NAME", 2, "NAME"},
    {"FarBehindTheList", "Id", "NAME", 300, "NAME"},
    {"WithoutAList", "", "NAME", 1, "NAME"},
    {"EmptyForBlanks", "Id, ,  the price ", "NAME", 2, "&nbsp;"},
    {"WithBlanksAroundWords", "Id, ,  the price ", "PRC", 3, "  the price "},
};

INSTANTIATE_TEST_SUITE_P(Lists, DisplayName, testing::ValuesIn(kNames), kByName);

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
