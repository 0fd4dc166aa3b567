#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "support/fake_records.h"
#include "unit/views/grid_page.h"
#include "views/data_grid.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;

struct HostileValues : DataGridRows {
  /// The grid's only cell for a value of the type.
  std::string Cell(TypeCode type, std::string_view value) {
    FakeRecords records(1);
    records.Add("V", type, [value] { return platform::VariantView(value); });
    const std::string grid = Grid(records);
    const std::string_view start = R"(<td id="drl1cell_1_1"class="DRLOTableTDodd">)";
    const std::string_view end = "</td>\r\n</tr>\r\n";
    const std::size_t at = grid.find(start);
    if (at == std::string::npos || !grid.ends_with(end)) return "(no cell)";
    return grid.substr(at + start.size(), grid.size() - end.size() - at - start.size());
  }
};

TEST_F(HostileValues, AreWrittenAsTheyStand) {
  using namespace std::string_view_literals;
  for (const std::string_view value :
       {"</td></tr></table><script>alert(\"1\")</script>"sv, "a\0b\0"sv, "\xFF\xFE\xC3"sv, "\xF0\x9F\x98"sv,
        "{}{}"sv, "##V##"sv, "\r\n\r\n"sv}) {
    EXPECT_EQ(Cell(TypeCode::kVarWideChar, value), value);
    EXPECT_EQ(Cell(TypeCode::kLongVarWideChar, value), value);
  }
  EXPECT_EQ(settings.ErrorMessage, "");
}

TEST_F(HostileValues, AreCutInCharactersEvenWhenTheyAreNoUtf8) {
  settings.MemoFieldLimit = 2;
  EXPECT_EQ(Cell(TypeCode::kLongVarChar, "\xFF\xFF\xFF"), "\xFF\xFF...");
  EXPECT_EQ(Cell(TypeCode::kLongVarChar, "a\xE2\x82"), "a\xE2...");
  EXPECT_EQ(Cell(TypeCode::kLongVarChar, std::string_view("\0\0\0", 3)), std::string("\0\0...", 5));
}

TEST_F(HostileValues, AreComparedWhenTheyAreNoUtf8) {
  settings.GridFieldsSupressDup = "1";
  EXPECT_EQ(Cell(TypeCode::kVarWideChar, "\xFF\xC3"), "\xFF\xC3");
}

TEST_F(HostileValues, InTemplatesAndTagsAreWrittenAsTheyStand) {
  settings::SetGridFreeFormatCellByCol(settings, 1, "[#V#]");
  EXPECT_EQ(Cell(TypeCode::kVarWideChar, "#V#<\xFF>"), "[#V#<\xFF>]");
}

TEST_F(HostileValues, OfAMegabyteAreWrittenWhole) {
  const std::string grid = Grid(Column("TEXT", {"replace(hex(zeroblob(524288)), '0', 'x')"}));

  EXPECT_TRUE(Contains(grid, ">" + std::string(1048576, 'x') + "</td>"));
}

TEST_F(HostileValues, OfAMegabyteAreCutAtTheLimit) {
  settings.MemoFieldLimit = 1000;

  EXPECT_EQ(Cell(TypeCode::kLongVarWideChar, std::string(1048576, 'x')), std::string(1000, 'x') + "...");
}

TEST_F(DataGrid, MayHaveThreeHundredColumns) {
  settings.GridFieldsSupressDup = "300,1";
  settings::SetGridColAttributes(settings, 300, "last");
  std::string columns = "'c' AS C1";
  for (int column = 2; column <= 300; ++column) columns += ", " + std::to_string(column);
  const Records records("CREATE TABLE T (A); INSERT INTO T VALUES (1)", "SELECT " + columns + " FROM T");

  const std::string grid = Grid(*records);

  EXPECT_TRUE(Contains(grid, R"(<td id="drl1cell_1_300"class="DRLOTableTDodd" last align="right">300</td>)"));
  EXPECT_TRUE(Contains(grid, "&Morvu1OrderByFields=300&Morvu1BookMark=0"));
  EXPECT_EQ(views::DisplayedGridColumns(settings, *records), 301);
}

TEST_F(HostileValues, MayHaveNoColumnToStandIn) {
  settings.GridFieldsHide = "V";
  FakeRecords records(2);
  records.Add("V", TypeCode::kVarWideChar, [] { return platform::VariantView(std::string_view("x")); });

  EXPECT_HTML(Grid(records), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      </tr>
      <tr id="drl1row_2"class="DRLOTableTReven">
      </tr>
      )"));
}

TEST_F(DataGrid, MayHaveRowsWithoutAnyField) {
  settings.GridLinkIndex = -1;
  FakeRecords records(1);

  EXPECT_HTML(Grid(records), Lines(R"(
      <tr class="DRLOTableTR">
      <th class="DRLOTableTH">#</th>
      </tr>
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_0"class="DRLOTableTDodd">1</td>
      </tr>
      )"));
}

}  // namespace
}  // namespace dralo::tests
