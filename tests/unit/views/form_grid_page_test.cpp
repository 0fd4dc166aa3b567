#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "support/expect_html.h"
#include "support/fake_records.h"
#include "unit/views/form_page.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;
using platform::Variant;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kKeyInput = "<input type=\"hidden\" name=\"Morvu1PK\" value=''>";

TEST_F(FormGrid, OfOneRecordHasNoGap) {
  EXPECT_FALSE(Contains(Form(), "Gap"));
  EXPECT_EQ(rows, 1);
}

TEST_F(FormGrid, OfThreeRecordsHasTwoGapsBetweenThem) {
  records_on_page = 3;
  settings.FormFieldsShow = "ID";
  const std::string form = Lines(R"(
      <tr><td><table width="100%" class="DRLOTableFormDataView">
      <tr class="DRLOTableTR"><th align=left>ID</th><td>7</td></tr>
      </table></td></tr>
      <tr class="DRLOTableTRFormGap"><td class="DRLOTableTDFormGap">&nbsp;</td></tr>
      <tr><td><table width="100%" class="DRLOTableFormDataView">
      <tr class="DRLOTableTR"><th align=left>ID</th><td>8</td></tr>
      </table></td></tr>
      <tr class="DRLOTableTRFormGap"><td class="DRLOTableTDFormGap">&nbsp;</td></tr>
      <tr><td><table width="100%" class="DRLOTableFormDataView">
      <tr class="DRLOTableTR"><th align=left>ID</th><td>9</td></tr>
      </table></td></tr>
      )");

  EXPECT_HTML(Form(), form);
  EXPECT_EQ(rows, 3);

  records_on_page = 5;
  EXPECT_HTML(Form(), form) << "and no gap for a record that is not there";
  EXPECT_EQ(rows, 3);
}

TEST_F(FormGrid, HasGapsWithoutClassesWithoutCss) {
  records_on_page = 3;
  settings.UseCSS = false;

  EXPECT_EQ(CountOf("</table></td></tr>\r\n<tr><td>&nbsp;</td></tr>\r\n<tr><td><table", Form()), 2);
}

TEST_F(FormGrid, StepsExactlyOneRecordForEachOneWritten) {
  records_on_page = 2;
  const Records numbers = Numbers(5);

  Form(*numbers);
  EXPECT_EQ(std::get<std::int64_t>(numbers[0].Value()), 3);

  current_record = 3;
  Form(*numbers);
  EXPECT_EQ(std::get<std::int64_t>(numbers[0].Value()), 5);

  current_record = 5;
  Form(*numbers);
  EXPECT_EQ(rows, 1);
  EXPECT_TRUE(numbers->Eof());
}

struct Shown {
  const char* name;
  int records;
  int records_on_page;
  int limit;
  int current_record;
  int rows;
};

class FormGridRecords : public FormPage, public testing::WithParamInterface<Shown> {};

TEST_P(FormGridRecords, AreThoseOfThePage) {
  records_on_page = GetParam().records_on_page;
  settings.RecordsPerPage = 20;
  settings.RecordsMaxLimit = GetParam().limit;
  current_record = GetParam().current_record;

  const std::string form = Form(*Numbers(GetParam().records));

  EXPECT_EQ(rows, GetParam().rows);
  EXPECT_EQ(form.empty(), rows == 0);
}

constexpr int kHighest = 2147483647;

INSTANTIATE_TEST_SUITE_P(Pages, FormGridRecords,
                         testing::Values(Shown{"AsManyAsThePageHoldsWhateverThatOfTheGrid", 5, 1, 100, 1, 1},
                                         Shown{"UpToTheRecordLimit", 50, 10, 23, 21, 3},
                                         Shown{"NoneBehindTheRecordLimit", 5, 1, 2, 3, 0},
                                         Shown{"TheOneWithTheHighestNumber", 3, 2, kHighest, kHighest, 1}),
                         [](const auto& shown) { return std::string(shown.param.name); });

TEST_F(FormGrid, HasOneInputForKeysBeforeTheFirstRecord) {
  settings.EditPrimaryKeys = "ID";
  records_on_page = 3;

  const std::string form = Form();

  EXPECT_TRUE(form.starts_with(kKeyInput));
  EXPECT_EQ(CountOf(kKeyInput, form), 1);
}

