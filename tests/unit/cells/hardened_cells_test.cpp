#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "cells/format_functions.h"
#include "cells/free_format.h"
#include "cells/standard_text.h"
#include "settings/column_settings.h"
#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {
namespace {

using cells::ValueForm;

struct HardenedCells : testing::Test {
  Rendering rendering;

  HardenedCells() { rendering.settings.Hardened = true; }

  std::string Standard(std::string_view type, std::string_view value, ValueForm form = ValueForm::kEscaped) {
    const Records records = Column(type, {value});
    return rendering.Text([&](html::HtmlWriter& out, state::Render& render) {
      out.Write(html::Verbatim{cells::GetStdDbFieldString(render, records[0], form)});
    });
  }

  std::string Formatted(std::string_view format, std::string_view value,
                        ValueForm form = ValueForm::kEscaped) {
    const Records records = Column("VARCHAR(50)", {value});
    rendering.settings.GridFormatCellFunction = {};
    settings::SetGridFormatCellFunction(rendering.settings, 1, format);
    return rendering.Text([&](html::HtmlWriter& out, state::Render& render) {
      out.Write(html::Verbatim{cells::FormatFunction(render, 1, form).CellText(render, records[0])});
    });
  }

  /// The cell that a template makes of V, a text.
  std::string Template(std::string_view text, std::string_view value) {
    const Records records = Column("VARCHAR(50)", {value});
    settings::SetGridFreeFormatCellByCol(rendering.settings, 1, text);
    return rendering.Text([&](html::HtmlWriter& out, state::Render& render) {
      cells::FreeFormatCell(render, *records, 1).Put(out, render, 1);
    });
  }

