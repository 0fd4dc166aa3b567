#include <gtest/gtest.h>

#include "component/db_connection.h"
#include "state/request_state.h"
#include "support/items.h"

namespace dralo::driver {
namespace {

using tests::ItemsPage;
using tests::Range;

struct ShownPage {
  const char* name;
  int rows;
  tests::Script script;
  tests::Asked asked;
  int first;
  int last;  ///< Less than the first when no row is shown.
  int count;
};

class Paging : public testing::TestWithParam<ShownPage> {};

TEST_P(Paging, ShowsTheRowsAndCountsThem) {
  ItemsPage page(GetParam().rows);
  page.Set(GetParam().script);
  page.Ask(GetParam().asked);
  const bool is_empty = GetParam().last < GetParam().first;
  EXPECT_EQ(page.Shown(), Range(GetParam().first, GetParam().last));
  EXPECT_EQ(page.Settings().FromRow, is_empty ? 0 : GetParam().first);
  EXPECT_EQ(page.Settings().ToRow, is_empty ? 0 : GetParam().last);
  EXPECT_EQ(page.Settings().RecordCount, GetParam().count);
  EXPECT_EQ(page.ErrorMessage(), "");
}

constexpr char kCommand[] = "WITH All_ AS (SELECT * FROM Items) SELECT * FROM All_";

// clang-format off
const ShownPage kPages[] = {
    {"NextPage", 45, {}, {{"CurrRecord", "1"}, {"NEXT.x", "0"}}, 21, 40, 45},
    {"NextPageThatIsTheLast", 45, {}, {{"CurrRecord", "21"}, {"NEXT.x", "0"}}, 41, 45, 45},
    {"NextPageBehindTheLast", 45, {}, {{"CurrRecord", "41"}, {"NEXT.x", "0"}}, 45, 45, 45},
    {"PreviousPage", 45, {}, {{"CurrRecord", "41"}, {"PREV.x", "0"}}, 21, 40, 45},
    {"PreviousPageNeverBeforeTheFirstRecord", 45, {}, {{"CurrRecord", "5"}, {"PREV.x", "0"}}, 1, 20, 45},
    {"PreviousPageOfUncountedRecords", 45, {{"CountRecords", false}},
     {{"CurrRecord", "5"}, {"PREV.x", "1"}}, 1, 20, -1},
    {"PreviousPageOfAPageOfOneRow", 45, {}, {{"CurrRecord", "45"}, {"PREV.x", "1"}}, 25, 44, 45},
    {"FirstPage", 45, {}, {{"CurrRecord", "41"}, {"FIRST.x", "0"}}, 1, 20, 45},
    {"LastPage", 45, {}, {{"CurrRecord", "1"}, {"LAST.x", "0"}}, 41, 45, 45},
    {"LastPageWhenTheCountDivides", 40, {}, {{"CurrRecord", "1"}, {"LAST.x", "0"}}, 21, 40, 40},
    {"LastPageThatIsTheFirst", 5, {}, {{"CurrRecord", "1"}, {"LAST.x", "0"}}, 1, 5, 5},
    {"LastPageThatIsAWholeFirst", 20, {}, {{"CurrRecord", "1"}, {"LAST.x", "0"}}, 1, 20, 20},
    {"LastPageOfAnUncountedResultIsCountedFirst", 45, {{"CountRecords", false}},
     {{"LAST.x", "1"}}, 41, 45, 45},
    {"LastPageOfAnUncountedCommandIsCountedFirst", 45, {{"sql", kCommand}, {"CountRecords", false}},
     {{"LAST.x", "1"}}, 41, 45, 45},
    {"BookmarkDoesNotMoveAGrid", 45, {}, {{"BookMark", "27"}}, 1, 20, 45},
    {"UncountedPage", 45, {{"CountRecords", false}}, {}, 1, 20, -1},
    {"CommandIsWalkedToCountIt", 45, {{"sql", kCommand}}, {}, 1, 20, 45},
    {"UncountedCommand", 45, {{"sql", kCommand}, {"CountRecords", false}}, {}, 1, 20, -1},
    {"NumberBeyondTheCountIsCutToItAndStartsAPageOfOneRow", 45, {}, {{"CurrRecord", "100"}}, 45, 45, 45},
    {"LimitIsNeverPassed", 200, {{"RecordsMaxLimit", 50}}, {{"CurrRecord", "41"}}, 41, 50, 200},
    {"NumberBeyondTheLimitHasNoRows", 200, {{"RecordsMaxLimit", 50}}, {{"CurrRecord", "120"}}, 1, 0, 200},
    {"LimitEndsTheLastPageAndCutsTheCount", 200, {{"RecordsMaxLimit", 50}}, {{"LAST.x", "1"}}, 41, 50, 50},
    {"LimitCutsAPresetCountOnTheLastPageToo", 200, {{"RecordsMaxLimit", 50}, {"RecordCount", 200}},
     {{"LAST.x", "1"}}, 41, 50, 50},
    {"LimitOfZeroShowsNothing", 3, {{"RecordsMaxLimit", 0}}, {{"LAST.x", "1"}}, 1, 0, 0},
    {"LimitBelowZeroShowsNothing", 3, {{"RecordsMaxLimit", -5}}, {{"LAST.x", "1"}}, 1, 0, 0},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Pages, Paging, testing::ValuesIn(kPages),
                         [](const auto& page) { return std::string(page.param.name); });

TEST(PagingButtons, CountOnlyOnceInTheOrderNextPreviousFirstLast) {
  const std::initializer_list<const char*> order = {"NEXT.x", "PREV.x", "FIRST.x", "LAST.x"};
  const auto first_shown = [&](std::size_t first_button) {
    ItemsPage page(85);
    page.Ask("CurrRecord", "41");
    for (std::size_t button = order.size(); button-- > first_button;) page.Ask(order.begin()[button], "1");
    return page.Shown().at(0);
  };
  EXPECT_EQ(first_shown(0), 61);
  EXPECT_EQ(first_shown(1), 21);
  EXPECT_EQ(first_shown(2), 1);
  EXPECT_EQ(first_shown(3), 81);
}

TEST(LastPage, OfASuppliedRecordsetWhoseCountIsUnknownIsThePageItself) {
  ItemsPage page(45);
  page.Set("ADORecordset", page.OpenRecordset("SELECT * FROM Items"));
  page.Ask("CurrRecord", "21");
  page.Ask("LAST.x", "1");
  EXPECT_EQ(page.Shown(), Range(21, 40));
  EXPECT_EQ(page.ErrorMessage(), "");
}

TEST(FirstOfLastPage, IsAFullPageBeforeTheEndWhenTheCountDivides) {
  EXPECT_EQ(state::FirstOfLastPage(45, 20), 41);
  EXPECT_EQ(state::FirstOfLastPage(40, 20), 21);
  EXPECT_EQ(state::FirstOfLastPage(19, 20), 1);
  EXPECT_EQ(state::FirstOfLastPage(1, 1), 1);
  EXPECT_EQ(state::FirstOfLastPage(0, 20), 1);
}

}  // namespace
}  // namespace dralo::driver
