#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "support/expect_html.h"
#include "support/fake_records.h"
#include "unit/views/form_page.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;
using platform::Variant;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kGap =
    "<tr class=\"DRLOTableTRFormGap\"><td class=\"DRLOTableTDFormGap\">&nbsp;</td></tr>\r\n";

constexpr std::string_view kKeyInput = "<input type=\"hidden\" name=\"Morvu1PK\" value=''>";

Records Numbers(int count) {
  return Records(
      "CREATE TABLE T (N INTEGER); WITH RECURSIVE C(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM C "
      "WHERE N < " +
      std::to_string(count) + ") INSERT INTO T SELECT N FROM C");
}

TEST(FormGrid, OfOneRecordHasNoGap) {
  FormPage page;
  const Records people(kPeople);

  EXPECT_FALSE(Contains(page.Form(*people), "Gap"));
  EXPECT_EQ(page.rows, 1);
}

TEST(FormGrid, OfThreeRecordsHasTwoGapsBetweenThem) {
  FormPage page;
  page.records_on_page = 3;
  page.settings.FormFieldsShow = "ID";
  const Records people(kPeople);

  EXPECT_HTML(page.Form(*people), Lines(R"(
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
      )"));
  EXPECT_EQ(page.rows, 3);
}

TEST(FormGrid, HasGapsWithoutClassesWithoutCss) {
  FormPage page;
  page.records_on_page = 3;
  page.settings.UseCSS = false;
  const Records people(kPeople);

  EXPECT_EQ(CountOf("</table></td></tr>\r\n<tr><td>&nbsp;</td></tr>\r\n<tr><td><table", page.Form(*people)),
            2);
}

TEST(FormGrid, HasNoGapForARecordThatIsNotThere) {
  FormPage page;
  page.records_on_page = 5;
  const Records people(kPeople);

  EXPECT_EQ(CountOf(kGap, page.Form(*people)), 2);
  EXPECT_EQ(page.rows, 3);
}

TEST(FormGrid, ShowsAsManyRecordsAsThePageHoldsWhateverThePageSizeOfTheGrid) {
  FormPage page;
  page.settings.RecordsPerPage = 20;
  const Records numbers = Numbers(5);

  page.Form(*numbers);

  EXPECT_EQ(page.rows, 1);
}

TEST(FormGrid, StepsExactlyOneRecordForEachOneWritten) {
  FormPage page;
  page.records_on_page = 2;
  const Records numbers = Numbers(5);

  page.Form(*numbers);
  EXPECT_EQ(std::get<std::int64_t>(numbers[0].Value()), 3);

  page.current_record = 3;
  page.Form(*numbers);
  EXPECT_EQ(std::get<std::int64_t>(numbers[0].Value()), 5);

  page.current_record = 5;
  page.Form(*numbers);
  EXPECT_EQ(page.rows, 1);
  EXPECT_TRUE(numbers->Eof());
}

TEST(FormGrid, EndsAtTheRecordLimit) {
  FormPage page;
  page.records_on_page = 10;
  page.settings.RecordsMaxLimit = 23;
  page.current_record = 21;
  const Records numbers = Numbers(50);

  page.Form(*numbers);

  EXPECT_EQ(page.rows, 3);
}

TEST(FormGrid, ShowsNothingBehindTheRecordLimit) {
  FormPage page;
  page.settings.RecordsMaxLimit = 2;
  page.current_record = 3;
  const Records numbers = Numbers(5);

  EXPECT_EQ(page.Form(*numbers), "");
  EXPECT_EQ(page.rows, 0);
}

TEST(FormGrid, ShowsTheRecordWithTheHighestNumber) {
  FormPage page;
  page.records_on_page = 2;
  page.settings.RecordsMaxLimit = 2147483647;
  page.current_record = 2147483647;
  const Records numbers = Numbers(3);

  page.Form(*numbers);

  EXPECT_EQ(page.rows, 1);
}

TEST(FormGrid, HasOneInputForKeysBeforeTheFirstRecord) {
  FormPage page;
  page.settings.EditPrimaryKeys = "ID";
  page.records_on_page = 3;
  const Records people(kPeople);

  const std::string form = page.Form(*people);

  EXPECT_TRUE(form.starts_with(kKeyInput));
  EXPECT_EQ(CountOf(kKeyInput, form), 1);
}

TEST(FormGrid, NamesTheInputForKeysByTheTag) {
  FormPage page;
  page.settings.EditPrimaryKeys = "ID";
  page.settings.Tag = "left";
  const Records people(kPeople);

  EXPECT_TRUE(page.Form(*people).starts_with("<input type=\"hidden\" name=\"MorvuleftPK\" value=''>"));
}

TEST(FormGrid, HasNoInputForKeysWithoutKeysOrWithoutARecord) {
  FormPage page;
  page.settings.EditPrimaryKeys = " ";
  const Records people(kPeople);
  EXPECT_FALSE(Contains(page.Form(*people), "<input"));

  page.settings.EditPrimaryKeys = "ID";
  const Records nobody(kPeople, "SELECT * FROM T WHERE ID = 0");
  EXPECT_EQ(page.Form(*nobody), "");
  EXPECT_EQ(page.rows, 0);
}

TEST(FormGrid, KeepsTheValuesOfItsLastRecord) {
  FormPage page;
  page.records_on_page = 2;
  page.settings.FormFieldsShow = "ID";
  const Records people(
      "CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Paid DECIMAL(9,2), Photo BLOB);"
      "INSERT INTO T VALUES (7, 'Anneliese', 1.5, x'0102'), (8, 'Bob', NULL, NULL), (9, 'Cid', 2, x'03')");

  page.Form(*people);

  EXPECT_THAT(page.outcome.record, ElementsAre(Variant(std::int64_t{8}), Variant(std::string("Bob")),
                                               Variant(platform::Null()), Variant(platform::Null())));
}

TEST(FormGrid, KeepsValuesThatOutliveTheRecord) {
  FormPage page;
  {
    const Records people(kPeople, "SELECT Name FROM T WHERE ID = 7");
    page.Form(*people);
    people->Close();
  }

  EXPECT_THAT(page.outcome.record, ElementsAre(Variant(std::string("Ann"))));
}

TEST(FormGrid, KeepsNoValuesWithoutARecord) {
  FormPage page;
  page.outcome.record = {Variant(true)};
  const Records nobody(kPeople, "SELECT * FROM T WHERE ID = 0");

  page.Form(*nobody);

  EXPECT_THAT(page.outcome.record, IsEmpty());
}

TEST(FormGrid, GoesOnPastAValueThatCannotBeRead) {
  FormPage page;
  FakeRecords records(1);
  records.Add("A", TypeCode::kInteger, Unreadable);
  records.Add("B", TypeCode::kInteger, [] { return platform::VariantView(std::int64_t{7}); });

  EXPECT_HTML(FieldRows(page.Form(records)), Lines(R"(
      <tr class="DRLOTableTR"><th align=left>A</th><td>&nbsp;</td></tr>
      <tr class="DRLOTableTR"><th align=left>B</th><td>7</td></tr>
      )"));
  EXPECT_EQ(page.settings.ErrorMessage, "Disk gone in GetStdDbFieldString. oField.Name=A<br>");
  EXPECT_THAT(page.outcome.record, ElementsAre(Variant(platform::Null()), Variant(std::int64_t{7})));
}

TEST(FormGrid, KeepsNoValueOfAnEarlierRecordForOneThatCannotBeRead) {
  FormPage page;
  page.records_on_page = 2;
  FakeRecords records(2);
  records.Add("A", TypeCode::kVarWideChar, [&] {
    return records.row == 1 ? platform::VariantView(std::string_view("first")) : Unreadable();
  });

  page.Form(records);

  EXPECT_THAT(page.outcome.record, ElementsAre(Variant(platform::Null())));
}

TEST(FormGrid, ReportsAFailureAndKeepsWhatWasWritten) {
  FormPage page;
  page.records_on_page = 3;
  FakeRecords records(3);
  records.Add("A", TypeCode::kInteger, [] { return platform::VariantView(std::int64_t{7}); });
  records.fail_moving_from = 2;
  page.settings.ErrorMessage = "Before.";

  const std::string form = page.Form(records);

  EXPECT_EQ(CountOf("<td>7</td>", form), 2);
  EXPECT_TRUE(form.ends_with("</table></td></tr>\r\n"));
  EXPECT_EQ(page.settings.ErrorMessage, "Before.Disk gone in MakeFormGrid<br>");
  EXPECT_EQ(page.rows, 2);
}

TEST(FormGrid, ReportsOtherFailuresToo) {
  FormPage page;
  FakeRecords records(3);
  records.Add("A", TypeCode::kInteger, [reads = 0]() mutable -> platform::VariantView {
    if (++reads > 1) throw std::runtime_error("No memory");
    return std::int64_t{7};
  });

  EXPECT_TRUE(Contains(page.Form(records), "<td>7</td>"));
  EXPECT_EQ(page.settings.ErrorMessage, "No memory in MakeFormGrid<br>");
}

}  // namespace
}  // namespace dralo::tests
