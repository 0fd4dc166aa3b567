#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/items.h"
#include "support/shown_view.h"
#include "unit/driver/bar_images.h"

namespace dralo::driver {
namespace {

using tests::ShownView;

/// Over 45 items, with the bar at the top, which says what stands below before it is written.
struct FormView : testing::Test, tests::ItemsPage {
  FormView() : ItemsPage(45) { Set("DisplayNavBar", "top"); }

  /// As a link in the grid leads to it.
  void OpenFromGrid() { Ask("FormDisplay", "formOneRec"); }

  void Show() { shown = tests::ReadView(body = Render(), "1"); }

  std::string Posted(const std::string& key) const {
    for (const ShownView::Control& control : shown.controls) {
      if (control.name == "Morvu1" + key && control.kind != ShownView::Control::Kind::kImage)
        return control.value;
    }
    return "(nothing)";
  }

  std::string body;
  ShownView shown;
};

struct Step {
  const char* button;
  const char* from;
  const char* to;
};

class PagingInTheFormView : public FormView, public ::testing::WithParamInterface<Step> {};

TEST_P(PagingInTheFormView, MovesByOneRecordWhateverThePageSizeOfTheGrid) {
  OpenFromGrid();
  Ask("CurrRecord", GetParam().from);
  Ask(GetParam().button, "1");
  Show();
  EXPECT_EQ(Posted("CurrRecord"), GetParam().to);
  EXPECT_EQ(Posted("maxrecords"), "20");
  EXPECT_EQ(shown.bars.at(0).counter, std::string("Record ") + GetParam().to + " of 45");
}

TEST_P(PagingInTheFormView, MovesByOneRecordWithSeveralOnAPage) {
  Set("DisplayType", "form");
  Set("RecordsPerPage", 3);
  Ask("CurrRecord", GetParam().from);
  Ask(GetParam().button, "1");
  Show();
  EXPECT_EQ(Posted("CurrRecord"), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(Buttons, PagingInTheFormView,
                         ::testing::Values(Step{"NEXT.x", "21", "22"}, Step{"PREV.x", "21", "20"},
                                           Step{"PREV.x", "1", "1"}, Step{"FIRST.x", "21", "1"},
                                           Step{"LAST.x", "21", "45"}, Step{"NEXT.x", "45", "45"}));

struct Place {
  const char* name;
  tests::Script script;
  tests::Asked asked;
  const char* record;
  const char* counter;
  Images images;
};

class PlaceInTheFormView : public FormView, public testing::WithParamInterface<Place> {};

TEST_P(PlaceInTheFormView, IsThatOfTheRecord) {
  Set(GetParam().script);
  Ask(GetParam().asked);
  Show();
  EXPECT_EQ(Posted("CurrRecord"), GetParam().record);
  EXPECT_EQ(shown.bars.at(0).counter, GetParam().counter);
  EXPECT_EQ(shown.bars.at(0).images, GetParam().images);
}

const std::pair<std::string_view, std::string_view> kFromGrid = {"FormDisplay", "formOneRec"};
const tests::Script kThreeRecords = {{"DisplayType", "form"}, {"RecordsPerPage", 3}};
const tests::Script kUncounted = {{"CountRecords", false}, {"DisplayNavBar", "bottom"}};

// clang-format off
const Place kPlaces[] = {
    {"OfSeveralRecords", kThreeRecords, {{"CurrRecord", "4"}}, "4", "Records (4..6) of 45", kEverywhere},
    {"OfTheLastOfSeveralWhichIsShownAlone", kThreeRecords, {{"LAST.x", "1"}}, "45", "Record 45 of 45", kBack},
    {"OfTheBookmark", {}, {kFromGrid, {"CurrRecord", "21"}, {"BookMark", "27"}},
     "27", "Record 27 of 45", kEverywhere},
    {"OfTheFirstForABookmarkBelowIt", {}, {kFromGrid, {"CurrRecord", "21"}, {"BookMark", "-2147483648"}},
     "1", "Record 1 of 45", kForward},
    {"OfTheFirstUncountedForABookmarkBelowIt", kUncounted, {kFromGrid, {"BookMark", "-7"}},
     "1", "Record 1", kNextOnly},
    {"OfTheLastForABookmarkBehindIt", {}, {kFromGrid, {"BookMark", "2147483647"}},
     "45", "Record 45 of 45", kBack},
    {"OfTheFirst", {}, {kFromGrid}, "1", "Record 1 of 45", kForward},
    {"BeforeTheLast", {}, {kFromGrid, {"CurrRecord", "44"}}, "44", "Record 44 of 45", kEverywhere},
    {"OfTheLast", {}, {kFromGrid, {"CurrRecord", "45"}}, "45", "Record 45 of 45", kBack},
    {"BeforeTheLimit", {{"RecordsMaxLimit", 30}}, {kFromGrid, {"CurrRecord", "29"}},
     "29", "Record 29 of 45", kEverywhere},
    {"AtTheLimit", {{"RecordsMaxLimit", 30}}, {kFromGrid, {"CurrRecord", "30"}},
     "30", "Record 30 of 45", kBack},
    {"OfTheLastBeforeALimitIsAtTheLimit", {{"RecordsMaxLimit", 30}}, {kFromGrid, {"LAST.x", "1"}},
     "30", "Record 30 of 30", kBack},
    {"OfTheLastUncountedIsCountedFirst", kUncounted, {kFromGrid, {"LAST.x", "1"}},
     "45", "Record 45 of 45", kBack},
    {"BeforeTheLastUncounted", kUncounted, {kFromGrid, {"CurrRecord", "44"}},
     "44", "Record 44", kAnywhereButToTheLast},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Records, PlaceInTheFormView, testing::ValuesIn(kPlaces),
                         [](const auto& place) { return std::string(place.param.name); });

TEST_F(FormView, HasNoBarAtTheTopWhileTheCountIsUnknown) {
  OpenFromGrid();
  Set("CountRecords", false);
  Ask("CurrRecord", "44");
  Show();
  EXPECT_EQ(shown.bars.size(), 0U);
  EXPECT_EQ(Posted("CurrRecord"), "44");
}

TEST_F(FormView, KeepsTheRequestedDisplayAsItWasPosted) {
  Ask("FormDisplay", " formonerec ");
  Show();
  EXPECT_EQ(Posted("FormDisplay"), "formonerec");
}

TEST_F(FormView, IsLeftWhenTheNextRequestDoesNotAskForIt) {
  OpenFromGrid();
  Show();
  page.query.clear();
  Show();
  EXPECT_EQ(Posted("FormDisplay"), "");
  EXPECT_EQ(shown.rows.size(), 20U);
}

TEST_F(FormView, HasAListLinkBackToTheGridAtItsRecord) {
  OpenFromGrid();
  Ask("CurrRecord", "27");
  Show();
  EXPECT_NE(body.find("<a class=\"DRLOTableNavBar\" href=\"/p?Morvu1CurrRecord=27&Morvu1CountRecords=on"
                      "&Morvu1maxrecords=20&Morvu1OrderByFields=\">List</a>"),
            body.npos);
}

TEST_F(FormView, HasATableOfItsOwn) {
  Set("EditOptions", "ADD");
  OpenFromGrid();
  Show();
  EXPECT_NE(body.find("<tr><td width=\"100%\" class=\"DRLOTableHeader\"><tr><th nowrap"), body.npos);
  EXPECT_NE(body.find("</td></tr>\r\n<tr><td valign=top align=left>\r\n<table width=\"100%\" border=\"0\" "
                      "cellpadding=\"0\" cellspacing=\"0\" class=\"DRLOTableFormOuter\" >\r\n"),
            body.npos);
  EXPECT_EQ(body.find("onclick=\"window.location="), body.npos);

  Set("UseCSS", false);
  Show();
  EXPECT_NE(body.find("<table width=\"100%\" border=\"0\" cellpadding=\"0\" cellspacing=\"0\">\r\n"),
            body.npos);
}

TEST_F(FormView, HasASelectOnlyWithSeveralRecordsOnAPage) {
  Set("DisplayRecordsPerPageSelect", true);
  OpenFromGrid();
  for (const char* placement : {"top", "bottom"}) {
    Set("RecordsPerPageSelectPlacement", placement);
    Set("DisplayType", "default");
    Set("RecordsPerPage", 20);
    Show();
    EXPECT_EQ(body.find("<select"), body.npos) << placement;
    EXPECT_EQ(Posted("maxrecords"), "20") << placement;

    Set("DisplayType", "form");
    Set("RecordsPerPage", 5);
    Show();
    EXPECT_NE(body.find("<select"), body.npos) << placement;
    EXPECT_EQ(body.find("type=\"hidden\" name=\"Morvu1maxrecords\""), body.npos) << placement;
    EXPECT_EQ(Posted("maxrecords"), "5") << placement;
  }
}

}  // namespace
}  // namespace dralo::driver
