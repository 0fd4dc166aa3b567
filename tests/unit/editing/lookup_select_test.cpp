#include "editing/lookup_select.h"

#include <gtest/gtest.h>

#include "support/expect_html.h"
#include "support/rendering.h"
#include "unit/editing/edited_view.h"

namespace dralo::tests {
namespace {

constexpr std::string_view kTables = R"(
    CREATE TABLE Cities (ID INTEGER, Code VARCHAR(10), Name TEXT, Size REAL, Since DATE);
    INSERT INTO Cities VALUES (2, 'b', 'Bergen', 1.5, '2001-02-03'), (1, 'B', 'Alta', 2, NULL))";

constexpr std::string_view kWrittenBefore = "before ";

/// What a lookup of `view` writes, and whether it is a select.
struct Select {
  std::string html;
  bool is_written = false;
};

Select SelectOf(EditedView& view, std::string_view definition, std::string_view value,
                std::string_view attribute = "") {
  return view.Rendered([&](state::Render& render) {
    html::HtmlWriter out;
    out.Write(html::Verbatim{kWrittenBefore});
    const bool is_written =
        editing::PutLookupSelect(out, render, {"Morvu1_Form_", "City"}, attribute, definition, value);
    return Select{out.Take().substr(kWrittenBefore.size()), is_written};
  });
}

TEST(LookupSelect, ListsTheTableInTheOrderOfTheLookup) {
  EditedView view(kTables);
  const Select select = SelectOf(view, "City,Cities,ID,Name,Name,0", "");
  EXPECT_TRUE(select.is_written);
  EXPECT_HTML(select.html, Lines(R"(
    <select id="Morvu1_Form_City" name="Morvu1_Form_City">
    <option  value="1">Alta
    <option  value="2">Bergen
    </select>
  )"));
  EXPECT_EQ(view.ErrorMessage(), "");
}

TEST(LookupSelect, SelectsTheCurrentValue) {
  EditedView view(kTables);
  EXPECT_HTML(SelectOf(view, "City,Cities,ID,Name,Name,0", "1").html, Lines(R"(
    <select id="Morvu1_Form_City" name="Morvu1_Form_City">
    <option  selected  value="1">Alta
    <option  value="2">Bergen
    </select>
  )"));
}

TEST(LookupSelect, OffersAnEmptyChoiceFirstWhereNullsAreAllowed) {
  EditedView view(kTables);
  EXPECT_HTML(SelectOf(view, "City,Cities,ID,Name,Name,1", "").html, Lines(R"(
    <select id="Morvu1_Form_City" name="Morvu1_Form_City">
    <option value=''>
    <option  value="1">Alta
    <option  value="2">Bergen
    </select>
  )"));
}

TEST(LookupSelect, SelectsNothingForNullWhereNullsAreNotAllowed) {
  EditedView view(kTables);
  EXPECT_EQ(SelectOf(view, "City,Cities,ID,Name,Name,0", "").html.find("selected"), std::string::npos);
}

TEST(LookupSelect, LeavesTheOrderToTheDatabaseWithoutAnOrder) {
  EditedView view(kTables);
  EXPECT_HTML(SelectOf(view, "City,Cities,ID,Name,,0", "").html, Lines(R"(
    <select id="Morvu1_Form_City" name="Morvu1_Form_City">
    <option  value="2">Bergen
    <option  value="1">Alta
    </select>
  )"));
}

TEST(LookupSelect, ComparesTextsInTheirLetterCase) {
  EditedView view(kTables);
  EXPECT_HTML(SelectOf(view, "City,Cities,Code,Name,Name,0", "b").html, Lines(R"(
    <select id="Morvu1_Form_City" name="Morvu1_Form_City">
    <option  value="B">Alta
    <option  selected  value="b">Bergen
    </select>
  )"));
}

TEST(LookupSelect, SelectsEveryRowOfTheCurrentValue) {
  EditedView view(kTables);
  EXPECT_HTML(SelectOf(view, "City,Cities,7,Name,Name,0", "7").html, Lines(R"(
    <select id="Morvu1_Form_City" name="Morvu1_Form_City">
    <option  selected  value="7">Alta
    <option  selected  value="7">Bergen
    </select>
  )"));
}

TEST(LookupSelect, WritesTheAttributeBehindTheTag) {
  EditedView view(kTables);
  EXPECT_TRUE(SelectOf(view, "City,Cities,ID,Name,Name,0", "", " disabled ")
                  .html.starts_with(R"(<select  disabled id="Morvu1_Form_City" name=)"));
}

TEST(LookupSelect, ReplacesDoubleQuotesInValuesOnly) {
  EditedView view(R"(CREATE TABLE L (A, B); INSERT INTO L VALUES ('6" & <b>', '6" & <b>'))");
  EXPECT_EQ(SelectOf(view, "City,L,A,B,,0", R"(6" & <b>)").html, Lines(R"(
    <select id="Morvu1_Form_City" name="Morvu1_Form_City">
    <option  selected  value="6&quot; & <b>">6" & <b>
    </select>
  )"));
}

TEST(LookupSelect, KeepsValuesThatLookLikeCharacterReferences) {
  EditedView view("CREATE TABLE L (A, B); INSERT INTO L VALUES ('a&lt;b', '&lt;')");
  EXPECT_HTML(SelectOf(view, "City,L,A,B,,0", "a&lt;b").html, Lines(R"(
    <select id="Morvu1_Form_City" name="Morvu1_Form_City">
    <option  selected  value="a&amp;lt;b">&lt;
    </select>
  )"));
}

TEST(LookupSelect, WritesNullsAsNothing) {
  EditedView view("CREATE TABLE L (A, B); INSERT INTO L VALUES (NULL, NULL), (1, NULL)");
  EXPECT_HTML(SelectOf(view, "City,L,A,B,,0", "1").html, Lines(R"(
    <select id="Morvu1_Form_City" name="Morvu1_Form_City">
    <option  value="">
    <option  selected  value="1">
    </select>
  )"));
}

TEST(LookupSelect, WritesValuesInTheTextOfControls) {
  EditedView view(kTables);
  EXPECT_HTML(SelectOf(view, "City,Cities,Size,Since,ID DESC,0", "1.5").html, Lines(R"(
    <select id="Morvu1_Form_City" name="Morvu1_Form_City">
    <option  selected  value="1.5">2/3/2001
    <option  value="2">
    </select>
  )"));
}

TEST(LookupSelect, IgnoresTheMemoLimit) {
  EditedView view("CREATE TABLE L (A TEXT, B TEXT); INSERT INTO L VALUES ('abcdef', 'ghijkl')");
  view.Settings().MemoFieldLimit = 2;
  EXPECT_HTML(SelectOf(view, "City,L,A,B,,0", "abcdef").html, Lines(R"(
    <select id="Morvu1_Form_City" name="Morvu1_Form_City">
    <option  selected  value="abcdef">ghijkl
    </select>
  )"));
}

TEST(LookupSelect, IsEmptyForAnEmptyTable) {
  EditedView view("CREATE TABLE L (A, B)");
  EXPECT_HTML(SelectOf(view, "City,L,A,B,,0", "1").html, Lines(R"(
    <select id="Morvu1_Form_City" name="Morvu1_Form_City">
    </select>
  )"));
}

TEST(LookupSelect, WritesNothingAndReportsAStatementThatFails) {
  EditedView view(kTables);
  const Select select = SelectOf(view, "City,Missing,ID,Name,Name,1", "1");
  EXPECT_FALSE(select.is_written);
  EXPECT_EQ(select.html, "");
  EXPECT_EQ(view.ErrorMessage(),
            "no such table: Missing. lookup sql=SELECT ID,Name FROM Missing ORDER BY Name<br>");
}

TEST(LookupSelect, WritesNothingWhenARowCannotBeReached) {
  const auto records = std::make_shared<OpenedRecords>(3);
  records->Add("ID", platform::TypeCode::kInteger, [] { return platform::VariantView(std::int64_t{1}); });
  records->Add("Name", platform::TypeCode::kInteger, [] { return platform::VariantView("x"); });
  records->fail_moving_from = 2;
  PreparedEnvironment environment(records);
  EditedView view("", environment);
  const Select select = SelectOf(view, "City,L,ID,Name,,0", "1");
  EXPECT_FALSE(select.is_written);
  EXPECT_EQ(select.html, "");
  EXPECT_EQ(view.ErrorMessage(), "Disk gone. lookup sql=SELECT ID,Name FROM L<br>");
}

TEST(LookupSelect, WritesNothingWhenAValueCannotBeRead) {
  const auto records = std::make_shared<OpenedRecords>(1);
  records->Add("ID", platform::TypeCode::kInteger, Unreadable);
  records->Add("Name", platform::TypeCode::kInteger, [] { return platform::VariantView("x"); });
  PreparedEnvironment environment(records);
  EditedView view("", environment);
  EXPECT_FALSE(SelectOf(view, "City,L,ID,Name,,0", "1").is_written);
  EXPECT_EQ(view.ErrorMessage(), "Disk gone. lookup sql=SELECT ID,Name FROM L<br>");
}

TEST(LookupSelect, NeedsTwoColumns) {
  EditedView view(kTables);
  EXPECT_FALSE(SelectOf(view, "City,Cities,ID/*,*/,,0", "1").is_written);
  EXPECT_EQ(view.ErrorMessage(),
            "A lookup needs a link field and a display field. lookup sql=SELECT ID/*,*/ FROM Cities<br>");
}

TEST(LookupSelect, ClosesItsRecordset) {
  const auto records = std::make_shared<OpenedRecords>(0);
  records->Add("ID", platform::TypeCode::kInteger, Unreadable);
  records->Add("Name", platform::TypeCode::kInteger, Unreadable);
  PreparedEnvironment environment(records);
  EditedView view("", environment);
  EXPECT_TRUE(SelectOf(view, "City,L,ID,Name,,0", "").is_written);
  EXPECT_EQ(records->closed, 1);
}

TEST(LookupSelect, NeedsAConnection) {
  EditedView view(kTables);
  view.Settings().DrConnection.reset();
  EXPECT_FALSE(SelectOf(view, "City,Cities,ID,Name,,0", "1").is_written);
  EXPECT_EQ(
      view.ErrorMessage(),
      "There is no database connection: set ConnectionString or DrConnection. lookup sql=SELECT ID,Name "
      "FROM Cities<br>");
}

}  // namespace
}  // namespace dralo::tests
