#include "settings/column_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dralo::tests {
namespace {

using settings::SetGridFreeFormatCell;
using settings::SetGridFreeFormatCellByCol;
using settings::Settings;

/// A text that no string can hold, so that storing it fails.
std::string_view TooLong() { return {"", std::string().max_size() + 1}; }

using Reader = std::string_view (*)(const Settings&, int, settings::ErrorReport);

std::string_view Read(Reader read, Settings& settings, int column) {
  return read(settings, column, settings::ErrorReport(settings.ErrorMessage));
}

/// What the property GridFreeFormatCellByCol holds.
void ExpectTemplates(const Settings& settings, std::string_view columns,
                     const std::vector<std::string>& values) {
  EXPECT_EQ(settings.GridFreeFormatCellByCol.index_list, columns);
  EXPECT_EQ(settings.GridFreeFormatCellByCol.values, values);
}

struct ColumnSettings : testing::Test {
  Settings settings;
};

using BulkTemplates = ColumnSettings;

TEST_F(ColumnSettings, KeepColumnsAndTextsInTheOrderOfTheirFirstSetting) {
  SetGridFreeFormatCellByCol(settings, 3, "#Name#");
  ExpectTemplates(settings, "3", {"3", "#Name#"});

  SetGridFreeFormatCellByCol(settings, 5, "x");
  ExpectTemplates(settings, "3,5", {"3", "#Name#", "5", "x"});

  SetGridFreeFormatCellByCol(settings, 3, "new");
  ExpectTemplates(settings, "3,5", {"3", "new", "5", "x"});
}

TEST_F(ColumnSettings, ReadBackWhatWasSetForTheColumn) {
  settings::SetGridFreeFormatCellByCol(settings, 1, " a ");
  settings::SetGridFormatCellFunction(settings, 2, "UCASE");
  settings::SetGridColAttributes(settings, 0, " b ");
  settings::SetGridColHeadAttributes(settings, -4, " c ");

  EXPECT_EQ(Read(settings::GridFreeFormatCellByCol, settings, 1), " a ");
  EXPECT_EQ(Read(settings::GridFormatCellFunction, settings, 2), "UCASE");
  EXPECT_EQ(Read(settings::GridColAttributes, settings, 0), " b ");
  EXPECT_EQ(Read(settings::GridColHeadAttributes, settings, -4), " c ");
}

TEST_F(ColumnSettings, ReadAsEmptyWithoutAMessageForAColumnThatHasNone) {
  settings::SetGridColAttributes(settings, 1, "nowrap");

  EXPECT_EQ(Read(settings::GridColAttributes, settings, 9), "");
  EXPECT_EQ(Read(settings::GridColHeadAttributes, settings, 9), "");
  EXPECT_EQ(Read(settings::GridFreeFormatCellByCol, settings, 9), "");
  EXPECT_EQ(Read(settings::GridFormatCellFunction, settings, 9), "");
  EXPECT_EQ(settings.ErrorMessage, "");
}

TEST_F(ColumnSettings, AreReportedWhenAReaderCountsOnAMissingOne) {
  EXPECT_EQ(Read(settings::GetFreeCellStringRaw, settings, 3), "");
  EXPECT_EQ(settings.ErrorMessage,
            "The column has no setting in GetFreeCellStringRaw. index=3, nArrIdx=-1<br>");

  settings.ErrorMessage.clear();
  EXPECT_EQ(Read(settings::GetFormatCellStringRaw, settings, 4), "");
  EXPECT_EQ(settings.ErrorMessage,
            "The column has no setting in GetFormatCellStringRaw. index=4, nArrIdx=-1<br>");
}

TEST_F(ColumnSettings, AreFoundByTheWholeNumberOnly) {
  SetGridFreeFormatCellByCol(settings, 12, "x");

  EXPECT_TRUE(settings::HasColumnSetting(settings.GridFreeFormatCellByCol, 12));
  for (const int column : {1, 2, 0, -12, 121}) {
    EXPECT_FALSE(settings::HasColumnSetting(settings.GridFreeFormatCellByCol, column)) << column;
  }
}

TEST_F(ColumnSettings, StripAFormatFunctionOfANewColumnOnly) {
  settings::SetGridFormatCellFunction(settings, 2, "  LEFT,3 ");
  EXPECT_EQ(Read(settings::GridFormatCellFunction, settings, 2), "LEFT,3");

  settings::SetGridFormatCellFunction(settings, 2, "  LEFT,3 ");
  EXPECT_EQ(Read(settings::GridFormatCellFunction, settings, 2), "  LEFT,3 ");
}

TEST_F(ColumnSettings, ShowTheStepsWhenATemplateCannotBeStored) {
  Settings first;
  SetGridFreeFormatCellByCol(first, 3, TooLong());
  EXPECT_THAT(first.ErrorMessage,
              testing::EndsWith(" in GridFreeFormatCellByCol. trace=Setting initial array. "
                                "mvarGridFreeFormatCellIdx=3<br>Setting marrGridFreeCell(0)=3<br><br>"));
  Settings further;
  SetGridFreeFormatCellByCol(further, 3, "x");
  SetGridFreeFormatCellByCol(further, 5, TooLong());
  EXPECT_THAT(further.ErrorMessage,
              testing::EndsWith(" in GridFreeFormatCellByCol. trace=Expanding array. currUBound=1, "
                                "mvarGridFreeFormatCellIdx=3,5<br>Setting marrGridFreeCell(2)=5<br><br>"));
}

TEST_F(ColumnSettings, ShowTheStepsWhenAFormatFunctionCannotBeStored) {
  // Blanks around the text would be read, so it must not be trimmed: the column has a function already.
  settings::SetGridFormatCellFunction(settings, 3, "x");
  settings::SetGridFormatCellFunction(settings, 3, TooLong());

  EXPECT_THAT(settings.ErrorMessage, testing::EndsWith(" in GridFormatCellFunction. trace=<br>"));
}

TEST_F(ColumnSettings, ReportAttributesThatCannotBeStored) {
  settings::SetGridColAttributes(settings, 3, TooLong());
  EXPECT_THAT(settings.ErrorMessage, testing::EndsWith(" in GridColAttributes. <br>"));
  settings::SetGridColHeadAttributes(settings, 3, TooLong());
  EXPECT_THAT(settings.ErrorMessage, testing::EndsWith(" in GridColHeadAttributes. <br>"));
}

TEST_F(BulkTemplates, AreNumberAndTemplateInTurn) {
  SetGridFreeFormatCellByCol(settings, 9, "gone");

  SetGridFreeFormatCell(settings, "2,<b>#Title#</b>,4,#Price# EUR");

  ExpectTemplates(settings, "2,4", {"2", "<b>#Title#</b>", "4", "#Price# EUR"});
  EXPECT_FALSE(settings::HasColumnSetting(settings.GridFreeFormatCellByCol, 9));
}

TEST_F(BulkTemplates, NeverMatchAColumnWhoseNumberBeginsWithABlank) {
  SetGridFreeFormatCell(settings, "2,x, 4,y");

  EXPECT_EQ(settings.GridFreeFormatCellByCol.index_list, "2, 4");
  EXPECT_FALSE(settings::HasColumnSetting(settings.GridFreeFormatCellByCol, 4));
  EXPECT_EQ(Read(settings::GridFreeFormatCellByCol, settings, 2), "x");
}

TEST_F(BulkTemplates, AreSplitAtTheColumnDelimiter) {
  settings.GridFreeFormatCellColumnDelimiter = "||";

  SetGridFreeFormatCell(settings, "2||a,b||4||c");

  EXPECT_EQ(Read(settings::GridFreeFormatCellByCol, settings, 2), "a,b");
  EXPECT_EQ(Read(settings::GridFreeFormatCellByCol, settings, 4), "c");
}

TEST_F(BulkTemplates, LeaveTheColumnsListedWhenTheTextIsEmpty) {
  SetGridFreeFormatCell(settings, "2,x");

  SetGridFreeFormatCell(settings, "");

  ExpectTemplates(settings, "2", {});
  EXPECT_EQ(Read(settings::GridFreeFormatCellByCol, settings, 2), "");
  EXPECT_EQ(settings.ErrorMessage,
            "The column has no setting in GetFreeCellStringRaw. index=2, nArrIdx=1<br>");
}

TEST_F(BulkTemplates, ReportALastColumnWithoutATemplate) {
  SetGridFreeFormatCell(settings, "2,x,3");

  EXPECT_TRUE(settings::HasColumnSetting(settings.GridFreeFormatCellByCol, 3));
  EXPECT_EQ(Read(settings::GridFreeFormatCellByCol, settings, 3), "");
  EXPECT_EQ(settings.ErrorMessage,
            "The column has no setting in GetFreeCellStringRaw. index=3, nArrIdx=3<br>");
}

TEST_F(BulkTemplates, CanBeSetByColumnAfterAnEmptyText) {
  SetGridFreeFormatCell(settings, "2,x,4,y");
  SetGridFreeFormatCell(settings, "");

  SetGridFreeFormatCellByCol(settings, 4, "new");
  SetGridFreeFormatCellByCol(settings, 7, "other");

  ExpectTemplates(settings, "2,4,7", {"2", "", "4", "new", "7", "other"});
  EXPECT_EQ(settings.ErrorMessage, "");
}

TEST_F(BulkTemplates, GetTheirMissingTemplateWhenAnotherColumnIsSet) {
  SetGridFreeFormatCell(settings, "2,x,3");

  SetGridFreeFormatCellByCol(settings, 5, "y");

  ExpectTemplates(settings, "2,3,5", {"2", "x", "3", "", "5", "y"});
  EXPECT_EQ(Read(settings::GridFreeFormatCellByCol, settings, 5), "y");
}

}  // namespace
}  // namespace dralo::tests
