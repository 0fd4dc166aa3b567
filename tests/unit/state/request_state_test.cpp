#include "state/request_state.h"

#include <gtest/gtest.h>

#include "support/items.h"
#include "support/named_cases.h"

namespace dralo::state {
namespace {

using tests::ItemsPage;
using tests::Range;

/// What the page sets, what the visitor asks for, and what is shown then.
struct PageCase {
  std::string_view name;
  std::vector<std::pair<std::string_view, component::PropertyValue>> set;
  std::vector<std::pair<std::string_view, std::string_view>> asked;
  std::vector<int> items;
  int page_size = 20;
  std::string_view counter = "";
};

void ExpectItems(ItemsPage& page, const PageCase& expected) {
  for (const auto& [property, value] : expected.set) page.view.Set(property, value);
  for (const auto& [key, value] : expected.asked) page.Ask(key, value);
  const std::string body = page.Render();
  EXPECT_EQ(tests::ItemsShown(body), expected.items);
  EXPECT_EQ(page.Settings().RecordsPerPage, expected.page_size);
  EXPECT_NE(body.find(expected.counter), body.npos) << body;
  EXPECT_EQ(page.ErrorMessage(), "");
}

component::PropertyValue NumberValue(std::int64_t number) { return number; }
component::PropertyValue TextValue(std::string text) { return text; }

class RequestedPage : public testing::TestWithParam<PageCase> {};

TEST_P(RequestedPage, IsShown) {
  ItemsPage page(45);
  ExpectItems(page, GetParam());
}

const PageCase kPageSizes[] = {
    {"OfTwentyForAPropertyBelowOne", {{"RecordsPerPage", NumberValue(-3)}}, {}, Range(1, 20)},
    {"OfTheRequestedSize", {}, {{"maxrecords", "5"}}, Range(1, 5), 5},
    {"OfTwentyForASizeOfZero", {}, {{"maxrecords", "0"}}, Range(1, 20)},
    {"OfTwentyForASizeBelowZero", {{"RecordsPerPage", NumberValue(5)}}, {{"maxrecords", "-3"}}, Range(1, 20)},
    {"AtItsFirstRecordWhateverTheSize",
     {},
     {{"CurrRecord", "21"}, {"maxrecords", "10"}},
     Range(21, 30),
     10,
     "Records (21..30) of 45&nbsp;&nbsp;Page 3 of 5"},
    {"FromTheMiddleOfAnother",
     {},
     {{"CurrRecord", "21"}, {"maxrecords", "30"}},
     Range(21, 45),
     30,
     "Records (21..45) of 45&nbsp;&nbsp;Page 1 of 2"},
    {"UpToTheRecordLimitThatTheSetterRefuses",
     {{"RecordsMaxLimit", NumberValue(30)}},
     {{"maxrecords", "40"}},
     Range(1, 30),
     40},
};

const PageCase kFirstRecords[] = {
    {"FromTheRequestedRecord", {}, {{"CurrRecord", " 21 "}}, Range(21, 40)},
    {"FromTheFirstForARecordBelowOne", {}, {{"CurrRecord", "-5"}}, Range(1, 20)},
    {"BehindTheFirstForARecordBelowOneAndNext", {}, {{"CurrRecord", "-5"}, {"NEXT.x", "1"}}, Range(21, 40)},
    {"FromTheFirstForZero", {}, {{"CurrRecord", "0"}}, Range(1, 20)},
    {"FromTheFirstForBlanks", {}, {{"CurrRecord", "  "}}, Range(1, 20)},
    {"FromTheFirstOfTwoRequestedRecords", {}, {{"CurrRecord", "21"}, {"CurrRecord", "1"}}, Range(21, 40)},
};

INSTANTIATE_TEST_SUITE_P(Sizes, RequestedPage, testing::ValuesIn(kPageSizes), tests::kByName);
INSTANTIATE_TEST_SUITE_P(Records, RequestedPage, testing::ValuesIn(kFirstRecords), tests::kByName);

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

class RequestedOrder : public testing::TestWithParam<PageCase> {};

TEST_P(RequestedOrder, SortsTheItems) {
  ItemsPage page(3);
  ExpectItems(page, GetParam());
}

const component::PropertyValue kDescending = true;

const PageCase kOrders[] = {
    {"ByColumnNumber", {}, {{"OrderByFields", "1"}, {"OrderByDesc", "True"}}, {3, 2, 1}},
    {"DescendingForFalseToo", {}, {{"OrderByFields", "1"}, {"OrderByDesc", "False"}}, {3, 2, 1}},
    {"DescendingForZeroToo", {}, {{"OrderByFields", "1"}, {"OrderByDesc", "0"}}, {3, 2, 1}},
    {"DescendingForAnyText", {}, {{"OrderByFields", "1"}, {"OrderByDesc", "x"}}, {3, 2, 1}},
    {"AsThePageSaysForBlanks",
     {{"OrderByFields", TextValue("1")}, {"OrderByDesc", kDescending}},
     {{"OrderByFields", " "}, {"OrderByDesc", ""}},
     {3, 2, 1}},
    {"AsThePageSaysTurnedRound", {{"OrderByFields", TextValue("1")}}, {{"OrderByDesc", "True"}}, {3, 2, 1}},
    {"AscendingWithoutADirectionEvenWhenThePagePresetDescending",
     {{"OrderByDesc", kDescending}},
     {{"OrderByFields", "1"}},
     {1, 2, 3}},
    {"AsThePageSaysWithoutARequest",
     {{"OrderByFields", TextValue("ID")}, {"OrderByDesc", kDescending}},
     {},
     {3, 2, 1}},
};

INSTANTIATE_TEST_SUITE_P(Orders, RequestedOrder, testing::ValuesIn(kOrders), tests::kByName);

TEST(RequestedOrderText, IsTrimmedAndKept) {
  ItemsPage page(3);
  page.Ask("OrderByFields", "  ID DESC ");
  EXPECT_EQ(page.Shown(), (std::vector<int>{3, 2, 1}));
  EXPECT_EQ(page.Settings().OrderByFields, "ID DESC");
}

}  // namespace
}  // namespace dralo::state