TEST_F(FormGrid, NamesTheInputForKeysByTheTag) {
  settings.EditPrimaryKeys = "ID";
  settings.Tag = "left";

  EXPECT_TRUE(Form().starts_with("<input type=\"hidden\" name=\"MorvuleftPK\" value=''>"));
}

TEST_F(FormGrid, HasNoInputForKeysWithoutKeysOrWithoutARecord) {
  settings.EditPrimaryKeys = " ";
  EXPECT_FALSE(Contains(Form(), "<input"));

  settings.EditPrimaryKeys = "ID";
  EXPECT_EQ(FormOfNobody(), "");
  EXPECT_EQ(rows, 0);
}

TEST_F(FormGrid, KeepsTheValuesOfItsLastRecord) {
  records_on_page = 2;
  settings.FormFieldsShow = "ID";
  const Records wide(
      "CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Paid DECIMAL(9,2), Photo BLOB);"
      "INSERT INTO T VALUES (7, 'Anneliese', 1.5, x'0102'), (8, 'Bob', NULL, NULL), (9, 'Cid', 2, x'03')");

  Form(*wide);

  EXPECT_THAT(outcome.record, ElementsAre(Variant(std::int64_t{8}), Variant(std::string("Bob")),
                                          Variant(platform::Null()), Variant(platform::Null())));
}

TEST_F(FormGrid, KeepsValuesThatOutliveTheRecord) {
  {
    const Records ann(kPeople, "SELECT Name FROM T WHERE ID = 7");
    Form(*ann);
    ann->Close();
  }

  EXPECT_THAT(outcome.record, ElementsAre(Variant(std::string("Ann"))));
}

TEST_F(FormGrid, KeepsNoValuesWithoutARecord) {
  outcome.record = {Variant(true)};

  FormOfNobody();

  EXPECT_THAT(outcome.record, IsEmpty());
}

TEST_F(FormGrid, GoesOnPastAValueThatCannotBeRead) {
  FakeRecords records(1);
  records.Add("A", TypeCode::kInteger, Unreadable);
  records.Add("B", TypeCode::kInteger, [] { return platform::VariantView(std::int64_t{7}); });

  EXPECT_HTML(FieldRows(records), Lines(R"(
      <tr class="DRLOTableTR"><th align=left>A</th><td>&nbsp;</td></tr>
      <tr class="DRLOTableTR"><th align=left>B</th><td>7</td></tr>
      )"));
  EXPECT_EQ(settings.ErrorMessage, "Disk gone in GetStdDbFieldString. oField.Name=A<br>");
  EXPECT_THAT(outcome.record, ElementsAre(Variant(platform::Null()), Variant(std::int64_t{7})));
}

TEST_F(FormGrid, KeepsNoValueOfAnEarlierRecordForOneThatCannotBeRead) {
  records_on_page = 2;
  FakeRecords records(2);
  records.Add("A", TypeCode::kVarWideChar, [&] {
    return records.row == 1 ? platform::VariantView(std::string_view("first")) : Unreadable();
  });

  Form(records);

  EXPECT_THAT(outcome.record, ElementsAre(Variant(platform::Null())));
}

TEST_F(FormGrid, ReportsAFailureAndKeepsWhatWasWritten) {
  records_on_page = 3;
  FakeRecords records(3);
  records.Add("A", TypeCode::kInteger, [] { return platform::VariantView(std::int64_t{7}); });
  records.fail_moving_from = 2;
  settings.ErrorMessage = "Before.";

  const std::string form = Form(records);

  EXPECT_EQ(CountOf("<td>7</td>", form), 2);
  EXPECT_TRUE(form.ends_with("</table></td></tr>\r\n"));
  EXPECT_EQ(settings.ErrorMessage, "Before.Disk gone in MakeFormGrid<br>");
  EXPECT_EQ(rows, 2);
}

TEST_F(FormGrid, ReportsOtherFailuresToo) {
  FakeRecords records(3);
  records.Add("A", TypeCode::kInteger, [reads = 0]() mutable -> platform::VariantView {
    if (++reads > 1) throw std::runtime_error("No memory");
    return std::int64_t{7};
  });

  EXPECT_TRUE(Contains(Form(records), "<td>7</td>"));
  EXPECT_EQ(settings.ErrorMessage, "No memory in MakeFormGrid<br>");
}

}  // namespace
}  // namespace dralo::tests
