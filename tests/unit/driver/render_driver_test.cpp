#include "driver/render_driver.h"

#include <gtest/gtest.h>

#include "dralo/error.h"
#include "support/contains.h"
#include "support/items.h"

namespace dralo::driver {
namespace {

using ::testing::Test;
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

struct RenderTest : Test {
  ItemsPage page{3};
  void Set(std::string_view name, const char* text) { page.view.Set(name, std::string(text)); }
  void Set(std::string_view name, bool flag) { page.view.Set(name, flag); }
  void Set(std::string_view name, int number) { page.view.Set(name, std::int64_t{number}); }
  std::string Render() { return page.Render(); }
};

using Frame = RenderTest;

TEST_F(Frame, BeginsWithTwoLineBreaksACommentOnOneLineAndTwoMore) {
  EXPECT_TRUE(
      Render().starts_with("\r\n\r\n<!-- Dralo -->\r\n\r\n<table border=\"0\" cellspacing=\"0\" "
                           "cellpadding=\"0\">\r\n<form "));
}

TEST_F(Frame, PutsTheWidthOfAGridOnTheOuterTableWithABlankBehindIt) {
  Set("Width", "50%");
  EXPECT_TRUE(
      tests::Contains(Render(), R"(<table border="0" cellspacing="0" cellpadding="0" width="50%" >)"));
}

TEST_F(Frame, IgnoresTheWidthInAFormView) {
  Set("Width", "50%");
  Set("DisplayType", "form");
  EXPECT_TRUE(tests::Contains(Render(), "<table border=\"0\" cellspacing=\"0\" cellpadding=\"0\">\r\n"));
}

TEST_F(Frame, HasAFormThatPostsToThePageItself) {
  EXPECT_TRUE(tests::Contains(
      Render(), R"(<form name="FormDraloGrid1" id="FormDraloGrid1" action="/p" method="post">)"));
}

TEST_F(Frame, NamesTheFormByTheTag) {
  Set("Tag", "7");
  EXPECT_TRUE(tests::Contains(
      Render(), R"(<form name="FormDraloGrid7" id="FormDraloGrid7" action="/p" method="post">)"));
}

TEST_F(Frame, HasAHeaderRowAlsoWhenNothingStandsInIt) {
  EXPECT_TRUE(tests::Contains(Render(), R"(<tr><td width="100%" class="DRLOTableHeader"></td></tr>)"));
  Set("UseCSS", false);
  EXPECT_TRUE(tests::Contains(Render(), R"(<tr><td width="100%"></td></tr>)"));
}

TEST_F(Frame, OpensTheGridTableWithTheNumberOfDisplayedColumns) {
  EXPECT_TRUE(ContainsInOrder(
      Render(), {"<tr><td valign=top align=left>", R"(<table width="100%" class="DRLOTable" cols="3">)",
                 "</table></td></tr>"}));
  Set("UseCSS", false);
  Set("GridFieldsHide", "Name");
  EXPECT_TRUE(tests::Contains(Render(), R"(<table width="100%" cols="2">)"));
}

TEST_F(Frame, PutsTheAttributesThatThePageSetOnTheGridTable) {
  Set("GridTableTag", R"(summary="Items")");
  EXPECT_TRUE(
      tests::Contains(Render(), R"(<table width="100%" class="DRLOTable" cols="3" summary="Items">)"));
  Set("TableTag", R"(border="1" cellspacing="2")");
  EXPECT_TRUE(tests::Contains(
      Render(),
      R"(<table width="100%" class="DRLOTable" cols="3" border="1" cellspacing="2" summary="Items">)"));
}

TEST_F(Frame, EndsWithTheFormAndTheOuterTable) { EXPECT_TRUE(Render().ends_with("</form>\r\n</table>\r\n")); }

TEST_F(Frame, WritesTheFooterTextInARowOfItsOwn) {
  Set("FooterText", "<i>Prices</i>");
  EXPECT_TRUE(tests::Contains(Render(), R"(<tr><td class="DRLOTableInfoFooter"><i>Prices</i></td></tr>)"));
  Set("UseCSS", false);
  EXPECT_TRUE(tests::Contains(Render(), "<tr><td><i>Prices</i></td></tr>"));
}

TEST_F(Frame, WritesNoFooterRowWithoutAText) {
  EXPECT_FALSE(tests::Contains(Render(), "DRLOTableInfoFooter"));
}

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
  EXPECT_TRUE(tests::Contains(body, R"(class="DRLOTableHeader"></td></tr>)"));
}

TEST_F(Frame, HasNoBarWhenItIsSwitchedOff) {
  Set("DisplayNavBar", "none");
  EXPECT_FALSE(tests::Contains(Render(), "DRLOTableNavBar"));
}

TEST_F(Frame, HasNoBarAtTheTopWhileTheCountIsUnknown) {
  Set("DisplayNavBar", "top");
  Set("CountRecords", false);
  EXPECT_FALSE(tests::Contains(Render(), "DRLOTableNavBar"));
}

TEST_F(Frame, HasTheRowsInTheBarAtTheTop) {
  Set("DisplayNavBar", "top");
  EXPECT_TRUE(ContainsInOrder(Render(), {"(1..3)", "Item 1</td>"}));
}

using AddButton = RenderTest;

TEST_F(AddButton, LeadsToTheAddFormAndKeepsTheOrder) {
  Set("EditOptions", "ADD");
  Set("OrderByFields", "Name");
  Set("OrderByDesc", true);
  EXPECT_TRUE(tests::Contains(
      Render(),
      R"(<tr><td width="100%"><table width="100%" cellspacing=0 cellpadding=0><tr><td colspan=2 class="DraloEditBtnBar">)"
      R"(<input class="DraloInputBtn" Value="Add" type="button" onclick="window.location='/p?Morvu1FormDisplay=formOneRec)"
      R"(&Morvu1FormAdd=1&Morvu1OrderByFields=Name&Morvu1OrderByDesc=True&Morvu1CurrRecord=1&Morvu1CountRecords=on)"
      R"(&Morvu1maxrecords=20'"></table></td></tr>)"));
}

TEST_F(AddButton, HasNoClassesWithoutCss) {
  Set("EditOptions", "ADD");
  Set("UseCSS", false);
  EXPECT_TRUE(tests::Contains(
      Render(), R"(<tr><td width="100%"><table width="100%" cellspacing=0 cellpadding=0><tr><td colspan=2>)"
                R"(<input Value="Add" type="button" onclick="window.location='/p?)"));
}

TEST_F(AddButton, SpeaksTheLanguageOfTheView) {
  Set("EditOptions", "ADD");
  Set("Language", "NOR");
  EXPECT_TRUE(tests::Contains(Render(), R"(Value="Ny")"));
}

TEST_F(AddButton, IsMissingWithoutThePermission) {
  Set("EditOptions", "UPDATE");
  EXPECT_FALSE(tests::Contains(Render(), "type=\"button\""));
}

using Debug = RenderTest;

TEST_F(Debug, ShowsTheFinalStatementAboveTheGrid) {
  Set("DisplayDebug", true);
  Set("OrderByFields", "Name");
  Set("OrderByDesc", true);
  EXPECT_TRUE(tests::Contains(
      Render(),
      R"(<tr><td style="padding:4px;background-color:white;color:black;border:solid 1px black" )"
      R"(class="DRLOTableHeader">SELECT * FROM Items ORDER BY Name DESC </td></tr><tr><td>&nbsp;</td></tr>)"));
}

TEST_F(Debug, HasNoClassWithoutCss) {
  Set("DisplayDebug", true);
  Set("UseCSS", false);
  EXPECT_TRUE(tests::Contains(
      Render(), R"(<tr><td style="padding:4px;background-color:white;color:black;border:solid 1px black">)"));
}

TEST_F(Debug, NeverShowsHowTheDatabaseIsAskedForOnePage) {
  Set("DisplayDebug", true);
  page.Ask("CurrRecord", "2");
  EXPECT_FALSE(tests::Contains(Render(), "LIMIT"));
}

using Failure = RenderTest;

TEST_F(Failure, OfTheStatementIsReportedWithoutTheStatement) {
  Set("sql", "SELECT * FROM Missing");
  EXPECT_EQ(Render(), "");
  EXPECT_EQ(page.ErrorMessage(), "no such table: Missing in WriteHTMLTable.<br>");
}

TEST_F(Failure, OfTheStatementIsReportedWithTheStatementWhenDebugging) {
  Set("sql", "SELECT * FROM Missing");
  Set("CountRecords", false);
  Set("OrderByFields", "Name");
  Set("DisplayDebug", true);
  Render();
  EXPECT_EQ(page.ErrorMessage(),
            "no such table: Missing in WriteHTMLTable.<br>sql='SELECT * FROM Missing ORDER BY Name'<br>");
}

TEST_F(Failure, IsAppendedToWhatWentWrongBefore) {
  Set("LangUpdString", "a");
  Set("sql", "SELECT * FROM Missing");
  Render();
  EXPECT_TRUE(tests::Contains(page.ErrorMessage(), "is 3!<br>no such table: Missing in WriteHTMLTable.<br>"));
}

TEST_F(Failure, OfTheResponseIsReportedAndLeavesNoStatementOpen) {
  page.page.on_write = [] { throw platform::Error("The visitor is gone"); };
  page.view.WriteHtmlTable();
  EXPECT_EQ(page.ErrorMessage(), "The visitor is gone in WriteHTMLTable.<br>");
  page.database.Run("BEGIN EXCLUSIVE; DELETE FROM Items; COMMIT");
  EXPECT_EQ(page.database.Value("SELECT COUNT(*) FROM Items"), "0");
}

TEST_F(Failure, InTheMiddleOfALongPageLeavesNoStatementOpen) {
  page.database.Run("INSERT INTO Items SELECT ID+3, printf('%.9000c','x') FROM Items");
  page.page.on_write = [] { throw std::runtime_error("The visitor is gone"); };
  page.view.WriteHtmlTable();
  EXPECT_TRUE(tests::Contains(page.ErrorMessage(), "The visitor is gone"));
  page.database.Run("BEGIN EXCLUSIVE; DELETE FROM Items; COMMIT");
  EXPECT_EQ(page.database.Value("SELECT COUNT(*) FROM Items"), "0");
}

TEST_F(Failure, OfABareCallWithoutAPageIsThrown) {
  component::DbView view(tests::TestEnvironment());
  EXPECT_THROW(view.WriteHtmlTable(), platform::Error);
}

using PostedChange = RenderTest;

TEST_F(PostedChange, IsIgnoredWhenUpdatesAreSwitchedOff) {
  Set("EditPerformUpdates", false);
  page.Ask("FormUpdate", "Save");
  Render();
  EXPECT_EQ(page.ErrorMessage(), "");
}

using QHtmlTable = RenderTest;

TEST_F(QHtmlTable, RendersWhatTheSameStatementWould) {
  const std::string expected = Render();
  component::DbView view(tests::TestEnvironment());
  tests::FakePage other;
  view.OnStartPage(other);
  view.QHtmlTable(page.database.ConnectionString(), "Items");
  EXPECT_EQ(other.body, expected);
  EXPECT_EQ(view.GetSettings().sql, "SELECT * FROM Items");
}

TEST_F(QHtmlTable, RaisesWhenTheConnectionCannotBeOpened) {
  EXPECT_THROW(page.view.QHtmlTable("Provider=SQLite;Data Source=/no/such/file.db", "Items"),
               platform::Error);
}

using CurrentRecord = RenderTest;

TEST_F(CurrentRecord, IsTheFirstRowOfTheGrid) {
  page.Ask("CurrRecord", "2");
  Render();
  EXPECT_EQ(page.view.CurrentRecord(1), platform::Variant(std::int64_t{2}));
  EXPECT_EQ(page.view.CurrentRecord(2), platform::Variant(std::string("Item 2")));
}

TEST_F(CurrentRecord, IsEmptyBeforeRenderingAndOutOfRange) {
  EXPECT_EQ(page.view.CurrentRecord(1), platform::Variant(std::string()));
  Render();
  for (const std::int16_t index : std::initializer_list<std::int16_t>{0, -1, 3, 32767}) {
    EXPECT_EQ(page.view.CurrentRecord(index), platform::Variant(std::string())) << index;
  }
}

TEST_F(CurrentRecord, IsEmptyWhileARecordIsBeingAdded) {
  page.Ask("FormAdd", "1");
  Render();
  EXPECT_EQ(page.view.CurrentRecord(1), platform::Variant(std::string()));
}

using PageEnd = RenderTest;

TEST_F(PageEnd, ReleasesTheConnectionThatTheViewOpened) {
  const std::weak_ptr<platform::PageConnection> own = page.Settings().DrConnection;
  page.view.OnEndPage();
  EXPECT_TRUE(own.expired());
}

TEST_F(PageEnd, LeavesASharedConnectionOpen) {
  const auto shared = std::get<platform::ObjectPtr>(page.view.Get("DrConnection"));
  component::DbView other(tests::TestEnvironment());
  tests::FakePage other_page;
  other.OnStartPage(other_page);
  other.Set("DrConnection", shared);
  other.OnEndPage();
  EXPECT_EQ(page.Shown(), Range(1, 3));
}

TEST(PageStart, ThatFailsIsReportedAndThePageGoesOn) {
  struct BrokenPage : platform::PageContext {
    const platform::Request& GetRequest() const override { throw platform::Error("No request"); }
    platform::Response& GetResponse() override { throw platform::Error("No response"); }
  } broken;
  component::DbView view(tests::TestEnvironment());
  view.OnStartPage(broken);
  EXPECT_EQ(view.GetSettings().ErrorMessage, "No request in OnStartPage<br>");
}

TEST(SecondRendering, OnTheSamePageSeesWhatTheFirstTookFromTheRequest) {
  ItemsPage page(45);
  page.Ask("maxrecords", "5");
  page.Ask("CurrRecord", "11");
  EXPECT_EQ(page.Shown(), Range(11, 15));
  page.page.query.clear();
  EXPECT_EQ(page.Shown(), Range(1, 5));
}

TEST(TwoViews, WithTheirOwnTagsPageIndependently) {
  ItemsPage first(45);
  component::DbView second(tests::TestEnvironment());
  second.OnStartPage(first.page);
  second.Set("Tag", std::string("2"));
  second.Set("DrConnection", first.view.Get("DrConnection"));
  second.Set("sql", std::string("SELECT * FROM Items"));
  first.Ask("CurrRecord", "21");
  first.page.query.push_back({"Morvu2NEXT.x", "1"});
  first.page.query.push_back({"Morvu2CurrRecord", "21"});
  EXPECT_EQ(first.Shown(), Range(21, 40));
  first.page.body.clear();
  second.WriteHtmlTable();
  EXPECT_EQ(tests::ItemsShown(first.page.body), Range(41, 45));
}

}  // namespace
}  // namespace dralo::driver
