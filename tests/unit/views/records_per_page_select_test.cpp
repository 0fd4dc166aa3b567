#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "unit/views/navigation_bar_page.h"

namespace dralo::views {
namespace {

TEST(RecordsPerPageSelect, SubmitsTheFormOfItsViewAndMarksThePageSize) {
  Bar bar;

  EXPECT_EQ(
      bar.Select(),
      "Records per Page&nbsp;:&nbsp;"
      "<select onchange=\"FormDraloGrid1.submit()\" class=\"DRLOTableRecPerPage\" "
      "name=\"Morvu1maxrecords\">\r\n"
      "<option value=\"5\">5<option value=\"10\">10<option selected value=\"20\">20<option value=\"30\">30"
      "<option value=\"40\">40<option value=\"50\">50<option value=\"100\">100<option value=\"200\">200"
      "</select>");
}

TEST(RecordsPerPageSelect, HasNoClassWithoutCss) {
  Bar bar;
  bar.settings.UseCSS = false;
  bar.settings.Tag = "2";

  EXPECT_TRUE(tests::Contains(bar.Select(),
                              "<select onchange=\"FormDraloGrid2.submit()\" name=\"Morvu2maxrecords\">\r\n"));
}

TEST(RecordsPerPageSelect, SetsBlankOptionsBackToTheDefault) {
  Bar bar;
  bar.settings.RecordsPerPageOptions = "  ";

  EXPECT_TRUE(bar.Select().ends_with("<option value=\"100\">100<option value=\"200\">200</select>"));
  EXPECT_EQ(bar.settings.RecordsPerPageOptions, "5,10,20,30,40,50,100,200");
}

TEST(RecordsPerPageSelect, MarksNothingWhenThePageSizeIsNotAmongTheOptions) {
  Bar bar;
  bar.settings.RecordsPerPage = 7;

  EXPECT_FALSE(tests::Contains(bar.Select(), "selected"));
}

TEST(RecordsPerPageSelect, ComparesOptionsWithoutBlanksAndWritesThemAsTheyStand) {
  Bar bar;
  bar.settings.RecordsPerPageOptions = "10, 20 ,,020";

  EXPECT_TRUE(
      bar.Select().ends_with("\r\n<option value=\"10\">10<option selected value=\" 20 \"> 20 "
                             "<option value=\"\"><option value=\"020\">020</select>"));
}

TEST(RecordsPerPageSelect, HasTheLabelOfItsLanguage) {
  Bar bar;
  bar.settings.language_tables = settings::BuiltInTables("GER");

  EXPECT_TRUE(bar.Select().starts_with("Datensätze pro Seite&nbsp;:&nbsp;<select "));
}

TEST(RecordsPerPageSelect, IsShownOnlyWhenThePageWantsIt) {
  Bar bar;
  EXPECT_FALSE(bar.ShowsSelect());

  bar.settings.DisplayRecordsPerPageSelect = true;
  EXPECT_TRUE(bar.ShowsSelect());
}

TEST(RecordsPerPageSelect, IsShownAtTheTopAndAtTheBottomOnly) {
  for (const auto& [placement, shown] : {std::pair("top", true),
                                         {"bottom", true},
                                         {" TOP ", true},
                                         {"Bottom", true},
                                         {"", false},
                                         {"both", false},
                                         {"none", false},
                                         {"top bottom", false}}) {
    Bar bar;
    bar.settings.DisplayRecordsPerPageSelect = true;
    bar.settings.RecordsPerPageSelectPlacement = placement;

    EXPECT_EQ(bar.ShowsSelect(), shown) << placement;
  }
}

TEST(RecordsPerPageSelect, IsShownInAFormViewOnlyWithSeveralRecordsOnAPage) {
  for (const auto& [records_on_page, shown] : {std::pair(1, false), {2, true}, {20, true}}) {
    Bar bar;
    bar.settings.DisplayRecordsPerPageSelect = true;
    bar.mode = state::Mode::kFormView;
    bar.records_on_page = records_on_page;

    EXPECT_EQ(bar.ShowsSelect(), shown) << records_on_page;
  }
}

TEST(RecordsPerPageSelect, IsShownInAGridOfOneRow) {
  Bar bar;
  bar.settings.DisplayRecordsPerPageSelect = true;
  bar.settings.RecordsPerPage = 1;
  bar.records_on_page = 1;

  EXPECT_TRUE(bar.ShowsSelect());
}

}  // namespace
}  // namespace dralo::views
