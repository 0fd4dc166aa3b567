#include "state/request_state.h"

#include <gtest/gtest.h>

#include "support/items.h"

namespace dralo::state {
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

TEST(RequestedPageSize, BelowZeroIsTwenty) {
  ItemsPage page(45);
  page.view.Set("RecordsPerPage", std::int64_t{5});
  page.Ask("maxrecords", "-3");
  EXPECT_EQ(page.Shown(), Range(1, 20));
  EXPECT_EQ(page.Settings().RecordsPerPage, 20);
}

TEST(RequestedPageSize, LeavesThePageAtItsFirstRecord) {
  ItemsPage page(45);
  page.Ask("CurrRecord", "21");
  page.Ask("maxrecords", "10");
  const std::string body = page.Render();
  EXPECT_EQ(tests::ItemsShown(body), Range(21, 30));
  EXPECT_NE(body.find("Records (21..30) of 45&nbsp;&nbsp;Page 3 of 5"), body.npos);
}

TEST(RequestedPageSize, MayStartThePageInTheMiddleOfAnother) {
  ItemsPage page(45);
  page.Ask("CurrRecord", "21");
  page.Ask("maxrecords", "30");
  const std::string body = page.Render();
  EXPECT_EQ(tests::ItemsShown(body), Range(21, 45));
  EXPECT_NE(body.find("Records (21..45) of 45&nbsp;&nbsp;Page 1 of 2"), body.npos);
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
                      BadNumber{"maxrecords", "32768"}, BadNumber{"maxrecords", "-32769"},
                      BadNumber{"maxrecords", "0x10"}, BadNumber{"maxrecords", "5,10"},
                      BadNumber{"maxrecords", "<script>"}, BadNumber{"CurrRecord", "abc"},
                      BadNumber{"CurrRecord", "2147483648"}, BadNumber{"CurrRecord", "-2147483649"},
                      BadNumber{"CurrRecord", "21, 1"}, BadNumber{"CurrRecord", "2 1"},
                      BadNumber{"CurrRecord", "&H10"}, BadNumber{"CurrRecord", "99999999999999999999"},
                      BadNumber{"CurrRecord", "\xFF\x00"}, BadNumber{"BookMark", "x"},
                      BadNumber{"BookMark", "-99999999999"}));

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

TEST(RequestedRecord, BelowOneIsOneBeforeTheButtonsCount) {
  ItemsPage page(45);
  page.Ask("CurrRecord", "-5");
  page.Ask("NEXT.x", "1");
  EXPECT_EQ(page.Shown(), Range(21, 40));
}

TEST(RequestedRecord, OfZeroIsOne) {
  ItemsPage page(45);
  page.Ask("CurrRecord", "0");
  EXPECT_EQ(page.Shown(), Range(1, 20));
}

TEST(RequestedRecord, OfBlanksIsOne) {
  ItemsPage page(45);
  page.Ask("CurrRecord", "  ");
  EXPECT_EQ(page.Shown(), Range(1, 20));
}

TEST(RequestedRecord, MayBeTheLowestAndTheHighestNumber) {
  for (const char* number : {"-2147483648", "2147483647"}) {
    ItemsPage page(45);
    page.Ask("CurrRecord", number);
    page.Ask("PREV.x", "1");
    EXPECT_FALSE(page.Shown().empty()) << number;
    EXPECT_EQ(page.ErrorMessage(), "");
  }
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

TEST(RequestedOrder, IsTrimmedAndKept) {
  ItemsPage page(3);
  page.Ask("OrderByFields", "  ID DESC ");
  EXPECT_EQ(page.Shown(), (std::vector<int>{3, 2, 1}));
  EXPECT_EQ(page.Settings().OrderByFields, "ID DESC");
}

TEST(RequestedOrder, DescendsWithAnyTextForTheDirection) {
  for (const char* direction : {"True", "False", "0", "x"}) {
    ItemsPage page(3);
    page.Ask("OrderByFields", "1");
    page.Ask("OrderByDesc", direction);
    EXPECT_EQ(page.Shown(), (std::vector<int>{3, 2, 1})) << direction;
  }
}

TEST(RequestedOrder, OfBlanksIsNone) {
  ItemsPage page(3);
  page.view.Set("OrderByFields", std::string("1"));
  page.view.Set("OrderByDesc", true);
  page.Ask("OrderByFields", " ");
  page.Ask("OrderByDesc", "");
  EXPECT_EQ(page.Shown(), (std::vector<int>{3, 2, 1}));
}

TEST(RequestedDirection, AloneTurnsThePresetOrderRound) {
  ItemsPage page(3);
  page.view.Set("OrderByFields", std::string("1"));
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

}  // namespace
}  // namespace dralo::state
