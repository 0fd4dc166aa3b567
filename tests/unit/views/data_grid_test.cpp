#include "views/data_grid.h"

#include <gtest/gtest.h>

#include <string>

#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

TEST_F(DataGrid, WritesOddAndEvenRowsWithIdsAndAlignments) {
  settings.DisplayHeader = false;
  settings.GridLinkIndex = -1;

  EXPECT_HTML(Grid(), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_0"class="DRLOTableTDodd">1</td>
      <td id="drl1cell_1_1"class="DRLOTableTDodd" align="right">5</td>
      <td id="drl1cell_1_2"class="DRLOTableTDodd">Ann</td>
      <td id="drl1cell_1_3"class="DRLOTableTDodd" align="right">True</td>
      </tr>
      <tr id="drl1row_2"class="DRLOTableTReven">
      <td id="drl1cell_2_0"class="DRLOTableTDeven">2</td>
      <td id="drl1cell_2_1"class="DRLOTableTDeven" align="right">6</td>
      <td id="drl1cell_2_2"class="DRLOTableTDeven">&nbsp;</td>
      <td id="drl1cell_2_3"class="DRLOTableTDeven" align="right">False</td>
      </tr>
      )"));
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(settings.ErrorMessage, "");
}

TEST_F(DataGrid, HasNoClassesWithoutCSS) {
  settings.DisplayHeader = false;
  settings.UseCSS = false;
  settings.Tag = "left";
  settings.GridLinkIndex = 99;

  EXPECT_HTML(Grid(), Lines(R"(
      <tr id="drlleftrow_1">
      <td id="drlleftcell_1_0">1</td>
      <td id="drlleftcell_1_1" align="right">5</td>
      <td id="drlleftcell_1_2">Ann</td>
      <td id="drlleftcell_1_3" align="right">True</td>
      </tr>
      <tr id="drlleftrow_2">
      <td id="drlleftcell_2_0">2</td>
      <td id="drlleftcell_2_1" align="right">6</td>
      <td id="drlleftcell_2_2">&nbsp;</td>
      <td id="drlleftcell_2_3" align="right">False</td>
      </tr>
      )"));
}

TEST_F(DataGrid, HasTheSameIdsWithAHeaderAsWithoutOne) {
  const std::string whole = Grid();
  settings.DisplayHeader = false;

  EXPECT_EQ(whole.substr(whole.find("</tr>\r\n") + 7), Grid());
}

TEST_F(DataGridRows, CountHiddenColumnsInIdsAndLists) {
  settings.GridFieldsHide = "Name";
  settings.GridCellsNoBr = "3";

  EXPECT_HTML(Grid(), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_1"class="DRLOTableTDodd" align="right">5</td>
      <td id="drl1cell_1_3"class="DRLOTableTDodd" align="right"><nobr>True</nobr></td>
      </tr>
      <tr id="drl1row_2"class="DRLOTableTReven">
      <td id="drl1cell_2_1"class="DRLOTableTDeven" align="right">6</td>
      <td id="drl1cell_2_3"class="DRLOTableTDeven" align="right"><nobr>False</nobr></td>
      </tr>
      )"));
}

TEST_F(DataGridRows, TakeTheTemplateBeforeTheFormatFunction) {
  settings::SetGridFreeFormatCellByCol(settings, 1, "T");
  settings::SetGridFormatCellFunction(settings, 1, "UCASE");

  EXPECT_HTML(Grid(Column("VARCHAR(9)", {"'x'"})), RowsOf({">T"}));
  EXPECT_EQ(settings.ErrorMessage, "");
}

TEST_F(DataGridRows, LeaveTheCellOfAnEmptyTemplateEmpty) {
  settings::SetGridFreeFormatCellByCol(settings, 1, "#V#");

  EXPECT_HTML(Grid(Column("INTEGER", {"NULL"})), RowsOf({" align=\"right\">"}));
}

TEST_F(DataGrid, PutsColumnAttributesBeforeThoseOfTheRowsCells) {
  settings.DisplayHeader = false;
  settings.GridLinkIndex = -1;
  settings.TDTag = "valign=top";
  settings::SetGridColAttributes(settings, 0, "title='no'");
  settings::SetGridColAttributes(settings, 1, "nowrap");

  EXPECT_HTML(Grid(Column("INTEGER", {"7"})), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_0"class="DRLOTableTDodd" title='no' valign=top>1</td>
      <td id="drl1cell_1_1"class="DRLOTableTDodd" nowrap valign=top align="right">7</td>
      </tr>
      )"));
}

TEST_F(DataGrid, PutsColumnAttributesDirectlyBehindTheIdWithoutCSS) {
  settings.DisplayHeader = false;
  settings.UseCSS = false;
  settings.GridLinkIndex = -1;
  settings::SetGridColAttributes(settings, 0, "title='no'");
  settings::SetGridColAttributes(settings, 1, "nowrap");

  EXPECT_HTML(Grid(Column("VARCHAR(9)", {"'x'"})), Lines(R"(
      <tr id="drl1row_1">
      <td id="drl1cell_1_0"title='no'>1</td>
      <td id="drl1cell_1_1"nowrap>x</td>
      </tr>
      )"));
}

TEST_F(DataGridRows, CombineTheTagsOfCellsAndRowsByParity) {
  settings.TDTag = "a";
  settings.GridTDTag = "b";
  settings.TDOddTag = "c1";
  settings.GridTDOddTag = "d1";
  settings.TDEvenTag = "c2";
  settings.GridTDEvenTag = "d2";
  settings.GridTRTag = "r";
  settings.GridTROddTag = "s1";
  settings.GridTREvenTag = "s2";

  EXPECT_HTML(Grid(Column("VARCHAR(9)", {"'x'", "'y'", "'z'"})), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd" r s1>
      <td id="drl1cell_1_1"class="DRLOTableTDodd" a b c1 d1>x</td>
      </tr>
      <tr id="drl1row_2"class="DRLOTableTReven" r s2>
      <td id="drl1cell_2_1"class="DRLOTableTDeven" a b c2 d2>y</td>
      </tr>
      <tr id="drl1row_3"class="DRLOTableTRodd" r s1>
      <td id="drl1cell_3_1"class="DRLOTableTDodd" a b c1 d1>z</td>
      </tr>
      )"));
}

TEST_F(DataGridRows, MakeTwoBlanksBetweenTagsOneInOnePass) {
  settings.UseCSS = false;
  settings.TDTag = "a";
  settings.GridTDOddTag = "d";       // three blanks between the two
  settings.GridTRTag = "  r    s ";  // four blanks inside

  EXPECT_HTML(Grid(Column("VARCHAR(9)", {"'x'"})), Lines(R"(
      <tr id="drl1row_1" r  s>
      <td id="drl1cell_1_1" a  d>x</td>
      </tr>
      )"));
}

TEST_F(DataGridRows, PutFieldValuesIntoTheTagsOfRowsAndCells) {
  settings.GridTRTag = "data-v='##V##'";
  settings.GridTDTag = "class=c##V##";

  EXPECT_HTML(Grid(Column("VARCHAR(9)", {"'x'", "NULL", "'z'"})), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd" data-v='x'>
      <td id="drl1cell_1_1"class="DRLOTableTDodd" class=cx>x</td>
      </tr>
      <tr id="drl1row_2"class="DRLOTableTReven" data-v=''>
      <td id="drl1cell_2_1"class="DRLOTableTDeven" class=c>&nbsp;</td>
      </tr>
      <tr id="drl1row_3"class="DRLOTableTRodd" data-v='z'>
      <td id="drl1cell_3_1"class="DRLOTableTDodd" class=cz>z</td>
      </tr>
      )"));
}

TEST_F(DataGridRows, HaveNoAttributesWhenTheFieldValueLeavesNone) {
  settings.GridTRTag = "##V##";
  settings.GridTDTag = " ##V## ";

  EXPECT_HTML(Grid(Column("VARCHAR(9)", {"' '"})), RowsOf({">&nbsp;"}));
}

TEST_F(DataGridRows, ReportATagWithAnUnknownFieldEachAndGoOn) {
  settings.GridTRTag = "x ##W##";

  EXPECT_EQ(CountOf("<td", Grid(Column("VARCHAR(9)", {"'a'", "'b'"}))), 2);
  EXPECT_EQ(settings.ErrorMessage,
            "The record has no field named \"W\" in ReplaceFieldValuesFromTag<br>"
            "The record has no field named \"W\" in ReplaceFieldValuesFromTag<br>");
}

TEST(DisplayedGridColumns, AreTheShownOnesAndTheIndex) {
  settings::Settings settings;
  const Records people("CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Member BOOLEAN)");
  EXPECT_EQ(views::DisplayedGridColumns(settings, *people), 4);

  settings.GridFieldsShow = "Name,x,y";
  EXPECT_EQ(views::DisplayedGridColumns(settings, *people), 2);

  settings.GridDisplayIndex = false;
  EXPECT_EQ(views::DisplayedGridColumns(settings, *people), 1);

  settings.GridFieldsHide = "1,2,3";
  EXPECT_EQ(views::DisplayedGridColumns(settings, *people), 0);
}

}  // namespace
}  // namespace dralo::tests
