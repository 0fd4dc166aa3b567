#include <gtest/gtest.h>

#include <string>

#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "unit/views/form_page.h"

namespace dralo::tests {
namespace {

/// A one-record view of one value, without its label.
struct FormGridCell : FormPage {
  FormGridCell() {
    settings.DisplayHeader = false;
    settings.UseCSS = false;
  }

  /// The text of the first record's cell.
  std::string Cell(std::string_view type, std::string_view value) {
    const std::string fields = FieldRows(*Column(type, {value}));
    const std::string_view start = "<tr><td>";
    const std::string_view end = "</td></tr>\r\n";
    if (!fields.starts_with(start) || !fields.ends_with(end)) return "(no cell)" + fields;
    return fields.substr(start.size(), fields.size() - start.size() - end.size());
  }
};

TEST_F(FormGridCell, TakesTheTemplateBeforeTheFormatFunctionAndThatBeforeTheStandardText) {
  settings::SetGridFormatCellFunction(settings, 1, "UCASE");
  EXPECT_EQ(Cell("VARCHAR(9)", "'x'"), "X");

  settings::SetGridFreeFormatCellByCol(settings, 1, "<b>#V#</b>");
  EXPECT_EQ(Cell("VARCHAR(9)", "'x'"), "<b>x</b>");
}

TEST_F(FormGridCell, LeavesFormatFunctionsButNotTemplatesToTheGridWhenThePageSaysSo) {
  settings.ApplyCellFormattingToForm = false;
  settings::SetGridFormatCellFunction(settings, 1, "UCASE");
  EXPECT_EQ(Cell("VARCHAR(9)", "'x'"), "x");

  settings::SetGridFreeFormatCellByCol(settings, 1, "<b>#V#</b>");
  EXPECT_EQ(Cell("VARCHAR(9)", "'x'"), "<b>x</b>");
}

TEST_F(FormGridCell, OfAnEmptyTemplateIsEmpty) {
  settings::SetGridFreeFormatCellByCol(settings, 1, "#V#");

  EXPECT_EQ(Cell("INTEGER", "NULL"), "");
}

TEST_F(FormGridCell, ShowsTheRegionalTextOfDatesAndNumbers) {
  EXPECT_EQ(Cell("DATE", "'2024-02-29'"), "2/29/2024");
  EXPECT_EQ(Cell("REAL", "-0.5"), "-0.5");
  EXPECT_EQ(Cell("BLOB", "x'00'"), "&nbsp;");
  EXPECT_EQ(Cell("VARCHAR(9)", "'  '"), "&nbsp;");
}

TEST_F(FormGridCell, IsNeverALinkToTheViewItStandsIn) {
  settings.GridLinkIndex = 1;

  EXPECT_EQ(Cell("INTEGER", "4"), "4");
}

TEST_F(FormGridCell, ShowsMemosUnchangedWithoutALimitWholeUnderOneAndNotAtAllWithTheLimitZero) {
  EXPECT_EQ(Cell("TEXT", "'a long text'"), "a long text");

  settings.MemoFieldLimit = 3;
  EXPECT_EQ(Cell("TEXT", "'a long text'"), "a long text&nbsp;");

  settings.MemoFieldLimit = 0;
  EXPECT_EQ(Cell("TEXT", "'a long text'"), "&nbsp;");
}

TEST_F(FormGridCell, ShowsValuesAsTheyStand) {
  EXPECT_EQ(Cell("VARCHAR(40)", R"('<i>"A" & B</i>')"), R"(<i>"A" & B</i>)");
}

TEST_F(FormGridCell, LeadsFromATemplateToItsOwnRecord) {
  settings.EditPrimaryKeys = "V";
  current_record = 5;
  settings::SetGridFreeFormatCellByCol(settings, 1, "#DRALOFORMURL#");

  EXPECT_TRUE(Contains(Form(*Column("VARCHAR(9)", {"'a b'"})), "Morvu1PK=a+b&"));
  EXPECT_EQ(settings.ErrorMessage, "");
}

TEST_F(FormGridCell, OfATemplateCountsItsRecordOverAllPages) {
  settings.EditSQL = "";
  current_record = 5;
  records_on_page = 2;
  settings::SetGridFreeFormatCellByCol(settings, 1, "#DRALOPOSTBACKURL#");

  const std::string form = Form(*Column("INTEGER", {"1", "2", "3"}));

  EXPECT_TRUE(Contains(form, "Morvu1BookMark=5&"));
  EXPECT_TRUE(Contains(form, "Morvu1BookMark=6&"));
  EXPECT_FALSE(Contains(form, "Morvu1BookMark=7&"));
}

TEST_F(FormGrid, ReportsATemplateThatNamesNoFieldAndShowsTheOtherFields) {
  settings::SetGridFreeFormatCellByCol(settings, 1, "[#Nobody#]");

  EXPECT_HTML(FieldRows(), Lines(R"(
      <tr class="DRLOTableTR"><th align=left>ID</th><td>[</td></tr>
      <tr class="DRLOTableTR"><th align=left>Name</th><td>Ann</td></tr>
      <tr class="DRLOTableTR"><th align=left>Member</th><td>True</td></tr>
      )"));
  EXPECT_TRUE(Contains(settings.ErrorMessage, " in GetFreeCellString. index=1, nArrIdx=1<br>"));
}

}  // namespace
}  // namespace dralo::tests
