#include "views/spreadsheet_export.h"

#include <gtest/gtest.h>

#include "settings/column_settings.h"
#include "support/contains.h"
#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {
namespace {

struct SpreadsheetTable : ::testing::Test {
  Rendering view;

  std::string Table(std::string_view statements, std::string_view query = "SELECT * FROM T") {
    const Records records(statements, query);
    return Table(*records);
  }
  std::string Table(platform::Recordset& records) {
    return view.Text(
        [&](html::HtmlWriter&, state::Render& render) { views::WriteExcelTable(render, records); });
  }
};

/// The statements that make T with these columns and rows.
std::string T(const std::string& columns, const std::string& rows) {
  return "CREATE TABLE T (" + columns + "); INSERT INTO T VALUES " + rows;
}

std::size_t Count(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) ++count;
  return count;
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
  EXPECT_EQ(view.settings.ErrorMessage, "");
}

TEST_F(SpreadsheetTable, IsWrittenToTheByteWithAllAttributes) {
  view.settings.THTag = "bgcolor=gray";
  view.settings.TDTag = "valign=top";
  view.settings.TDOddTag = "class=a";
  view.settings.TDEvenTag = "class=b";
  settings::SetGridColHeadAttributes(view.settings, 1, "width=9");
  settings::SetGridColAttributes(view.settings, 1, "nowrap");
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
  settings::SetGridColHeadAttributes(view.settings, 1, "width=9");
  EXPECT_TRUE(
      Contains(Table(T("A INTEGER", "(1)")), R"(<th style="border:thin silver solid" width=9 >A</th>)"));
}

TEST_F(SpreadsheetTable, StartsWithTheRecordsWhenThereIsNoHeader) {
  view.settings.DisplayHeader = false;
  EXPECT_EQ(Table(T("A INTEGER", "(7)")),
            "<table>\r\n<tr>\r\n<td style=\"border:thin silver solid\"    align=\"right\" "
            ">7</td>\r\n</tr>\r\n</table>");
}

TEST_F(SpreadsheetTable, HasAHeaderAndNothingElseWithoutRecords) {
  EXPECT_EQ(Table("CREATE TABLE T (A INTEGER)"),
            "<table>\r\n<tr>\r\n<th style=\"border:thin silver solid\"  >A</th>\r\n</tr>\r\n</table>");
}

TEST_F(SpreadsheetTable, EndsAtTheLimitOfRecords) {
  view.settings.RecordsMaxLimit = 2;
  const std::string table = Table(T("A INTEGER", "(11), (12), (13)"));
  EXPECT_TRUE(Contains(table, ">12</td>"));
  EXPECT_FALSE(Contains(table, ">13</td>"));
}

TEST_F(SpreadsheetTable, HasNoRecordsUnderALimitOfNone) {
  for (const int limit : {0, -1}) {
    view.settings.RecordsMaxLimit = limit;
    EXPECT_EQ(Count(Table(T("A INTEGER", "(1), (2)")), "<tr>"), 1u);
  }
}

TEST_F(SpreadsheetTable, IgnoresThePageAndItsSize) {
  view.settings.RecordsPerPage = 1;
  view.current_record = 2;
  EXPECT_EQ(Count(Table(T("A INTEGER", "(1), (2), (3)")), "<td"), 3u);
}

TEST_F(SpreadsheetTable, CountsHiddenColumns) {
  view.settings.GridFieldsHide = "B";
  settings::SetGridColAttributes(view.settings, 2, "title=two");
  settings::SetGridColAttributes(view.settings, 3, "title=three");
  settings::SetGridColHeadAttributes(view.settings, 3, "width=3");
  const std::string table = Table(T("A INTEGER, B INTEGER, C VARCHAR(9)", "(1, 2, 'c')"));
  EXPECT_FALSE(Contains(table, ">B</th>") || Contains(table, ">2</td>") || Contains(table, "title=two"));
  EXPECT_TRUE(Contains(table, "solid\" width=3 >C</th>"));
  EXPECT_TRUE(Contains(table, "solid\"   title=three >c</td>"));
}

TEST_F(SpreadsheetTable, HasOnlyTheColumnsToShow) {
  view.settings.GridFieldsShow = "3,a";
  const std::string table = Table(T("A INTEGER, B INTEGER, C INTEGER", "(1, 2, 3)"));
  EXPECT_EQ(Count(table, "<th"), 2u);
  EXPECT_FALSE(Contains(table, ">B</th>"));
}

TEST_F(SpreadsheetTable, NamesColumnsAsTheQueryDoes) {
  view.settings.GridDisplayFieldNames = "Shown in the grid";
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
  EXPECT_EQ(Count(table, " >&nbsp;</td>"), 5u);
}

TEST_F(SpreadsheetTable, WritesValuesAsTheyAre) {
  EXPECT_TRUE(
      Contains(Table(T("A VARCHAR(40)", "('<b>Łódź</b> & \"東京\"')")), " ><b>Łódź</b> & \"東京\"</td>"));
}

TEST_F(SpreadsheetTable, CutsMemosAsTheGridDoes) {
  view.settings.MemoFieldLimit = 4;
  EXPECT_TRUE(Contains(Table(T("A TEXT", "('Grüße')")), " >Grüß...</td>"));
}

TEST_F(SpreadsheetTable, LeavesFieldNamesInAttributesAsTheyAre) {
  view.settings.TDTag = "title='##A##'";
  EXPECT_TRUE(Contains(Table(T("A INTEGER", "(1)")), "title='##A##'"));
}

TEST_F(SpreadsheetTable, NeverAppliesTemplates) {
  settings::SetGridFreeFormatCellByCol(view.settings, 1, "<i>#A#</i>");
  EXPECT_TRUE(Contains(Table(T("A INTEGER", "(1)")), " >1</td>"));
}

TEST_F(SpreadsheetTable, AppliesFormatFunctionsOnlyWhenThePageWantsIt) {
  settings::SetGridFormatCellFunction(view.settings, 1, "LEFT,2");
  EXPECT_TRUE(Contains(Table(T("A VARCHAR(9)", "('abcd')")), " >abcd</td>"));
  view.settings.ApplyCellFormattingToExcel = true;
  EXPECT_TRUE(Contains(Table(T("A VARCHAR(9)", "('abcd')")), " >ab</td>"));
  EXPECT_EQ(view.settings.ErrorMessage, "");
}

TEST_F(SpreadsheetTable, ShowsNoRowNumbersAndNoGridAttributes) {
  view.settings.GridTDTag = "title=grid";
  view.settings.GridTROddTag = "title=row";
  const std::string table = Table(T("A INTEGER", "(5)"));
  EXPECT_EQ(Count(table, "<td"), 1u);
  EXPECT_FALSE(Contains(table, "title="));
}

TEST_F(SpreadsheetTable, StartsAtTheCurrentRecordAndLeavesTheRecordsOpen) {
  const Records records(T("A INTEGER", "(11), (12), (13), (14), (15), (16)"));
  records->Move(4);
  view.settings.DisplayHeader = false;
  const std::string table = Table(*records);
  EXPECT_FALSE(Contains(table, ">14</td>"));
  EXPECT_TRUE(Contains(table, ">15</td>") && Contains(table, ">16</td>"));
  EXPECT_TRUE(records->IsOpen());
  EXPECT_TRUE(records->Eof());
}

}  // namespace
}  // namespace dralo::tests
