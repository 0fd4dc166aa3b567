#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "support/expect_html.h"
#include "support/fake_records.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kPeopleOnPages = R"(
    CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Member BOOLEAN);
    INSERT INTO T VALUES (5, 'Ann', 1), (6, NULL, 0))";

/// Numbered 1 to `count`.
Records Numbered(int count) {
  return Records(
      "CREATE TABLE T (N INTEGER); WITH RECURSIVE C(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM C "
      "WHERE N < " +
      std::to_string(count) + ") INSERT INTO T SELECT N FROM C");
}

TEST(DataGrid, WritesOnePageOfRows) {
  Rendering view = RowsOnly();
  view.settings.RecordsPerPage = 10;
  const Records numbers = Numbered(25);

  view.Grid(*numbers);
  EXPECT_EQ(view.rows, 10);
  EXPECT_EQ(std::get<std::int64_t>(numbers[0].Value()), 11);

  view.current_record = 11;
  view.Grid(*numbers);
  EXPECT_EQ(view.rows, 10);

  view.current_record = 21;
  view.Grid(*numbers);
  EXPECT_EQ(view.rows, 5);
}

TEST(DataGrid, EndsAtTheRecordLimit) {
  Rendering view = RowsOnly();
  view.settings.RecordsPerPage = 10;
  view.settings.RecordsMaxLimit = 25;
  view.current_record = 21;
  const Records numbers = Numbered(100);

  view.Grid(*numbers);

  EXPECT_EQ(view.rows, 5);
}

TEST(DataGrid, WritesNothingBeyondTheRecordLimitOrBelowOneRow) {
  Rendering view = RowsOnly();
  view.settings.RecordsMaxLimit = 2147483647;
  view.current_record = 2147483647;
  const Records numbers = Numbered(3);
  view.Grid(*numbers);
  EXPECT_EQ(view.rows, 1);

  view.settings.RecordsMaxLimit = 0;
  EXPECT_EQ(view.Grid(*numbers), "");
  view.settings.RecordsMaxLimit = 100;
  view.current_record = 1;
  view.settings.RecordsPerPage = -3;
  EXPECT_EQ(view.Grid(*numbers), "");
}

TEST(DataGrid, KeepsTheValuesOfItsFirstRow) {
  Rendering view = RowsOnly();
  view.settings.GridFieldsShow = "Name";
  const Records people(kPeopleOnPages);

  view.Grid(*people);

  EXPECT_THAT(view.outcome.record,
              ElementsAre(platform::Variant(std::int64_t{5}), platform::Variant(std::string("Ann")),
                          platform::Variant(true)));
}

TEST(DataGrid, KeepsNoValuesWithoutARow) {
  Rendering view = RowsOnly();
  view.outcome.record = {platform::Variant(true)};
  const Records empty("CREATE TABLE T (A INTEGER)");

  EXPECT_EQ(view.Grid(*empty), "");
  EXPECT_THAT(view.outcome.record, IsEmpty());
}

TEST(DataGrid, GoesOnPastAValueThatCannotBeRead) {
  Rendering view = RowsOnly();
  FakeRecords records(2);
  records.Add("A", TypeCode::kInteger, Unreadable);
  records.Add("B", TypeCode::kInteger, [] { return platform::VariantView(std::int64_t{7}); });

  EXPECT_EQ(CountOf(">7</td>", view.Grid(records)), 2);
  EXPECT_EQ(view.settings.ErrorMessage,
            "Disk gone in GetStdDbFieldString. oField.Name=A<br>"
            "Disk gone in GetStdDbFieldString. oField.Name=A<br>");
  EXPECT_THAT(view.outcome.record,
              ElementsAre(platform::Variant(platform::Null()), platform::Variant(std::int64_t{7})));
}

TEST(DataGrid, ReportsNumberAndDescriptionAndKeepsTheRowsWritten) {
  Rendering view = RowsOnly();
  FakeRecords records(3);
  records.Add("A", TypeCode::kInteger, [] { return platform::VariantView(std::int64_t{7}); });
  records.fail_moving_from = 2;

  EXPECT_HTML(view.Grid(records), Lines(R"(
      <tr id="drl1row_1"class="DRLOTableTRodd">
      <td id="drl1cell_1_1"class="DRLOTableTDodd" align="right">7</td>
      </tr>
      <tr id="drl1row_2"class="DRLOTableTReven">
      <td id="drl1cell_2_1"class="DRLOTableTDeven" align="right">7</td>
      )"));
  EXPECT_EQ(view.settings.ErrorMessage, "10 Disk gone in MakeDataGrid<br>");
  EXPECT_EQ(view.rows, 2);
}

TEST(DataGrid, ReportsOtherFailuresWithTheNumberZero) {
  Rendering view = RowsOnly();
  view.settings.GridFieldsSupressDup = "A";
  FakeRecords records(3);
  records.Add("A", TypeCode::kInteger,
              []() -> platform::VariantView { throw std::runtime_error("No memory"); });

  view.Grid(records);

  EXPECT_EQ(view.settings.ErrorMessage, "0 No memory in MakeDataGrid<br>");
}

}  // namespace
}  // namespace dralo::tests
