#include "driver/query.h"

#include <gtest/gtest.h>

#include "component/db_connection.h"
#include "support/items.h"

namespace dralo::driver {
namespace {

using tests::ItemsPage;
using tests::Range;

constexpr char kItemsByStatement[] = "SELECT * FROM Items";
constexpr char kItemsByCommand[] = "WITH All_ AS (SELECT * FROM Items) SELECT * FROM All_";

TEST(RecordCount, IsTakenOnceAndKept) {
  ItemsPage page(45);
  page.Render();
  EXPECT_EQ(page.Settings().RecordCount, 45);
  page.database.Run("DELETE FROM Items WHERE ID>40");
  page.Render();
  EXPECT_EQ(page.Settings().RecordCount, 45);
  page.Set("RecordCount", -1);
  page.Render();
  EXPECT_EQ(page.Settings().RecordCount, 40);
}

TEST(RecordCount, ThatIsPresetIsNeverCountedAgainAndShownByTheBar) {
  ItemsPage page(3);
  page.Set("RecordCount", 5);
  EXPECT_NE(page.Render().find("of 5"), std::string::npos);
  EXPECT_EQ(page.Settings().RecordCount, 5);
}

TEST(RecordCount, OfAnEmptyResultIsZeroAndCountedAgainAtTheNextCall) {
  for (const char* sql : {kItemsByStatement, kItemsByCommand}) {
    ItemsPage page(0);
    page.Set("sql", sql);
    page.Render();
    EXPECT_EQ(page.Settings().RecordCount, 0) << sql;
    page.database.Run("INSERT INTO Items VALUES(1,'Item 1')");
    EXPECT_EQ(page.Shown(), Range(1, 1)) << sql;
    EXPECT_EQ(page.Settings().RecordCount, 1) << sql;
  }
}

TEST(RecordCount, OfAStatementThatIsNoDerivedTableIsTheDatabasesErrorToReport) {
  ItemsPage page(3);
  page.Set("sql", "SELECT * FROM Items;");
  EXPECT_EQ(page.Render(), "");
  EXPECT_EQ(page.ErrorMessage(), "near \";\": syntax error in WriteHTMLTable.<br>");
  page.Set("CountRecords", false);
  EXPECT_EQ(page.Shown(), Range(1, 3));
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

TEST(CurrentRecordNumber, IsNeverCutBelowOne) {
  ItemsPage page(0);
  page.Ask("CurrRecord", "100");
  EXPECT_NE(page.Render().find("name=\"Morvu1CurrRecord\" value=\"1\""), std::string::npos);
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
  page.Set("sql", "SELECT * FROM Items ORDER BY ID");
  page.Set("OrderByFields", "Name");
  EXPECT_EQ(page.Render(), "");
  EXPECT_EQ(page.ErrorMessage(), "near \"ORDER\": syntax error in WriteHTMLTable.<br>");
}

TEST(SuppliedRecordset, IsShownFromWhereItStandsAndLeftOpen) {
  ItemsPage page(45);
  const auto recordset = page.OpenRecordset(kItemsByStatement);
  recordset->Move(4);
  page.Set("ADORecordset", recordset);
  EXPECT_EQ(page.Shown(), Range(5, 24));
  EXPECT_TRUE(recordset->IsOpen());
}

TEST(SuppliedRecordset, IsNeverCountedEvenWhenTheRequestAsksForIt) {
  ItemsPage page(45);
  page.Set("ADORecordset", page.OpenRecordset(kItemsByStatement));
  page.Ask("CountRecords", "on");
  EXPECT_EQ(page.Shown(), Range(1, 20));
  EXPECT_EQ(page.Settings().RecordCount, -1);
  EXPECT_EQ(page.ErrorMessage(), "");
}

TEST(SuppliedRecordset, KeepsAPresetCount) {
  ItemsPage page(45);
  page.Set("ADORecordset", page.OpenRecordset(kItemsByStatement));
  page.Set("RecordCount", 45);
  page.Render();
  EXPECT_EQ(page.Settings().RecordCount, 45);
}

TEST(SuppliedRecordset, WinsOverACommand) {
  ItemsPage page(45);
  page.Set("sql", kItemsByCommand);
  page.Set("ADORecordset", page.OpenRecordset("SELECT * FROM Items WHERE ID=7"));
  EXPECT_EQ(page.Shown(), Range(7, 7));
}

TEST(SuppliedRecordset, NeedsNoConnectionOfTheView) {
  ItemsPage page(3);
  component::DbView view(tests::TestEnvironment());
  tests::FakePage other;
  view.OnStartPage(other);
  view.Set("ADORecordset", page.OpenRecordset(kItemsByStatement));
  view.WriteHtmlTable();
  EXPECT_EQ(tests::ItemsShown(other.body), Range(1, 3));
  EXPECT_EQ(view.GetSettings().ErrorMessage, "");
}

TEST(Command, WithParametersShowsItsRows) {
  ItemsPage page(45);
  page.Set("StoredProcCommand", tests::MakeCommand("SELECT * FROM Items WHERE ID BETWEEN ? AND ?",
                                                   {std::int64_t{7}, std::int64_t{9}}));
  EXPECT_EQ(page.Shown(), Range(7, 9));
  EXPECT_EQ(page.Settings().RecordCount, 3);
}

TEST(Command, ShowsItsTextToWhoDebugs) {
  ItemsPage page(9);
  const auto command = tests::MakeCommand("SELECT * FROM Items WHERE ID<3");
  page.Set("StoredProcCommand", command);
  page.Set("DisplayDebug", true);
  page.Set("OrderByFields", "ID");
  EXPECT_NE(page.Render().find(">SELECT * FROM Items WHERE ID<3</td>"), std::string::npos);
  command->command_text = "SELECT * FROM Missing";
  page.Set("RecordCount", -1);
  page.Render();
  EXPECT_EQ(page.ErrorMessage(),
            "no such table: Missing in WriteHTMLTable.<br>sql='SELECT * FROM Missing'<br>");
}

TEST(Command, WithAConnectionOfItsOwnRunsOnThat) {
  const ItemsPage other(7);
  ItemsPage page(45);
  const auto command = tests::MakeCommand(kItemsByStatement);
  command->active_connection = other.Settings().DrConnection->Connection();
  page.Set("StoredProcCommand", command);
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
