#include "state/request_keys.h"

#include <gtest/gtest.h>

#include <string>

#include "support/fake_page.h"

namespace dralo::state {
namespace {

using tests::FakePage;

std::string Written(const RequestKeys& keys, std::string_view name) {
  html::HtmlWriter out;
  return out.Write(keys(name)).Take();
}

TEST(RequestKeys, AreWrittenAsPrefixTagAndName) {
  const FakePage page;

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

TEST(RequestKeys, AreReadFromTheQueryStringAndFromThePostedForm) {
  FakePage page;
  page.query = {{"Morvu1CurrRecord", "21"}};
  page.form = {{"Morvu1PK", "7"}};
  const RequestKeys keys(page.GetRequest(), "1");

  EXPECT_EQ(keys.Value(key::kCurrRecord), "21");
  EXPECT_EQ(keys.Value(key::kPrimaryKey), "7");
  EXPECT_EQ(keys.Value(key::kSql), "");
}

TEST(RequestKeys, PreferThePostedForm) {
  FakePage page;
  page.query = {{"Morvu1CurrRecord", "21"}};
  page.form = {{"Morvu1CurrRecord", "41"}};

  EXPECT_EQ(RequestKeys(page.GetRequest(), "1").Value(key::kCurrRecord), "41");
}

TEST(RequestKeys, TakeTheFirstOfSeveralValues) {
  FakePage page;
  page.form = {{"Morvu1CurrRecord", "21"}, {"Morvu1CurrRecord", "1"}};

  EXPECT_EQ(RequestKeys(page.GetRequest(), "1").Value(key::kCurrRecord), "21");
}

TEST(RequestKeys, AreFoundInAnyLetterCase) {
  FakePage page;
  page.query = {{"MORVU1BOOKMARK", "3"}, {"morvu1curRrecord", "4"}};
  const RequestKeys keys(page.GetRequest(), "1");

  EXPECT_EQ(keys.Value("Bookmark"), "3");
  EXPECT_EQ(keys.Value(key::kBookmark), "3");
  EXPECT_EQ(keys.Value(key::kCurrRecord), "4");
}

TEST(RequestKeys, AreFoundInAnyLetterCaseOfATagBeyondAscii) {
  FakePage page;
  page.query = {{"morvuøPK", "3"}};

  EXPECT_EQ(RequestKeys(page.GetRequest(), "Ø").Value(key::kPrimaryKey), "3");
  EXPECT_EQ(RequestKeys(page.GetRequest(), "O").Value(key::kPrimaryKey), "");
}

TEST(RequestKeys, KeepTheBlanksInsideAValueOnly) {
  FakePage page;
  page.query = {{"Morvu1OrderByFields", "  Name, City  "}};

  EXPECT_EQ(RequestKeys(page.GetRequest(), "1").Value(key::kOrderByFields), "Name, City");
}

TEST(RequestKeys, AreAbsentWhenTheirValueIsBlank) {
  FakePage page;
  page.form = {{"Morvu1FormEdit", ""}, {"Morvu1FormAdd", "   "}};
  const RequestKeys keys(page.GetRequest(), "1");

  EXPECT_FALSE(keys.Has(key::kFormEdit));
  EXPECT_FALSE(keys.Has(key::kFormAdd));
  EXPECT_FALSE(keys.Has(key::kFormUpdate));
}

TEST(RequestKeys, ArePresentWithTheValueZero) {
  FakePage page;
  page.form = {{"Morvu1NEXT.x", "0"}, {"Morvu1FormAdd", "0"}};
  const RequestKeys keys(page.GetRequest(), "1");

  EXPECT_TRUE(keys.Has(key::kFormAdd));
  EXPECT_TRUE(keys.WasPressed(key::kNext));
}

TEST(RequestKeys, SeeAPressedImageButtonByItsCoordinateOnly) {
  FakePage page;
  page.form = {{"Morvu1next.X", "12"}, {"Morvu1PREV.y", "3"}, {"Morvu1LAST", "1"}, {"Morvu2FIRST.x", "1"}};
  const RequestKeys keys(page.GetRequest(), "1");

  EXPECT_TRUE(keys.WasPressed(key::kNext));
  EXPECT_FALSE(keys.WasPressed(key::kPrevious));
  EXPECT_FALSE(keys.WasPressed(key::kLast));
  EXPECT_FALSE(keys.WasPressed(key::kFirst));
}

TEST(RequestKeys, OfViewsWithDifferentTagsStayApart) {
  FakePage page;
  page.form = {{"Morvu1CurrRecord", "21"}, {"Morvu2CurrRecord", "41"}, {"Morvu12CurrRecord", "61"}};

  EXPECT_EQ(RequestKeys(page.GetRequest(), "1").Value(key::kCurrRecord), "21");
  EXPECT_EQ(RequestKeys(page.GetRequest(), "2").Value(key::kCurrRecord), "41");
  EXPECT_EQ(RequestKeys(page.GetRequest(), "12").Value(key::kCurrRecord), "61");
}

TEST(RequestKeys, AreTheWholeNameOfAField) {
  FakePage page;
  page.form = {{"xMorvu1PK", "1"}, {"Morvu1PKx", "2"}, {"Morvu1P", "3"}, {"Morvu1", "4"}, {" Morvu1PK", "5"}};

  EXPECT_EQ(RequestKeys(page.GetRequest(), "1").Value(key::kPrimaryKey), "");
}

TEST(RequestKeys, TakeValuesOfAnyBytes) {
  FakePage page;
  const std::string bytes("\0\xFF\"'<&%\r\n", 9);
  page.form = {{"Morvu1PK", bytes}};

  EXPECT_EQ(RequestKeys(page.GetRequest(), "1").Value(key::kPrimaryKey), bytes);
}

}  // namespace
}  // namespace dralo::state
