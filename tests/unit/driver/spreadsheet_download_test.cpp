#include <gtest/gtest.h>

#include <algorithm>

#include "dralo/command.h"
#include "dralo/error.h"
#include "dralo/page.h"
#include "support/items.h"

namespace dralo::driver {
namespace {

using tests::ItemsPage;
using tests::Range;
using Calls = std::vector<std::string>;

const Calls kBeforeTheTable = {"clear", "content-type: application/vnd.ms-excel",
                               "content-disposition: attachment; filename=DraloExcelExport.xls"};

/// A page on which a visitor has pressed the button for the spreadsheet.
struct ExportPage : ItemsPage {
  explicit ExportPage(int rows = 3) : ItemsPage(rows) { Ask("ToExcel.x", "3"); }

  /// Whether no statement holds the database any more.
  bool IsDatabaseFree() const {
    try {
      database.Run("BEGIN EXCLUSIVE; ROLLBACK");
      return true;
    } catch (const std::runtime_error&) {
      return false;
    }
  }
  bool WasEnded() const { return std::ranges::count(page.calls, "end") > 0; }
};

std::shared_ptr<platform::Recordset> OpenItems(const ExportPage& page) {
  const auto connection =
      platform::Create<platform::Connection>(tests::TestEnvironment(), "ADODB.Connection");
  connection->Open(page.database.ConnectionString());
  auto recordset = platform::Create<platform::Recordset>(tests::TestEnvironment(), "ADODB.Recordset");
  recordset->Open("SELECT * FROM Items", connection);
  return recordset;
}

TEST(Spreadsheet, IsSentAsADownloadThatBeginsWithTheTableAndEndsThePageOnce) {
  ExportPage page;
  const std::string body = page.Render();
  Calls expected = kBeforeTheTable;
  expected.insert(expected.end(), {"write", "end"});
  EXPECT_EQ(page.page.calls, expected);
  EXPECT_TRUE(body.starts_with("<table>\r\n<tr>\r\n<th "));
  EXPECT_TRUE(body.ends_with("</tr>\r\n</table>"));
  EXPECT_EQ(page.ErrorMessage(), "");
}

TEST(Spreadsheet, DropsWhatThePageHadWritten) {
  ExportPage page;
  page.page.body = "<html>";
  page.view.WriteHtmlTable();
  EXPECT_TRUE(page.page.body.starts_with("<table>"));
}

TEST(Spreadsheet, HasAllRecordsWhateverThePage) {
  ExportPage page(45);
  page.Ask("CurrRecord", "21");
  page.Ask("maxrecords", "1");
  page.Ask("NEXT.x", "1");
  EXPECT_EQ(page.Shown(), Range(1, 45));
}

TEST(Spreadsheet, EndsAtTheLimitOfRecords) {
  ExportPage page(45);
  page.view.Set("RecordsMaxLimit", std::int64_t{2});
  EXPECT_EQ(page.Shown(), Range(1, 2));
  page.view.Set("RecordsMaxLimit", std::int64_t{0});
  EXPECT_EQ(page.Shown(), Range(1, 0));
}

TEST(Spreadsheet, HasTheOrderThatTheRequestAsksFor) {
  ExportPage page;
  page.Ask("OrderByFields", "ID");
  page.Ask("OrderByDesc", "True");
  EXPECT_EQ(page.Shown(), (std::vector{3, 2, 1}));
}

TEST(Spreadsheet, IsTheSameWhenTheFormWasPosted) {
  ExportPage page;
  page.page.form.swap(page.page.query);
  EXPECT_EQ(page.Shown(), Range(1, 3));
}

TEST(Spreadsheet, IsOnlySentForThePressedButtonOfItsOwnView) {
  ItemsPage page(3);
  page.page.query.push_back({"Morvu2ToExcel.x", "3"});
  page.Ask("ToExcel.y", "3");
  EXPECT_TRUE(page.Render().starts_with("\r\n\r\n<!-- Dralo -->"));
}

TEST(Spreadsheet, IsAllThatHappensWhenAChangeIsPostedWithIt) {
  ExportPage page;
  page.view.Set("EditOptions", std::string("ALL"));
  page.Ask("FormUpdate", "Save");
  EXPECT_EQ(page.Shown(), Range(1, 3));
  EXPECT_EQ(page.ErrorMessage(), "");
}

TEST(Spreadsheet, CutsMemosAlsoForAViewThatShowsOneRecord) {
  ExportPage page;
  page.database.Run("CREATE TABLE Notes(Note TEXT); INSERT INTO Notes VALUES ('abcdef')");
  page.view.Set("sql", std::string("SELECT Note FROM Notes"));
  page.view.Set("DisplayType", std::string("form"));
  page.view.Set("MemoFieldLimit", std::int64_t{3});
  EXPECT_NE(page.Render().find(">abc...</td>"), std::string::npos);
}

TEST(Spreadsheet, OfASuppliedRecordsetStartsAtItsRecordAndLeavesItOpen) {
  ExportPage page(9);
  const auto recordset = OpenItems(page);
  recordset->Move(4);
  page.view.Set("ADORecordset", platform::ObjectPtr(recordset));
  EXPECT_EQ(page.Shown(), Range(5, 9));
  EXPECT_TRUE(recordset->IsOpen());
  EXPECT_TRUE(page.WasEnded());
}

TEST(Spreadsheet, OfASuppliedRecordsetWinsOverACommand) {
  ExportPage page(2);
  const auto command = std::make_shared<platform::Command>();
  command->command_text = "SELECT * FROM Items WHERE ID=1";
  page.view.Set("StoredProcCommand", platform::ObjectPtr(command));
  page.view.Set("ADORecordset", platform::ObjectPtr(OpenItems(page)));
  EXPECT_EQ(page.Shown(), Range(1, 2));
}

TEST(Spreadsheet, OfACommandHasItsRecordsInItsOwnOrderUpToTheLimit) {
  ExportPage page(9);
  const auto command = std::make_shared<platform::Command>();
  command->command_text = "SELECT * FROM Items WHERE ID BETWEEN ? AND ? ORDER BY ID";
  command->parameters = {std::int64_t{3}, std::int64_t{8}};
  page.view.Set("StoredProcCommand", platform::ObjectPtr(command));
  page.view.Set("RecordsMaxLimit", std::int64_t{4});
  page.Ask("OrderByFields", "ID");
  page.Ask("OrderByDesc", "True");
  EXPECT_EQ(page.Shown(), Range(3, 6));
  EXPECT_TRUE(page.IsDatabaseFree());
}

TEST(Spreadsheet, IsSentInPiecesWhileRecordsAreRead) {
  ExportPage page(2000);
  bool was_reading = false;
  page.page.on_write = [&] { was_reading = was_reading || !page.IsDatabaseFree(); };
  page.view.Set("ConnectionString", page.database.ConnectionString() + ";Busy Timeout=0");
  EXPECT_EQ(page.Shown(), Range(1, 2000));
  EXPECT_GT(std::ranges::count(page.page.calls, "write"), 3);
  EXPECT_TRUE(was_reading);
  EXPECT_TRUE(page.IsDatabaseFree());
}

TEST(Spreadsheet, IsReadToItsEndBeforeThePageIsEnded) {
  ExportPage page;
  bool was_free = false;
  page.page.on_end = [&] {
    was_free = page.IsDatabaseFree();
    throw dralo::Page::Ended{};
  };
  EXPECT_THROW(page.view.WriteHtmlTable(), dralo::Page::Ended);
  EXPECT_TRUE(was_free);
  EXPECT_EQ(tests::ItemsShown(page.page.body), Range(1, 3));
  EXPECT_EQ(page.ErrorMessage(), "");
}

TEST(Spreadsheet, LeavesNothingOpenWhenTheVisitorStopsTheDownload) {
  struct VisitorHasLeft {};
  ExportPage page(2000);
  page.page.on_write = [&, pieces = 0]() mutable {
    if (++pieces == 3) throw VisitorHasLeft{};
  };
  EXPECT_THROW(page.view.WriteHtmlTable(), VisitorHasLeft);
  EXPECT_TRUE(page.IsDatabaseFree());
  EXPECT_FALSE(page.WasEnded());
}

TEST(Spreadsheet, ReportsAResponseThatFailsAndLeavesNothingOpen) {
  ExportPage page(2000);
  page.page.on_write = [&, pieces = 0]() mutable {
    if (++pieces == 3) throw platform::Error("The connection is gone");
  };
  page.view.WriteHtmlTable();
  EXPECT_EQ(page.ErrorMessage(), "The connection is gone in WriteExcelTable<br>");
  EXPECT_TRUE(page.IsDatabaseFree());
  EXPECT_FALSE(page.WasEnded());
}

TEST(Spreadsheet, OfAFailingStatementIsAMessageOnAPageThatStaysOne) {
  ExportPage page;
  page.view.Set("sql", std::string("SELECT * FROM Missing"));
  page.view.Set("DisplayDebug", true);
  EXPECT_EQ(page.Render(), "");
  EXPECT_EQ(page.ErrorMessage(), "no such table: Missing in WriteExcelTable<br>");
  EXPECT_EQ(page.page.calls, Calls{"clear"});
}

TEST(Spreadsheet, ThatFailsAtItsFirstRecordLeavesThePageAPage) {
  ExportPage page;
  page.view.Set("sql", std::string("SELECT ID, abs(-9223372036854775807-1) AS X FROM Items"));
  EXPECT_EQ(page.Render(), "");
  EXPECT_EQ(page.page.calls, Calls{"clear"});
  EXPECT_EQ(page.ErrorMessage(), "integer overflow in WriteExcelTable<br>");
  EXPECT_TRUE(page.IsDatabaseFree());
}

TEST(Spreadsheet, ThatFailsBehindItsFirstByteStaysASpreadsheet) {
  ExportPage page;
  page.view.Set(
      "sql", std::string("SELECT ID, CASE WHEN ID=2 THEN abs(-9223372036854775807-1) END AS X FROM Items"));
  EXPECT_TRUE(page.Render().starts_with("<table>"));
  Calls expected = kBeforeTheTable;
  expected.emplace_back("write");
  EXPECT_EQ(page.page.calls, expected);
}

TEST(Spreadsheet, ThatFailsLeavesAPageOfACppProgramHtml) {
  ExportPage page;
  dralo::Page served("/p", "Morvu1ToExcel.x=3");
  page.view.OnStartPage(served);
  page.view.Set("sql", std::string("SELECT * FROM Missing"));
  page.view.WriteHtmlTable();
  EXPECT_EQ(served.ContentType(), "text/html; charset=utf-8");
  EXPECT_TRUE(served.Headers().empty());
  EXPECT_EQ(served.Body(), "");
}

TEST(Spreadsheet, KeepsTheRecordsBeforeOneThatCannotBeReadAndIsNotClosed) {
  ExportPage page;
  page.view.Set("sql",
                std::string("SELECT ID, Name, CASE WHEN ID=3 THEN abs(-9223372036854775807-1) END AS X "
                            "FROM Items"));
  const std::string body = page.Render();
  EXPECT_EQ(tests::ItemsShown(body), Range(1, 2));
  EXPECT_FALSE(body.ends_with("</table>"));
  EXPECT_EQ(page.ErrorMessage(), "integer overflow in WriteExcelTable<br>");
  EXPECT_FALSE(page.WasEnded());
  EXPECT_TRUE(page.IsDatabaseFree());
}

TEST(Spreadsheet, IsNotSentWithANumberThatIsNone) {
  ExportPage page;
  page.Ask("maxrecords", "many");
  EXPECT_EQ(page.Render(), "");
  EXPECT_EQ(page.page.calls, Calls{"clear"});
  EXPECT_EQ(page.ErrorMessage(),
            "Morvu1maxrecords must be a whole number from -32768 to 32767 in WriteExcelTable<br>");
}

TEST(Spreadsheet, NeedsAConnection) {
  component::DbView view(tests::TestEnvironment());
  tests::FakePage page;
  page.query = {{"Morvu1ToExcel.x", "3"}};
  view.OnStartPage(page);
  view.Set("sql", std::string("SELECT 1"));
  view.WriteHtmlTable();
  EXPECT_EQ(view.GetSettings().ErrorMessage,
            "There is no database connection: set ConnectionString or DrConnection in WriteExcelTable<br>");
}

TEST(Spreadsheet, IsRefusedAsAWholeWhenThePageWasSentAlready) {
  ExportPage page;
  page.page.body = "sent";
  page.page.on_clear = [] { throw platform::Error("The page has already begun to be sent"); };
  EXPECT_THROW(page.view.WriteHtmlTable(), platform::Error);
  EXPECT_EQ(page.page.body, "sent");
  EXPECT_EQ(page.page.calls, Calls{});
}

}  // namespace
}  // namespace dralo::driver
