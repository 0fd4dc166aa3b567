#include "driver/query.h"

#include <gtest/gtest.h>

#include "component/db_connection.h"
#include "support/items.h"

namespace dralo::driver {
namespace {

using tests::ItemsPage;
using tests::Range;

std::shared_ptr<platform::Recordset> OpenItems(const ItemsPage& page,
                                               std::string_view sql = "SELECT * FROM Items") {
  auto recordset = platform::Create<platform::Recordset>(tests::TestEnvironment(), "ADODB.Recordset");
  recordset->Open(sql, page.Settings().DrConnection->Connection());
  return recordset;
}

void UseCommand(ItemsPage& page, const char* text = "WITH All_ AS (SELECT * FROM Items) SELECT * FROM All_") {
  page.view.Set("sql", std::string(text));
}

TEST(RecordCount, IsTakenOnceAndKept) {
  ItemsPage page(45);
  page.Render();
  EXPECT_EQ(page.Settings().RecordCount, 45);
  page.database.Run("DELETE FROM Items WHERE ID>40");
  page.Render();
  EXPECT_EQ(page.Settings().RecordCount, 45);
  page.view.Set("RecordCount", std::int64_t{-1});
  page.Render();
  EXPECT_EQ(page.Settings().RecordCount, 40);
}

TEST(RecordCount, ThatIsPresetIsNeverCountedAgainAndShownByTheBar) {
  ItemsPage page(3);
  page.view.Set("RecordCount", std::int64_t{5});
  EXPECT_NE(page.Render().find("of 5"), std::string::npos);
  EXPECT_EQ(page.Settings().RecordCount, 5);
}

TEST(RecordCount, StaysUnknownWithoutCounting) {
  ItemsPage page(45);
  page.view.Set("CountRecords", false);
  EXPECT_EQ(page.Shown(), Range(1, 20));
  EXPECT_EQ(page.Settings().RecordCount, -1);
}

TEST(RecordCount, OfAnEmptyResultIsZeroAndCountedAgainAtTheNextCall) {
  ItemsPage page(0);
  page.Render();
  EXPECT_EQ(page.Settings().RecordCount, 0);
  page.database.Run("INSERT INTO Items VALUES(1,'Item 1')");
  EXPECT_EQ(page.Shown(), Range(1, 1));
  EXPECT_EQ(page.Settings().RecordCount, 1);
}

TEST(RecordCount, OfAStatementThatIsNoDerivedTableIsTheDatabasesErrorToReport) {
  ItemsPage page(3);
  page.view.Set("sql", std::string("SELECT * FROM Items;"));
  EXPECT_EQ(page.Render(), "");
  EXPECT_EQ(page.ErrorMessage(), "near \";\": syntax error in WriteHTMLTable.<br>");
  page.view.Set("CountRecords", false);
  EXPECT_EQ(page.Shown(), Range(1, 3));
}

TEST(RecordCount, OfACommandIsWalked) {
  ItemsPage page(45);
  UseCommand(page);
  EXPECT_EQ(page.Shown(), Range(1, 20));
  EXPECT_EQ(page.Settings().RecordCount, 45);
}

TEST(RecordCount, OfACommandWhoseResultWasEmptyIsWalkedAgain) {
  ItemsPage page(0);
  UseCommand(page);
  page.Render();
  EXPECT_EQ(page.Settings().RecordCount, 0);
  page.database.Run("INSERT INTO Items VALUES(1,'Item 1')");
  page.Render();
  EXPECT_EQ(page.Settings().RecordCount, 1);
}

TEST(RecordCount, OfACommandStaysUnknownWithoutCounting) {
  ItemsPage page(45);
  UseCommand(page);
  page.view.Set("CountRecords", false);
  EXPECT_EQ(page.Shown(), Range(1, 20));
  EXPECT_EQ(page.Settings().RecordCount, -1);
}

TEST(EmptyResult, HasNoRowsAndStaysAtTheFirstRecord) {
  ItemsPage page(0);
  const std::string body = page.Render();
  EXPECT_EQ(page.ErrorMessage(), "");
  EXPECT_EQ(page.Settings().FromRow, 0);
  EXPECT_EQ(page.Settings().ToRow, 0);
  EXPECT_NE(body.find("<input type=\"hidden\" name=\"Morvu1CurrRecord\" value=\"1\">\r\n"),
            std::string::npos);
}

TEST(CurrentRecordNumber, BeyondTheCountIsCutToItAndStartsAPageOfOneRow) {
  ItemsPage page(45);
  page.Ask("CurrRecord", "100");
  EXPECT_EQ(page.Shown(), Range(45, 45));
  EXPECT_EQ(page.Settings().FromRow, 45);
}

TEST(CurrentRecordNumber, IsNeverCutBelowOne) {
  ItemsPage page(0);
  page.Ask("CurrRecord", "100");
  EXPECT_NE(page.Render().find("name=\"Morvu1CurrRecord\" value=\"1\""), std::string::npos);
}

TEST(RecordsMaxLimit, IsNeverPassedByPaging) {
  ItemsPage page(200);
  page.view.Set("RecordsMaxLimit", std::int64_t{50});
  page.Ask("CurrRecord", "41");
  EXPECT_EQ(page.Shown(), Range(41, 50));
  EXPECT_EQ(page.Settings().RecordCount, 200);
}

TEST(RecordsMaxLimit, LeavesARecordNumberBeyondItWithoutRows) {
  ItemsPage page(200);
  page.view.Set("RecordsMaxLimit", std::int64_t{50});
  page.Ask("CurrRecord", "120");
  EXPECT_TRUE(page.Shown().empty());
}

TEST(RecordsMaxLimit, EndsTheLastPageAndCutsTheCount) {
  ItemsPage page(200);
  page.view.Set("RecordsMaxLimit", std::int64_t{50});
  page.Ask("LAST.x", "1");
  EXPECT_EQ(page.Shown(), Range(41, 50));
  EXPECT_EQ(page.Settings().RecordCount, 50);
}

TEST(RecordsMaxLimit, CutsAPresetCountOnTheLastPageToo) {
  ItemsPage page(200);
  page.view.Set("RecordsMaxLimit", std::int64_t{50});
  page.view.Set("RecordCount", std::int64_t{200});
  page.Ask("LAST.x", "1");
  EXPECT_EQ(page.Shown(), Range(41, 50));
}

TEST(RecordsMaxLimit, OfZeroOrLessShowsNothing) {
  for (const std::int64_t limit : {0, -5}) {
    ItemsPage page(3);
    page.view.Set("RecordsMaxLimit", limit);
    page.Ask("LAST.x", "1");
    EXPECT_TRUE(page.Shown().empty());
    EXPECT_EQ(page.ErrorMessage(), "");
  }
}

TEST(OrderedStatement, HasTheOrderBehindTheText) {
  state::ViewState view{settings::Settings()};
  EXPECT_EQ(OrderedSql(view, "SELECT 1"), "SELECT 1");
  view.order_by = "Name";
  EXPECT_EQ(OrderedSql(view, "SELECT 1"), "SELECT 1 ORDER BY Name");
  view.is_descending = true;
  EXPECT_EQ(OrderedSql(view, "SELECT 1"), "SELECT 1 ORDER BY Name DESC ");
}

TEST(OrderedStatement, WithAnOrderOfItsOwnIsTheDatabasesErrorToReport) {
  ItemsPage page(3);
  page.view.Set("sql", std::string("SELECT * FROM Items ORDER BY ID"));
  page.view.Set("OrderByFields", std::string("Name"));
  EXPECT_EQ(page.Render(), "");
  EXPECT_EQ(page.ErrorMessage(), "near \"ORDER\": syntax error in WriteHTMLTable.<br>");
}

TEST(SuppliedRecordset, IsShownFromWhereItStandsAndLeftOpen) {
  ItemsPage page(45);
  const auto recordset = OpenItems(page);
  recordset->Move(4);
  page.view.Set("ADORecordset", platform::ObjectPtr(recordset));
  EXPECT_EQ(page.Shown(), Range(5, 24));
  EXPECT_TRUE(recordset->IsOpen());
}

TEST(SuppliedRecordset, IsNeverCountedEvenWhenTheRequestAsksForIt) {
  ItemsPage page(45);
  page.view.Set("ADORecordset", platform::ObjectPtr(OpenItems(page)));
  page.Ask("CountRecords", "on");
  EXPECT_EQ(page.Shown(), Range(1, 20));
  EXPECT_EQ(page.Settings().RecordCount, -1);
  EXPECT_EQ(page.ErrorMessage(), "");
}

TEST(SuppliedRecordset, KeepsAPresetCount) {
  ItemsPage page(45);
  page.view.Set("ADORecordset", platform::ObjectPtr(OpenItems(page)));
  page.view.Set("RecordCount", std::int64_t{45});
  page.Render();
  EXPECT_EQ(page.Settings().RecordCount, 45);
}

TEST(SuppliedRecordset, WinsOverACommand) {
  ItemsPage page(45);
  UseCommand(page);
  page.view.Set("ADORecordset", platform::ObjectPtr(OpenItems(page, "SELECT * FROM Items WHERE ID=7")));
  EXPECT_EQ(page.Shown(), Range(7, 7));
}

TEST(SuppliedRecordset, NeedsNoConnectionOfTheView) {
  ItemsPage page(3);
  component::DbView view(tests::TestEnvironment());
  tests::FakePage other;
  view.OnStartPage(other);
  view.Set("ADORecordset", platform::ObjectPtr(OpenItems(page)));
  view.WriteHtmlTable();
  EXPECT_EQ(tests::ItemsShown(other.body), Range(1, 3));
  EXPECT_EQ(view.GetSettings().ErrorMessage, "");
}

TEST(Command, WithParametersShowsItsRows) {
  ItemsPage page(45);
  const auto command = std::make_shared<platform::Command>();
  command->command_text = "SELECT * FROM Items WHERE ID BETWEEN ? AND ?";
  command->parameters = {std::int64_t{7}, std::int64_t{9}};
  page.view.Set("StoredProcCommand", platform::ObjectPtr(command));
  EXPECT_EQ(page.Shown(), Range(7, 9));
  EXPECT_EQ(page.Settings().RecordCount, 3);
}

TEST(Command, ShowsItsTextToWhoDebugs) {
  ItemsPage page(9);
  const auto command = std::make_shared<platform::Command>();
  command->command_text = "SELECT * FROM Items WHERE ID<3";
  page.view.Set("StoredProcCommand", platform::ObjectPtr(command));
  page.view.Set("DisplayDebug", true);
  page.view.Set("OrderByFields", std::string("ID"));
  EXPECT_NE(page.Render().find(">SELECT * FROM Items WHERE ID<3</td>"), std::string::npos);
  command->command_text = "SELECT * FROM Missing";
  page.view.Set("RecordCount", std::int64_t{-1});
  page.Render();
  EXPECT_EQ(page.ErrorMessage(),
            "no such table: Missing in WriteHTMLTable.<br>sql='SELECT * FROM Missing'<br>");
}

TEST(Command, WithAConnectionOfItsOwnRunsOnThat) {
  const ItemsPage other(7);
  ItemsPage page(45);
  const auto command = std::make_shared<platform::Command>();
  command->command_text = "SELECT * FROM Items";
  command->active_connection = other.Settings().DrConnection->Connection();
  page.view.Set("StoredProcCommand", platform::ObjectPtr(command));
  EXPECT_EQ(page.Shown(), Range(1, 7));
  EXPECT_EQ(page.Settings().RecordCount, 7);
}

TEST(Command, SetBeforeTheConnectionRunsOnTheLaterOne) {
  const tests::TemporaryDatabase database(tests::ViewPage::ItemsTable(3));
  component::DbView view(tests::TestEnvironment());
  tests::FakePage page;
  view.OnStartPage(page);
  view.Set("sql", std::string("WITH A AS (SELECT * FROM Items) SELECT * FROM A"));
  view.Set("ConnectionString", database.ConnectionString());
  view.WriteHtmlTable();
  EXPECT_EQ(tests::ItemsShown(page.body), Range(1, 3));
}

TEST(View, WithoutAConnectionSaysWhatToSet) {
  component::DbView view(tests::TestEnvironment());
  tests::FakePage page;
  view.OnStartPage(page);
  view.Set("sql", std::string("SELECT 1"));
  view.WriteHtmlTable();
  EXPECT_EQ(page.body, "");
  EXPECT_EQ(view.GetSettings().ErrorMessage,
            "There is no database connection: set ConnectionString or DrConnection in WriteHTMLTable.<br>");
}

}  // namespace
}  // namespace dralo::driver
