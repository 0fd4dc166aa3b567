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

  const std::string& ErrorMessage() const { return view.GetSettings().ErrorMessage; }

  tests::TemporaryDatabase database;
  std::shared_ptr<component::DBConnection> connection =
      std::make_shared<component::DBConnection>(TestEnvironment());
  component::DbView view;
};

std::shared_ptr<platform::Recordset> Items(const KeptView& kept) {
  auto recordset = platform::Create<platform::Recordset>(TestEnvironment(), "ADODB.Recordset");
  recordset->Open("SELECT * FROM Items", kept.connection->Connection());
  return recordset;
}

TEST(SecondPage, RunsACommandAgain) {
  KeptView kept(3);
  kept.view.Set("sql", std::string("WITH A AS (SELECT * FROM Items) SELECT * FROM A"));
  EXPECT_EQ(ItemsShown(kept.Page()), Range(1, 3));
  EXPECT_EQ(ItemsShown(kept.Page()), Range(1, 3));
  EXPECT_EQ(kept.ErrorMessage(), "");
}

TEST(SecondPage, RunsACommandOnTheConnectionThatTheViewHasThen) {
  KeptView kept(3);
  kept.view.Set("sql", std::string("WITH A AS (SELECT * FROM Items) SELECT * FROM A"));
  kept.Page();
  const tests::TemporaryDatabase other(tests::ViewPage::ItemsTable(2));
  kept.view.Set("RecordCount", std::int64_t{-1});
  kept.view.Set("ConnectionString", other.ConnectionString());
  EXPECT_EQ(ItemsShown(kept.Page()), Range(1, 2));
}

TEST(SecondPage, RunsASuppliedCommandAgainAndLeavesItAsThePageMadeIt) {
  KeptView kept(9);
  const auto command = std::make_shared<platform::Command>();
  command->command_text = "SELECT * FROM Items WHERE ID>?";
  command->parameters = {std::int64_t{6}};
  kept.view.Set("StoredProcCommand", platform::ObjectPtr(command));
  EXPECT_EQ(ItemsShown(kept.Page()), Range(7, 9));
  EXPECT_EQ(ItemsShown(kept.Page()), Range(7, 9));
  EXPECT_EQ(command->active_connection, nullptr);
}

TEST(SecondPage, HasNoSuppliedRecordsetUntilItGetsOne) {
  KeptView kept(3);
  kept.view.Set("ADORecordset", platform::ObjectPtr(Items(kept)));
  EXPECT_EQ(ItemsShown(kept.Page()), Range(1, 3));
  EXPECT_EQ(ItemsShown(kept.Page()), Range(1, 0));
  EXPECT_EQ(kept.ErrorMessage(), "The statement is empty in WriteHTMLTable.<br>");
  kept.view.Set("ADORecordset", platform::ObjectPtr(Items(kept)));
  EXPECT_EQ(ItemsShown(kept.Page()), Range(1, 3));
  EXPECT_EQ(kept.ErrorMessage(), "");
}

TEST(SecondPage, ExportsACommandAgain) {
  KeptView kept(3);
  kept.view.Set("sql", std::string("WITH A AS (SELECT * FROM Items) SELECT * FROM A"));
  kept.Page();
  dralo::Page page("/p", "Morvu1ToExcel.x=3");
  kept.view.OnStartPage(page);
  EXPECT_THROW(kept.view.WriteHtmlTable(), dralo::Page::Ended);
  EXPECT_EQ(ItemsShown(page.Body()), Range(1, 3));
}

TEST(SecondPage, NeedsANewConnectionStringWhenTheFirstHadOne) {
  KeptView kept(3);
  kept.view.Set("ConnectionString", kept.database.ConnectionString());
  kept.view.Set("sql", std::string("SELECT * FROM Items"));
  EXPECT_EQ(ItemsShown(kept.Page()), Range(1, 3));
  kept.Page();
  EXPECT_EQ(kept.ErrorMessage(),
            "There is no database connection: set ConnectionString or DrConnection in WriteHTMLTable.<br>");
}

TEST(SecondPage, BeginsWithoutMessagesAndRowsOfTheFirst) {
  KeptView kept(3);
  kept.view.Set("sql", std::string("SELECT * FROM Items"));
  kept.Page();
  EXPECT_EQ(kept.view.GetSettings().ToRow, 3);
  EXPECT_EQ(kept.view.CurrentRecord(1), platform::Variant(std::int64_t{1}));
  dralo::Page second("/p", "Morvu1maxrecords=many");
  kept.view.OnStartPage(second);
  EXPECT_EQ(kept.view.GetSettings().FromRow, 0);
  EXPECT_EQ(kept.view.GetSettings().ToRow, 0);
  EXPECT_EQ(kept.view.CurrentRecord(1), platform::Variant(std::string()));
  kept.view.WriteHtmlTable();
  EXPECT_NE(kept.ErrorMessage(), "");
  kept.view.OnEndPage();
  EXPECT_EQ(ItemsShown(kept.Page()), Range(1, 3));
  EXPECT_EQ(kept.ErrorMessage(), "");
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

}  // namespace
}  // namespace dralo::driver
