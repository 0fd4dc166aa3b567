#include <gtest/gtest.h>

#include <string>

#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

constexpr std::string_view kLinkedPeople = R"(
    CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Member BOOLEAN);
    INSERT INTO T VALUES (5, 'Ann', 1), (6, NULL, 0))";

/// The address of the one-record view without keys.
std::string RecordUrl(int number) {
  const std::string n = std::to_string(number);
  return "/p?Morvu1FormDisplay=formOneRec&Morvu1BookMark=" + n +
         "&Morvu1OrderByFields=&Morvu1CurrRecord=" + n + "&Morvu1CountRecords=on&Morvu1maxrecords=20";
}

TEST(DataGrid, LinksTheRowNumberByDefault) {
  Rendering view;
  view.settings.DisplayHeader = false;
  view.settings.GridFieldsShow = "Name";
  view.current_record = 21;
  const Records people(kLinkedPeople);

  EXPECT_HTML(view.Grid(*people), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_0"class="DRLOTableTDodd"><a class="DRLOTable" href=")" +
                                        RecordUrl(21) +
                                        R"(">21</a></td>
      <td id="drl1cell_1_2"class="DRLOTableTDodd">Ann</td>
      </tr>
      <tr id="drl1row_2"class="DRLOTableTReven">
      <td id="drl1cell_2_0"class="DRLOTableTDeven"><a class="DRLOTable" href=")" +
                                        RecordUrl(22) + R"(">22</a></td>
      <td id="drl1cell_2_2"class="DRLOTableTDeven">&nbsp;</td>
      </tr>
      )"));
}

TEST(DataGrid, LinksTheStandardTextOfTheLinkColumn) {
  Rendering view;
  view.settings.DisplayHeader = false;
  view.settings.GridLinkIndex = 2;
  view.settings.GridFieldsShow = "Name";
  view.settings.RecordsPerPage = 1;
  const Records people(kLinkedPeople);
  std::string url = RecordUrl(1);
  url.replace(url.find("maxrecords=20"), 13, "maxrecords=1");

  EXPECT_HTML(view.Grid(*people), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_0"class="DRLOTableTDodd">1</td>
      <td id="drl1cell_1_2"class="DRLOTableTDodd"><a class="DRLOTable" href=")" +
                                        url +
                                        R"(">Ann</a></td>
      </tr>
      )"));
}

TEST(DataGrid, LinksHaveNoClassWithoutCSS) {
  Rendering view = RowsOnly();
  view.settings.UseCSS = false;
  view.settings.GridLinkIndex = 1;
  const Records records = Column("INTEGER", {"7"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
      <tr id="drl1row_1">
      <td id="drl1cell_1_1" align="right"><a href=")" +
                                         RecordUrl(1) + R"(">7</a></td>
      </tr>
      )"));

  const Records again = Column("INTEGER", {"7"});
  view.settings.GridDisplayIndex = true;
  view.settings.GridLinkIndex = 0;
  EXPECT_HTML(view.Grid(*again), Lines(R"(
      <tr id="drl1row_1">
      <td id="drl1cell_1_0"><a href=")" +
                                       RecordUrl(1) + R"(">1</a></td>
      <td id="drl1cell_1_1" align="right">7</td>
      </tr>
      )"));
}

TEST(DataGrid, LinksToThePrimaryKeyOfEachRecord) {
  Rendering view;
  view.settings.EditSQL = "SELECT * FROM T";
  view.settings.EditPrimaryKeys = "Name,ID";
  const Records people(kLinkedPeople);

  const std::string grid = view.Grid(*people);

  EXPECT_NE(grid.find("&Morvu1PK=Ann,5&"), std::string::npos);
  EXPECT_NE(grid.find("&Morvu1PK=,6&"), std::string::npos);
}

TEST(DataGrid, HasNoLinkWithoutTheIndexColumnThatWouldCarryIt) {
  Rendering view = RowsOnly();
  const Records people(kLinkedPeople);

  EXPECT_EQ(view.Grid(*people).find("<a"), std::string::npos);
}

TEST(DataGrid, LinksNeitherFreeFormatNorFormattedTexts) {
  Rendering view = RowsOnly();
  view.settings.GridLinkIndex = 1;
  settings::SetGridFreeFormatCellByCol(view.settings, 1, "[#V#]");
  const Records free_format = Column("INTEGER", {"7"});
  EXPECT_EQ(view.Grid(*free_format).find("<a"), std::string::npos);

  view.settings.GridFreeFormatCellByCol = {};
  settings::SetGridFormatCellFunction(view.settings, 1, "ABS");
  const Records formatted = Column("INTEGER", {"7"});
  EXPECT_EQ(view.Grid(*formatted).find("<a"), std::string::npos);
}

TEST(DataGrid, KeepsLinksAndTemplatesOnOneLineToo) {
  Rendering view = RowsOnly();
  view.settings.GridCellsNoBr = "*";
  view.settings.GridLinkIndex = 1;
  const Records linked = Column("VARCHAR(9)", {"'x'"});
  EXPECT_HTML(view.Grid(*linked), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_1"class="DRLOTableTDodd"><nobr><a class="DRLOTable" href=")" +
                                        RecordUrl(1) + R"(">x</a></nobr></td>
      </tr>
      )"));

  settings::SetGridFreeFormatCellByCol(view.settings, 1, "<b>#V#</b>");
  const Records free_format = Column("VARCHAR(9)", {"'x'"});
  EXPECT_HTML(view.Grid(*free_format), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_1"class="DRLOTableTDodd"><nobr><b>x</b></nobr></td>
      </tr>
      )"));
}

}  // namespace
}  // namespace dralo::tests