  std::string Tag(std::string_view text, std::string_view value) {
    const Records records = Column("VARCHAR(50)", {value});
    return rendering.Text([&](html::HtmlWriter& out, state::Render& render) {
      out.Write(html::Verbatim{cells::RecordTag(text, render, *records).Text(render, 1)});
    });
  }
};

constexpr std::string_view kScript = "'<img src=x onerror=\"f()\">'";
constexpr std::string_view kEscapedScript = "&lt;img src=x onerror=&quot;f()&quot;&gt;";

TEST_F(HardenedCells, EscapeTheStandardText) {
  EXPECT_EQ(Standard("VARCHAR(50)", kScript), kEscapedScript);
  EXPECT_EQ(Standard("VARCHAR(50)", "'plain'"), "plain");
  EXPECT_EQ(Standard("VARCHAR(50)", "' '"), "&nbsp;");
  EXPECT_EQ(Standard("VARCHAR(50)", "NULL"), "&nbsp;");
  EXPECT_EQ(Standard("VARCHAR(50)", "'&nbsp;'"), "&amp;nbsp;");
  EXPECT_EQ(Standard("VARCHAR(50)", kScript, ValueForm::kPlain), "<img src=x onerror=\"f()\">");
}

TEST_F(HardenedCells, EscapeATextInAColumnOfNumbers) {
  for (const std::string_view type : {"INTEGER", "DECIMAL(10,2)", "DOUBLE", "BOOLEAN", "DATE"}) {
    EXPECT_EQ(Standard(type, kScript), type == "DATE" ? "&nbsp;" : kEscapedScript);
    EXPECT_EQ(Standard(type, "'5 & 6'"), type == "DATE" ? "&nbsp;" : "5 &amp; 6");
    EXPECT_EQ(Standard(type, "NULL"), "&nbsp;");
  }
  EXPECT_EQ(Standard("INTEGER", "-12"), "-12");
  EXPECT_EQ(Standard("DECIMAL(10,2)", "'1.50'"), "1.5");
  EXPECT_EQ(Standard("BOOLEAN", "1"), "True");
}

TEST_F(HardenedCells, CutAMemoBeforeItIsEscaped) {
  rendering.settings.MemoFieldLimit = 3;
  EXPECT_EQ(Standard("TEXT", "'a<bcd'"), "a&lt;b...");
  EXPECT_EQ(Standard("TEXT", "'a<b'"), "a&lt;b&nbsp;");
  rendering.mode = state::Mode::kFormView;
  EXPECT_EQ(Standard("TEXT", "'a<bcd'"), "a&lt;bcd&nbsp;");
}

TEST_F(HardenedCells, KeepMarkupByDesignWhole) {
  rendering.settings.MemoFieldLimit = 3;
  EXPECT_EQ(Standard("TEXT", "'<b>bold</b>'", ValueForm::kMarkup), "<b>bold</b>");
}

TEST_F(HardenedCells, EscapeWhatAFormatFunctionMakesOfTheValue) {
  EXPECT_EQ(Formatted("UCASE", "'<b>&'"), "&lt;B&gt;&amp;");
  EXPECT_EQ(Formatted("LEFT,2", "'a&b'"), "a&amp;");
  EXPECT_EQ(Formatted("REGEXPREPLACE,/x/g,<b>", "'x'"), "&lt;b&gt;");
  EXPECT_EQ(Formatted("UCASE", "' '"), "&nbsp;");
  EXPECT_EQ(Formatted("UCASE", "'<b>'", ValueForm::kMarkup), "<B>");
}

TEST_F(HardenedCells, EscapeTheValueBehindAnUnknownFunction) {
  EXPECT_EQ(Formatted("<WHAT>", "'<b>'"), "[Unknown function : &lt;WHAT&gt;] &lt;b&gt;");
  EXPECT_EQ(Formatted("WHAT", "'<b>'", ValueForm::kPlain), "[Unknown function : WHAT] <b>");
}

TEST_F(HardenedCells, WriteValuesOfTemplatesAsTheirPlacesDemand) {
  EXPECT_EQ(Template("<b title=\"#V#\">#V#</b>", "'\"<'"), "<b title=\"&quot;&lt;\">&quot;&lt;</b>");
  EXPECT_EQ(Template("<b title=#V# lang=de>", "''"), "<b title=\"\" lang=de>");
  EXPECT_EQ(Template("<a href=\"#V#\">", "' javascript:f()'"), "<a href=\"#\">");
  EXPECT_EQ(Template("<a href=\"?id=#V#\">", "'1&b=2'"), "<a href=\"?id=1%26b%3D2\">");
  EXPECT_EQ(Template("<b onclick=\"f('#V#', #V#)\">", "''');g(1'"),
            "<b onclick=\"f('\\u0027\\u0029\\u003bg\\u00281', null)\">");
  EXPECT_EQ(Template("<b onclick=\"f('#V#', #V#)\">", "'&#39;'"),
            "<b onclick=\"f('\\u0026\\u002339\\u003b', null)\">");
}

TEST_F(HardenedCells, GoOnWhereAValueStandsAtTheEndOfATemplate) {
  EXPECT_EQ(Template("a #V", "'<'"), "a &lt;");
  EXPECT_EQ(Template("#V", "'<'"), "&lt;");
}

TEST_F(HardenedCells, WriteAddressesOfTheirOwnPageIntoTemplates) {
  rendering.page.script_name = "/p";
  EXPECT_EQ(Template("<a href=\"#DRALOPOSTBACKURL#\">", "'x'"),
            "<a href=\"/p?Morvu1FormDisplay=formOneRec&amp;Morvu1BookMark=1&amp;Morvu1OrderByFields="
            "&amp;Morvu1CurrRecord=1&amp;Morvu1CountRecords=on&amp;Morvu1maxrecords=20\">");
  EXPECT_TRUE(Template("<b onclick=\"f('#DRALOFORMURL#')\">", "'x'")
                  .starts_with("<b onclick=\"f('\\u002fp\\u003f\\u0026Morvu1BookMark\\u003d1\\u0026Morvu1"));
}

TEST_F(HardenedCells, WriteHtmlByDesignInTextsAlone) {
  rendering.settings.GridColsHtml = "V";
  EXPECT_EQ(Template("#V#<b title='#V#'>", "'<i>'"), "<i><b title='&lt;i&gt;'>");
  rendering.settings.GridColsHtml = "1";
  EXPECT_EQ(Template("#V#", "'<i>'"), "<i>");
  rendering.settings.GridColsHtml = "2";
  EXPECT_EQ(Template("#V#", "'<i>'"), "&lt;i&gt;");
}

TEST_F(HardenedCells, RefuseATemplateWhosePlacesAreNotClear) {
  const Records records = Column("VARCHAR(50)", {"'x'"});
  settings::SetGridFreeFormatCellByCol(rendering.settings, 1, "<b title='#V#>");
  const std::string cells = rendering.Text([&](html::HtmlWriter& out, state::Render& render) {
    cells::FreeFormatCell cell(render, *records, 1);
    cell.Put(out, render, 1);
    cell.Put(out, render, 2);
  });
  EXPECT_EQ(cells, "");
  EXPECT_EQ(rendering.settings.ErrorMessage, "Message 1: A part of this page could not be made.<br>");
  EXPECT_EQ(
      rendering.settings.ErrorDetail,
      "Message 1: A part of this page could not be made. A template ends inside of a tag, a comment or a "
      "script in GetFreeCellString. index=1, nArrIdx=1\n");
}

TEST_F(HardenedCells, LeaveTemplatesWithoutValuesAlone) {
  EXPECT_EQ(Template("<b title='", "'x'"), "<b title='");
  EXPECT_EQ(rendering.settings.ErrorMessage, "");
}

TEST_F(HardenedCells, WriteValuesOfTagsAsTheirPlacesDemand) {
  EXPECT_EQ(Tag("data-v=\"##V##\" title=##V##", "'a\"b'"), "data-v=\"a&quot;b\" title=a&#34;b");
  EXPECT_EQ(Tag("##V##", "'onclick=f()'"), "");
  EXPECT_EQ(Tag("style=\"color:##V##\"", "'red;position:fixed'"), "style=\"color:\"");
  EXPECT_EQ(rendering.settings.ErrorMessage, "");
  EXPECT_EQ(Tag("title='##V##", "'x'"), "");
  EXPECT_EQ(
      rendering.settings.ErrorDetail,
      "Message 1: A part of this page could not be made. A template ends inside of a tag, a comment or a "
      "script in ReplaceFieldValuesFromTag\n");
}

}  // namespace
}  // namespace dralo::tests
