#include <gtest/gtest.h>

#include <string>

#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "unit/views/form_page.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

/// A one-record view of one value, without its label.
struct ValuePage : FormPage {
  ValuePage() {
    settings.DisplayHeader = false;
    settings.UseCSS = false;
  }

  /// The text of the first record's cell.
  std::string Cell(const Records& records) {
    const std::string fields = FieldRows(Form(*records));
    const std::string_view start = "<tr><td>";
    const std::string_view end = "</td></tr>\r\n";
    if (!fields.starts_with(start) || !fields.ends_with(end)) return "(no cell)" + fields;
    return fields.substr(start.size(), fields.size() - start.size() - end.size());
  }
};

TEST(FormGridCell, TakesTheTemplateBeforeTheFormatFunction) {
  ValuePage page;
  settings::SetGridFreeFormatCellByCol(page.settings, 1, "<b>#V#</b>");
  settings::SetGridFormatCellFunction(page.settings, 1, "UCASE");

  EXPECT_EQ(page.Cell(Column("VARCHAR(9)", {"'x'"})), "<b>x</b>");
}

TEST(FormGridCell, TakesTheFormatFunctionBeforeTheStandardText) {
  ValuePage page;
  settings::SetGridFormatCellFunction(page.settings, 1, "UCASE");

  EXPECT_EQ(page.Cell(Column("VARCHAR(9)", {"'x'"})), "X");
}

TEST(FormGridCell, LeavesFormatFunctionsButNotTemplatesToTheGridWhenThePageSaysSo) {
  ValuePage page;
  page.settings.ApplyCellFormattingToForm = false;
  settings::SetGridFormatCellFunction(page.settings, 1, "UCASE");
  EXPECT_EQ(page.Cell(Column("VARCHAR(9)", {"'x'"})), "x");

  settings::SetGridFreeFormatCellByCol(page.settings, 1, "<b>#V#</b>");
  EXPECT_EQ(page.Cell(Column("VARCHAR(9)", {"'x'"})), "<b>x</b>");
}

TEST(FormGridCell, OfAnEmptyTemplateIsEmpty) {
  ValuePage page;
  settings::SetGridFreeFormatCellByCol(page.settings, 1, "#V#");

  EXPECT_EQ(page.Cell(Column("INTEGER", {"NULL"})), "");
}

TEST(FormGridCell, ShowsTheRegionalTextOfDatesAndNumbers) {
  ValuePage page;

  EXPECT_EQ(page.Cell(Column("DATE", {"'2024-02-29'"})), "2/29/2024");
  EXPECT_EQ(page.Cell(Column("REAL", {"-0.5"})), "-0.5");
  EXPECT_EQ(page.Cell(Column("BLOB", {"x'00'"})), "&nbsp;");
  EXPECT_EQ(page.Cell(Column("VARCHAR(9)", {"'  '"})), "&nbsp;");
}

TEST(FormGridCell, IsNeverALinkToTheViewItStandsIn) {
  ValuePage page;
  page.settings.GridLinkIndex = 1;

  EXPECT_EQ(page.Cell(Column("INTEGER", {"4"})), "4");
}

TEST(FormGridCell, ShowsMemosWholeUnderALimit) {
  ValuePage page;
  page.settings.MemoFieldLimit = 3;

  EXPECT_EQ(page.Cell(Column("TEXT", {"'a long text'"})), "a long text&nbsp;");
}

TEST(FormGridCell, ShowsMemosUnchangedWithoutALimitAndNotAtAllWithTheLimitZero) {
  ValuePage page;
  EXPECT_EQ(page.Cell(Column("TEXT", {"'a long text'"})), "a long text");

  page.settings.MemoFieldLimit = 0;
  EXPECT_EQ(page.Cell(Column("TEXT", {"'a long text'"})), "&nbsp;");
}

TEST(FormGridCell, ShowsValuesAsTheyStand) {
  ValuePage page;

  EXPECT_EQ(page.Cell(Column("VARCHAR(40)", {R"('<i>"A" & B</i>')"})), R"(<i>"A" & B</i>)");
}

TEST(FormGridCell, LeadsFromATemplateToItsOwnRecord) {
  ValuePage page;
  page.settings.EditPrimaryKeys = "V";
  page.current_record = 5;
  settings::SetGridFreeFormatCellByCol(page.settings, 1, "#DRALOFORMURL#");
  const Records values = Column("VARCHAR(9)", {"'a b'"});

  EXPECT_TRUE(Contains(page.Form(*values), "Morvu1PK=a+b&"));
  EXPECT_EQ(page.settings.ErrorMessage, "");
}

TEST(FormGridCell, OfATemplateCountsItsRecordOverAllPages) {
  ValuePage page;
  page.settings.EditSQL = "";
  page.current_record = 5;
  page.records_on_page = 2;
  settings::SetGridFreeFormatCellByCol(page.settings, 1, "#DRALOPOSTBACKURL#");
  const Records values = Column("INTEGER", {"1", "2", "3"});

  const std::string form = page.Form(*values);

  EXPECT_TRUE(Contains(form, "Morvu1BookMark=5&"));
  EXPECT_TRUE(Contains(form, "Morvu1BookMark=6&"));
  EXPECT_FALSE(Contains(form, "Morvu1BookMark=7&"));
}

TEST(FormGridCell, WithATemplateThatNamesNoFieldIsReportedAndTheOthersAreShown) {
  FormPage page;
  settings::SetGridFreeFormatCellByCol(page.settings, 1, "[#Nobody#]");
  const Records people(kPeople);

  EXPECT_HTML(FieldRows(page.Form(*people)), Lines(R"(
      <tr class="DRLOTableTR"><th align=left>ID</th><td>[</td></tr>
      <tr class="DRLOTableTR"><th align=left>Name</th><td>Ann</td></tr>
      <tr class="DRLOTableTR"><th align=left>Member</th><td>True</td></tr>
      )"));
  EXPECT_TRUE(Contains(page.settings.ErrorMessage, " in GetFreeCellString. index=1, nArrIdx=1<br>"));
}

}  // namespace
}  // namespace dralo::tests
