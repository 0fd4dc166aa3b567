#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "security/notes_page.h"
#include "settings/column_settings.h"
#include "support/named_cases.h"

namespace dralo::tests {
namespace {

constexpr const char* kImage = "<img src=x onerror=f()>";
constexpr std::string_view kText = "&lt;img src=x onerror=f()&gt;";

/// A place where a text comes, and how the text gets there.
struct Place {
  std::string_view name;
  void (*prepare)(NotesPage& page);
};

class ScriptInAPlace : public testing::TestWithParam<Place> {};

TEST_P(ScriptInAPlace, RunsOnThePlainPageAndIsTextOnTheHardenedOne) {
  NotesPage plain(false);
  GetParam().prepare(plain);
  EXPECT_TRUE(Contains(plain.Render(), kImage));

  NotesPage hardened(true);
  GetParam().prepare(hardened);
  const std::string html = hardened.Render();
  EXPECT_FALSE(Contains(html, kImage)) << html;
  EXPECT_TRUE(Contains(html, kText)) << html;
}

constexpr Place kPlaces[] = {
    {"Cell", [](NotesPage& page) { page.Store("Title", kImage); }},
    {"MemoThatIsCut",
     [](NotesPage& page) {
       page.Store("Body", std::string(kImage) + std::string(50, 'x'));
       page.Set("MemoFieldLimit", 40);
     }},
    {"LinkedCell",
     [](NotesPage& page) {
       page.Store("Title", kImage);
       page.Set("GridLinkIndex", 2);
     }},
    {"OneRecordView",
     [](NotesPage& page) {
       page.Store("Title", kImage);
       page.AskForRecord();
     }},
    {"ResultOfAFormatFunction",
     [](NotesPage& page) {
       page.Store("Title", "<IMG SRC=X ONERROR=F()>");
       page.Set("GridColsNoSort", "*");
       settings::SetGridFormatCellFunction(page.view.MutableSettings(), 2, "LCASE");
     }},
    {"ValueOfATemplate",
     [](NotesPage& page) {
       page.Store("Title", kImage);
       settings::SetGridFreeFormatCellByCol(page.view.MutableSettings(), 2, "<b>#Title#</b>");
     }},
    {"NameOfAColumn",
     [](NotesPage& page) { page.Set("sql", "SELECT 1 AS [<img src=x onerror=f()>] FROM Notes"); }},
    {"NameOfAColumnInTheOneRecordView",
     [](NotesPage& page) {
       page.Set("FormSQL", "SELECT ID, 1 AS [<img src=x onerror=f()>] FROM Notes");
       page.AskForRecord();
     }},
    {"TextOfALookup",
     [](NotesPage& page) {
       page.database.Run("UPDATE Secrets SET Word = '<img src=x onerror=f()>'");
       page.view.AddEditLookup("Price", "Secrets", "ID", "Word", "", true);
       page.AskForRecord("FormEdit");
     }},
    {"Address",
     [](NotesPage& page) {
       page.page.script_name = std::string("/p\">") + kImage;
       page.Set("GridDisplayIndex", false);
     }},
};

INSTANTIATE_TEST_SUITE_P(Values, ScriptInAPlace, testing::ValuesIn(kPlaces), kByName);

TEST(ScriptInAMessage, IsTextOnTheHardenedPage) {
  for (const bool is_hardened : {false, true}) {
    NotesPage page(is_hardened);
    page.Ask("FormDisplay", "formOneRec");
    page.Post(
        {{"FormUpdate", "Save"}, {"FormEdit", "1"}, {"PK", "1"}, {"_Form_ID", "1"}, {"_Form_Price", kImage}});
    EXPECT_EQ(Contains(page.Render(), std::string("&nbsp;") + kImage + " is not a number"), !is_hardened);
  }
}

/// Where the quotes of an attribute hold on the plain page, too.
TEST(ScriptInAControl, StaysInItsAttribute) {
  for (const bool is_hardened : {false, true}) {
    NotesPage page(is_hardened);
    page.Store("Title", "\"><script>f()</script>");
    page.Store("Body", "</textarea><script>f()</script>");
    page.AskForRecord("FormEdit");
    const std::string html = page.Render();
    EXPECT_FALSE(Contains(html, "\"><script>")) << html;
    EXPECT_FALSE(Contains(html, "</textarea><script>")) << html;
    EXPECT_EQ(Contains(html, "<script>"), !is_hardened) << html;
  }
}

/// A template, a value in it, what stands in the plain page and what in the hardened one.
struct Template {
  std::string_view name, text, value, plain, hardened;
};

class ScriptInATemplate : public testing::TestWithParam<Template> {};

TEST_P(ScriptInATemplate, IsWrittenAsItsPlaceDemands) {
  const auto cell = [](bool is_hardened) {
    NotesPage page(is_hardened);
    page.Store("Title", GetParam().value);
    settings::SetGridFreeFormatCellByCol(page.view.MutableSettings(), 2, GetParam().text);
    return page.Render();
  };
  EXPECT_TRUE(Contains(cell(false), GetParam().plain));
  const std::string html = cell(true);
  EXPECT_FALSE(Contains(html, GetParam().plain)) << html;
  EXPECT_TRUE(Contains(html, GetParam().hardened)) << html;
}

constexpr Template kTemplates[] = {
    {"QuotedAttribute", "<b title=\"#Title#\">", "\" onmouseover=\"f()", "<b title=\"\" onmouseover=\"f()\">",
     "<b title=\"&quot; onmouseover=&quot;f()\">"},
    {"AttributeInSingleQuotes", "<b title='#Title#'>", "' onmouseover='f()", "<b title='' onmouseover='f()'>",
     "<b title='&#39; onmouseover=&#39;f()'>"},
    {"UnquotedAttribute", "<b title=#Title#>", "x onmouseover=f()", "<b title=x onmouseover=f()>",
     "<b title=x&#32;onmouseover&#61;f&#40;&#41;>"},
    {"EmptyUnquotedAttribute", "<b title=#Title# onclick=f>", "", "<b title= onclick=f>",
     "<b title=\"\" onclick=f>"},
    {"AddressOfAScript", "<a href=\"#Title#\">", "javascript:f()", "<a href=\"javascript:f()\">",
     "<a href=\"#\">"},
    {"AddressOfAScriptWithATab", "<a href=\"#Title#\">", " java\tscript:f()",
     "<a href=\" java\tscript:f()\">", "<a href=\"#\">"},
    {"AddressOfAScriptWithAReference", "<a href=\"#Title#\">", "javascript&colon;f()",
     "<a href=\"javascript&colon;f()\">", "<a href=\"javascript&amp;colon;f()\">"},
    {"PartOfAnAddress", "<a href=\"?a=#Title#\">", "1&b=2", "<a href=\"?a=1&b=2\">",
     "<a href=\"?a=1%26b%3D2\">"},
    {"AddressOfAFrame", "<iframe src=\"#Title#\"></iframe>", "//evil.example", "src=\"//evil.example\"",
     "<iframe src=\"\">"},
    {"StringOfAScript", "<b onclick=\"f('#Title#')\">", "&#39;+g()+&#39;", "f('&#39;+g()+&#39;')",
     "f('\\u0026\\u002339\\u003b\\u002bg\\u0028\\u0029\\u002b\\u0026\\u002339\\u003b')"},
    {"ScriptElement", "<script>a = \"#Title#\"</script>", "\";f();\"", "a = \"\";f();\"\"",
     "a = \"\\u0022\\u003bf\\u0028\\u0029\\u003b\\u0022\""},
    {"ValueOfAScript", "<b onclick=\"f(#Title#)\">", "g()", "f(g())", "f(null)"},
    {"Comment", "<!-- #Title# -->", "--><script>f()</script>", "<!-- --><script>f()</script>", "<!--  -->"},
    {"Style", "<b style=\"color:#Title#\">", "red;position:fixed", "color:red;position:fixed",
     "<b style=\"color:\">"},
    {"NameOfAnAttribute", "<b #Title#>", "onclick=f()", "<b onclick=f()>", "<b >"},
};

INSTANTIATE_TEST_SUITE_P(Templates, ScriptInATemplate, testing::ValuesIn(kTemplates), kByName);

}  // namespace
}  // namespace dralo::tests
