#include "views/data_grid.h"

#include <gtest/gtest.h>

#include <string>

#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

constexpr std::string_view kPeopleInAGrid = R"(
    CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Member BOOLEAN);
    INSERT INTO T VALUES (5, 'Ann', 1), (6, NULL, 0))";

TEST(DataGrid, WritesOddAndEvenRowsWithIdsAndAlignments) {
  Rendering view;
  view.settings.DisplayHeader = false;
  view.settings.GridLinkIndex = -1;
  const Records people(kPeopleInAGrid);

  EXPECT_HTML(view.Grid(*people), Lines(R"(
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
  EXPECT_EQ(view.rows, 2);
  EXPECT_EQ(view.settings.ErrorMessage, "");
}

TEST(DataGrid, HasNoClassesWithoutCSS) {
  Rendering view;
  view.settings.DisplayHeader = false;
  view.settings.UseCSS = false;
  view.settings.Tag = "left";
  view.settings.GridLinkIndex = 99;
  const Records people(kPeopleInAGrid);

  EXPECT_HTML(view.Grid(*people), Lines(R"(
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

TEST(DataGrid, HasTheSameIdsWithAHeaderAsWithoutOne) {
  Rendering view;
  const Records with_header(kPeopleInAGrid);
  const Records without_header(kPeopleInAGrid);

  const std::string whole = view.Grid(*with_header);
  view.settings.DisplayHeader = false;
  const std::string rows = view.Grid(*without_header);

  EXPECT_EQ(whole.substr(whole.find("</tr>\r\n") + 7), rows);
}

TEST(DataGrid, CountsHiddenColumnsInIdsAndLists) {
  Rendering view = RowsOnly();
  view.settings.GridFieldsHide = "Name";
  view.settings.GridCellsNoBr = "3";
  const Records people(kPeopleInAGrid);

  EXPECT_HTML(view.Grid(*people), Lines(R"(
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

TEST(DataGrid, TakesTheTemplateBeforeTheFormatFunction) {
  Rendering view = RowsOnly();
  settings::SetGridFreeFormatCellByCol(view.settings, 1, "T");
  settings::SetGridFormatCellFunction(view.settings, 1, "UCASE");
  const Records records = Column("VARCHAR(9)", {"'x'"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_1"class="DRLOTableTDodd">T</td>
      </tr>
      )"));
  EXPECT_EQ(view.settings.ErrorMessage, "");
}

TEST(DataGrid, LeavesTheCellOfAnEmptyTemplateEmpty) {
  Rendering view = RowsOnly();
  settings::SetGridFreeFormatCellByCol(view.settings, 1, "#V#");
  const Records records = Column("INTEGER", {"NULL"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_1"class="DRLOTableTDodd" align="right"></td>
      </tr>
      )"));
}

TEST(DataGrid, PutsColumnAttributesBeforeThoseOfTheRowsCells) {
  Rendering view;
  view.settings.DisplayHeader = false;
  view.settings.GridLinkIndex = -1;
  view.settings.TDTag = "valign=top";
  settings::SetGridColAttributes(view.settings, 0, "title='no'");
  settings::SetGridColAttributes(view.settings, 1, "nowrap");
  const Records records = Column("INTEGER", {"7"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_0"class="DRLOTableTDodd" title='no' valign=top>1</td>
      <td id="drl1cell_1_1"class="DRLOTableTDodd" nowrap valign=top align="right">7</td>
      </tr>
      )"));
}

TEST(DataGrid, PutsColumnAttributesDirectlyBehindTheIdWithoutCSS) {
  Rendering view;
  view.settings.DisplayHeader = false;
  view.settings.UseCSS = false;
  view.settings.GridLinkIndex = -1;
  settings::SetGridColAttributes(view.settings, 0, "title='no'");
  settings::SetGridColAttributes(view.settings, 1, "nowrap");
  const Records records = Column("VARCHAR(9)", {"'x'"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
      <tr id="drl1row_1">
      <td id="drl1cell_1_0"title='no'>1</td>
      <td id="drl1cell_1_1"nowrap>x</td>
      </tr>
      )"));
}

TEST(DataGrid, CombinesTheTagsOfCellsAndRowsByParity) {
  Rendering view = RowsOnly();
  settings::Settings& settings = view.settings;
  settings.TDTag = "a";
  settings.GridTDTag = "b";
  settings.TDOddTag = "c1";
  settings.GridTDOddTag = "d1";
  settings.TDEvenTag = "c2";
  settings.GridTDEvenTag = "d2";
  settings.GridTRTag = "r";
  settings.GridTROddTag = "s1";
  settings.GridTREvenTag = "s2";
  const Records records = Column("VARCHAR(9)", {"'x'", "'y'", "'z'"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
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

TEST(DataGrid, MakesTwoBlanksBetweenTagsOneInOnePass) {
  Rendering view = RowsOnly();
  view.settings.UseCSS = false;
  view.settings.TDTag = "a";
  view.settings.GridTDOddTag = "d";       // three blanks between the two
  view.settings.GridTRTag = "  r    s ";  // four blanks inside
  const Records records = Column("VARCHAR(9)", {"'x'"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
      <tr id="drl1row_1" r  s>
      <td id="drl1cell_1_1" a  d>x</td>
      </tr>
      )"));
}

TEST(DataGrid, PutsFieldValuesIntoTheTagsOfRowsAndCells) {
  Rendering view = RowsOnly();
  view.settings.GridTRTag = "data-v='##V##'";
  view.settings.GridTDTag = "class=c##V##";
  const Records records = Column("VARCHAR(9)", {"'x'", "NULL", "'z'"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
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

TEST(DataGrid, WritesNoAttributesWhenTheFieldValueLeavesNone) {
  Rendering view = RowsOnly();
  view.settings.GridTRTag = "##V##";
  view.settings.GridTDTag = " ##V## ";
  const Records records = Column("VARCHAR(9)", {"' '"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_1"class="DRLOTableTDodd">&nbsp;</td>
      </tr>
      )"));
}

TEST(DataGrid, ReportsATagWithAnUnknownFieldInEveryRowAndGoesOn) {
  Rendering view = RowsOnly();
  view.settings.GridTRTag = "x ##W##";
  const Records records = Column("VARCHAR(9)", {"'a'", "'b'"});

  EXPECT_EQ(CountOf("<td", view.Grid(*records)), 2);
  EXPECT_EQ(view.settings.ErrorMessage,
            "The record has no field named \"W\" in ReplaceFieldValuesFromTag<br>"
            "The record has no field named \"W\" in ReplaceFieldValuesFromTag<br>");
}

TEST(DisplayedGridColumns, CountsTheShownColumnsAndTheIndex) {
  Rendering view;
  const Records people(kPeopleInAGrid);
  EXPECT_EQ(views::DisplayedGridColumns(view.settings, *people), 4);

  view.settings.GridFieldsShow = "Name,x,y";
  EXPECT_EQ(views::DisplayedGridColumns(view.settings, *people), 2);

  view.settings.GridDisplayIndex = false;
  EXPECT_EQ(views::DisplayedGridColumns(view.settings, *people), 1);

  view.settings.GridFieldsHide = "1,2,3";
  EXPECT_EQ(views::DisplayedGridColumns(view.settings, *people), 0);
}

}  // namespace
}  // namespace dralo::tests
