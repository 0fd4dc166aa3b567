#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "security/notes_page.h"

namespace dralo::tests {
namespace {

std::string Cell(bool is_hardened, std::string_view text) {
  NotesPage page(is_hardened);
  page.Store("Title", text);
  page.Ask("ToExcel.x", "1");
  const std::string table = page.Render();
  const std::string start = "<td style=\"border:thin silver solid\"    >";
  const std::size_t at = table.find(start) + start.size();
  return table.substr(at, table.find("</td>", at) - at);
}

TEST(FormulaInExport, IsLiveInThePlainOneAndTextInTheHardenedOne) {
  for (const std::string_view formula : {"=HYPERLINK(1)", "+1", "-1", "@SUM(1)", "\t=1", "\r=1", "  =1",
                                         "\n=1", "\xC2\xA0=1", "\xE3\x80\x80=1",
                                         "\xEF\xBC\x9D"
                                         "1",
                                         "\xEF\xBC\x8B"
                                         "1",
                                         "\xEF\xBC\x8D"
                                         "1",
                                         "\xEF\xBC\xA0"
                                         "1"}) {
    EXPECT_EQ(Cell(false, formula), formula);
    EXPECT_EQ(Cell(true, formula), "'" + std::string(formula));
  }
}

TEST(FormulaInExport, LeavesOtherTextsAndNumbersAlone) {
  EXPECT_EQ(Cell(true, "1=1"), "1=1");
  EXPECT_EQ(Cell(true, "  a"), "  a");
  NotesPage page(true);
  page.database.Run("UPDATE Notes SET Price = -5 WHERE ID = 1");
  page.Ask("ToExcel.x", "1");
  EXPECT_TRUE(Contains(page.Render(), ">-5</td>"));
}

TEST(FormulaInExport, SeesATextInANumericColumn) {
  for (const bool is_hardened : {false, true}) {
    NotesPage page(is_hardened);
    page.Store("Price", "=f()");
    page.Ask("ToExcel.x", "1");
    EXPECT_EQ(Contains(page.Render(), ">=f()</td>"), !is_hardened);
  }
}

TEST(FormulaInExport, EscapesMarkup) {
  for (const bool is_hardened : {false, true}) {
    NotesPage page(is_hardened);
    page.Set("GridColsHtml", "Title");
    page.Store("Title", "<b>");
    page.Ask("ToExcel.x", "1");
    EXPECT_EQ(Contains(page.Render(), ">&lt;b&gt;</td>"), is_hardened);
  }
}

}  // namespace
}  // namespace dralo::tests
