#include "editing/lookup_select.h"

#include <gtest/gtest.h>

#include "support/expect_html.h"
#include "support/named_cases.h"
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

struct SelectCase {
  std::string_view name, statements, definition, value, options;
};

class LookupSelectOf : public testing::TestWithParam<SelectCase> {};

TEST_P(LookupSelectOf, ATableHasItsRowsAsOptions) {
  EditedView view(GetParam().statements);
  view.Settings().MemoFieldLimit = 2;
  const Select select = SelectOf(view, GetParam().definition, GetParam().value);
  EXPECT_TRUE(select.is_written);
  EXPECT_HTML(select.html, "<select id=\"Morvu1_Form_City\" name=\"Morvu1_Form_City\">\r\n" +
                               Lines(GetParam().options) + "</select>\r\n");
  EXPECT_EQ(view.ErrorMessage(), "");
}

constexpr SelectCase kSelects[] = {
    {"StandInTheOrderOfTheLookupWithoutASelectionForNull", kTables, "City,Cities,ID,Name,Name,0", "", R"(
      <option  value="1">Alta
      <option  value="2">Bergen
    )"},
    {"AreSelectedWithTheCurrentValue", kTables, "City,Cities,ID,Name,Name,0", "1", R"(
      <option  selected  value="1">Alta
      <option  value="2">Bergen
    )"},
    {"FollowAnEmptyChoiceWhereNullsAreAllowed", kTables, "City,Cities,ID,Name,Name,1", "", R"(
      <option value=''>
      <option  value="1">Alta
      <option  value="2">Bergen
    )"},
    {"StandInTheOrderOfTheDatabaseWithoutAnOrder", kTables, "City,Cities,ID,Name,,0", "", R"(
      <option  value="2">Bergen
      <option  value="1">Alta
    )"},
    {"HaveTheirTextsComparedInTheirLetterCase", kTables, "City,Cities,Code,Name,Name,0", "b", R"(
      <option  value="B">Alta
      <option  selected  value="b">Bergen
    )"},
    {"AreSelectedInEveryRowOfTheCurrentValue", kTables, "City,Cities,7,Name,Name,0", "7", R"(
      <option  selected  value="7">Alta
      <option  selected  value="7">Bergen
    )"},
    {"HaveTheTextOfControls", kTables, "City,Cities,Size,Since,ID DESC,0", "1.5", R"(
      <option  selected  value="1.5">2/3/2001
      <option  value="2">
    )"},
    {"HaveDoubleQuotesReplacedInValuesOnly",
     "CREATE TABLE L (A, B); INSERT INTO L VALUES ('6\" & <b>', '6\" & <b>')", "City,L,A,B,,0", "6\" & <b>",
     R"(
      <option  selected  value="6&quot; & <b>">6" & <b>
    )"},
    {"KeepValuesThatLookLikeCharacterReferences",
     "CREATE TABLE L (A, B); INSERT INTO L VALUES ('a&lt;b', '&lt;')", "City,L,A,B,,0", "a&lt;b", R"(
      <option  selected  value="a&amp;lt;b">&lt;
    )"},
    {"HaveNullsAsNothing", "CREATE TABLE L (A, B); INSERT INTO L VALUES (NULL, NULL), (1, NULL)",
     "City,L,A,B,,0", "1", R"(
      <option  value="">
      <option  selected  value="1">
    )"},
    {"AreWholeWhateverTheMemoLimit",
     "CREATE TABLE L (A TEXT, B TEXT); INSERT INTO L VALUES ('abcdef', 'ghijkl')", "City,L,A,B,,0", "abcdef",
     R"(
      <option  selected  value="abcdef">ghijkl
    )"},
    {"AreNoneForAnEmptyTable", "CREATE TABLE L (A, B)", "City,L,A,B,,0", "1", ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, LookupSelectOf, testing::ValuesIn(kSelects), kByName);

TEST(LookupSelect, WritesTheAttributeBehindTheTag) {
  EditedView view(kTables);
  EXPECT_TRUE(SelectOf(view, "City,Cities,ID,Name,Name,0", "", " disabled ")
                  .html.starts_with(R"(<select  disabled id="Morvu1_Form_City" name=)"));
}

TEST(LookupSelect, WritesNothingAndReportsAStatementThatFails) {
  EditedView view(kTables);
  const Select select = SelectOf(view, "City,Missing,ID,Name,Name,1", "1");
  EXPECT_FALSE(select.is_written);
  EXPECT_EQ(select.html, "");
  EXPECT_EQ(view.ErrorMessage(),
            "no such table: Missing. lookup sql=SELECT ID,Name FROM Missing ORDER BY Name<br>");
}

/// A lookup whose recordset has a field ID of that value and a field Name.
struct PreparedLookup {
  PreparedLookup(int rows, FakeField::Read id) : records(std::make_shared<OpenedRecords>(rows)) {
    records->Add("ID", platform::TypeCode::kInteger, std::move(id));
    records->Add("Name", platform::TypeCode::kInteger, [] { return platform::VariantView("x"); });
  }

  std::shared_ptr<OpenedRecords> records;
  PreparedEnvironment environment{records};
  EditedView view{"", environment};
};

TEST(LookupSelect, WritesNothingWhenARowCannotBeReached) {
  PreparedLookup lookup(3, [] { return platform::VariantView(std::int64_t{1}); });
  lookup.records->fail_moving_from = 2;
  const Select select = SelectOf(lookup.view, "City,L,ID,Name,,0", "1");
  EXPECT_FALSE(select.is_written);
  EXPECT_EQ(select.html, "");
  EXPECT_EQ(lookup.view.ErrorMessage(), "Disk gone. lookup sql=SELECT ID,Name FROM L<br>");
}

TEST(LookupSelect, WritesNothingWhenAValueCannotBeRead) {
  PreparedLookup lookup(1, Unreadable);
  EXPECT_FALSE(SelectOf(lookup.view, "City,L,ID,Name,,0", "1").is_written);
  EXPECT_EQ(lookup.view.ErrorMessage(), "Disk gone. lookup sql=SELECT ID,Name FROM L<br>");
}

TEST(LookupSelect, NeedsTwoColumns) {
  EditedView view(kTables);
  EXPECT_FALSE(SelectOf(view, "City,Cities,ID/*,*/,,0", "1").is_written);
  EXPECT_EQ(view.ErrorMessage(),
            "A lookup needs a link field and a display field. lookup sql=SELECT ID/*,*/ FROM Cities<br>");
}

TEST(LookupSelect, ClosesItsRecordset) {
  PreparedLookup lookup(0, Unreadable);
  EXPECT_TRUE(SelectOf(lookup.view, "City,L,ID,Name,,0", "").is_written);
  EXPECT_EQ(lookup.records->closed, 1);
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
