#include "views/spreadsheet_export.h"

#include <gtest/gtest.h>

#include "settings/column_settings.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

struct SpreadsheetTable : testing::Test, Rendering {
  std::string Table(std::string_view statements, std::string_view query = "SELECT * FROM T") {
    const Records records(statements, query);
    return Table(*records);
  }
  std::string Table(platform::Recordset& records) {
    return Text([&](html::HtmlWriter&, state::Render& render) { views::WriteExcelTable(render, records); });
  }
};

/// The statements that make T with these columns and rows.
std::string T(const std::string& columns, const std::string& rows) {
  return "CREATE TABLE T (" + columns + "); INSERT INTO T VALUES " + rows;
}

TEST_F(SpreadsheetTable, IsWrittenToTheByteWithoutAnySettings) {
  EXPECT_EQ(Table(T("ID INTEGER, Name VARCHAR(20)", "(1, 'Ann'), (2, 'Bob')")),
            "<table>\r\n"
            "<tr>\r\n"
            "<th style=\"border:thin silver solid\"  >ID</th>\r\n"
            "<th style=\"border:thin silver solid\"  >Name</th>\r\n"
            "</tr>\r\n"
            "<tr>\r\n"
            "<td style=\"border:thin silver solid\"    align=\"right\" >1</td>\r\n"
            "<td style=\"border:thin silver solid\"    >Ann</td>\r\n"
            "</tr>\r\n"
            "<tr>\r\n"
            "<td style=\"border:thin silver solid\"    align=\"right\" >2</td>\r\n"
            "<td style=\"border:thin silver solid\"    >Bob</td>\r\n"
            "</tr>\r\n"
            "</table>");
  EXPECT_EQ(settings.ErrorMessage, "");
}

TEST_F(SpreadsheetTable, IsWrittenToTheByteWithAllAttributes) {
  settings.THTag = "bgcolor=gray";
  settings.TDTag = "valign=top";
  settings.TDOddTag = "class=a";
  settings.TDEvenTag = "class=b";
  settings::SetGridColHeadAttributes(settings, 1, "width=9");
  settings::SetGridColAttributes(settings, 1, "nowrap");
  EXPECT_EQ(Table(T("ID INTEGER, Name VARCHAR(20)", "(1, 'Ann'), (2, 'Bob'), (3, 'Cid')")),
            "<table>\r\n"
            "<tr>\r\n"
            "<th style=\"border:thin silver solid\" width=9 bgcolor=gray >ID</th>\r\n"
            "<th style=\"border:thin silver solid\" bgcolor=gray >Name</th>\r\n"
            "</tr>\r\n"
            "<tr>\r\n"
            "<td style=\"border:thin silver solid\" valign=top class=a nowrap align=\"right\" >1</td>\r\n"
            "<td style=\"border:thin silver solid\" valign=top class=a  >Ann</td>\r\n"
            "</tr>\r\n"
            "<tr>\r\n"
            "<td style=\"border:thin silver solid\" valign=top class=b nowrap align=\"right\" >2</td>\r\n"
            "<td style=\"border:thin silver solid\" valign=top class=b  >Bob</td>\r\n"
            "</tr>\r\n"
            "<tr>\r\n"
            "<td style=\"border:thin silver solid\" valign=top class=a nowrap align=\"right\" >3</td>\r\n"
            "<td style=\"border:thin silver solid\" valign=top class=a  >Cid</td>\r\n"
            "</tr>\r\n"
            "</table>");
}

TEST_F(SpreadsheetTable, PutsNoBlankBetweenTheHeaderAttributesWhenThereIsOnlyOneOfThem) {
  settings::SetGridColHeadAttributes(settings, 1, "width=9");
  EXPECT_TRUE(
      Contains(Table(T("A INTEGER", "(1)")), R"(<th style="border:thin silver solid" width=9 >A</th>)"));
}

TEST_F(SpreadsheetTable, StartsWithTheRecordsWhenThereIsNoHeader) {
  settings.DisplayHeader = false;
  EXPECT_EQ(Table(T("A INTEGER", "(7)")),
            "<table>\r\n<tr>\r\n<td style=\"border:thin silver solid\"    align=\"right\" "
            ">7</td>\r\n</tr>\r\n</table>");
}

TEST_F(SpreadsheetTable, HasAHeaderAndNothingElseWithoutRecords) {
  EXPECT_EQ(Table("CREATE TABLE T (A INTEGER)"),
            "<table>\r\n<tr>\r\n<th style=\"border:thin silver solid\"  >A</th>\r\n</tr>\r\n</table>");
}

TEST_F(SpreadsheetTable, EndsAtTheLimitOfRecords) {
  settings.RecordsMaxLimit = 2;
  const std::string table = Table(T("A INTEGER", "(11), (12), (13)"));
  EXPECT_TRUE(Contains(table, ">12</td>"));
  EXPECT_FALSE(Contains(table, ">13</td>"));
}

TEST_F(SpreadsheetTable, HasNoRecordsUnderALimitOfNone) {
  for (const int limit : {0, -1}) {
    settings.RecordsMaxLimit = limit;
    EXPECT_EQ(CountOf("<tr>", Table(T("A INTEGER", "(1), (2)"))), 1);
  }
}

TEST_F(SpreadsheetTable, IgnoresThePageAndItsSize) {
  settings.RecordsPerPage = 1;
  current_record = 2;
  EXPECT_EQ(CountOf("<td", Table(T("A INTEGER", "(1), (2), (3)"))), 3);
}

