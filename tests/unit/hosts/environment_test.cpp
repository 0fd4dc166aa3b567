#include "hosts/cpp/environment.h"

#include <gtest/gtest.h>

#include <string>

#include "component/db_connection.h"
#include "component/db_view.h"
#include "dralo/command.h"
#include "dralo/connection.h"
#include "dralo/recordset.h"

namespace dralo::host {
namespace {

template <class Class>
bool Makes(Environment& environment, std::string_view identifier) {
  return std::dynamic_pointer_cast<Class>(environment.CreateObject(identifier)) != nullptr;
}

TEST(Environment, MakesTheObjectsThatPagesUseByTheirIdentifiers) {
  Environment environment("en-US");

  EXPECT_TRUE(Makes<platform::Connection>(environment, "ADODB.Connection"));
  EXPECT_TRUE(Makes<platform::Recordset>(environment, "ADODB.Recordset"));
  EXPECT_TRUE(Makes<platform::Command>(environment, "ADODB.Command"));
  EXPECT_TRUE(Makes<component::DbView>(environment, "Dralo.DbView"));
  EXPECT_TRUE(Makes<component::DBConnection>(environment, "Dralo.DBConnection"));
}

TEST(Environment, FindsIdentifiersInAnyLetterCase) {
  Environment environment("en-US");

  EXPECT_TRUE(Makes<platform::Recordset>(environment, "adodb.RECORDSET"));
  EXPECT_TRUE(Makes<component::DbView>(environment, "DRALO.dbview"));
}

TEST(Environment, MakesANewObjectEachTime) {
  Environment environment("en-US");

  EXPECT_NE(environment.CreateObject("ADODB.Connection"), environment.CreateObject("ADODB.Connection"));
}

TEST(Environment, SaysWhichIdentifierIsNotRegistered) {
  Environment environment("en-US");

  for (const char* identifier : {"ADODB.Stream", "", "DbView", "Dralo.DbView "}) {
    try {
      environment.CreateObject(identifier);
      FAIL() << identifier;
    } catch (const platform::Error& error) {
      EXPECT_EQ(error.Description(), "No object is registered as \"" + std::string(identifier) + "\"");
    }
  }
}

TEST(Environment, RefusesAnObjectOfAnotherClassThanTheCallerExpects) {
  Environment environment("en-US");

  EXPECT_NE(platform::Create<platform::Connection>(environment, "ADODB.Connection"), nullptr);
  EXPECT_THROW(platform::Create<platform::Recordset>(environment, "ADODB.Connection"), platform::Error);
}

TEST(Environment, WritesValuesInTheFormOfItsLocale) {
  const Environment american("en-US");
  const Environment german("de-DE");
  std::string scratch;

  EXPECT_EQ(american.Regional().Text(1.5, scratch), "1.5");
  EXPECT_EQ(german.Regional().Text(1.5, scratch), "1,5");
}

TEST(Environment, RefusesALocaleThatDoesNotExist) {
  EXPECT_THROW(Environment("no such place!"), platform::Error);
}

TEST(Environment, MakesRegularExpressions) {
  Environment environment("en-US");
  const auto expression = environment.CreateRegExp();
  expression->Compile("b+", {.ignore_case = true, .global = true});

  EXPECT_EQ(expression->Replace("aBbcb", "-"), "a-c-");
}

}  // namespace
}  // namespace dralo::host
