#include <gtest/gtest.h>

#include "component/db_connection.h"
#include "state/request_state.h"
#include "support/items.h"

namespace dralo::driver {
namespace {

using tests::ItemsPage;
using tests::Range;

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

TEST(PreviousPage, OfAPageOfOneRowInTheMiddleGoesBackFromThere) {
  ItemsPage page(45);
  page.Ask("CurrRecord", "45");
  page.Ask("PREV.x", "1");
  EXPECT_EQ(page.Shown(), Range(25, 44));
}

TEST(PreviousPage, NeverStartsBeforeTheFirstRecord) {
  ItemsPage page(45);
  page.view.Set("CountRecords", false);
  page.Ask("CurrRecord", "5");
  page.Ask("PREV.x", "1");
  EXPECT_EQ(page.Shown(), Range(1, 20));
  EXPECT_EQ(page.Settings().FromRow, 1);
}

TEST(LastPage, OfAnUncountedResultIsCountedFirst) {
  ItemsPage page(45);
  page.view.Set("CountRecords", false);
  page.Ask("LAST.x", "1");
  EXPECT_EQ(page.Shown(), Range(41, 45));
  EXPECT_EQ(page.Settings().RecordCount, 45);
}

TEST(LastPage, OfAnUncountedCommandIsCountedFirst) {
  ItemsPage page(45);
  page.view.Set("sql", std::string("WITH A AS (SELECT * FROM Items) SELECT * FROM A"));
  page.view.Set("CountRecords", false);
  page.Ask("LAST.x", "1");
  EXPECT_EQ(page.Shown(), Range(41, 45));
}

TEST(LastPage, OfASuppliedRecordsetWhoseCountIsUnknownIsThePageItself) {
  ItemsPage page(45);
  auto records = platform::Create<platform::Recordset>(tests::TestEnvironment(), "ADODB.Recordset");
  records->Open("SELECT * FROM Items", page.Settings().DrConnection->Connection());
  page.view.Set("ADORecordset", platform::ObjectPtr(records));
  page.Ask("CurrRecord", "21");
  page.Ask("LAST.x", "1");
  EXPECT_EQ(page.Shown(), Range(21, 40));
  EXPECT_EQ(page.ErrorMessage(), "");
}

TEST(Bookmark, DoesNotMoveAGrid) {
  ItemsPage page(45);
  page.Ask("BookMark", "27");
  EXPECT_EQ(page.Shown(), Range(1, 20));
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
