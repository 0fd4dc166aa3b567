#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

#include "support/items.h"

namespace dralo {
namespace {

using tests::ItemsPage;

/// Texts that stand a good chance to reach odd corners: pieces of templates, formats and lists, and any
/// bytes.
class OddTexts {
 public:
  explicit OddTexts(unsigned seed) : random_(seed) {}

  std::string Next() {
    constexpr std::string_view kPieces[] = {
        "#",
        "##",
        "#Name#",
        "##Name##",
        "#dralopostbackurl#",
        " DRALOFORMURL ",
        ",",
        "1",
        "2",
        "-1",
        "99999999999",
        "LEFT",
        "FORMAT,",
        "REGEXPREPLACE,",
        "/(a+)+$/",
        "g,",
        "\\/",
        "$1",
        "FORMATNUMBER",
        "0.00;",
        "yyyy",
        "DATEADD,m,",
        "\"",
        "'>",
        "</td>",
        "\xC3",
        "\xF0\x9F\x98",
        "é",
        "@@@@",
        "!",
        "E+0",
        " ",
    };
    std::string text;
    for (std::size_t pieces = Below(7); pieces > 0; --pieces) {
      if (Below(4) == 0) {
        text += static_cast<char>(Below(256));
      } else {
        text += kPieces[Below(std::size(kPieces))];
      }
    }
    return text;
  }

  std::size_t Below(std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(random_);
  }

 private:
  std::mt19937 random_;
};

/// Sets templates, formats, attributes and delimiters of any content on the view.
void SetOddColumns(component::DbView& view, OddTexts& texts) {
  if (texts.Below(2) == 0) view.Set("GridFreeFormatCellDataFieldDelimiter", texts.Next());
  if (texts.Below(2) == 0) view.Set("GridFreeFormatCellColumnDelimiter", texts.Next());
  if (texts.Below(2) == 0) view.Set("GridFreeFormatCell", texts.Next());
  if (texts.Below(2) == 0) view.Set("GridTROddTag", texts.Next());
  if (texts.Below(2) == 0) view.Set("TDTag", texts.Next());
  for (const component::IndexedProperty& property : component::DbViewIndexedProperties()) {
    if (property.set == nullptr) continue;
    const auto column = static_cast<std::int16_t>(static_cast<int>(texts.Below(5)) - 1);
    property.set(view, column, texts.Next());
    static_cast<void>(property.get(view, column));
  }
}

TEST(AnyTemplateOrFormat, GivesAPageWithAllItsRowsAndLeavesNoStatementOpen) {
  OddTexts texts(4711);
  for (int round = 0; round < 400; ++round) {
    ItemsPage page(3);
    SetOddColumns(page.view, texts);
    const std::string body = page.Render();
    EXPECT_NE(body.find("id=\"drl1row_3\""), std::string::npos) << page.ErrorMessage();
    EXPECT_TRUE(body.ends_with("</form>\r\n</table>\r\n"));
    page.database.Run("BEGIN EXCLUSIVE; COMMIT");
  }
}

TEST(AnyTemplateOrFormat, GivesAWholeSpreadsheet) {
  OddTexts texts(815);
  for (int round = 0; round < 200; ++round) {
    ItemsPage page(3);
    page.view.Set("ApplyCellFormattingToExcel", true);
    SetOddColumns(page.view, texts);
    page.Ask("ToExcel.x", "1");
    EXPECT_TRUE(page.Render().ends_with("</tr>\r\n</table>")) << page.ErrorMessage();
  }
}

}  // namespace
}  // namespace dralo
