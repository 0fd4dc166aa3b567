#include <gtest/gtest.h>

#include <string>

#include "security/notes_page.h"
#include "settings/column_settings.h"

namespace dralo::tests {
namespace {

/// Of a page with an expression that takes ages over each of its values.
std::size_t Messages(bool is_hardened) {
  NotesPage page(is_hardened);
  page.database.Run("UPDATE Notes SET Title = 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx'");
  settings::SetGridFormatCellFunction(page.view.MutableSettings(), 2, "REGEXPREPLACE,/(x+x+)+[yw]/,z");
  page.Render();
  std::size_t count = 0;
  const std::string& text = page.ErrorMessage();
  for (std::size_t at = text.find("<br>"); at != text.npos; at = text.find("<br>", at + 1)) ++count;
  return count;
}

TEST(PatternTime, EndsEachSearchAndIsToldForEachCellOfAPlainPage) { EXPECT_EQ(Messages(false), 2U); }

TEST(PatternTime, EndsEachSearchAndIsToldOnceOnAHardenedPage) { EXPECT_EQ(Messages(true), 1U); }

}  // namespace
}  // namespace dralo::tests
