#include <gtest/gtest.h>

#include <string>

#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

/// The address of the one-record view without keys.
std::string RecordUrl(int number) {
  const std::string n = std::to_string(number);
  return "/p?Morvu1FormDisplay=formOneRec&Morvu1BookMark=" + n +
         "&Morvu1OrderByFields=&Morvu1CurrRecord=" + n + "&Morvu1CountRecords=on&Morvu1maxrecords=20";
}

std::string Link(int record, const std::string& text) {
  return "<a class=\"DRLOTable\" href=\"" + RecordUrl(record) + "\">" + text + "</a>";
}

TEST_F(DataGrid, LinksTheRowNumberByDefault) {
  settings.DisplayHeader = false;
  settings.GridFieldsShow = "Name";
  current_record = 21;

  EXPECT_HTML(Grid(), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_0"class="DRLOTableTDodd">)" +
                            Link(21, "21") + R"(</td>
      <td id="drl1cell_1_2"class="DRLOTableTDodd">Ann</td>
      </tr>
      <tr id="drl1row_2"class="DRLOTableTReven">
      <td id="drl1cell_2_0"class="DRLOTableTDeven">)" +
                            Link(22, "22") + R"(</td>
      <td id="drl1cell_2_2"class="DRLOTableTDeven">&nbsp;</td>
      </tr>
      )"));
}

TEST_F(DataGrid, LinksTheStandardTextOfTheLinkColumn) {
  settings.DisplayHeader = false;
  settings.GridLinkIndex = 2;
  settings.GridFieldsShow = "Name";
  settings.RecordsPerPage = 1;
  std::string link = Link(1, "Ann");
  link.replace(link.find("maxrecords=20"), 13, "maxrecords=1");

  EXPECT_HTML(Grid(), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_0"class="DRLOTableTDodd">1</td>
      <td id="drl1cell_1_2"class="DRLOTableTDodd">)" +
                            link + R"(</td>
      </tr>
      )"));
}

TEST_F(DataGridRows, HaveLinksWithoutClassesWithoutCSS) {
  settings.UseCSS = false;
  settings.GridLinkIndex = 1;
  EXPECT_HTML(Grid(Column("INTEGER", {"7"})),
              RowsWithoutClassesOf({" align=\"right\"><a href=\"" + RecordUrl(1) + "\">7</a>"}));

  settings.GridDisplayIndex = true;
  settings.GridLinkIndex = 0;
  EXPECT_HTML(Grid(Column("INTEGER", {"7"})), Lines(R"(
      <tr id="drl1row_1">
      <td id="drl1cell_1_0"><a href=")" + RecordUrl(1) +
                                                    R"(">1</a></td>
      <td id="drl1cell_1_1" align="right">7</td>
      </tr>
      )"));
}

TEST_F(DataGrid, LinksToThePrimaryKeyOfEachRecord) {
  settings.EditSQL = "SELECT * FROM T";
  settings.EditPrimaryKeys = "Name,ID";

  const std::string grid = Grid();

  EXPECT_TRUE(Contains(grid, "&Morvu1PK=Ann,5&"));
  EXPECT_TRUE(Contains(grid, "&Morvu1PK=,6&"));
}

TEST_F(DataGridRows, HaveNoLinkWithoutTheIndexColumnThatWouldCarryIt) {
  EXPECT_FALSE(Contains(Grid(), "<a"));
}

TEST_F(DataGridRows, LinkNeitherFreeFormatNorFormattedTexts) {
  settings.GridLinkIndex = 1;
  settings::SetGridFreeFormatCellByCol(settings, 1, "[#V#]");
  EXPECT_FALSE(Contains(Grid(Column("INTEGER", {"7"})), "<a"));

  settings.GridFreeFormatCellByCol = {};
  settings::SetGridFormatCellFunction(settings, 1, "ABS");
  EXPECT_FALSE(Contains(Grid(Column("INTEGER", {"7"})), "<a"));
}

TEST_F(DataGridRows, KeepLinksAndTemplatesOnOneLineToo) {
  settings.GridCellsNoBr = "*";
  settings.GridLinkIndex = 1;
  EXPECT_HTML(Grid(Column("VARCHAR(9)", {"'x'"})), RowsOf({"><nobr>" + Link(1, "x") + "</nobr>"}));

  settings::SetGridFreeFormatCellByCol(settings, 1, "<b>#V#</b>");
  EXPECT_HTML(Grid(Column("VARCHAR(9)", {"'x'"})), RowsOf({"><nobr><b>x</b></nobr>"}));
}

}  // namespace
}  // namespace dralo::tests
