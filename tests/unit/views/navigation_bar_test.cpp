#include "views/navigation_bar.h"

#include <gtest/gtest.h>

#include <string>

#include "unit/views/navigation_bar_page.h"

namespace dralo::views {
namespace {

constexpr char kFirstOff[] = R"(<img src="../gfx/firstpgd.gif" border="0">)";
constexpr char kPreviousOff[] = R"(<img src="../gfx/prevpgd.gif" border="0">)";
constexpr char kNextOff[] = R"(<img src="../gfx/nextpgd.gif" border="0">)";
constexpr char kLastOff[] = R"(<img src="../gfx/lastpgd.gif" border="0">)";

TEST(NavigationBar, IsOneRowOfThreeCellsInATableOfItsOwn) {
  Bar bar;

  EXPECT_EQ(bar.Html(),
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

TEST(NavigationBar, HasABlankInPlaceOfEachClassWithoutCss) {
  Bar bar;
  bar.settings.UseCSS = false;
  bar.ShowRecord(3);

  const std::string html = bar.Html(12);

  EXPECT_TRUE(tests::Contains(html, "<tr><th nowrap align=\"left\" colspan=12>\r\n"));
  EXPECT_TRUE(tests::Contains(html, "<tr><td width=\"1%\" nowrap align=\"left\"><input"));
  EXPECT_TRUE(
      tests::Contains(html, "</td>\r\n<td width=\"1%\" nowrap align=\"left\"> Record 3 of 45</td>\r\n"));
  EXPECT_TRUE(tests::Contains(html, "<td width=\"99%\" nowrap align=\"right\"> <a  href=\"/p?"));
  EXPECT_FALSE(tests::Contains(html, "class"));
}

TEST(NavigationBar, PutsTheSuffixBehindTheClassOfCellsAndLink) {
  Bar bar;
  bar.class_suffix = "Top";
  bar.ShowRecord(3);

  const std::string html = bar.Html();

  EXPECT_TRUE(tests::Contains(html, "<tr><th nowrap align=\"left\" class=\"DRLOTableNavBarTop\"colspan=4>"));
  EXPECT_TRUE(tests::Contains(html,
                              "<td width=\"99%\" class=\"DRLOTableNavBarTop\"nowrap align=\"right\"> "
                              "<a class=\"DRLOTableNavBarTop\" href=\""));
  EXPECT_FALSE(tests::Contains(html, "\"DRLOTableNavBar\""));
}

TEST(NavigationButtons, GoBackFromEveryPageButTheFirst) {
  Bar bar;
  EXPECT_TRUE(bar.Buttons().starts_with(std::string(kFirstOff) + kPreviousOff));

  bar.ShowRows(21, 40);
  EXPECT_EQ(
      bar.Buttons(),
      R"(<input type="image" src="../gfx/firstpg.gif" name="Morvu1FIRST" border="0" title="First Page" > )"
      R"(<input type="image" src="../gfx/prevpg.gif" name="Morvu1PREV" border="0" title="Previous Page" > )"
      R"(<input type="image" src="../gfx/nextpg.gif" name="Morvu1NEXT" border="0" title="Next Page" > )"
      R"(<input type="image" src="../gfx/lastpg.gif" name="Morvu1LAST" border="0" title="Last Page" > )");
}

TEST(NavigationButtons, GoBackFromAPageThatStartsInTheMiddleOfTheFirst) {
  Bar bar;
  bar.ShowRows(2, 21);

  EXPECT_FALSE(tests::Contains(bar.Buttons(), "firstpgd.gif"));
  EXPECT_FALSE(tests::Contains(bar.Buttons(), "prevpgd.gif"));
}

TEST(NavigationButtons, GoNoFurtherFromTheLastPage) {
  Bar bar;
  bar.ShowRows(41, 45);
  bar.outcome.is_last_page = true;

  EXPECT_TRUE(bar.Buttons().ends_with(std::string(kNextOff) + kLastOff));
}

TEST(NavigationButtons, GoToTheLastPageOnlyWhenItStartsBehindThisOne) {
  for (const std::int32_t last_record : {-1, 0, 1, 20, 21, 22, 41}) {
    Bar bar;
    bar.ShowRows(21, 40);
    bar.last_record = last_record;

    EXPECT_EQ(tests::Contains(bar.Buttons(), kLastOff), last_record <= 21) << last_record;
    EXPECT_EQ(tests::Contains(bar.Buttons(), "Morvu1LAST"), last_record > 21) << last_record;
    EXPECT_TRUE(tests::Contains(bar.Buttons(), "Morvu1NEXT"));
  }
}

TEST(NavigationButtons, NeverGoToTheLastPageWhenThePageForbidsIt) {
  for (const std::int32_t from : {1, 21, 41}) {
    Bar bar;
    bar.settings.DisableNavBarLastPageBtn = true;
    bar.ShowRows(from, from + 4);

    EXPECT_TRUE(bar.Buttons().ends_with(kLastOff)) << from;
  }
}

TEST(NavigationButtons, AreOnlyTwoWithoutTheOnesForFirstAndLast) {
  Bar bar;
  bar.settings.DisplayNavBarFirstLastBtn = false;
  bar.settings.DisableNavBarLastPageBtn = true;
  bar.ShowRows(21, 40);

  EXPECT_EQ(
      bar.Buttons(),
      R"(<input type="image" src="../gfx/prevpg.gif" name="Morvu1PREV" border="0" title="Previous Page" > )"
      R"(<input type="image" src="../gfx/nextpg.gif" name="Morvu1NEXT" border="0" title="Next Page" > )");
}

TEST(NavigationButtons, BearTheTagOfTheirView) {
  Bar bar;
  bar.settings.Tag = "2";

  EXPECT_TRUE(tests::Contains(bar.Html(), R"(name="Morvu2NEXT")"));
  EXPECT_TRUE(tests::Contains(bar.Html(), R"(name="Morvu2ToExcel")"));
  EXPECT_FALSE(tests::Contains(bar.Html(), "Morvu1"));
}

TEST(NavigationButtons, TakeTheirImagesFromTheFolderOfThePage) {
  Bar bar;
  bar.settings.ImageDir = "/img/";

  EXPECT_TRUE(tests::Contains(bar.Html(), R"(src="/img/nextpg.gif")"));
  EXPECT_TRUE(tests::Contains(bar.Html(), R"(<img src="/img/prevpgd.gif" border="0">)"));
  EXPECT_TRUE(tests::Contains(bar.Html(), R"(border=0 src="/img/excel.gif">)"));
  EXPECT_FALSE(tests::Contains(bar.Html(), "../gfx/"));
}

TEST(NavigationButtons, SpeakOfRecordsWhereOneIsShownAtATime) {
  Bar bar;
  bar.settings.language_tables = settings::BuiltInTables("GER");
  bar.ShowRecord(3);

  for (const char* title :
       {"Erste Datensatz", "Vorheriger Datensatz", "Nächster Datensatz", "Letzter Datensatz"}) {
    EXPECT_TRUE(tests::Contains(bar.Buttons(), std::string("title=\"") + title + "\"")) << title;
  }
}

TEST(NavigationButtons, SpeakOfPagesInTheGridWithTheOtherGrammaticalForm) {
  Bar bar;
  bar.settings.language_tables = settings::BuiltInTables("GER");
  bar.ShowRows(21, 40);

  for (const char* title : {"Erste Seite", "Vorherige Seite", "Nächste Seite", "Letzter Seite"}) {
    EXPECT_TRUE(tests::Contains(bar.Buttons(), std::string("title=\"") + title + "\"")) << title;
  }
}

TEST(NavigationButtons, SpeakOfRecordsInAGridOfOneRow) {
  Bar bar;
  bar.settings.RecordsPerPage = 1;
  bar.ShowRows(3, 3);
  EXPECT_TRUE(tests::Contains(bar.Buttons(), R"(title="Next Record")"));

  bar.settings.RecordsPerPage = 2;
  EXPECT_TRUE(tests::Contains(bar.Buttons(), R"(title="Next Page")"));
}

TEST(NavigationButtons, SpeakOfRecordsInAFormViewOfSeveralRecords) {
  Bar bar;
  bar.mode = state::Mode::kFormView;
  bar.records_on_page = 3;
  bar.settings.RecordsPerPage = 3;
  bar.ShowRows(4, 6);

  EXPECT_TRUE(tests::Contains(bar.Buttons(), R"(title="Previous Record")"));
}

TEST(ListLink, LeadsFromTheOneRecordViewToTheGridAtThatRecord) {
  Bar bar;
  bar.settings.DisplayExcelIcon = false;
  bar.ShowRecord(27);

  EXPECT_EQ(
      bar.RightHand(),
      "<a class=\"DRLOTableNavBar\" href=\"/p?Morvu1CurrRecord=27&Morvu1CountRecords=on&Morvu1maxrecords=20"
      "&Morvu1OrderByFields=\">List</a>");
}

TEST(ListLink, KeepsTheSortOrder) {
  Bar bar;
  bar.settings.OrderByFields = "2";
  bar.settings.OrderByDesc = true;
  bar.ShowRecord(27);

  EXPECT_TRUE(tests::Contains(bar.RightHand(),
                              "&Morvu1OrderByFields=2&Morvu1OrderByDesc=True\">List</a>&nbsp;<input"));
}

TEST(ListLink, StandsInAFormViewOfSeveralRecordsToo) {
  Bar bar;
  bar.mode = state::Mode::kFormView;
  bar.records_on_page = 3;

  EXPECT_TRUE(tests::Contains(bar.RightHand(), ">List</a>"));
}

TEST(ListLink, DoesNotStandInTheGrid) {
  Bar bar;

  EXPECT_FALSE(tests::Contains(bar.Html(), "<a"));
}

TEST(ExportButton, StandsWhenThePageWantsIt) {
  Bar bar;
  EXPECT_EQ(bar.RightHand(),
            "&nbsp;<input title=\"Excel export\" type=\"image\" name=\"Morvu1ToExcel\" border=0 "
            "src=\"../gfx/excel.gif\">");

  bar.settings.DisplayExcelIcon = false;
  EXPECT_EQ(bar.RightHand(), "");
}

}  // namespace
}  // namespace dralo::views
