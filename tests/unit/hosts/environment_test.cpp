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

struct AnEnvironment : testing::Test {
  Environment environment{"en-US"};

  template <class Class>
  bool Makes(std::string_view identifier) {
    return std::dynamic_pointer_cast<Class>(environment.CreateObject(identifier)) != nullptr;
  }
};

TEST_F(AnEnvironment, MakesTheObjectsThatPagesUseByTheirIdentifiers) {
  EXPECT_TRUE(Makes<platform::Connection>("ADODB.Connection"));
  EXPECT_TRUE(Makes<platform::Recordset>("ADODB.Recordset"));
  EXPECT_TRUE(Makes<platform::Command>("ADODB.Command"));
  EXPECT_TRUE(Makes<component::DbView>("Dralo.DbView"));
  EXPECT_TRUE(Makes<component::DBConnection>("Dralo.DBConnection"));
}

TEST_F(AnEnvironment, FindsIdentifiersInAnyLetterCase) {
  EXPECT_TRUE(Makes<platform::Recordset>("adodb.RECORDSET"));
  EXPECT_TRUE(Makes<component::DbView>("DRALO.dbview"));
}

TEST_F(AnEnvironment, MakesANewObjectEachTime) {
  EXPECT_NE(environment.CreateObject("ADODB.Connection"), environment.CreateObject("ADODB.Connection"));
}

TEST_F(AnEnvironment, SaysWhichIdentifierIsNotRegistered) {
  for (const char* identifier : {"ADODB.Stream", "", "DbView", "Dralo.DbView "}) {
    try {
      environment.CreateObject(identifier);
      FAIL() << identifier;
    } catch (const platform::Error& error) {
      EXPECT_EQ(error.Description(), "No object is registered as \"" + std::string(identifier) + "\"");
    }
  }
}

TEST_F(AnEnvironment, RefusesAnObjectOfAnotherClassThanTheCallerExpects) {
  EXPECT_NE(platform::Create<platform::Connection>(environment, "ADODB.Connection"), nullptr);
  EXPECT_THROW(platform::Create<platform::Recordset>(environment, "ADODB.Connection"), platform::Error);
}

TEST_F(AnEnvironment, WritesValuesInTheFormOfItsLocale) {
  const Environment german("de-DE");
  std::string scratch;

  EXPECT_EQ(environment.Regional().Text(1.5, scratch), "1.5");
  EXPECT_EQ(german.Regional().Text(1.5, scratch), "1,5");
}

TEST_F(AnEnvironment, RefusesALocaleThatDoesNotExist) {
  EXPECT_THROW(Environment("no such place!"), platform::Error);
}

TEST_F(AnEnvironment, MakesRegularExpressions) {
  const auto expression = environment.CreateRegExp();
  expression->Compile("b+", {.ignore_case = true, .global = true});

  EXPECT_EQ(expression->Replace("aBbcb", "-"), "a-c-");
}

}  // namespace
}  // namespace dralo::host
