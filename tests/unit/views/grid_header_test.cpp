#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "component/db_connection.h"
#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "support/fake_records.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;

struct SortLink : GridPage {
  /// All that a grid without rows has.
  std::string Header() {
    return Grid(Records("CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Photo BLOB, Note TEXT)"));
  }
};

/// A header without sort links.
struct GridHeader : SortLink {
  GridHeader() { settings.GridColsNoSort = "*"; }
};

/// The address of a sort link on page 1 as far as "BookMark".
std::string SortUrl(int column, int first_record = 1) {
  return "/p?Morvu1CurrRecord=" + std::to_string(first_record) +
         "&Morvu1CountRecords=on&Morvu1maxrecords=20&Morvu1OrderByFields=" + std::to_string(column) +
         "&Morvu1BookMark=" + std::to_string(first_record - 1);
}

/// The header cell of the column called `name`, which has a link.
std::string CellOf(const std::string& header, const std::string& name) {
  const std::size_t at = header.find("<nobr>" + name);
  if (at == std::string::npos) return "";
  const std::size_t start = header.rfind("<th", at);
  return header.substr(start, header.find("\r\n", at) - start);
}

/// The header cell with `text` in a link.
std::string LinkedCell(const std::string& align, const std::string& url, const std::string& text) {
  return "<th align=\"" + align + R"(" class="DRLOTableTH"><a class="DRLOTableTH" href=")" + url +
         "\"><nobr>" + text + "</nobr></a></th>";
}

