#include "state/request_keys.h"

#include <gtest/gtest.h>

#include <string>

#include "support/fake_page.h"
#include "support/fields_of.h"
#include "support/named_cases.h"

namespace dralo::state {
namespace {

using tests::FakePage;

std::string Written(const RequestKeys& keys, std::string_view name) {
  html::HtmlWriter out;
  return out.Write(keys(name)).Take();
}

struct RequestKeysOfAPage : testing::Test {
  FakePage page;
};

TEST_F(RequestKeysOfAPage, AreWrittenAsPrefixTagAndName) {
  EXPECT_EQ(Written(RequestKeys(page.GetRequest(), "1"), key::kCurrRecord), "Morvu1CurrRecord");
  EXPECT_EQ(Written(RequestKeys(page.GetRequest(), "orders"), key::kMaxRecords), "Morvuordersmaxrecords");
  EXPECT_EQ(Written(RequestKeys(page.GetRequest(), ""), key::kPrimaryKey), "MorvuPK");
}

TEST(RequestKeys, HaveTheirNamesInTheLetterCaseOfThePage) {
  EXPECT_EQ(key::kPrefix, "Morvu");
  EXPECT_EQ(key::kMaxRecords, "maxrecords");
  EXPECT_EQ(key::kCountRecords, "CountRecords");
  EXPECT_EQ(key::kCurrRecord, "CurrRecord");
  EXPECT_EQ(key::kSql, "SQL");
  EXPECT_EQ(key::kFormDisplay, "FormDisplay");
  EXPECT_EQ(key::kOrderByFields, "OrderByFields");
  EXPECT_EQ(key::kOrderByDesc, "OrderByDesc");
  EXPECT_EQ(key::kFirst, "FIRST");
  EXPECT_EQ(key::kPrevious, "PREV");
  EXPECT_EQ(key::kNext, "NEXT");
  EXPECT_EQ(key::kLast, "LAST");
  EXPECT_EQ(key::kBookmark, "BookMark");
  EXPECT_EQ(key::kPrimaryKey, "PK");
  EXPECT_EQ(key::kFormEdit, "FormEdit");
  EXPECT_EQ(key::kFormAdd, "FormAdd");
  EXPECT_EQ(key::kFormInsert, "FormInsert");
  EXPECT_EQ(key::kFormUpdate, "FormUpdate");
  EXPECT_EQ(key::kFormDelete, "FormDelete");
  EXPECT_EQ(key::kToExcel, "ToExcel");
}

struct KeyCase {
  std::string_view name, query, form, tag, key, value;
};

class RequestKey : public testing::TestWithParam<KeyCase> {};

TEST_P(RequestKey, HasAValue) {
  FakePage page;
  page.query = tests::FieldsOf(GetParam().query);
  page.form = tests::FieldsOf(GetParam().form);
  EXPECT_EQ(RequestKeys(page.GetRequest(), GetParam().tag).Value(GetParam().key), GetParam().value);
}

constexpr KeyCase kValuesOfKeys[] = {
    {"FromTheQueryString", "Morvu1CurrRecord:21", "Morvu1PK:7", "1", key::kCurrRecord, "21"},
    {"FromThePostedForm", "Morvu1CurrRecord:21", "Morvu1PK:7", "1", key::kPrimaryKey, "7"},
    {"FromNeither", "Morvu1CurrRecord:21", "Morvu1PK:7", "1", key::kSql, ""},
    {"FromThePostedFormBeforeTheQueryString", "Morvu1CurrRecord:21", "Morvu1CurrRecord:41", "1",
     key::kCurrRecord, "41"},
    {"FromTheFirstOfSeveral", "", "Morvu1CurrRecord:21|Morvu1CurrRecord:1", "1", key::kCurrRecord, "21"},
    {"InCapitals", "MORVU1BOOKMARK:3", "", "1", key::kBookmark, "3"},
    {"AskedForInAnotherLetterCase", "MORVU1BOOKMARK:3", "", "1", "Bookmark", "3"},
    {"InAnyLetterCase", "morvu1curRrecord:4", "", "1", key::kCurrRecord, "4"},
    {"InAnyLetterCaseOfATagBeyondAscii", "morvuøPK:3", "", "Ø", key::kPrimaryKey, "3"},
    {"OfTheSameLetterOfATagOnly", "morvuøPK:3", "", "O", key::kPrimaryKey, ""},
    {"WithoutTheBlanksAroundIt", "Morvu1OrderByFields:  Name, City  ", "", "1", key::kOrderByFields,
     "Name, City"},
    {"OfTheFirstTag", "", "Morvu1PK:21|Morvu2PK:41|Morvu12PK:61", "1", key::kPrimaryKey, "21"},
    {"OfTheSecondTag", "", "Morvu1PK:21|Morvu2PK:41|Morvu12PK:61", "2", key::kPrimaryKey, "41"},
    {"OfALongTag", "", "Morvu1PK:21|Morvu2PK:41|Morvu12PK:61", "12", key::kPrimaryKey, "61"},
    {"OfTheWholeNameOnly", "", "xMorvu1PK:1|Morvu1PKx:2|Morvu1P:3|Morvu1:4| Morvu1PK:5", "1",
     key::kPrimaryKey, ""},
};

INSTANTIATE_TEST_SUITE_P(Requests, RequestKey, testing::ValuesIn(kValuesOfKeys), tests::kByName);

TEST_F(RequestKeysOfAPage, AreAbsentWhenTheirValueIsBlank) {
  page.form = {{"Morvu1FormEdit", ""}, {"Morvu1FormAdd", "   "}};
  const RequestKeys keys(page.GetRequest(), "1");

  EXPECT_FALSE(keys.Has(key::kFormEdit));
  EXPECT_FALSE(keys.Has(key::kFormAdd));
  EXPECT_FALSE(keys.Has(key::kFormUpdate));
}

TEST_F(RequestKeysOfAPage, ArePresentWithTheValueZero) {
  page.form = {{"Morvu1NEXT.x", "0"}, {"Morvu1FormAdd", "0"}};
  const RequestKeys keys(page.GetRequest(), "1");

  EXPECT_TRUE(keys.Has(key::kFormAdd));
  EXPECT_TRUE(keys.WasPressed(key::kNext));
}

TEST_F(RequestKeysOfAPage, SeeAPressedImageButtonByItsCoordinateOnly) {
  page.form = {{"Morvu1next.X", "12"}, {"Morvu1PREV.y", "3"}, {"Morvu1LAST", "1"}, {"Morvu2FIRST.x", "1"}};
  const RequestKeys keys(page.GetRequest(), "1");

  EXPECT_TRUE(keys.WasPressed(key::kNext));
  EXPECT_FALSE(keys.WasPressed(key::kPrevious));
  EXPECT_FALSE(keys.WasPressed(key::kLast));
  EXPECT_FALSE(keys.WasPressed(key::kFirst));
}

TEST_F(RequestKeysOfAPage, TakeValuesOfAnyBytes) {
  const std::string bytes("\0\xFF\"'<&%\r\n", 9);
  page.form = {{"Morvu1PK", bytes}};

  EXPECT_EQ(RequestKeys(page.GetRequest(), "1").Value(key::kPrimaryKey), bytes);
}

}  // namespace
}  // namespace dralo::state
