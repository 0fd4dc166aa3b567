#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "settings/setters.h"
#include "unit/views/navigation_bar_page.h"

namespace dralo::tests {
namespace {

using RecordsPerPageSelect = BarTest;

TEST_F(RecordsPerPageSelect, SubmitsTheFormOfItsViewAndMarksThePageSize) {
  EXPECT_EQ(
      Select(),
      "Records per Page&nbsp;:&nbsp;"
      "<select onchange=\"FormDraloGrid1.submit()\" class=\"DRLOTableRecPerPage\" "
      "name=\"Morvu1maxrecords\">\r\n"
      "<option value=\"5\">5<option value=\"10\">10<option selected value=\"20\">20<option value=\"30\">30"
      "<option value=\"40\">40<option value=\"50\">50<option value=\"100\">100<option value=\"200\">200"
      "</select>");
}

TEST_F(RecordsPerPageSelect, HasNoClassWithoutCss) {
  settings.UseCSS = false;
  settings.Tag = "2";

  EXPECT_TRUE(
      Contains(Select(), "<select onchange=\"FormDraloGrid2.submit()\" name=\"Morvu2maxrecords\">\r\n"));
}

TEST_F(RecordsPerPageSelect, SetsBlankOptionsBackToTheDefault) {
  settings.RecordsPerPageOptions = "  ";

  EXPECT_TRUE(Select().ends_with("<option value=\"100\">100<option value=\"200\">200</select>"));
  EXPECT_EQ(settings.RecordsPerPageOptions, "5,10,20,30,40,50,100,200");
}

TEST_F(RecordsPerPageSelect, MarksNothingWhenThePageSizeIsNotAmongTheOptions) {
  settings.RecordsPerPage = 7;

  EXPECT_FALSE(Contains(Select(), "selected"));
}

TEST_F(RecordsPerPageSelect, ComparesOptionsWithoutBlanksAndWritesThemAsTheyStand) {
  settings.RecordsPerPageOptions = "10, 20 ,,020";

  EXPECT_TRUE(
      Select().ends_with("\r\n<option value=\"10\">10<option selected value=\" 20 \"> 20 "
                         "<option value=\"\"><option value=\"020\">020</select>"));
}

TEST_F(RecordsPerPageSelect, HasTheLabelOfItsLanguage) {
  settings.language_tables = settings::BuiltInTables("GER");

  EXPECT_TRUE(Select().starts_with("Datensätze pro Seite&nbsp;:&nbsp;<select "));
}

TEST_F(RecordsPerPageSelect, IsShownOnlyWhenThePageWantsIt) {
  EXPECT_FALSE(ShowsSelect());

  settings.DisplayRecordsPerPageSelect = true;
  EXPECT_TRUE(ShowsSelect());
}

TEST_F(RecordsPerPageSelect, IsShownAtTheTopAndAtTheBottomOnly) {
  settings.DisplayRecordsPerPageSelect = true;
  for (const char* placement : {"top", "bottom", " TOP ", "Bottom"}) {
    settings::SetRecordsPerPageSelectPlacement(settings, placement);
    EXPECT_TRUE(ShowsSelect()) << placement;
  }
  for (const char* placement : {"", "both", "none", "top bottom"}) {
    settings::SetRecordsPerPageSelectPlacement(settings, placement);
    EXPECT_FALSE(ShowsSelect()) << placement;
  }
}

TEST_F(RecordsPerPageSelect, IsShownInAFormViewOnlyWithSeveralRecordsOnAPage) {
  settings.DisplayRecordsPerPageSelect = true;
  mode = state::Mode::kFormView;
  for (const auto& [records, shown] : {std::pair(1, false), {2, true}, {20, true}}) {
    records_on_page = records;

    EXPECT_EQ(ShowsSelect(), shown) << records;
  }
}

TEST_F(RecordsPerPageSelect, IsShownInAGridOfOneRow) {
  settings.DisplayRecordsPerPageSelect = true;
  settings.RecordsPerPage = 1;
  records_on_page = 1;

  EXPECT_TRUE(ShowsSelect());
}

}  // namespace
}  // namespace dralo::tests
