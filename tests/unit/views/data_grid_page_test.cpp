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

TEST_F(DataGridRows, FillOnePage) {
  settings.RecordsPerPage = 10;
  const Records numbers = Numbers(25);

  Grid(numbers);
  EXPECT_EQ(rows, 10);
  EXPECT_EQ(std::get<std::int64_t>(numbers[0].Value()), 11);

  current_record = 11;
  Grid(numbers);
  EXPECT_EQ(rows, 10);

  current_record = 21;
  Grid(numbers);
  EXPECT_EQ(rows, 5);
}

TEST_F(DataGridRows, EndAtTheRecordLimit) {
  settings.RecordsPerPage = 10;
  settings.RecordsMaxLimit = 25;
  current_record = 21;

  Grid(Numbers(100));

  EXPECT_EQ(rows, 5);
}

TEST_F(DataGridRows, AreNoneBeyondTheRecordLimitOrBelowOneRow) {
  settings.RecordsMaxLimit = 2147483647;
  current_record = 2147483647;
  Grid(Numbers(3));
  EXPECT_EQ(rows, 1);

  settings.RecordsMaxLimit = 0;
  EXPECT_EQ(Grid(Numbers(3)), "");
  settings.RecordsMaxLimit = 100;
  current_record = 1;
  settings.RecordsPerPage = -3;
  EXPECT_EQ(Grid(Numbers(3)), "");
}

TEST_F(DataGridRows, LeaveTheValuesOfTheFirst) {
  settings.GridFieldsShow = "Name";

  Grid();

  EXPECT_THAT(outcome.record, ElementsAre(platform::Variant(std::int64_t{5}),
                                          platform::Variant(std::string("Ann")), platform::Variant(true)));
}

TEST_F(DataGridRows, LeaveNoValuesWhenThereAreNone) {
  outcome.record = {platform::Variant(true)};

  EXPECT_EQ(Grid(Records("CREATE TABLE T (A INTEGER)")), "");
  EXPECT_THAT(outcome.record, IsEmpty());
}

TEST_F(DataGridRows, GoOnPastAValueThatCannotBeRead) {
  FakeRecords records(2);
  records.Add("A", TypeCode::kInteger, Unreadable);
  records.Add("B", TypeCode::kInteger, [] { return platform::VariantView(std::int64_t{7}); });

  EXPECT_EQ(CountOf(">7</td>", Grid(records)), 2);
  EXPECT_EQ(settings.ErrorMessage,
            "Disk gone in GetStdDbFieldString. oField.Name=A<br>"
            "Disk gone in GetStdDbFieldString. oField.Name=A<br>");
  EXPECT_THAT(outcome.record,
              ElementsAre(platform::Variant(platform::Null()), platform::Variant(std::int64_t{7})));
}

TEST_F(DataGridRows, StayWhenALaterOneFailsWithNumberAndDescription) {
  FakeRecords records(3);
  records.Add("A", TypeCode::kInteger, [] { return platform::VariantView(std::int64_t{7}); });
  records.fail_moving_from = 2;

  EXPECT_HTML(Grid(records), RowsOf({" align=\"right\">7"}) + Lines(R"(
      <tr id="drl1row_2"class="DRLOTableTReven">
      <td id="drl1cell_2_1"class="DRLOTableTDeven" align="right">7</td>
      )"));
  EXPECT_EQ(settings.ErrorMessage, "10 Disk gone in MakeDataGrid<br>");
  EXPECT_EQ(rows, 2);
}

TEST_F(DataGridRows, ReportOtherFailuresWithTheNumberZero) {
  settings.GridFieldsSupressDup = "A";
  FakeRecords records(3);
  records.Add("A", TypeCode::kInteger,
              []() -> platform::VariantView { throw std::runtime_error("No memory"); });

  Grid(records);

  EXPECT_EQ(settings.ErrorMessage, "0 No memory in MakeDataGrid<br>");
}

}  // namespace
}  // namespace dralo::tests
