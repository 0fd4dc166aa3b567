#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "settings/setters.h"
#include "support/items.h"
#include "support/shown_view.h"
#include "unit/driver/bar_images.h"

namespace dralo::driver {
namespace {

struct Words {
  const char* text;
  bool top;
  bool bottom;
};

class NavigationBarWords : public ::testing::TestWithParam<Words> {};

TEST_P(NavigationBarWords, ChooseThePlacesOfTheBar) {
  settings::Settings settings;
  settings::SetDisplayNavBar(settings, GetParam().text);
  EXPECT_EQ(settings.bar.top, GetParam().top);
  EXPECT_EQ(settings.bar.bottom, GetParam().bottom);
}

INSTANTIATE_TEST_SUITE_P(Values, NavigationBarWords,
                         ::testing::Values(Words{"top", true, false}, Words{"BOTTOM", false, true},
                                           Words{"Both", true, true}, Words{"top bottom", true, true},
                                           Words{"none", false, false}, Words{"None both", false, false},
                                           Words{"nonetop", false, false}, Words{"", false, false},
                                           Words{"left", false, false}));

struct BarCase {
  const char* name;
  int rows;
  tests::Script script;
  tests::Asked asked;
  std::size_t bars;
  Images images;
  const char* counter;
};

/// The bars of a grid, which all say the same.
class PagingBar : public testing::TestWithParam<BarCase> {};

TEST_P(PagingBar, SaysWhereThePageStandsAndGoesNoFurtherThanTheRecords) {
  tests::ItemsPage page(GetParam().rows);
  page.Set(GetParam().script);
  page.Ask(GetParam().asked);
  const auto bars = tests::ReadView(page.Render(), "1").bars;
  EXPECT_EQ(bars.size(), GetParam().bars);
  for (const auto& bar : bars) {
    EXPECT_EQ(bar.images, GetParam().images);
    EXPECT_EQ(bar.counter, GetParam().counter);
  }
}

constexpr int kLowest = std::numeric_limits<int>::min();

// clang-format off
const BarCase kBars[] = {
    {"AtTheTopAsAtTheBottom", 45, {{"DisplayNavBar", "both"}}, {{"CurrRecord", "41"}}, 2,
     kBack, "Records (41..45) of 45&nbsp;&nbsp;Page 3 of 3"},
    {"NotAtTheTopWhileTheCountIsUnknown", 45, {{"DisplayNavBar", "both"}, {"CountRecords", false}}, {}, 1,
     kNextOnly, "Records (1..20) &nbsp;&nbsp;Page 1"},
    {"NowhereFromAnEmptyResult", 0, {{"DisplayNavBar", "both"}}, {}, 2,
     kNowhere, "Record 0 of 0&nbsp;&nbsp;Page 1 of 0"},
    {"OnBehindAnUncountedPageWhileThereIsARecord", 41, {{"CountRecords", false}}, {{"CurrRecord", "21"}}, 1,
     kAnywhereButToTheLast, "Records (21..40) &nbsp;&nbsp;Page 2"},
    {"NoFurtherFromAnUncountedPageThatEndsWithTheResult", 40, {{"CountRecords", false}},
     {{"CurrRecord", "21"}}, 1, kBack, "Records (21..40) &nbsp;&nbsp;Page 2"},
    {"NoFurtherFromAnUncountedPageThatEndsAtTheLimit", 45,
     {{"CountRecords", false}, {"RecordsMaxLimit", 40}}, {{"CurrRecord", "21"}}, 1,
     kBack, "Records (21..40) &nbsp;&nbsp;Page 2"},
    {"ToTheLastPageBeforeTheLimit", 200, {{"RecordsMaxLimit", 50}}, {{"CurrRecord", "21"}}, 1,
     kEverywhere, "Records (21..40) of 200&nbsp;&nbsp;Page 2 of 10"},
    {"NoFurtherThanTheLimitButWithTheWholeCount", 200, {{"RecordsMaxLimit", 50}}, {{"CurrRecord", "41"}}, 1,
     kBack, "Records (41..50) of 200&nbsp;&nbsp;Page 3 of 10"},
    {"BehindTheLastPageButtonWithTheLimit", 200, {{"RecordsMaxLimit", 50}},
     {{"CurrRecord", "41"}, {"LAST.x", "1"}}, 1,
     kBack, "Records (41..50) of 50&nbsp;&nbsp;Page 3 of 3"},
    {"BackOnlyFromAPageBehindTheLimit", 200, {{"DisplayNavBar", "both"}, {"RecordsMaxLimit", 50}},
     {{"CurrRecord", "121"}}, 2, kBack, "Record 0 of 200&nbsp;&nbsp;Page 7 of 10"},
    {"BackOnlyFromAnUncountedPageBehindTheLimit", 200, {{"CountRecords", false}, {"RecordsMaxLimit", 50}},
     {{"CurrRecord", "121"}}, 1, kBack, "Record 0&nbsp;&nbsp;Page 7"},
    {"NowhereWithALimitOfZero", 45,
     {{"DisplayNavBar", "both"}, {"RecordsPerPage", 16}, {"RecordsMaxLimit", 0}}, {}, 2,
     kNowhere, "Record 0 of 45&nbsp;&nbsp;Page 1 of 3"},
    {"NowhereWithALimitBelowZero", 45,
     {{"DisplayNavBar", "both"}, {"RecordsPerPage", 16}, {"RecordsMaxLimit", -1}}, {}, 2,
     kNowhere, "Record 0 of 45&nbsp;&nbsp;Page 1 of 3"},
    {"NowhereWithTheLowestLimit", 45,
     {{"DisplayNavBar", "both"}, {"RecordsPerPage", 16}, {"RecordsMaxLimit", kLowest}}, {}, 2,
     kNowhere, "Record 0 of 45&nbsp;&nbsp;Page 1 of 3"},
    {"ToTheLastPageAlsoWhenItHasOneRow", 41, {}, {{"CurrRecord", "21"}}, 1,
     kEverywhere, "Records (21..40) of 41&nbsp;&nbsp;Page 2 of 3"},
    {"OnAsFarAsAPresetCountSays", 45, {{"RecordCount", 65}}, {{"CurrRecord", "41"}}, 1,
     kEverywhere, "Records (41..45) of 65&nbsp;&nbsp;Page 3 of 4"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Grids, PagingBar, testing::ValuesIn(kBars),
                         [](const auto& grid) { return std::string(grid.param.name); });

TEST(LastPageButton, ShowsNoCountBelowZero) {
  tests::ItemsPage page(45);
  page.Set("RecordsMaxLimit", -5);
  page.Ask("LAST.x", "1");
  EXPECT_EQ(tests::ReadView(page.Render(), "1").bars.at(0).counter, "Record 0 of 0&nbsp;&nbsp;Page 1 of 0");
  EXPECT_EQ(page.Settings().RecordCount, 0);
}

struct PageOfABar : testing::Test, tests::ItemsPage {
  PageOfABar() : ItemsPage(45) {}
};

TEST_F(PageOfABar, HasItBelowASelectWhosePlacementHasBlanksAndCapitals) {
  Set("DisplayRecordsPerPageSelect", true);
  Set("DisplayNavBar", "top");
  Set("RecordsPerPageSelectPlacement", " Top ");
  const std::string body = Render();
  EXPECT_LT(body.find("<select"), body.find("DRLOTableNavBar"));
}

TEST_F(PageOfABar, HasNoButtonInItThatAddsRecords) {
  Set("EditOptions", "ADD UPDATE");
  const std::string body = Render();
  EXPECT_EQ(body.find("FormAdd", body.find("DRLOTableNavBar")), body.npos);
}

TEST_F(PageOfABar, HasTheTextsOfItsOwnList) {
  Set("LanguageString", "n0,n1,p2,p3,r4,r5,l6,o7,f8,l9,s10,p11,never");
  Set("DisplayRecordsPerPageSelect", true);
  Ask("CurrRecord", "21");
  const std::string body = Render();
  for (const char* part : {"title=\"f8 p11\"", "title=\"p3 p11\"", "title=\"n1 p11\"", "title=\"l9 p11\"",
                           "> r5 (21..40) o7 45&nbsp;&nbsp;p11 2 o7 3<", "s10&nbsp;:&nbsp;<select"}) {
    EXPECT_NE(body.find(part), body.npos) << part;
  }
  EXPECT_EQ(body.find("never"), body.npos);
  EXPECT_EQ(ErrorMessage(), "");
}

TEST(PresetCount, ThatIsTooHighLeavesTheRealRowNumbersBehind) {
  tests::ItemsPage page(3);
  page.Set("RecordCount", 5);
  page.Render();
  EXPECT_EQ(page.Settings().FromRow, 1);
  EXPECT_EQ(page.Settings().ToRow, 3);
}

}  // namespace
}  // namespace dralo::driver
