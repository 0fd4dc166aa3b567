#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/items.h"
#include "support/shown_view.h"

namespace dralo::driver {
namespace {

using tests::ShownView;
using Images = std::vector<std::string>;

/// Over 45 items, with the bar at the top, which says what stands below before it is written.
struct FormView : ::testing::Test {
  tests::ItemsPage page{45};
  FormView() { Set("DisplayNavBar", "top"); }

  void Set(std::string_view name, const char* text) { page.view.Set(name, std::string(text)); }
  void Set(std::string_view name, bool flag) { page.view.Set(name, flag); }
  void Set(std::string_view name, int number) { page.view.Set(name, std::int64_t{number}); }

  /// As a link in the grid leads to it.
  void OpenFromGrid() { page.Ask("FormDisplay", "formOneRec"); }

  void Show() { shown = tests::ReadView(body = page.Render(), "1"); }

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
  page.Ask("CurrRecord", GetParam().from);
  page.Ask(GetParam().button, "1");
  Show();
  EXPECT_EQ(Posted("CurrRecord"), GetParam().to);
  EXPECT_EQ(Posted("maxrecords"), "20");
  EXPECT_EQ(shown.bars.at(0).counter, std::string("Record ") + GetParam().to + " of 45");
}

TEST_P(PagingInTheFormView, MovesByOneRecordWithSeveralOnAPage) {
  Set("DisplayType", "form");
  Set("RecordsPerPage", 3);
  page.Ask("CurrRecord", GetParam().from);
  page.Ask(GetParam().button, "1");
  Show();
  EXPECT_EQ(Posted("CurrRecord"), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(Buttons, PagingInTheFormView,
                         ::testing::Values(Step{"NEXT.x", "21", "22"}, Step{"PREV.x", "21", "20"},
                                           Step{"PREV.x", "1", "1"}, Step{"FIRST.x", "21", "1"},
                                           Step{"LAST.x", "21", "45"}, Step{"NEXT.x", "45", "45"}));

TEST_F(FormView, OfSeveralRecordsCountsThemInTheBar) {
  Set("DisplayType", "form");
  Set("RecordsPerPage", 3);
  page.Ask("CurrRecord", "4");
  Show();
  EXPECT_EQ(shown.bars.at(0).counter, "Records (4..6) of 45");
}

TEST_F(FormView, OfTheLastOfSeveralRecordsShowsThatOneAlone) {
  Set("DisplayType", "form");
  Set("RecordsPerPage", 3);
  page.Ask("LAST.x", "1");
  Show();
  EXPECT_EQ(shown.bars.at(0).counter, "Record 45 of 45");
}

TEST_F(FormView, ShowsTheRecordOfTheBookmark) {
  OpenFromGrid();
  page.Ask("CurrRecord", "21");
  page.Ask("BookMark", "27");
  Show();
  EXPECT_EQ(Posted("CurrRecord"), "27");
  EXPECT_EQ(shown.bars.at(0).counter, "Record 27 of 45");
}

TEST_F(FormView, ShowsTheFirstRecordForABookmarkBelowIt) {
  OpenFromGrid();
  page.Ask("CurrRecord", "21");
  page.Ask("BookMark", "-2147483648");
  Show();
  EXPECT_EQ(Posted("CurrRecord"), "1");
}

TEST_F(FormView, ShowsTheFirstOfUncountedRecordsForABookmarkBelowIt) {
  Set("CountRecords", false);
  OpenFromGrid();
  page.Ask("BookMark", "-7");
  Show();
  EXPECT_EQ(Posted("CurrRecord"), "1");
}

TEST_F(FormView, ShowsTheLastRecordForABookmarkBehindIt) {
  OpenFromGrid();
  page.Ask("BookMark", "2147483647");
  Show();
  EXPECT_EQ(Posted("CurrRecord"), "45");
}

TEST_F(FormView, GoesToEveryRecordButTheOnesAtTheEnds) {
  OpenFromGrid();
  Show();
  EXPECT_EQ(shown.bars.at(0).images, (Images{"firstpgd.gif", "prevpgd.gif", "nextpg.gif", "lastpg.gif"}));

  page.Ask("CurrRecord", "44");
  Show();
  EXPECT_EQ(shown.bars.at(0).images, (Images{"firstpg.gif", "prevpg.gif", "nextpg.gif", "lastpg.gif"}));

  page.page.query.back().value = "45";
  Show();
  EXPECT_EQ(shown.bars.at(0).images, (Images{"firstpg.gif", "prevpg.gif", "nextpgd.gif", "lastpgd.gif"}));
}

TEST_F(FormView, GoesNoFurtherThanTheRecordLimit) {
  Set("RecordsMaxLimit", 30);
  OpenFromGrid();
  page.Ask("CurrRecord", "29");
  Show();
  EXPECT_EQ(shown.bars.at(0).images, (Images{"firstpg.gif", "prevpg.gif", "nextpg.gif", "lastpg.gif"}));
  EXPECT_EQ(shown.bars.at(0).counter, "Record 29 of 45");

  page.page.query.back().value = "30";
  Show();
  EXPECT_EQ(shown.bars.at(0).images, (Images{"firstpg.gif", "prevpg.gif", "nextpgd.gif", "lastpgd.gif"}));
}

TEST_F(FormView, OfTheLastRecordBehindALimitIsTheOneAtTheLimit) {
  Set("RecordsMaxLimit", 30);
  OpenFromGrid();
  page.Ask("LAST.x", "1");
  Show();
  EXPECT_EQ(Posted("CurrRecord"), "30");
  EXPECT_EQ(shown.bars.at(0).counter, "Record 30 of 30");
}

TEST_F(FormView, OfTheLastOfUncountedRecordsCountsThemFirst) {
  Set("CountRecords", false);
  OpenFromGrid();
  page.Ask("LAST.x", "1");
  Show();
  EXPECT_EQ(Posted("CurrRecord"), "45");
}

TEST_F(FormView, GoesOnBehindAnUncountedRecordThatIsNotTheLast) {
  Set("CountRecords", false);
  Set("DisplayNavBar", "bottom");
  OpenFromGrid();
  page.Ask("CurrRecord", "44");
  Show();
  EXPECT_EQ(shown.bars.at(0).images, (Images{"firstpg.gif", "prevpg.gif", "nextpg.gif", "lastpgd.gif"}));
}

TEST_F(FormView, KeepsTheRequestedDisplayAsItWasPosted) {
  page.Ask("FormDisplay", " formonerec ");
  Show();
  EXPECT_EQ(Posted("FormDisplay"), "formonerec");
}

TEST_F(FormView, IsLeftWhenTheNextRequestDoesNotAskForIt) {
  OpenFromGrid();
  Show();
  page.page.query.clear();
  Show();
  EXPECT_EQ(Posted("FormDisplay"), "");
  EXPECT_EQ(shown.rows.size(), 20U);
}

TEST_F(FormView, HasAListLinkBackToTheGridAtItsRecord) {
  OpenFromGrid();
  page.Ask("CurrRecord", "27");
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
