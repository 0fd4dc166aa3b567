#include "views/navigation_bar.h"

#include <gtest/gtest.h>

#include <string>

#include "unit/views/navigation_bar_page.h"

namespace dralo::tests {
namespace {

using NavigationBar = BarTest;
using NavigationButtons = BarTest;
using ListLink = BarTest;
using ExportButton = BarTest;

constexpr char kFirstOff[] = R"(<img src="../gfx/firstpgd.gif" border="0">)";
constexpr char kPreviousOff[] = R"(<img src="../gfx/prevpgd.gif" border="0">)";
constexpr char kNextOff[] = R"(<img src="../gfx/nextpgd.gif" border="0">)";
constexpr char kLastOff[] = R"(<img src="../gfx/lastpgd.gif" border="0">)";

TEST_F(NavigationBar, IsOneRowOfThreeCellsInATableOfItsOwn) {
  EXPECT_EQ(Html(),
            "<tr><th nowrap align=\"left\" class=\"DRLOTableNavBar\"colspan=4>\r\n"
            "<table width=\"100%\" cellpadding=0 cellspacing=0>\r\n"
            "<tr><td width=\"1%\" class=\"DRLOTableNavBar\"nowrap align=\"left\">"
            "<img src=\"../gfx/firstpgd.gif\" border=\"0\">"
            "<img src=\"../gfx/prevpgd.gif\" border=\"0\">"
            "<input type=\"image\" src=\"../gfx/nextpg.gif\" name=\"Morvu1NEXT\" border=\"0\" title=\"Next "
            "Page\" > "
            "<input type=\"image\" src=\"../gfx/lastpg.gif\" name=\"Morvu1LAST\" border=\"0\" title=\"Last "
            "Page\" > "
            "</td>\r\n"
            "<td width=\"1%\" class=\"DRLOTableNavBar\"nowrap align=\"left\"> "
            "Records (1..20) of 45&nbsp;&nbsp;Page 1 of 3</td>\r\n"
            "<td width=\"99%\" class=\"DRLOTableNavBar\"nowrap align=\"right\"> "
            "&nbsp;<input title=\"Excel export\" type=\"image\" name=\"Morvu1ToExcel\" border=0 "
            "src=\"../gfx/excel.gif\"></td>\r\n"
            "</tr></table></th></tr>\r\n");
}

TEST_F(NavigationBar, HasABlankInPlaceOfEachClassWithoutCss) {
  settings.UseCSS = false;
  ShowRecord(3);

  const std::string html = Html(12);

  EXPECT_TRUE(Contains(html, "<tr><th nowrap align=\"left\" colspan=12>\r\n"));
  EXPECT_TRUE(Contains(html, "<tr><td width=\"1%\" nowrap align=\"left\"><input"));
  EXPECT_TRUE(Contains(html, "</td>\r\n<td width=\"1%\" nowrap align=\"left\"> Record 3 of 45</td>\r\n"));
  EXPECT_TRUE(Contains(html, "<td width=\"99%\" nowrap align=\"right\"> <a  href=\"/p?"));
  EXPECT_FALSE(Contains(html, "class"));
}

TEST_F(NavigationBar, PutsTheSuffixBehindTheClassOfCellsAndLink) {
  class_suffix = "Top";
  ShowRecord(3);

  const std::string html = Html();

  EXPECT_TRUE(Contains(html, "<tr><th nowrap align=\"left\" class=\"DRLOTableNavBarTop\"colspan=4>"));
  EXPECT_TRUE(Contains(html,
                       "<td width=\"99%\" class=\"DRLOTableNavBarTop\"nowrap align=\"right\"> "
                       "<a class=\"DRLOTableNavBarTop\" href=\""));
  EXPECT_FALSE(Contains(html, "\"DRLOTableNavBar\""));
}

TEST_F(NavigationButtons, GoBackFromEveryPageButTheFirst) {
  EXPECT_TRUE(Buttons().starts_with(std::string(kFirstOff) + kPreviousOff));

  ShowRows(21, 40);
  EXPECT_EQ(
      Buttons(),
      R"(<input type="image" src="../gfx/firstpg.gif" name="Morvu1FIRST" border="0" title="First Page" > )"
      R"(<input type="image" src="../gfx/prevpg.gif" name="Morvu1PREV" border="0" title="Previous Page" > )"
      R"(<input type="image" src="../gfx/nextpg.gif" name="Morvu1NEXT" border="0" title="Next Page" > )"
      R"(<input type="image" src="../gfx/lastpg.gif" name="Morvu1LAST" border="0" title="Last Page" > )");
}

TEST_F(NavigationButtons, GoBackFromAPageThatStartsInTheMiddleOfTheFirst) {
  ShowRows(2, 21);

  EXPECT_FALSE(Contains(Buttons(), "firstpgd.gif"));
  EXPECT_FALSE(Contains(Buttons(), "prevpgd.gif"));
}

TEST_F(NavigationButtons, GoNoFurtherFromTheLastPage) {
  ShowRows(41, 45);
  outcome.is_last_page = true;

  EXPECT_TRUE(Buttons().ends_with(std::string(kNextOff) + kLastOff));
}

TEST_F(NavigationButtons, GoToTheLastPageOnlyWhenItStartsBehindThisOne) {
  ShowRows(21, 40);
  for (const std::int32_t record : {-1, 0, 1, 20, 21, 22, 41}) {
    last_record = record;

    EXPECT_EQ(Contains(Buttons(), kLastOff), record <= 21) << record;
    EXPECT_EQ(Contains(Buttons(), "Morvu1LAST"), record > 21) << record;
    EXPECT_TRUE(Contains(Buttons(), "Morvu1NEXT"));
  }
}

TEST_F(NavigationButtons, NeverGoToTheLastPageWhenThePageForbidsIt) {
  settings.DisableNavBarLastPageBtn = true;
  for (const std::int32_t from : {1, 21, 41}) {
    ShowRows(from, from + 4);

    EXPECT_TRUE(Buttons().ends_with(kLastOff)) << from;
  }
}

TEST_F(NavigationButtons, AreOnlyTwoWithoutTheOnesForFirstAndLast) {
  settings.DisplayNavBarFirstLastBtn = false;
  settings.DisableNavBarLastPageBtn = true;
  ShowRows(21, 40);

  EXPECT_EQ(
      Buttons(),
      R"(<input type="image" src="../gfx/prevpg.gif" name="Morvu1PREV" border="0" title="Previous Page" > )"
      R"(<input type="image" src="../gfx/nextpg.gif" name="Morvu1NEXT" border="0" title="Next Page" > )");
}

TEST_F(NavigationButtons, BearTheTagOfTheirView) {
  settings.Tag = "2";

  EXPECT_TRUE(Contains(Html(), R"(name="Morvu2NEXT")"));
  EXPECT_TRUE(Contains(Html(), R"(name="Morvu2ToExcel")"));
  EXPECT_FALSE(Contains(Html(), "Morvu1"));
}

TEST_F(NavigationButtons, TakeTheirImagesFromTheFolderOfThePage) {
  settings.ImageDir = "/img/";

  EXPECT_TRUE(Contains(Html(), R"(src="/img/nextpg.gif")"));
  EXPECT_TRUE(Contains(Html(), R"(<img src="/img/prevpgd.gif" border="0">)"));
  EXPECT_TRUE(Contains(Html(), R"(border=0 src="/img/excel.gif">)"));
  EXPECT_FALSE(Contains(Html(), "../gfx/"));
}

TEST_F(NavigationButtons, SpeakOfPagesInTheGridAndOfRecordsWhereOneIsShownInTheirGrammaticalForms) {
  settings.language_tables = settings::BuiltInTables("GER");
  ShowRows(21, 40);
  for (const char* title : {"Erste Seite", "Vorherige Seite", "Nächste Seite", "Letzter Seite"}) {
    EXPECT_TRUE(Contains(Buttons(), std::string("title=\"") + title + "\"")) << title;
  }

  ShowRecord(3);
  for (const char* title :
       {"Erste Datensatz", "Vorheriger Datensatz", "Nächster Datensatz", "Letzter Datensatz"}) {
    EXPECT_TRUE(Contains(Buttons(), std::string("title=\"") + title + "\"")) << title;
  }
}

TEST_F(NavigationButtons, SpeakOfRecordsInAGridOfOneRow) {
  settings.RecordsPerPage = 1;
  ShowRows(3, 3);
  EXPECT_TRUE(Contains(Buttons(), R"(title="Next Record")"));

  settings.RecordsPerPage = 2;
  EXPECT_TRUE(Contains(Buttons(), R"(title="Next Page")"));
}

TEST_F(NavigationButtons, SpeakOfRecordsInAFormViewOfSeveralRecords) {
  mode = state::Mode::kFormView;
  records_on_page = 3;
  settings.RecordsPerPage = 3;
  ShowRows(4, 6);

  EXPECT_TRUE(Contains(Buttons(), R"(title="Previous Record")"));
}

TEST_F(ListLink, LeadsFromTheOneRecordViewToTheGridAtThatRecord) {
  settings.DisplayExcelIcon = false;
  ShowRecord(27);

  EXPECT_EQ(
      RightHand(),
      "<a class=\"DRLOTableNavBar\" href=\"/p?Morvu1CurrRecord=27&Morvu1CountRecords=on&Morvu1maxrecords=20"
      "&Morvu1OrderByFields=\">List</a>");
}

TEST_F(ListLink, KeepsTheSortOrder) {
  settings.OrderByFields = "2";
  settings.OrderByDesc = true;
  ShowRecord(27);

  EXPECT_TRUE(Contains(RightHand(), "&Morvu1OrderByFields=2&Morvu1OrderByDesc=True\">List</a>&nbsp;<input"));
}

TEST_F(ListLink, StandsInAFormViewOfSeveralRecordsToo) {
  mode = state::Mode::kFormView;
  records_on_page = 3;

  EXPECT_TRUE(Contains(RightHand(), ">List</a>"));
}

TEST_F(ListLink, DoesNotStandInTheGrid) { EXPECT_FALSE(Contains(Html(), "<a")); }

TEST_F(ExportButton, StandsWhenThePageWantsIt) {
  EXPECT_EQ(RightHand(),
            "&nbsp;<input title=\"Excel export\" type=\"image\" name=\"Morvu1ToExcel\" border=0 "
            "src=\"../gfx/excel.gif\">");

  settings.DisplayExcelIcon = false;
  EXPECT_EQ(RightHand(), "");
}

}  // namespace
}  // namespace dralo::tests
