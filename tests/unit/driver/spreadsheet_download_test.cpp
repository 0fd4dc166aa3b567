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
  explicit ExportPage(int rows) : ItemsPage(rows) { Ask("ToExcel.x", "3"); }

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

template <int kRows>
struct SpreadsheetOf : testing::Test, ExportPage {
  SpreadsheetOf() : ExportPage(kRows) {}
};

using Spreadsheet = SpreadsheetOf<3>;
using LongSpreadsheet = SpreadsheetOf<2000>;

TEST_F(Spreadsheet, IsSentAsADownloadThatBeginsWithTheTableAndEndsThePageOnce) {
  const std::string body = Render();
  Calls expected = kBeforeTheTable;
  expected.insert(expected.end(), {"write", "end"});
  EXPECT_EQ(page.calls, expected);
  EXPECT_TRUE(body.starts_with("<table>\r\n<tr>\r\n<th "));
  EXPECT_TRUE(body.ends_with("</tr>\r\n</table>"));
  EXPECT_EQ(ErrorMessage(), "");
}

TEST_F(Spreadsheet, DropsWhatThePageHadWritten) {
  page.body = "<html>";
  view.WriteHtmlTable();
  EXPECT_TRUE(page.body.starts_with("<table>"));
}

TEST_F(LongSpreadsheet, HasAllRecordsWhateverThePage) {
  Ask("CurrRecord", "21");
  Ask("maxrecords", "1");
  Ask("NEXT.x", "1");
  EXPECT_EQ(Shown(), Range(1, 2000));
}

TEST_F(LongSpreadsheet, EndsAtTheLimitOfRecords) {
  Set("RecordsMaxLimit", 2);
  EXPECT_EQ(Shown(), Range(1, 2));
  Set("RecordsMaxLimit", 0);
  EXPECT_EQ(Shown(), Range(1, 0));
}

TEST_F(Spreadsheet, HasTheOrderThatTheRequestAsksFor) {
  Ask("OrderByFields", "ID");
  Ask("OrderByDesc", "True");
  EXPECT_EQ(Shown(), (std::vector{3, 2, 1}));
}

TEST_F(Spreadsheet, IsTheSameWhenTheFormWasPosted) {
  page.form.swap(page.query);
  EXPECT_EQ(Shown(), Range(1, 3));
}

TEST_F(Spreadsheet, IsOnlySentForThePressedButtonOfItsOwnView) {
  page.query = {{"Morvu2ToExcel.x", "3"}, {"Morvu1ToExcel.y", "3"}};
  EXPECT_TRUE(Render().starts_with("\r\n\r\n<!-- Dralo -->"));
}

TEST_F(Spreadsheet, IsAllThatHappensWhenAChangeIsPostedWithIt) {
  Set("EditOptions", "ALL");
  Ask("FormUpdate", "Save");
  EXPECT_EQ(Shown(), Range(1, 3));
  EXPECT_EQ(ErrorMessage(), "");
}

TEST_F(Spreadsheet, CutsMemosAlsoForAViewThatShowsOneRecord) {
  database.Run("CREATE TABLE Notes(Note TEXT); INSERT INTO Notes VALUES ('abcdef')");
  Set("sql", "SELECT Note FROM Notes");
  Set("DisplayType", "form");
  Set("MemoFieldLimit", 3);
  EXPECT_NE(Render().find(">abc...</td>"), std::string::npos);
}

TEST_F(LongSpreadsheet, OfASuppliedRecordsetStartsAtItsRecordAndLeavesItOpen) {
  const auto recordset = OpenRecordset("SELECT * FROM Items");
  recordset->Move(4);
  Set("ADORecordset", recordset);
  EXPECT_EQ(Shown(), Range(5, 2000));
  EXPECT_TRUE(recordset->IsOpen());
  EXPECT_TRUE(WasEnded());
}

TEST_F(Spreadsheet, OfASuppliedRecordsetWinsOverACommand) {
  Set("StoredProcCommand", tests::MakeCommand("SELECT * FROM Items WHERE ID=1"));
  Set("ADORecordset", OpenRecordset("SELECT * FROM Items"));
  EXPECT_EQ(Shown(), Range(1, 3));
}

TEST_F(LongSpreadsheet, OfACommandHasItsRecordsInItsOwnOrderUpToTheLimit) {
  Set("StoredProcCommand", tests::MakeCommand("SELECT * FROM Items WHERE ID BETWEEN ? AND ? ORDER BY ID",
                                              {std::int64_t{3}, std::int64_t{8}}));
  Set("RecordsMaxLimit", 4);
  Ask("OrderByFields", "ID");
  Ask("OrderByDesc", "True");
  EXPECT_EQ(Shown(), Range(3, 6));
  EXPECT_TRUE(IsDatabaseFree());
}

TEST_F(LongSpreadsheet, IsSentInPiecesWhileRecordsAreRead) {
  bool was_reading = false;
  page.on_write = [&] { was_reading = was_reading || !IsDatabaseFree(); };
  view.Set("ConnectionString", database.ConnectionString() + ";Busy Timeout=0");
  EXPECT_EQ(Shown(), Range(1, 2000));
  EXPECT_GT(std::ranges::count(page.calls, "write"), 3);
  EXPECT_TRUE(was_reading);
  EXPECT_TRUE(IsDatabaseFree());
}