TEST_F(GridHeader, HasTheIndexAndEveryColumnAlignedByItsType) {
  EXPECT_HTML(Header(), Lines(R"(
      <tr class="DRLOTableTR">
      <th class="DRLOTableTH">#</th>
      <th align="right" class="DRLOTableTH">ID</th>
      <th align="left" class="DRLOTableTH">Name</th>
      <th align="left" class="DRLOTableTH">Photo</th>
      <th align="left" class="DRLOTableTH">Note</th>
      </tr>
      )"));
  EXPECT_EQ(rows, 0);
  EXPECT_EQ(settings.ErrorMessage, "");
}

TEST_F(GridHeader, HasNoClassesWithoutCSS) {
  settings.UseCSS = false;

  EXPECT_HTML(Header(), Lines(R"(
      <tr>
      <th >#</th>
      <th align="right">ID</th>
      <th align="left">Name</th>
      <th align="left">Photo</th>
      <th align="left">Note</th>
      </tr>
      )"));
}

TEST_F(GridHeader, PutsBlanksAroundTheTagOfItsCellsButNotIntoTheIndexCellWithClasses) {
  settings.THTag = "nowrap";
  settings.GridFieldsShow = "ID";

  EXPECT_HTML(Header(), Lines(R"(
      <tr class="DRLOTableTR">
      <th class="DRLOTableTH">#</th>
      <th  nowrap align="right" class="DRLOTableTH">ID</th>
      </tr>
      )"));

  settings.UseCSS = false;
  EXPECT_HTML(Header(), Lines(R"(
      <tr>
      <th  nowrap >#</th>
      <th  nowrap align="right">ID</th>
      </tr>
      )"));
}

TEST_F(GridHeader, PutsColumnAttributesFirst) {
  settings.THTag = "nowrap";
  settings.GridFieldsShow = "ID";
  settings::SetGridColHeadAttributes(settings, 0, "title='no'");
  settings::SetGridColHeadAttributes(settings, 1, "title='id'");

  EXPECT_HTML(Header(), Lines(R"(
      <tr class="DRLOTableTR">
      <th title='no' class="DRLOTableTH">#</th>
      <th title='id'  nowrap align="right" class="DRLOTableTH">ID</th>
      </tr>
      )"));

  settings.UseCSS = false;
  EXPECT_HTML(Header(), Lines(R"(
      <tr>
      <th title='no'  nowrap >#</th>
      <th title='id'  nowrap align="right">ID</th>
      </tr>
      )"));
}

TEST_F(GridHeader, TakesWidthsByColumnPosition) {
  settings.GridCellWidths = "50,, 20%";
  settings.GridFieldsHide = "ID";

  EXPECT_HTML(Header(), Lines(R"(
      <tr class="DRLOTableTR">
      <th class="DRLOTableTH">#</th>
      <th align="left" class="DRLOTableTH">Name</th>
      <th align="left" class="DRLOTableTH" width=" 20%">Photo</th>
      <th align="left" class="DRLOTableTH">Note</th>
      </tr>
      )"));

  settings.UseCSS = false;
  settings.GridFieldsHide = "2,3,4";
  EXPECT_HTML(Header(), Lines(R"(
      <tr>
      <th >#</th>
      <th align="right" width="50">ID</th>
      </tr>
      )"));
}

TEST_F(GridHeader, TakesDisplayNames) {
  settings.GridDisplayFieldNames = "No., ,";
  settings.GridDisplayIndex = false;

  EXPECT_HTML(Header(), Lines(R"(
      <tr class="DRLOTableTR">
      <th align="right" class="DRLOTableTH">No.</th>
      <th align="left" class="DRLOTableTH">&nbsp;</th>
      <th align="left" class="DRLOTableTH">Photo</th>
      <th align="left" class="DRLOTableTH">Note</th>
      </tr>
      )"));
}

TEST_F(GridHeader, IsLeftOutWhenItIsSwitchedOff) {
  settings.DisplayHeader = false;

  EXPECT_EQ(Header(), "");
}

TEST_F(GridHeader, IsWrittenWithoutAnyColumn) {
  settings.GridFieldsShow = "none";
  settings.GridDisplayIndex = false;

  EXPECT_HTML(Header(), Lines(R"(
      <tr class="DRLOTableTR">
      </tr>
      )"));
}

TEST_F(SortLink, CarriesTheStateOfTheFirstRecordTheColumnAndABookmark) {
  EXPECT_EQ(CellOf(Header(), "Name"), LinkedCell("left", SortUrl(2), "Name"));

  current_record = 21;
  EXPECT_EQ(CellOf(Header(), "ID"), LinkedCell("right", SortUrl(1, 21), "ID"));
}

TEST_F(SortLink, HasNoClassWithoutCSS) {
  settings.UseCSS = false;

  EXPECT_EQ(CellOf(Header(), "Name"),
            R"(<th align="left"><a href=")" + SortUrl(2) + R"("><nobr>Name</nobr></a></th>)");
}

TEST_F(SortLink, OfTheSortedColumnTurnsTheOrderRoundAndHasAnArrow) {
  settings.OrderByFields = "2";
  const std::string ascending = Header();
  EXPECT_EQ(CellOf(ascending, "Name"), LinkedCell("left", SortUrl(2) + "&Morvu1OrderByDesc=True",
                                                  R"(Name&nbsp;<img border="0" src="../gfx/orderasc.gif">)"));
  EXPECT_EQ(CellOf(ascending, "ID"), LinkedCell("right", SortUrl(1), "ID"));

  settings.OrderByDesc = true;
  settings.ImageDir = "/i/";
  const std::string descending = Header();
  EXPECT_EQ(CellOf(descending, "Name"),
            LinkedCell("left", SortUrl(2), R"(Name&nbsp;<img border="0" src="/i/orderdesc.gif">)"));
  EXPECT_EQ(CellOf(descending, "ID"), LinkedCell("right", SortUrl(1), "ID"));
}

TEST_F(SortLink, HasNoArrowForAnOrderByFieldName) {
  settings.OrderByFields = "Name";

  EXPECT_FALSE(Contains(Header(), "<img"));
}

TEST_F(SortLink, IsMissingWhenTheStatementIsSortedInAnyLetterCase) {
  for (const std::string_view sql : {"SELECT * FROM T ORDER BY 1", "select * from t oRdEr bY 1"}) {
    settings.sql = sql;
    EXPECT_FALSE(Contains(Header(), "<a")) << sql;
  }
}

TEST_F(SortLink, IsMissingForACommand) {
  settings.has_stored_procedure = true;

  EXPECT_FALSE(Contains(Header(), "<a"));
}

TEST_F(SortLink, IsMissingForColumnsOfTheNoSortList) {
  settings.GridColsNoSort = "name";

  const std::string header = Header();
  EXPECT_EQ(CellOf(header, "Name"), "");
  EXPECT_NE(CellOf(header, "ID"), "");

  settings.GridColsNoSort = " * ";
  EXPECT_FALSE(Contains(Header(), "<a"));
}

TEST_F(SortLink, IsMissingForLongColumnsWithoutAConnection) {
  const std::string header = Header();
  EXPECT_EQ(CellOf(header, "Photo"), "");
  EXPECT_EQ(CellOf(header, "Note"), "");
}

TEST_F(SortLink, IsThereForLongColumnsOnTheEngineThatCanSortThem) {
  settings.DrConnection = std::make_shared<component::DBConnection>(AmericanEnvironment());
  FakeRecords records(0);
  const auto read = [] { return platform::VariantView(); };
  records.Add("A", TypeCode::kLongVarChar, read);
  records.Add("B", TypeCode::kLongVarWideChar, read);
  records.Add("C", TypeCode::kLongVarBinary, read);

  for (const std::string_view engine : {"ORACLE", "ACCESS", "MSSQL"}) {
    settings.DrConnection->SetEngineName(engine);
    EXPECT_FALSE(Contains(Grid(records), "<a")) << engine;
  }
  settings.DrConnection->SetEngineName("SQLA");
  const std::string header = Grid(records);
  for (const std::string name : {"A", "B", "C"}) EXPECT_NE(CellOf(header, name), "") << name;
}

}  // namespace
}  // namespace dralo::tests
