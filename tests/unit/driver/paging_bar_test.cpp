#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "driver/page_frame.h"
#include "support/items.h"
#include "support/shown_view.h"

namespace dralo::driver {
namespace {

using Images = std::vector<std::string>;

/// The bars of a grid.
struct PagingBar : ::testing::Test {
  void Set(std::string_view name, const char* text) { Page().view.Set(name, std::string(text)); }
  void Set(std::string_view name, bool flag) { Page().view.Set(name, flag); }
  void Set(std::string_view name, int number) { Page().view.Set(name, std::int64_t{number}); }

  tests::ItemsPage& Page(int rows = 45) {
    if (!page_) page_ = std::make_unique<tests::ItemsPage>(rows);
    return *page_;
  }

  std::vector<tests::ShownView::Bar> Bars() { return tests::ReadView(Page().Render(), "1").bars; }
  tests::ShownView::Bar TheBar() {
    auto bars = Bars();
    EXPECT_EQ(bars.size(), 1U);
    return bars.at(0);
  }

  /// The next Page() is a new one.
  void Restart() { page_.reset(); }

 private:
  std::unique_ptr<tests::ItemsPage> page_;
};

const Images kNowhere = {"firstpgd.gif", "prevpgd.gif", "nextpgd.gif", "lastpgd.gif"};
const Images kBack = {"firstpg.gif", "prevpg.gif", "nextpgd.gif", "lastpgd.gif"};
const Images kEverywhere = {"firstpg.gif", "prevpg.gif", "nextpg.gif", "lastpg.gif"};
const Images kAnywhereButToTheLast = {"firstpg.gif", "prevpg.gif", "nextpg.gif", "lastpgd.gif"};

struct Words {
  const char* text;
  bool top;
  bool bottom;
};

class NavigationBarWords : public ::testing::TestWithParam<Words> {};

TEST_P(NavigationBarWords, ChooseThePlacesOfTheBar) {
  settings::Settings settings;
  settings.DisplayNavBar = GetParam().text;
  const BarPlacement placement = NavigationBarPlacement(settings);
  EXPECT_EQ(placement.top, GetParam().top);
  EXPECT_EQ(placement.bottom, GetParam().bottom);
}

INSTANTIATE_TEST_SUITE_P(Values, NavigationBarWords,
                         ::testing::Values(Words{"top", true, false}, Words{"BOTTOM", false, true},
                                           Words{"Both", true, true}, Words{"top bottom", true, true},
                                           Words{"none", false, false}, Words{"None both", false, false},
                                           Words{"nonetop", false, false}, Words{"", false, false},
                                           Words{"left", false, false}));

TEST_F(PagingBar, AtTheTopSaysTheSameAsTheOneAtTheBottom) {
  Set("DisplayNavBar", "both");
  Page().Ask("CurrRecord", "41");
  const auto bars = Bars();
  ASSERT_EQ(bars.size(), 2U);
  for (const auto& bar : bars) {
    EXPECT_EQ(bar.counter, "Records (41..45) of 45&nbsp;&nbsp;Page 3 of 3");
    EXPECT_EQ(bar.images, kBack);
  }
}

TEST_F(PagingBar, IsMissingAtTheTopOnlyWhileTheCountIsUnknown) {
  Set("DisplayNavBar", "both");
  Set("CountRecords", false);
  EXPECT_EQ(TheBar().counter, "Records (1..20) &nbsp;&nbsp;Page 1");
}

TEST_F(PagingBar, GoesNowhereFromAnEmptyResult) {
  Page(0);
  Set("DisplayNavBar", "both");
  for (const auto& bar : Bars()) {
    EXPECT_EQ(bar.counter, "Record 0 of 0&nbsp;&nbsp;Page 1 of 0");
    EXPECT_EQ(bar.images, kNowhere);
  }
}

TEST_F(PagingBar, GoesOnBehindAnUncountedPageWhileThereIsARecord) {
  Page(41);
  Set("CountRecords", false);
  Page().Ask("CurrRecord", "21");
  EXPECT_EQ(TheBar().images, kAnywhereButToTheLast);
}

TEST_F(PagingBar, GoesNoFurtherFromAnUncountedPageThatEndsWithTheResult) {
  Page(40);
  Set("CountRecords", false);
  Page().Ask("CurrRecord", "21");
  EXPECT_EQ(TheBar().images, kBack);
}

TEST_F(PagingBar, GoesNoFurtherFromAnUncountedPageThatEndsAtTheLimit) {
  Set("CountRecords", false);
  Set("RecordsMaxLimit", 40);
  Page().Ask("CurrRecord", "21");
  const auto bar = TheBar();
  EXPECT_EQ(bar.images, kBack);
  EXPECT_EQ(bar.counter, "Records (21..40) &nbsp;&nbsp;Page 2");
}

TEST_F(PagingBar, GoesToTheLastPageBeforeTheLimitAndNoFurther) {
  Page(200);
  Set("RecordsMaxLimit", 50);
  Page().Ask("CurrRecord", "21");
  EXPECT_EQ(TheBar().images, kEverywhere);
  Page().page.query.back().value = "41";
  EXPECT_EQ(TheBar().images, kBack);
}

TEST_F(PagingBar, ShowsTheWholeCountButBehindTheLastPageButtonTheLimit) {
  Page(200);
  Set("RecordsMaxLimit", 50);
  Page().Ask("CurrRecord", "41");
  EXPECT_EQ(TheBar().counter, "Records (41..50) of 200&nbsp;&nbsp;Page 3 of 10");
  Page().Ask("LAST.x", "1");
  EXPECT_EQ(TheBar().counter, "Records (41..50) of 50&nbsp;&nbsp;Page 3 of 3");
}

TEST_F(PagingBar, GoesBackOnlyFromAPageBehindTheLimit) {
  Page(200);
  Set("DisplayNavBar", "both");
  Set("RecordsMaxLimit", 50);
  Page().Ask("CurrRecord", "121");
  const auto bars = Bars();
  ASSERT_EQ(bars.size(), 2U);
  for (const auto& bar : bars) {
    EXPECT_EQ(bar.counter, "Record 0 of 200&nbsp;&nbsp;Page 7 of 10");
    EXPECT_EQ(bar.images, kBack);
  }
}

TEST_F(PagingBar, GoesBackOnlyFromAnUncountedPageBehindTheLimit) {
  Page(200);
  Set("CountRecords", false);
  Set("RecordsMaxLimit", 50);
  Page().Ask("CurrRecord", "121");
  EXPECT_EQ(TheBar().images, kBack);
}

TEST_F(PagingBar, GoesNowhereWithALimitBelowOne) {
  for (const int limit : {0, -1, std::numeric_limits<int>::min()}) {
    Restart();
    Set("DisplayNavBar", "both");
    Set("RecordsPerPage", 16);
    Set("RecordsMaxLimit", limit);
    const auto bars = Bars();
    ASSERT_EQ(bars.size(), 2U);
    for (const auto& one : bars) {
      EXPECT_EQ(one.images, kNowhere) << limit;
      EXPECT_EQ(one.counter, "Record 0 of 45&nbsp;&nbsp;Page 1 of 3") << limit;
    }
  }
}

TEST_F(PagingBar, BehindTheLastPageButtonShowsNoCountBelowZero) {
  Set("RecordsMaxLimit", -5);
  Page().Ask("LAST.x", "1");
  EXPECT_EQ(TheBar().counter, "Record 0 of 0&nbsp;&nbsp;Page 1 of 0");
  EXPECT_EQ(Page().Settings().RecordCount, 0);
}

TEST_F(PagingBar, StandsBelowASelectWhosePlacementHasBlanksAndCapitals) {
  Set("DisplayRecordsPerPageSelect", true);
  Set("DisplayNavBar", "top");
  Set("RecordsPerPageSelectPlacement", " Top ");
  const std::string body = Page().Render();
  EXPECT_LT(body.find("<select"), body.find("DRLOTableNavBar"));
}

TEST_F(PagingBar, GoesToTheLastPageAlsoWhenItHasOneRow) {
  Page(41);
  Page().Ask("CurrRecord", "21");
  EXPECT_EQ(TheBar().images, kEverywhere);
}

TEST_F(PagingBar, GoesOnAsFarAsAPresetCountSays) {
  Set("RecordCount", 65);
  Page().Ask("CurrRecord", "41");
  const auto bar = TheBar();
  EXPECT_EQ(bar.images, kEverywhere);
  EXPECT_EQ(bar.counter, "Records (41..45) of 65&nbsp;&nbsp;Page 3 of 4");
}

TEST_F(PagingBar, HasNoButtonThatAddsRecords) {
  Set("EditOptions", "ADD UPDATE");
  const std::string body = Page().Render();
  EXPECT_EQ(body.find("FormAdd", body.find("DRLOTableNavBar")), body.npos);
}

TEST_F(PagingBar, HasTheTextsOfThePagesOwnList) {
  Set("LanguageString", "n0,n1,p2,p3,r4,r5,l6,o7,f8,l9,s10,p11,never");
  Set("DisplayRecordsPerPageSelect", true);
  Page().Ask("CurrRecord", "21");
  const std::string body = Page().Render();
  for (const char* part : {"title=\"f8 p11\"", "title=\"p3 p11\"", "title=\"n1 p11\"", "title=\"l9 p11\"",
                           "> r5 (21..40) o7 45&nbsp;&nbsp;p11 2 o7 3<", "s10&nbsp;:&nbsp;<select"}) {
    EXPECT_NE(body.find(part), body.npos) << part;
  }
  EXPECT_EQ(body.find("never"), body.npos);
  EXPECT_EQ(Page().ErrorMessage(), "");
}

TEST_F(PagingBar, LeavesTheRealRowNumbersBehindWhenAPresetCountWasTooHigh) {
  Page(3);
  Set("RecordCount", 5);
  Page().Render();
  EXPECT_EQ(Page().Settings().FromRow, 1);
  EXPECT_EQ(Page().Settings().ToRow, 3);
}

}  // namespace
}  // namespace dralo::driver