TEST_F(Spreadsheet, IsReadToItsEndBeforeThePageIsEnded) {
  bool was_free = false;
  page.on_end = [&] {
    was_free = IsDatabaseFree();
    throw dralo::Page::Ended{};
  };
  EXPECT_THROW(view.WriteHtmlTable(), dralo::Page::Ended);
  EXPECT_TRUE(was_free);
  EXPECT_EQ(tests::ItemsShown(page.body), Range(1, 3));
  EXPECT_EQ(ErrorMessage(), "");
}

TEST_F(LongSpreadsheet, LeavesNothingOpenWhenTheVisitorStopsTheDownload) {
  struct VisitorHasLeft {};
  page.on_write = [&, pieces = 0]() mutable {
    if (++pieces == 3) throw VisitorHasLeft{};
  };
  EXPECT_THROW(view.WriteHtmlTable(), VisitorHasLeft);
  EXPECT_TRUE(IsDatabaseFree());
  EXPECT_FALSE(WasEnded());
}

TEST_F(LongSpreadsheet, ReportsAResponseThatFailsAndLeavesNothingOpen) {
  page.on_write = [&, pieces = 0]() mutable {
    if (++pieces == 3) throw platform::Error("The connection is gone");
  };
  view.WriteHtmlTable();
  EXPECT_EQ(ErrorMessage(), "The connection is gone in WriteExcelTable<br>");
  EXPECT_TRUE(IsDatabaseFree());
  EXPECT_FALSE(WasEnded());
}

TEST_F(Spreadsheet, OfAFailingStatementIsAMessageOnAPageThatStaysOne) {
  Set("sql", "SELECT * FROM Missing");
  view.Set("DisplayDebug", true);
  EXPECT_EQ(Render(), "");
  EXPECT_EQ(ErrorMessage(), "no such table: Missing in WriteExcelTable<br>");
  EXPECT_EQ(page.calls, Calls{"clear"});
}

TEST_F(Spreadsheet, ThatFailsAtItsFirstRecordLeavesThePageAPage) {
  Set("sql", "SELECT ID, abs(-9223372036854775807-1) AS X FROM Items");
  EXPECT_EQ(Render(), "");
  EXPECT_EQ(page.calls, Calls{"clear"});
  EXPECT_EQ(ErrorMessage(), "integer overflow in WriteExcelTable<br>");
  EXPECT_TRUE(IsDatabaseFree());
}

TEST_F(Spreadsheet, ThatFailsBehindItsFirstByteStaysASpreadsheet) {
  Set("sql", "SELECT ID, CASE WHEN ID=2 THEN abs(-9223372036854775807-1) END AS X FROM Items");
  EXPECT_TRUE(Render().starts_with("<table>"));
  Calls expected = kBeforeTheTable;
  expected.emplace_back("write");
  EXPECT_EQ(page.calls, expected);
}

TEST_F(Spreadsheet, ThatFailsLeavesAPageOfACppProgramHtml) {
  dralo::Page served("/p", "Morvu1ToExcel.x=3");
  view.OnStartPage(served);
  Set("sql", "SELECT * FROM Missing");
  view.WriteHtmlTable();
  EXPECT_EQ(served.ContentType(), "text/html; charset=utf-8");
  EXPECT_TRUE(served.Headers().empty());
  EXPECT_EQ(served.Body(), "");
}

TEST_F(Spreadsheet, KeepsTheRecordsBeforeOneThatCannotBeReadAndIsNotClosed) {
  Set("sql",
      "SELECT ID, Name, CASE WHEN ID=3 THEN abs(-9223372036854775807-1) END AS X "
      "FROM Items");
  const std::string body = Render();
  EXPECT_EQ(tests::ItemsShown(body), Range(1, 2));
  EXPECT_FALSE(body.ends_with("</table>"));
  EXPECT_EQ(ErrorMessage(), "integer overflow in WriteExcelTable<br>");
  EXPECT_FALSE(WasEnded());
  EXPECT_TRUE(IsDatabaseFree());
}

TEST_F(Spreadsheet, IsNotSentWithANumberThatIsNone) {
  Ask("maxrecords", "many");
  EXPECT_EQ(Render(), "");
  EXPECT_EQ(page.calls, Calls{"clear"});
  EXPECT_EQ(ErrorMessage(),
            "Morvu1maxrecords must be a whole number from -32768 to 32767 in WriteExcelTable<br>");
}

TEST_F(Spreadsheet, NeedsAConnection) {
  component::DbView bare(tests::TestEnvironment());
  bare.OnStartPage(page);
  bare.Set("sql", std::string("SELECT 1"));
  bare.WriteHtmlTable();
  EXPECT_EQ(bare.GetSettings().ErrorMessage,
            "There is no database connection: set ConnectionString or DrConnection in WriteExcelTable<br>");
}

TEST_F(Spreadsheet, IsRefusedAsAWholeWhenThePageWasSentAlready) {
  page.body = "sent";
  page.on_clear = [] { throw platform::Error("The page has already begun to be sent"); };
  EXPECT_THROW(view.WriteHtmlTable(), platform::Error);
  EXPECT_EQ(page.body, "sent");
  EXPECT_EQ(page.calls, Calls{});
}

}  // namespace
}  // namespace dralo::driver
