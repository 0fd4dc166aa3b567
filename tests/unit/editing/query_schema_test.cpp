#include "editing/query_schema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dralo/error.h"
#include "unit/editing/edited_view.h"

namespace dralo::tests {
namespace {

using editing::QuerySchema;
using platform::TypeCode;

constexpr std::string_view kQueriedTable = R"(
    CREATE TABLE T (ID INTEGER PRIMARY KEY, Name VARCHAR(20) NOT NULL, Price DECIMAL, Born DATE);
    INSERT INTO T VALUES (1, 'Ann', 1.5, NULL))";

QuerySchema SchemaOf(EditedView& view, std::string_view sql) {
  return view.Rendered([&](state::Render& render) { return editing::ReadQuerySchema(render, sql); });
}

TEST(QuerySchema, TellsNamesTypesAndWhetherFieldsMayBeNullInTheOrderOfTheColumns) {
  EditedView view(kQueriedTable);
  const QuerySchema schema = SchemaOf(view, "SELECT Price, Name, Born, ID FROM T");
  ASSERT_EQ(schema.fields.size(), 4U);
  EXPECT_EQ(schema.fields[0].name, "Price");
  EXPECT_EQ(schema.fields[0].type, TypeCode::kNumeric);
  EXPECT_TRUE(schema.fields[0].is_nullable);
  EXPECT_EQ(schema.fields[1].name, "Name");
  EXPECT_EQ(schema.fields[1].type, TypeCode::kVarWideChar);
  EXPECT_FALSE(schema.fields[1].is_nullable);
  EXPECT_EQ(schema.fields[2].type, TypeCode::kDate);
  EXPECT_EQ(schema.fields[3].type, TypeCode::kInteger);
  EXPECT_FALSE(schema.fields[3].is_nullable);
  EXPECT_TRUE(schema.has_rows);
}

TEST(QuerySchema, KnowsTheColumnsOfAQueryWithoutRows) {
  EditedView view(kQueriedTable);
  const QuerySchema schema = SchemaOf(view, "SELECT ID FROM T WHERE ID = 7");
  EXPECT_EQ(schema.fields.size(), 1U);
  EXPECT_FALSE(schema.has_rows);
}

TEST(QuerySchema, TakesTheTypeOfAKeyFromTheColumnAtItsPosition) {
  EditedView view(kQueriedTable);
  const QuerySchema schema = SchemaOf(view, "SELECT Name, ID FROM T");
  EXPECT_FALSE(schema.IsNumericAt(0));
  EXPECT_TRUE(schema.IsNumericAt(1));
  EXPECT_THROW(static_cast<void>(schema.IsNumericAt(2)), platform::Error);
}

TEST(QuerySchema, FindsFieldsInAnyLetterCase) {
  EditedView view(kQueriedTable);
  const QuerySchema schema = SchemaOf(view, "SELECT Name FROM T");
  EXPECT_EQ(schema.Find("nAME"), &schema.fields[0]);
  EXPECT_EQ(schema.Find("ID"), nullptr);
}

TEST(QuerySchema, ReadsAtMostOneRowOnTheClientForwardAndReadOnly) {
  const auto records = std::make_shared<OpenedRecords>(1);
  records->Add("ID", TypeCode::kInteger, [] { return platform::VariantView(std::int64_t{1}); });
  PreparedEnvironment environment(records);
  EditedView view("", environment);
  EXPECT_EQ(SchemaOf(view, "SELECT ID FROM T").fields[0].name, "ID");
  ExpectReadForOneRow(*records, "SELECT ID FROM T");
}

TEST(QuerySchema, SaysWhatToSetWithoutAConnection) {
  EditedView view(kQueriedTable);
  view.Settings().DrConnection.reset();
  try {
    SchemaOf(view, "SELECT ID FROM T");
    FAIL() << "a schema without a connection";
  } catch (const platform::Error& error) {
    EXPECT_STREQ(error.what(), "There is no database connection: set ConnectionString or DrConnection");
  }
}

TEST(KeyNames, AreTrimmedAndCountEmptyItems) {
  settings::Settings settings;
  settings.EditPrimaryKeys = " ID , Line,";
  EXPECT_THAT(editing::KeyNames(settings), testing::ElementsAre("ID", "Line", ""));
}

}  // namespace
}  // namespace dralo::tests
