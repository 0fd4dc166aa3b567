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

/// The grid's only cell for a value of the type.
std::string CellText(Rendering& view, TypeCode type, std::string_view value) {
  FakeRecords records(1);
  records.Add("V", type, [value] { return platform::VariantView(value); });
  const std::string grid = view.Grid(records);
  const std::string_view start = R"(<td id="drl1cell_1_1"class="DRLOTableTDodd">)";
  const std::string_view end = "</td>\r\n</tr>\r\n";
  const std::size_t at = grid.find(start);
  if (at == std::string::npos || !grid.ends_with(end)) return "(no cell)";
  return grid.substr(at + start.size(), grid.size() - end.size() - at - start.size());
}

TEST(HostileValues, AreWrittenAsTheyStand) {
  Rendering view = RowsOnly();
  using namespace std::string_view_literals;
  for (const std::string_view value :
       {"</td></tr></table><script>alert(\"1\")</script>"sv, "a\0b\0"sv, "\xFF\xFE\xC3"sv, "\xF0\x9F\x98"sv,
        "{}{}"sv, "##V##"sv, "\r\n\r\n"sv}) {
    EXPECT_EQ(CellText(view, TypeCode::kVarWideChar, value), value);
    EXPECT_EQ(CellText(view, TypeCode::kLongVarWideChar, value), value);
  }
  EXPECT_EQ(view.settings.ErrorMessage, "");
}

TEST(HostileValues, AreCutInCharactersEvenWhenTheyAreNoUtf8) {
  Rendering view = RowsOnly();
  view.settings.MemoFieldLimit = 2;
  EXPECT_EQ(CellText(view, TypeCode::kLongVarChar, "\xFF\xFF\xFF"), "\xFF\xFF...");
  EXPECT_EQ(CellText(view, TypeCode::kLongVarChar, "a\xE2\x82"), "a\xE2...");
  EXPECT_EQ(CellText(view, TypeCode::kLongVarChar, std::string_view("\0\0\0", 3)), std::string("\0\0...", 5));
}

TEST(HostileValues, AreComparedWhenTheyAreNoUtf8) {
  Rendering view = RowsOnly();
  view.settings.GridFieldsSupressDup = "1";
  EXPECT_EQ(CellText(view, TypeCode::kVarWideChar, "\xFF\xC3"), "\xFF\xC3");
}

TEST(HostileValues, InTemplatesAndTagsAreWrittenAsTheyStand) {
  Rendering view = RowsOnly();
  settings::SetGridFreeFormatCellByCol(view.settings, 1, "[#V#]");
  EXPECT_EQ(CellText(view, TypeCode::kVarWideChar, "#V#<\xFF>"), "[#V#<\xFF>]");
}

TEST(HostileValues, OfAMegabyteAreWrittenWhole) {
  Rendering view = RowsOnly();
  const Records records(
      "CREATE TABLE T (V TEXT); INSERT INTO T VALUES (replace(hex(zeroblob(524288)), '0', 'x'))");

  const std::string grid = view.Grid(*records);

  EXPECT_NE(grid.find(">" + std::string(1048576, 'x') + "</td>"), std::string::npos);
}

TEST(HostileValues, OfAMegabyteAreCutAtTheLimit) {
  Rendering view = RowsOnly();
  view.settings.MemoFieldLimit = 1000;
  const std::string value(1048576, 'x');

  EXPECT_EQ(CellText(view, TypeCode::kLongVarWideChar, value), std::string(1000, 'x') + "...");
}

TEST(HostileValues, MayFillThreeHundredColumns) {
  Rendering view;
  view.settings.GridFieldsSupressDup = "300,1";
  settings::SetGridColAttributes(view.settings, 300, "last");
  std::string columns = "'c' AS C1";
  for (int column = 2; column <= 300; ++column) columns += ", " + std::to_string(column);
  const Records records("CREATE TABLE T (A); INSERT INTO T VALUES (1)", "SELECT " + columns + " FROM T");

  const std::string grid = view.Grid(*records);

  EXPECT_NE(grid.find(R"(<td id="drl1cell_1_300"class="DRLOTableTDodd" last align="right">300</td>)"),
            std::string::npos);
  EXPECT_NE(grid.find("&Morvu1OrderByFields=300&Morvu1BookMark=0"), std::string::npos);
  EXPECT_EQ(views::DisplayedGridColumns(view.settings, *records), 301);
}

TEST(HostileValues, MayHaveNoColumnToStandIn) {
  Rendering view = RowsOnly();
  view.settings.GridFieldsHide = "V";
  FakeRecords records(2);
  records.Add("V", TypeCode::kVarWideChar, [] { return platform::VariantView(std::string_view("x")); });

  EXPECT_HTML(view.Grid(records), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      </tr>
      <tr id="drl1row_2"class="DRLOTableTReven">
      </tr>
      )"));
}

TEST(HostileValues, MayComeWithoutAnyField) {
  Rendering view;
  view.settings.GridLinkIndex = -1;
  FakeRecords records(1);

  EXPECT_HTML(view.Grid(records), Lines(R"(
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
