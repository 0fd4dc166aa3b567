#include <gtest/gtest.h>

#include <memory>

#include "component/db_connection.h"
#include "dralo/command.h"
#include "dralo/error.h"
#include "dralo/page.h"
#include "support/items.h"

namespace dralo::driver {
namespace {

using tests::ItemsPage;
using tests::ItemsShown;
using tests::Range;
using tests::TestEnvironment;

/// A view that a program keeps over pages, on a connection that it keeps as well.
struct KeptView {
  explicit KeptView(int rows) : database(tests::ViewPage::ItemsTable(rows)), view(TestEnvironment()) {
    connection->Connection()->Open(database.ConnectionString());
    view.Set("DrConnection", platform::ObjectPtr(connection));
  }

  /// The body of a page that begins, is written and ends.
  std::string Page(std::string_view query = "") {
    dralo::Page page("/p", query);
    view.OnStartPage(page);
    view.WriteHtmlTable();
    view.OnEndPage();
    return page.Body();
  }

  void SupplyItems() {
    auto recordset = platform::Create<platform::Recordset>(TestEnvironment(), "ADODB.Recordset");
    recordset->Open("SELECT * FROM Items", connection->Connection());
    view.Set("ADORecordset", platform::ObjectPtr(recordset));
  }

  const std::string& ErrorMessage() const { return view.GetSettings().ErrorMessage; }

  tests::TemporaryDatabase database;
  std::shared_ptr<component::DBConnection> connection =
      std::make_shared<component::DBConnection>(TestEnvironment());
  component::DbView view;
};

struct SecondPage : testing::Test, KeptView {
  SecondPage() : KeptView(3) {}
};

TEST_F(SecondPage, RunsACommandAgain) {
  view.Set("sql", std::string("WITH A AS (SELECT * FROM Items) SELECT * FROM A"));
  EXPECT_EQ(ItemsShown(Page()), Range(1, 3));
  EXPECT_EQ(ItemsShown(Page()), Range(1, 3));
  EXPECT_EQ(ErrorMessage(), "");
}

TEST_F(SecondPage, RunsACommandOnTheConnectionThatTheViewHasThen) {
  view.Set("sql", std::string("WITH A AS (SELECT * FROM Items) SELECT * FROM A"));
  Page();
  const tests::TemporaryDatabase other(tests::ViewPage::ItemsTable(2));
  view.Set("RecordCount", std::int64_t{-1});
  view.Set("ConnectionString", other.ConnectionString());
  EXPECT_EQ(ItemsShown(Page()), Range(1, 2));
}

TEST_F(SecondPage, RunsASuppliedCommandAgainAndLeavesItAsThePageMadeIt) {
  const auto command = tests::MakeCommand("SELECT * FROM Items WHERE ID>?", {std::int64_t{1}});
  view.Set("StoredProcCommand", platform::ObjectPtr(command));
  EXPECT_EQ(ItemsShown(Page()), Range(2, 3));
  EXPECT_EQ(ItemsShown(Page()), Range(2, 3));
  EXPECT_EQ(command->active_connection, nullptr);
}

TEST_F(SecondPage, HasNoSuppliedRecordsetUntilItGetsOne) {
  SupplyItems();
  EXPECT_EQ(ItemsShown(Page()), Range(1, 3));
  EXPECT_EQ(ItemsShown(Page()), Range(1, 0));
  EXPECT_EQ(ErrorMessage(), "The statement is empty in WriteHTMLTable.<br>");
  SupplyItems();
  EXPECT_EQ(ItemsShown(Page()), Range(1, 3));
  EXPECT_EQ(ErrorMessage(), "");
}

TEST_F(SecondPage, ExportsACommandAgain) {
  view.Set("sql", std::string("WITH A AS (SELECT * FROM Items) SELECT * FROM A"));
  Page();
  dralo::Page page("/p", "Morvu1ToExcel.x=3");
  view.OnStartPage(page);
  EXPECT_THROW(view.WriteHtmlTable(), dralo::Page::Ended);
  EXPECT_EQ(ItemsShown(page.Body()), Range(1, 3));
}

TEST_F(SecondPage, NeedsANewConnectionStringWhenTheFirstHadOne) {
  view.Set("ConnectionString", database.ConnectionString());
  view.Set("sql", std::string("SELECT * FROM Items"));
  EXPECT_EQ(ItemsShown(Page()), Range(1, 3));
  Page();
  EXPECT_EQ(ErrorMessage(),
            "There is no database connection: set ConnectionString or DrConnection in WriteHTMLTable.<br>");
}

TEST_F(SecondPage, BeginsWithoutMessagesAndRowsOfTheFirst) {
  view.Set("sql", std::string("SELECT * FROM Items"));
  Page();
  EXPECT_EQ(view.GetSettings().ToRow, 3);
  EXPECT_EQ(view.CurrentRecord(1), platform::Variant(std::int64_t{1}));
  dralo::Page second("/p", "Morvu1maxrecords=many");
  view.OnStartPage(second);
  EXPECT_EQ(view.GetSettings().FromRow, 0);
  EXPECT_EQ(view.GetSettings().ToRow, 0);
  EXPECT_EQ(view.CurrentRecord(1), platform::Variant(std::string()));
  view.WriteHtmlTable();
  EXPECT_NE(ErrorMessage(), "");
  view.OnEndPage();
  EXPECT_EQ(ItemsShown(Page()), Range(1, 3));
  EXPECT_EQ(ErrorMessage(), "");
}

TEST(FirstPage, KeepsMessagesFromBeforeIt) {
  component::DbView view(TestEnvironment());
  view.Set("LanguageString", std::string("too,few"));
  dralo::Page page("/p", "");
  view.OnStartPage(page);
  EXPECT_NE(view.GetSettings().ErrorMessage, "");
}

/// A host that cannot say what was asked.
struct BrokenPage : platform::PageContext {
  const platform::Request& GetRequest() const override { throw platform::Error("No request"); }
  platform::Response& GetResponse() override { throw platform::Error("No response"); }
};

TEST(PageStart, ThatFailsLeavesTheMessageAndAViewThatWritesNothing) {
  ItemsPage first(3);
  BrokenPage broken;
  first.view.OnStartPage(broken);
  first.view.WriteHtmlTable();
  EXPECT_EQ(first.ErrorMessage(), "No request in OnStartPage<br>");
  EXPECT_EQ(first.page.body, "");
  EXPECT_EQ(first.view.CurrentMode(), "grid");
  first.view.OnStartPage(first.page);
  EXPECT_EQ(first.Shown(), Range(1, 3));
}

TEST(PageStart, ThatFailsLeavesAWholeTableUnwrittenToo) {
  const tests::TemporaryDatabase database(tests::ViewPage::ItemsTable(3));
  component::DbView view(TestEnvironment());
  BrokenPage broken;
  view.OnStartPage(broken);
  view.QHtmlTable(database.ConnectionString(), "Items");
  EXPECT_EQ(view.GetSettings().ErrorMessage, "No request in OnStartPage<br>");
}

TEST(EndedPage, LeavesAViewThatIsBoundToNoPage) {
  KeptView kept(3);
  kept.Page();
  EXPECT_THROW(kept.view.WriteHtmlTable(), platform::Error);
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
  component::DbView second(TestEnvironment());
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
  EXPECT_EQ(ItemsShown(first.page.body), Range(41, 45));
}

}  // namespace
}  // namespace dralo::driver
