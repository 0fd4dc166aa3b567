#include "driver/render_driver.h"

#include <gtest/gtest.h>

#include "dralo/error.h"
#include "support/contains.h"
#include "support/items.h"

namespace dralo::driver {
namespace {

using tests::Contains;
using tests::ItemsPage;
using tests::Range;

/// Whether the literals stand in the body in this order.
bool ContainsInOrder(std::string_view body, std::initializer_list<std::string_view> literals) {
  for (const std::string_view literal : literals) {
    const std::size_t at = body.find(literal);
    if (at == body.npos) return false;
    body.remove_prefix(at + literal.size());
  }
  return true;
}

struct RenderTest : testing::Test, ItemsPage {
  RenderTest() : ItemsPage(3) {}
};

struct Part {
  const char* name;
  tests::Script script;
  const char* html;
};

/// What stands on the page of a view with these settings.
class PagePart : public RenderTest, public testing::WithParamInterface<Part> {};

TEST_P(PagePart, IsWritten) {
  Set(GetParam().script);
  const std::string body = Render();
  EXPECT_TRUE(Contains(body, GetParam().html)) << body;
}

const Part kParts[] = {
    {"WidthOfAGridOnTheOuterTableWithABlankBehindIt",
     {{"Width", "50%"}},
     R"(<table border="0" cellspacing="0" cellpadding="0" width="50%" >)"},
    {"NoWidthInAFormView",
     {{"Width", "50%"}, {"DisplayType", "form"}},
     "<table border=\"0\" cellspacing=\"0\" cellpadding=\"0\">\r\n"},
    {"FormThatPostsToThePageItself",
     {},
     R"(<form name="FormDraloGrid1" id="FormDraloGrid1" action="/p" method="post">)"},
    {"FormNamedByTheTag",
     {{"Tag", "7"}},
     R"(<form name="FormDraloGrid7" id="FormDraloGrid7" action="/p" method="post">)"},
    {"HeaderRowAlsoWhenNothingStandsInIt", {}, R"(<tr><td width="100%" class="DRLOTableHeader"></td></tr>)"},
    {"HeaderRowWithoutCss", {{"UseCSS", false}}, R"(<tr><td width="100%"></td></tr>)"},
    {"GridTableWithTheNumberOfDisplayedColumnsWithoutCss",
     {{"UseCSS", false}, {"GridFieldsHide", "Name"}},
     R"(<table width="100%" cols="2">)"},
    {"GridTableWithAttributesThatThePageSet",
     {{"GridTableTag", R"(summary="Items")"}},
     R"(<table width="100%" class="DRLOTable" cols="3" summary="Items">)"},
    {"GridTableWithThoseOfAllTablesInFront",
     {{"GridTableTag", R"(summary="Items")"}, {"TableTag", R"(border="1" cellspacing="2")"}},
     R"(<table width="100%" class="DRLOTable" cols="3" border="1" cellspacing="2" summary="Items">)"},
    {"FooterTextInARowOfItsOwn",
     {{"FooterText", "<i>Prices</i>"}},
     R"(<tr><td class="DRLOTableInfoFooter"><i>Prices</i></td></tr>)"},
    {"FooterTextWithoutCss",
     {{"FooterText", "<i>Prices</i>"}, {"UseCSS", false}},
     "<tr><td><i>Prices</i></td></tr>"},
    {"AddButtonThatLeadsToTheAddFormAndKeepsTheOrder",
     {{"EditOptions", "ADD"}, {"OrderByFields", "Name"}, {"OrderByDesc", true}},
     R"(<tr><td width="100%"><table width="100%" cellspacing=0 cellpadding=0><tr><td colspan=2 class="DraloEditBtnBar">)"
     R"(<input class="DraloInputBtn" Value="Add" type="button" onclick="window.location='/p?Morvu1FormDisplay=formOneRec)"
     R"(&Morvu1FormAdd=1&Morvu1OrderByFields=Name&Morvu1OrderByDesc=True&Morvu1CurrRecord=1&Morvu1CountRecords=on)"
     R"(&Morvu1maxrecords=20'"></table></td></tr>)"},
    {"AddButtonWithoutCss",
     {{"EditOptions", "ADD"}, {"UseCSS", false}},
     R"(<tr><td width="100%"><table width="100%" cellspacing=0 cellpadding=0><tr><td colspan=2>)"
     R"(<input Value="Add" type="button" onclick="window.location='/p?)"},
    {"AddButtonInTheLanguageOfTheView", {{"EditOptions", "ADD"}, {"Language", "NOR"}}, R"(Value="Ny")"},
    {"FinalStatementAboveTheGridWhenDebugging",
     {{"DisplayDebug", true}, {"OrderByFields", "Name"}, {"OrderByDesc", true}},
     R"(<tr><td style="padding:4px;background-color:white;color:black;border:solid 1px black" )"
     R"(class="DRLOTableHeader">SELECT * FROM Items ORDER BY Name DESC </td></tr><tr><td>&nbsp;</td></tr>)"},
    {"StatementWithoutCss",
     {{"DisplayDebug", true}, {"UseCSS", false}},
     R"(<tr><td style="padding:4px;background-color:white;color:black;border:solid 1px black">)"},
};

INSTANTIATE_TEST_SUITE_P(Views, PagePart, testing::ValuesIn(kParts),
                         [](const auto& part) { return std::string(part.param.name); });

/// What does not stand on the page of a view with these settings.
class MissingPart : public PagePart {};

TEST_P(MissingPart, IsNotWritten) {
  Set(GetParam().script);
  EXPECT_FALSE(Contains(Render(), GetParam().html));
}

const Part kMissingParts[] = {
    {"FooterRowWithoutAText", {}, "DRLOTableInfoFooter"},
    {"BarThatIsSwitchedOff", {{"DisplayNavBar", "none"}}, "DRLOTableNavBar"},
    {"BarAtTheTopWhileTheCountIsUnknown",
     {{"DisplayNavBar", "top"}, {"CountRecords", false}},
     "DRLOTableNavBar"},
    {"AddButtonWithoutThePermission", {{"EditOptions", "UPDATE"}}, "type=\"button\""},
};

INSTANTIATE_TEST_SUITE_P(Views, MissingPart, testing::ValuesIn(kMissingParts),
                         [](const auto& part) { return std::string(part.param.name); });

using Frame = RenderTest;

TEST_F(Frame, BeginsWithTwoLineBreaksACommentOnOneLineAndTwoMore) {
  EXPECT_TRUE(
      Render().starts_with("\r\n\r\n<!-- Dralo -->\r\n\r\n<table border=\"0\" cellspacing=\"0\" "
                           "cellpadding=\"0\">\r\n<form "));
}

TEST_F(Frame, OpensTheGridTableWithTheNumberOfDisplayedColumns) {
  EXPECT_TRUE(ContainsInOrder(
      Render(), {"<tr><td valign=top align=left>", R"(<table width="100%" class="DRLOTable" cols="3">)",
                 "</table></td></tr>"}));
}

TEST_F(Frame, EndsWithTheFormAndTheOuterTable) { EXPECT_TRUE(Render().ends_with("</form>\r\n</table>\r\n")); }

TEST_F(Frame, StandsInTheFixedOrder) {
  Set("EditOptions", "ADD");
  Set("DisplayNavBar", "both");
  Set("DisplayRecordsPerPageSelect", true);
  Set("FooterText", "End");
  EXPECT_TRUE(ContainsInOrder(
      Render(),
      {"<!--", "<table border", "<form", "DRLOTableHeader", "<select", "DRLOTableNavBar", "DraloEditBtnBar",
       "<table width=\"100%\" class=\"DRLOTable\"", "Item 1</td>", "Item 3</td>", "</table></td></tr>",
       "name=\"Morvu1CurrRecord\"", "DRLOTableNavBar", "DRLOTableInfoFooter", "</form>\r\n</table>"}));
}

TEST_F(Frame, PutsTheSelectAtTheBottomBelowTheBar) {
  Set("DisplayRecordsPerPageSelect", true);
  Set("RecordsPerPageSelectPlacement", "Bottom");
  const std::string body = Render();
  EXPECT_TRUE(ContainsInOrder(body, {"class=\"DRLOTableNavBar\"", "<tr><td class=\"DRLOTableFooter\">\r\n",
                                     "<select", "</td></tr>\r\n</form>"}));
  EXPECT_TRUE(Contains(body, R"(class="DRLOTableHeader"></td></tr>)"));
}

TEST_F(Frame, HasTheRowsInTheBarAtTheTop) {
  Set("DisplayNavBar", "top");
  EXPECT_TRUE(ContainsInOrder(Render(), {"(1..3)", "Item 1</td>"}));
}

using Debug = RenderTest;

TEST_F(Debug, NeverShowsHowTheDatabaseIsAskedForOnePage) {
  Set("DisplayDebug", true);
  Ask("CurrRecord", "2");
  EXPECT_FALSE(Contains(Render(), "LIMIT"));
}

using Failure = RenderTest;

TEST_F(Failure, OfTheStatementIsReportedWithoutTheStatement) {
  Set("sql", "SELECT * FROM Missing");
  EXPECT_EQ(Render(), "");
  EXPECT_EQ(ErrorMessage(), "no such table: Missing in WriteHTMLTable.<br>");
}

TEST_F(Failure, OfTheStatementIsReportedWithTheStatementWhenDebugging) {
  Set("sql", "SELECT * FROM Missing");
  Set("CountRecords", false);
  Set("OrderByFields", "Name");
  Set("DisplayDebug", true);
  Render();
  EXPECT_EQ(ErrorMessage(),
            "no such table: Missing in WriteHTMLTable.<br>sql='SELECT * FROM Missing ORDER BY Name'<br>");
}

TEST_F(Failure, IsAppendedToWhatWentWrongBefore) {
  Set("LangUpdString", "a");
  Set("sql", "SELECT * FROM Missing");
  Render();
  EXPECT_TRUE(Contains(ErrorMessage(), "is 3!<br>no such table: Missing in WriteHTMLTable.<br>"));
}

TEST_F(Failure, OfTheResponseIsReportedAndLeavesNoStatementOpen) {
  page.on_write = [] { throw platform::Error("The visitor is gone"); };
  view.WriteHtmlTable();
  EXPECT_EQ(ErrorMessage(), "The visitor is gone in WriteHTMLTable.<br>");
  database.Run("BEGIN EXCLUSIVE; DELETE FROM Items; COMMIT");
  EXPECT_EQ(database.Value("SELECT COUNT(*) FROM Items"), "0");
}

TEST_F(Failure, InTheMiddleOfALongPageLeavesNoStatementOpen) {
  database.Run("INSERT INTO Items SELECT ID+3, printf('%.9000c','x') FROM Items");
  page.on_write = [] { throw std::runtime_error("The visitor is gone"); };
  view.WriteHtmlTable();
  EXPECT_TRUE(Contains(ErrorMessage(), "The visitor is gone"));
  database.Run("BEGIN EXCLUSIVE; DELETE FROM Items; COMMIT");
  EXPECT_EQ(database.Value("SELECT COUNT(*) FROM Items"), "0");
}

TEST_F(Failure, OfABareCallWithoutAPageIsThrown) {
  component::DbView bare(tests::TestEnvironment());
  EXPECT_THROW(bare.WriteHtmlTable(), platform::Error);
}

using PostedChange = RenderTest;

TEST_F(PostedChange, IsIgnoredWhenUpdatesAreSwitchedOff) {
  Set("EditPerformUpdates", false);
  Ask("FormUpdate", "Save");
  Render();
  EXPECT_EQ(ErrorMessage(), "");
}

using QHtmlTable = RenderTest;

TEST_F(QHtmlTable, RendersWhatTheSameStatementWould) {
  const std::string expected = Render();
  component::DbView other(tests::TestEnvironment());
  page.body.clear();
  other.OnStartPage(page);
  other.QHtmlTable(database.ConnectionString(), "Items");
  EXPECT_EQ(page.body, expected);
  EXPECT_EQ(other.GetSettings().sql, "SELECT * FROM Items");
}

TEST_F(QHtmlTable, RaisesWhenTheConnectionCannotBeOpened) {
  EXPECT_THROW(view.QHtmlTable("Provider=SQLite;Data Source=/no/such/file.db", "Items"), platform::Error);
}

using CurrentRecord = RenderTest;

TEST_F(CurrentRecord, IsTheFirstRowOfTheGrid) {
  Ask("CurrRecord", "2");
  Render();
  EXPECT_EQ(view.CurrentRecord(1), platform::Variant(std::int64_t{2}));
  EXPECT_EQ(view.CurrentRecord(2), platform::Variant(std::string("Item 2")));
}

TEST_F(CurrentRecord, IsEmptyBeforeRenderingAndOutOfRange) {
  EXPECT_EQ(view.CurrentRecord(1), platform::Variant(std::string()));
  Render();
  for (const std::int16_t index : std::initializer_list<std::int16_t>{0, -1, 3, 32767}) {
    EXPECT_EQ(view.CurrentRecord(index), platform::Variant(std::string())) << index;
  }
}

TEST_F(CurrentRecord, IsEmptyWhileARecordIsBeingAdded) {
  Ask("FormAdd", "1");
  Render();
  EXPECT_EQ(view.CurrentRecord(1), platform::Variant(std::string()));
}

using PageEnd = RenderTest;

TEST_F(PageEnd, ReleasesTheConnectionThatTheViewOpened) {
  const std::weak_ptr<platform::PageConnection> own = Settings().DrConnection;
  view.OnEndPage();
  EXPECT_TRUE(own.expired());
}

TEST_F(PageEnd, LeavesASharedConnectionOpen) {
  const auto shared = std::get<platform::ObjectPtr>(view.Get("DrConnection"));
  component::DbView other(tests::TestEnvironment());
  other.OnStartPage(page);
  other.Set("DrConnection", shared);
  other.OnEndPage();
  EXPECT_EQ(Shown(), Range(1, 3));
}

}  // namespace
}  // namespace dralo::driver
