#include <gtest/gtest.h>

#include <string>

#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

/// Rows of one column, each value shown once.
struct SuppressedDuplicates : DataGridRows {
  SuppressedDuplicates() { settings.GridFieldsSupressDup = "1"; }
};

TEST_F(SuppressedDuplicates, ShowARunOfEqualValuesOnceInAnyLetterCase) {
  settings.GridFieldsSupressDup = "v";

  EXPECT_HTML(Grid(Column("VARCHAR(9)", {"'Oslo'", "'OSLO'", "'Köln'", "'KÖLN'", "'oslo'"})),
              RowsOf({">Oslo", ">&nbsp;", ">Köln", ">&nbsp;", ">oslo"}));
}

TEST_F(SuppressedDuplicates, CompareLettersOfEveryScript) {
  EXPECT_HTML(Grid(Column("VARCHAR(9)", {"'ⱥθήνας'", "'ȺΘΉΝΑΣ'", "'ａ'", "'Ａ'", "'a'"})),
              RowsOf({">ⱥθήνας", ">&nbsp;", ">ａ", ">&nbsp;", ">a"}));
}

TEST_F(SuppressedDuplicates, KeepAttributesButNoAlignment) {
  settings.GridCellsNoBr = "1";
  settings.GridTDTag = "valign=top";
  settings::SetGridColAttributes(settings, 1, "nowrap");

  EXPECT_HTML(Grid(Column("INTEGER", {"7", "7"})),
              RowsOf({R"( nowrap valign=top align="right"><nobr>7</nobr>)", " nowrap valign=top>&nbsp;"}));
}

TEST_F(SuppressedDuplicates, HaveAStrayQuotationMarkWithoutCSS) {
  settings.UseCSS = false;

  EXPECT_HTML(Grid(Column("INTEGER", {"7", "7"})),
              RowsWithoutClassesOf({R"( align="right">7)", R"(">&nbsp;)"}));
}

TEST_F(SuppressedDuplicates, TakeNullForAnEmptyText) {
  settings.UseCSS = false;

  EXPECT_HTML(Grid(Column("VARCHAR(9)", {"NULL", "''", "'x'"})),
              RowsWithoutClassesOf({">&nbsp;", R"(">&nbsp;)", ">x"}));
}

TEST_F(SuppressedDuplicates, AreForgottenAtTheNextGrid) {
  for (int round = 0; round < 2; ++round) {
    EXPECT_HTML(Grid(Column("VARCHAR(9)", {"'x'"})), RowsOf({">x"}));
  }
}

TEST_F(SuppressedDuplicates, AreRememberedByColumnUnlessTwoShareAnEntry) {
  settings.GridFieldsSupressDup = "A,2";
  const Records apart("CREATE TABLE T (A, B); INSERT INTO T VALUES ('x', 'x'), ('x', 'y')");
  EXPECT_EQ(CountOf("&nbsp;", Grid(apart)), 1);

  settings.GridFieldsSupressDup = "A";
  const Records shared("CREATE TABLE T (B); INSERT INTO T VALUES ('x')", "SELECT 'x' AS A, B AS A FROM T");
  EXPECT_EQ(CountOf("&nbsp;", Grid(shared)), 1);
}

TEST_F(SuppressedDuplicates, CompareValuesAndNotTemplates) {
  settings::SetGridFreeFormatCellByCol(settings, 1, "same");

  EXPECT_HTML(Grid(Column("INTEGER", {"1", "2", "2"})),
              RowsOf({R"( align="right">same)", R"( align="right">same)", ">&nbsp;"}));
}

}  // namespace
}  // namespace dralo::tests
