#include "editing/key_condition.h"

#include <gtest/gtest.h>

namespace dralo::tests {
namespace {

using editing::KeyCondition;

std::string Term(std::string_view value, bool is_numeric) {
  KeyCondition condition;
  condition.Add("ID", value, is_numeric);
  return condition.Text("MSSQL");
}

TEST(KeyCondition, WritesANumberAsItIs) {
  EXPECT_EQ(Term("5", true), "([ID]=5)");
  EXPECT_EQ(Term("-1.5", true), "([ID]=-1.5)");
}

TEST(KeyCondition, QuotesTextAndDoublesTheQuotesInIt) {
  EXPECT_EQ(Term("x", false), "([ID]='x')");
  EXPECT_EQ(Term("O'Neil", false), "([ID]='O''Neil')");
  EXPECT_EQ(Term("''", false), "([ID]='''''')");
  EXPECT_EQ(Term("", false), "([ID]='')");
}

TEST(KeyCondition, JoinsTheTermsInTheirOrder) {
  KeyCondition condition;
  condition.Add("A", "x", false);
  condition.Add("B", "2", true);
  condition.Add("C", "z", false);
  EXPECT_EQ(condition.Text("MSSQL"), "([A]='x') AND ([B]=2) AND ([C]='z')");
}

TEST(KeyCondition, KeepsBracketsOnlyForEnginesThatKnowThemAlsoInsideValues) {
  KeyCondition condition;
  condition.Add("ID", "a[1]", false);
  for (const std::string_view engine : {"MSSQL", "ACCESS"}) {
    EXPECT_EQ(condition.Text(engine), "([ID]='a[1]')") << engine;
  }
  for (const std::string_view engine : {"", "ORACLE", "SQLA", "Other"}) {
    EXPECT_EQ(condition.Text(engine), "(ID='a1')") << engine;
  }
}

}  // namespace
}  // namespace dralo::tests
