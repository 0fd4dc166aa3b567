#include "driver/request_state.h"

#include <gtest/gtest.h>

#include "support/items.h"

namespace dralo::driver {
namespace {

using tests::ItemsPage;
using tests::Range;

TEST(RequestedPageSize, ReplacesTheProperty) {
  ItemsPage page(45);
  page.Ask("maxrecords", "5");
  EXPECT_EQ(page.Shown(), Range(1, 5));
  EXPECT_EQ(page.Settings().RecordsPerPage, 5);
}

TEST(RequestedPageSize, OfZeroIsTwenty) {
  ItemsPage page(45);
  page.Ask("maxrecords", "0");
  EXPECT_EQ(page.Shown(), Range(1, 20));
  EXPECT_EQ(page.Settings().RecordsPerPage, 20);
}

TEST(RequestedPageSize, MayReachTheRecordLimitThatTheSetterRefuses) {
  ItemsPage page(45);
  page.view.Set("RecordsMaxLimit", std::int64_t{30});
  page.Ask("maxrecords", "40");
  EXPECT_EQ(page.Shown(), Range(1, 30));
}

TEST(PageSizeProperty, BelowOneIsTwenty) {
  ItemsPage page(45);
  page.view.Set("RecordsPerPage", std::int64_t{-3});
  EXPECT_EQ(page.Shown(), Range(1, 20));
}

struct BadNumber {
  const char* key;
  const char* value;
};

class NumberOfTheRequest : public ::testing::TestWithParam<BadNumber> {};

TEST_P(NumberOfTheRequest, ThatIsNoneIsReportedWithoutRepeatingItAndWritesNothing) {
  ItemsPage page(3);
  page.Ask(GetParam().key, GetParam().value);
  EXPECT_EQ(page.Render(), "");
  const std::string limits =
      std::string_view(GetParam().key) == "maxrecords" ? "-32768 to 32767" : "-2147483648 to 2147483647";
  EXPECT_EQ(page.ErrorMessage(), "Morvu1" + std::string(GetParam().key) + " must be a whole number from " +
                                     limits + " in WriteHTMLTable.<br>");
}

INSTANTIATE_TEST_SUITE_P(
    Values, NumberOfTheRequest,
    ::testing::Values(BadNumber{"maxrecords", "abc"}, BadNumber{"maxrecords", "40000"},
                      BadNumber{"maxrecords", "0x10"}, BadNumber{"maxrecords", "5,10"},
                      BadNumber{"maxrecords", "<script>"}, BadNumber{"CurrRecord", "abc"},
                      BadNumber{"CurrRecord", "2147483648"}, BadNumber{"CurrRecord", "&H10"},
                      BadNumber{"CurrRecord", "99999999999999999999"}, BadNumber{"CurrRecord", "\xFF\x00"},
                      BadNumber{"BookMark", "x"}, BadNumber{"BookMark", "-99999999999"}));

TEST(RequestedRecord, IsTheFirstOfThePage) {
  ItemsPage page(45);
  page.Ask("CurrRecord", " 21 ");
  EXPECT_EQ(page.Shown(), Range(21, 40));
}

TEST(RequestedRecord, BelowOneIsOne) {
  ItemsPage page(45);
  page.Ask("CurrRecord", "-5");
  EXPECT_EQ(page.Shown(), Range(1, 20));
}

TEST(RequestedRecord, IsFoundInAnyLetterCaseAndInTheFormFirst) {
  ItemsPage page(45);
  page.page.form.push_back({"MORVU1currrecord", "41"});
  page.Ask("CurrRecord", "21");
  EXPECT_EQ(page.Shown(), Range(41, 45));
}

TEST(RequestedRecord, GivenTwiceIsTheFirst) {
  ItemsPage page(45);
  page.Ask("CurrRecord", "21");
  page.Ask("CurrRecord", "1");
  EXPECT_EQ(page.Shown(), Range(21, 40));
}

TEST(RequestedRecord, OfAnotherTagIsNotTheViews) {
  ItemsPage page(45);
  page.page.query.push_back({"Morvu2CurrRecord", "21"});
  EXPECT_EQ(page.Shown(), Range(1, 20));
}

TEST(RequestedRecord, AtTheEndOfThirtyTwoBitsStaysThereOnNext) {
  ItemsPage page(3);
  page.view.Set("CountRecords", false);
  page.Ask("CurrRecord", "2147483647");
  page.Ask("NEXT.x", "1");
  EXPECT_TRUE(page.Shown().empty());
  EXPECT_EQ(page.ErrorMessage(), "");
}

TEST(RequestedCount, SwitchesCountingOn) {
  ItemsPage page(45);
  page.view.Set("CountRecords", false);
  page.Ask("CountRecords", "on");
  page.Render();
  EXPECT_TRUE(page.Settings().CountRecords);
  EXPECT_EQ(page.Settings().RecordCount, 45);
}

TEST(RequestedCount, ThatIsAbsentLeavesCountingAsItIs) {
  ItemsPage page(45);
  page.Render();
  EXPECT_TRUE(page.Settings().CountRecords);
}

TEST(RequestedStatement, ReplacesTheStatementWithoutTheSettersEffects) {
  ItemsPage page(45);
  page.Ask("SQL", "SELECT * FROM Items WHERE ID=7");
  EXPECT_EQ(page.Shown(), Range(7, 7));
  EXPECT_EQ(page.Settings().FormSQL, "SELECT * FROM Items");
}

TEST(RequestedOrder, SortsByColumnNumber) {
  ItemsPage page(3);
  page.Ask("OrderByFields", "1");
  page.Ask("OrderByDesc", "True");
  EXPECT_EQ(page.Shown(), (std::vector<int>{3, 2, 1}));
}

TEST(RequestedOrder, WithoutADirectionIsAscendingEvenWhenThePagePresetDescending) {
  ItemsPage page(3);
  page.view.Set("OrderByDesc", true);
  page.Ask("OrderByFields", "1");
  EXPECT_EQ(page.Shown(), Range(1, 3));
}

TEST(PresetOrder, StaysWithoutARequestedOne) {
  ItemsPage page(3);
  page.view.Set("OrderByFields", std::string("ID"));
  page.view.Set("OrderByDesc", true);
  EXPECT_EQ(page.Shown(), (std::vector<int>{3, 2, 1}));
}

struct Press {
  int rows;
  const char* button;
  const char* from;
  int first;
  int last;
};

class PagingButton : public ::testing::TestWithParam<Press> {};

TEST_P(PagingButton, GoesToItsPage) {
  ItemsPage page(GetParam().rows);
  page.Ask("CurrRecord", GetParam().from);
  page.Ask(GetParam().button, "0");
  EXPECT_EQ(page.Shown(), Range(GetParam().first, GetParam().last));
  EXPECT_EQ(page.Settings().FromRow, GetParam().first);
  EXPECT_EQ(page.Settings().ToRow, GetParam().last);
}

INSTANTIATE_TEST_SUITE_P(Pages, PagingButton,
                         ::testing::Values(Press{45, "NEXT.x", "1", 21, 40},
                                           Press{45, "NEXT.x", "21", 41, 45},
                                           Press{45, "PREV.x", "41", 21, 40}, Press{45, "PREV.x", "5", 1, 20},
                                           Press{45, "FIRST.x", "41", 1, 20},
                                           Press{45, "LAST.x", "1", 41, 45}, Press{40, "LAST.x", "1", 21, 40},
                                           Press{5, "LAST.x", "1", 1, 5}, Press{20, "LAST.x", "1", 1, 20},
                                           Press{45, "NEXT.x", "41", 45, 45}));

TEST(PagingButtons, CountOnlyOnceInTheOrderNextPreviousFirstLast) {
  ItemsPage page(45);
  page.Ask("LAST.x", "1");
  page.Ask("FIRST.x", "1");
  page.Ask("NEXT.x", "1");
  EXPECT_EQ(page.Shown(), Range(21, 40));
}

TEST(LastPage, OfAnUncountedResultIsCountedFirst) {
  ItemsPage page(45);
  page.view.Set("CountRecords", false);
  page.Ask("LAST.x", "1");
  EXPECT_EQ(page.Shown(), Range(41, 45));
  EXPECT_EQ(page.Settings().RecordCount, 45);
}

TEST(Bookmark, MovesAFormButNotAGrid) {
  ItemsPage page(45);
  page.Ask("BookMark", "27");
  EXPECT_EQ(page.Shown(), Range(1, 20));
}

TEST(FirstOfLastPage, IsAFullPageBeforeTheEndWhenTheCountDivides) {
  EXPECT_EQ(FirstOfLastPage(45, 20), 41);
  EXPECT_EQ(FirstOfLastPage(40, 20), 21);
  EXPECT_EQ(FirstOfLastPage(19, 20), 1);
  EXPECT_EQ(FirstOfLastPage(1, 1), 1);
  EXPECT_EQ(FirstOfLastPage(0, 20), 1);
}

}  // namespace
}  // namespace dralo::driver
