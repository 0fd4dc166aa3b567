#include <gtest/gtest.h>

#include <string>

#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

TEST(SuppressedDuplicates, ShowARunOfEqualValuesOnceInAnyLetterCase) {
  Rendering view = RowsOnly();
  view.settings.GridFieldsSupressDup = "v";
  const Records records = Column("VARCHAR(9)", {"'Oslo'", "'OSLO'", "'Köln'", "'KÖLN'", "'oslo'"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_1"class="DRLOTableTDodd">Oslo</td>
      </tr>
      <tr id="drl1row_2"class="DRLOTableTReven">
      <td id="drl1cell_2_1"class="DRLOTableTDeven">&nbsp;</td>
      </tr>
      <tr id="drl1row_3"class="DRLOTableTRodd">
      <td id="drl1cell_3_1"class="DRLOTableTDodd">Köln</td>
      </tr>
      <tr id="drl1row_4"class="DRLOTableTReven">
      <td id="drl1cell_4_1"class="DRLOTableTDeven">&nbsp;</td>
      </tr>
      <tr id="drl1row_5"class="DRLOTableTRodd">
      <td id="drl1cell_5_1"class="DRLOTableTDodd">oslo</td>
      </tr>
      )"));
}

TEST(SuppressedDuplicates, CompareLettersOfEveryScript) {
  Rendering view = RowsOnly();
  view.settings.UseCSS = false;
  view.settings.GridFieldsSupressDup = "v";
  const Records records = Column("VARCHAR(9)", {"'ⱥθήνας'", "'ȺΘΉΝΑΣ'", "'ａ'", "'Ａ'", "'a'"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
      <tr id="drl1row_1">
      <td id="drl1cell_1_1">ⱥθήνας</td>
      </tr>
      <tr id="drl1row_2">
      <td id="drl1cell_2_1"">&nbsp;</td>
      </tr>
      <tr id="drl1row_3">
      <td id="drl1cell_3_1">ａ</td>
      </tr>
      <tr id="drl1row_4">
      <td id="drl1cell_4_1"">&nbsp;</td>
      </tr>
      <tr id="drl1row_5">
      <td id="drl1cell_5_1">a</td>
      </tr>
      )"));
}

TEST(SuppressedDuplicates, KeepAttributesButNoAlignment) {
  Rendering view = RowsOnly();
  view.settings.GridFieldsSupressDup = "1";
  view.settings.GridCellsNoBr = "1";
  view.settings.GridTDTag = "valign=top";
  settings::SetGridColAttributes(view.settings, 1, "nowrap");
  const Records records = Column("INTEGER", {"7", "7"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_1"class="DRLOTableTDodd" nowrap valign=top align="right"><nobr>7</nobr></td>
      </tr>
      <tr id="drl1row_2"class="DRLOTableTReven">
      <td id="drl1cell_2_1"class="DRLOTableTDeven" nowrap valign=top>&nbsp;</td>
      </tr>
      )"));
}

TEST(SuppressedDuplicates, HaveAStrayQuotationMarkWithoutCSS) {
  Rendering view = RowsOnly();
  view.settings.UseCSS = false;
  view.settings.GridFieldsSupressDup = "1";
  const Records records = Column("INTEGER", {"7", "7"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
      <tr id="drl1row_1">
      <td id="drl1cell_1_1" align="right">7</td>
      </tr>
      <tr id="drl1row_2">
      <td id="drl1cell_2_1"">&nbsp;</td>
      </tr>
      )"));
}

TEST(SuppressedDuplicates, TakeNullForAnEmptyText) {
  Rendering view = RowsOnly();
  view.settings.UseCSS = false;
  view.settings.GridFieldsSupressDup = "1";
  const Records records = Column("VARCHAR(9)", {"NULL", "''", "'x'"});

  EXPECT_HTML(view.Grid(*records), Lines(R"(
      <tr id="drl1row_1">
      <td id="drl1cell_1_1">&nbsp;</td>
      </tr>
      <tr id="drl1row_2">
      <td id="drl1cell_2_1"">&nbsp;</td>
      </tr>
      <tr id="drl1row_3">
      <td id="drl1cell_3_1">x</td>
      </tr>
      )"));
}

TEST(SuppressedDuplicates, AreForgottenAtTheNextGrid) {
  Rendering view = RowsOnly();
  view.settings.GridFieldsSupressDup = "1";
  for (int round = 0; round < 2; ++round) {
    const Records records = Column("VARCHAR(9)", {"'x'"});
    EXPECT_NE(view.Grid(*records).find(">x</td>"), std::string::npos);
  }
}

TEST(SuppressedDuplicates, AreRememberedByColumnUnlessTwoShareAnEntry) {
  Rendering view = RowsOnly();
  view.settings.GridFieldsSupressDup = "A,2";
  const Records apart("CREATE TABLE T (A, B); INSERT INTO T VALUES ('x', 'x'), ('x', 'y')");
  EXPECT_EQ(CountOf("&nbsp;", view.Grid(*apart)), 1);

  view.settings.GridFieldsSupressDup = "A";
  const Records shared("CREATE TABLE T (B); INSERT INTO T VALUES ('x')", "SELECT 'x' AS A, B AS A FROM T");
  EXPECT_EQ(CountOf("&nbsp;", view.Grid(*shared)), 1);
}

TEST(SuppressedDuplicates, CompareValuesAndNotTemplates) {
  Rendering view = RowsOnly();
  view.settings.GridFieldsSupressDup = "V";
  settings::SetGridFreeFormatCellByCol(view.settings, 1, "same");
  const Records records = Column("INTEGER", {"1", "2", "2"});

  const std::string grid = view.Grid(*records);
  EXPECT_EQ(CountOf("same", grid), 2);
  EXPECT_EQ(CountOf("&nbsp;", grid), 1);
}

}  // namespace
}  // namespace dralo::tests
