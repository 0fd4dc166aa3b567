#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "component/db_connection.h"
#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "support/fake_records.h"
#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;

/// No rows: the header is all that a grid of them has.
Records People() { return Records("CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Photo BLOB, Note TEXT)"); }

/// A header without sort links.
Rendering WithoutLinks() {
  Rendering view;
  view.settings.GridColsNoSort = "*";
  return view;
}

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

TEST(GridHeader, HasTheIndexAndEveryColumnAlignedByItsType) {
  Rendering view = WithoutLinks();
  const Records people = People();

  EXPECT_HTML(view.Grid(*people), Lines(R"(
      <tr class="DRLOTableTR">
      <th class="DRLOTableTH">#</th>
      <th align="right" class="DRLOTableTH">ID</th>
      <th align="left" class="DRLOTableTH">Name</th>
      <th align="left" class="DRLOTableTH">Photo</th>
      <th align="left" class="DRLOTableTH">Note</th>
      </tr>
      )"));
  EXPECT_EQ(view.rows, 0);
  EXPECT_EQ(view.settings.ErrorMessage, "");
}

TEST(GridHeader, HasNoClassesWithoutCSS) {
  Rendering view = WithoutLinks();
  view.settings.UseCSS = false;
  const Records people = People();

  EXPECT_HTML(view.Grid(*people), Lines(R"(
      <tr>
      <th >#</th>
      <th align="right">ID</th>
      <th align="left">Name</th>
      <th align="left">Photo</th>
      <th align="left">Note</th>
      </tr>
      )"));
}

TEST(GridHeader, PutsBlanksAroundTheTagOfItsCellsButNotIntoTheIndexCellWithClasses) {
  Rendering view = WithoutLinks();
  view.settings.THTag = "nowrap";
  view.settings.GridFieldsShow = "ID";
  const Records people = People();

  EXPECT_HTML(view.Grid(*people), Lines(R"(
      <tr class="DRLOTableTR">
      <th class="DRLOTableTH">#</th>
      <th  nowrap align="right" class="DRLOTableTH">ID</th>
      </tr>
      )"));

  view.settings.UseCSS = false;
  EXPECT_HTML(view.Grid(*people), Lines(R"(
      <tr>
      <th  nowrap >#</th>
      <th  nowrap align="right">ID</th>
      </tr>
      )"));
}

TEST(GridHeader, PutsColumnAttributesFirst) {
  Rendering view = WithoutLinks();
  view.settings.THTag = "nowrap";
  view.settings.GridFieldsShow = "ID";
  settings::SetGridColHeadAttributes(view.settings, 0, "title='no'");
  settings::SetGridColHeadAttributes(view.settings, 1, "title='id'");
  const Records people = People();

  EXPECT_HTML(view.Grid(*people), Lines(R"(
      <tr class="DRLOTableTR">
      <th title='no' class="DRLOTableTH">#</th>
      <th title='id'  nowrap align="right" class="DRLOTableTH">ID</th>
      </tr>
      )"));

  view.settings.UseCSS = false;
  EXPECT_HTML(view.Grid(*people), Lines(R"(
      <tr>
      <th title='no'  nowrap >#</th>
      <th title='id'  nowrap align="right">ID</th>
      </tr>
      )"));
}

TEST(GridHeader, TakesWidthsByColumnPosition) {
  Rendering view = WithoutLinks();
  view.settings.GridCellWidths = "50,, 20%";
  view.settings.GridFieldsHide = "ID";
  const Records people = People();

  EXPECT_HTML(view.Grid(*people), Lines(R"(
      <tr class="DRLOTableTR">
      <th class="DRLOTableTH">#</th>
      <th align="left" class="DRLOTableTH">Name</th>
      <th align="left" class="DRLOTableTH" width=" 20%">Photo</th>
      <th align="left" class="DRLOTableTH">Note</th>
      </tr>
      )"));

  view.settings.UseCSS = false;
  view.settings.GridFieldsHide = "2,3,4";
  EXPECT_HTML(view.Grid(*people), Lines(R"(
      <tr>
      <th >#</th>
      <th align="right" width="50">ID</th>
      </tr>
      )"));
}

TEST(GridHeader, TakesDisplayNames) {
  Rendering view = WithoutLinks();
  view.settings.GridDisplayFieldNames = "No., ,";
  view.settings.GridDisplayIndex = false;
  const Records people = People();

  EXPECT_HTML(view.Grid(*people), Lines(R"(
      <tr class="DRLOTableTR">
      <th align="right" class="DRLOTableTH">No.</th>
      <th align="left" class="DRLOTableTH">&nbsp;</th>
      <th align="left" class="DRLOTableTH">Photo</th>
      <th align="left" class="DRLOTableTH">Note</th>
      </tr>
      )"));
}

TEST(GridHeader, IsLeftOutWhenItIsSwitchedOff) {
  Rendering view;
  view.settings.DisplayHeader = false;
  const Records people = People();

  EXPECT_EQ(view.Grid(*people), "");
}

TEST(GridHeader, IsWrittenWithoutAnyColumn) {
  Rendering view;
  view.settings.GridFieldsShow = "none";
  view.settings.GridDisplayIndex = false;
  const Records people = People();

  EXPECT_HTML(view.Grid(*people), Lines(R"(
      <tr class="DRLOTableTR">
      </tr>
      )"));
}

TEST(SortLink, CarriesTheStateOfTheFirstRecordTheColumnAndABookmark) {
  Rendering view;
  const Records people = People();

  EXPECT_EQ(CellOf(view.Grid(*people), "Name"),
            R"(<th align="left" class="DRLOTableTH"><a class="DRLOTableTH" href=")" + SortUrl(2) +
                R"("><nobr>Name</nobr></a></th>)");

  view.current_record = 21;
  EXPECT_EQ(CellOf(view.Grid(*people), "ID"),
            R"(<th align="right" class="DRLOTableTH"><a class="DRLOTableTH" href=")" + SortUrl(1, 21) +
                R"("><nobr>ID</nobr></a></th>)");
}

TEST(SortLink, HasNoClassWithoutCSS) {
  Rendering view;
  view.settings.UseCSS = false;
  const Records people = People();

  EXPECT_EQ(CellOf(view.Grid(*people), "Name"),
            R"(<th align="left"><a href=")" + SortUrl(2) + R"("><nobr>Name</nobr></a></th>)");
}

TEST(SortLink, OfTheAscendingColumnSortsDescendingAndHasAnArrow) {
  Rendering view;
  view.settings.OrderByFields = "2";
  const Records people = People();

  const std::string header = view.Grid(*people);
  EXPECT_EQ(
      CellOf(header, "Name"),
      R"(<th align="left" class="DRLOTableTH"><a class="DRLOTableTH" href=")" + SortUrl(2) +
          R"(&Morvu1OrderByDesc=True"><nobr>Name&nbsp;<img border="0" src="../gfx/orderasc.gif"></nobr></a></th>)");
  EXPECT_EQ(CellOf(header, "ID"), R"(<th align="right" class="DRLOTableTH"><a class="DRLOTableTH" href=")" +
                                      SortUrl(1) + R"("><nobr>ID</nobr></a></th>)");
}

TEST(SortLink, OfTheDescendingColumnSortsAscendingAndHasAnArrow) {
  Rendering view;
  view.settings.OrderByFields = "2";
  view.settings.OrderByDesc = true;
  view.settings.ImageDir = "/i/";
  const Records people = People();

  const std::string header = view.Grid(*people);
  EXPECT_EQ(CellOf(header, "Name"),
            R"(<th align="left" class="DRLOTableTH"><a class="DRLOTableTH" href=")" + SortUrl(2) +
                R"("><nobr>Name&nbsp;<img border="0" src="/i/orderdesc.gif"></nobr></a></th>)");
  EXPECT_EQ(CellOf(header, "ID"), R"(<th align="right" class="DRLOTableTH"><a class="DRLOTableTH" href=")" +
                                      SortUrl(1) + R"("><nobr>ID</nobr></a></th>)");
}

TEST(SortLink, HasNoArrowForAnOrderByFieldName) {
  Rendering view;
  view.settings.OrderByFields = "Name";
  const Records people = People();

  EXPECT_EQ(view.Grid(*people).find("<img"), std::string::npos);
}

TEST(SortLink, IsMissingWhenTheStatementIsSortedInAnyLetterCase) {
  Rendering view;
  const Records people = People();
  for (const std::string_view sql : {"SELECT * FROM T ORDER BY 1", "select * from t oRdEr bY 1"}) {
    view.settings.sql = sql;
    EXPECT_EQ(view.Grid(*people).find("<a"), std::string::npos) << sql;
  }
}

TEST(SortLink, IsMissingForACommand) {
  Rendering view;
  view.settings.has_stored_procedure = true;
  const Records people = People();

  EXPECT_EQ(view.Grid(*people).find("<a"), std::string::npos);
}

TEST(SortLink, IsMissingForColumnsOfTheNoSortList) {
  Rendering view;
  view.settings.GridColsNoSort = "name";
  const Records people = People();

  const std::string header = view.Grid(*people);
  EXPECT_EQ(CellOf(header, "Name"), "");
  EXPECT_NE(CellOf(header, "ID"), "");

  view.settings.GridColsNoSort = " * ";
  EXPECT_EQ(view.Grid(*people).find("<a"), std::string::npos);
}

TEST(SortLink, IsMissingForLongColumnsWithoutAConnection) {
  Rendering view;
  const Records people = People();

  const std::string header = view.Grid(*people);
  EXPECT_EQ(CellOf(header, "Photo"), "");
  EXPECT_EQ(CellOf(header, "Note"), "");
}

TEST(SortLink, IsThereForLongColumnsOnTheEngineThatCanSortThem) {
  Rendering view;
  view.settings.DrConnection = std::make_shared<component::DBConnection>(AmericanEnvironment());
  FakeRecords records(0);
  const auto read = [] { return platform::VariantView(); };
  records.Add("A", TypeCode::kLongVarChar, read);
  records.Add("B", TypeCode::kLongVarWideChar, read);
  records.Add("C", TypeCode::kLongVarBinary, read);

  for (const std::string_view engine : {"ORACLE", "ACCESS", "MSSQL"}) {
    view.settings.DrConnection->SetEngineName(engine);
    EXPECT_EQ(view.Grid(records).find("<a"), std::string::npos) << engine;
  }
  view.settings.DrConnection->SetEngineName("SQLA");
  const std::string header = view.Grid(records);
  for (const std::string name : {"A", "B", "C"}) EXPECT_NE(CellOf(header, name), "") << name;
}

}  // namespace
}  // namespace dralo::tests