TEST_F(SpreadsheetTable, CountsHiddenColumns) {
  settings.GridFieldsHide = "B";
  settings::SetGridColAttributes(settings, 2, "title=two");
  settings::SetGridColAttributes(settings, 3, "title=three");
  settings::SetGridColHeadAttributes(settings, 3, "width=3");
  const std::string table = Table(T("A INTEGER, B INTEGER, C VARCHAR(9)", "(1, 2, 'c')"));
  EXPECT_FALSE(Contains(table, ">B</th>") || Contains(table, ">2</td>") || Contains(table, "title=two"));
  EXPECT_TRUE(Contains(table, "solid\" width=3 >C</th>"));
  EXPECT_TRUE(Contains(table, "solid\"   title=three >c</td>"));
}

TEST_F(SpreadsheetTable, HasOnlyTheColumnsToShow) {
  settings.GridFieldsShow = "3,a";
  const std::string table = Table(T("A INTEGER, B INTEGER, C INTEGER", "(1, 2, 3)"));
  EXPECT_EQ(CountOf("<th", table), 2);
  EXPECT_FALSE(Contains(table, ">B</th>"));
}

TEST_F(SpreadsheetTable, NamesColumnsAsTheQueryDoes) {
  settings.GridDisplayFieldNames = "Shown in the grid";
  EXPECT_TRUE(Contains(Table(T("A INTEGER", "(1)"), "SELECT A AS Number FROM T"), " >Number</th>"));
}

TEST_F(SpreadsheetTable, AlignsNumbersAndFlagsToTheRightButNoDates) {
  const std::string table =
      Table(T("A BOOLEAN, B DATE, C DECIMAL(9,2), D DOUBLE, E TEXT", "(1, '2024-05-06', 1.5, 2.5, '3')"));
  EXPECT_TRUE(Contains(table, " align=\"right\" >True</td>"));
  EXPECT_TRUE(Contains(table, "solid\"    >5/6/2024</td>"));
  EXPECT_TRUE(Contains(table, " align=\"right\" >1.5</td>"));
  EXPECT_TRUE(Contains(table, " align=\"right\" >2.5</td>"));
  EXPECT_TRUE(Contains(table, "solid\"    >3</td>"));
}

TEST_F(SpreadsheetTable, WritesWhatIsEmptyAsABlankThatDoesNotBreak) {
  const std::string table =
      Table(T("A INTEGER, B VARCHAR(9), C VARCHAR(9), D TEXT, E BLOB", "(NULL, '', '  ', '', X'41')"));
  EXPECT_EQ(CountOf(" >&nbsp;</td>", table), 5);
}

TEST_F(SpreadsheetTable, WritesValuesAsTheyAre) {
  EXPECT_TRUE(
      Contains(Table(T("A VARCHAR(40)", "('<b>Łódź</b> & \"東京\"')")), " ><b>Łódź</b> & \"東京\"</td>"));
}

TEST_F(SpreadsheetTable, CutsMemosAsTheGridDoes) {
  settings.MemoFieldLimit = 4;
  EXPECT_TRUE(Contains(Table(T("A TEXT", "('Grüße')")), " >Grüß...</td>"));
}

TEST_F(SpreadsheetTable, LeavesFieldNamesInAttributesAsTheyAre) {
  settings.TDTag = "title='##A##'";
  EXPECT_TRUE(Contains(Table(T("A INTEGER", "(1)")), "title='##A##'"));
}

TEST_F(SpreadsheetTable, NeverAppliesTemplates) {
  settings::SetGridFreeFormatCellByCol(settings, 1, "<i>#A#</i>");
  EXPECT_TRUE(Contains(Table(T("A INTEGER", "(1)")), " >1</td>"));
}

TEST_F(SpreadsheetTable, AppliesFormatFunctionsOnlyWhenThePageWantsIt) {
  settings::SetGridFormatCellFunction(settings, 1, "LEFT,2");
  EXPECT_TRUE(Contains(Table(T("A VARCHAR(9)", "('abcd')")), " >abcd</td>"));
  settings.ApplyCellFormattingToExcel = true;
  EXPECT_TRUE(Contains(Table(T("A VARCHAR(9)", "('abcd')")), " >ab</td>"));
  EXPECT_EQ(settings.ErrorMessage, "");
}

TEST_F(SpreadsheetTable, ShowsNoRowNumbersAndNoGridAttributes) {
  settings.GridTDTag = "title=grid";
  settings.GridTROddTag = "title=row";
  const std::string table = Table(T("A INTEGER", "(5)"));
  EXPECT_EQ(CountOf("<td", table), 1);
  EXPECT_FALSE(Contains(table, "title="));
}

TEST_F(SpreadsheetTable, StartsAtTheCurrentRecordAndLeavesTheRecordsOpen) {
  const Records records(T("A INTEGER", "(11), (12), (13), (14), (15), (16)"));
  records->Move(4);
  settings.DisplayHeader = false;
  const std::string table = Table(*records);
  EXPECT_FALSE(Contains(table, ">14</td>"));
  EXPECT_TRUE(Contains(table, ">15</td>") && Contains(table, ">16</td>"));
  EXPECT_TRUE(records->IsOpen());
  EXPECT_TRUE(records->Eof());
}

}  // namespace
}  // namespace dralo::tests
