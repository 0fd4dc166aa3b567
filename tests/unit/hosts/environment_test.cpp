#include "hosts/cpp/environment.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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
  EXPECT_THROW(environment.InLocale("no such place!"), platform::Error);
}

TEST_F(AnEnvironment, HasOtherLocalesBesideItsOwn) {
  environment.SetSite({.hosts = {"shop.example"}});
  platform::Environment& german = environment.InLocale("de-DE");
  std::string scratch;

  EXPECT_EQ(german.Regional().Text(1.5, scratch), "1,5");
  EXPECT_EQ(environment.Regional().Text(1.5, scratch), "1.5");
  EXPECT_EQ(&environment.InLocale("de-DE"), &german);
  EXPECT_EQ(&environment.InLocale(""), &environment);
  EXPECT_EQ(&german.InLocale(""), &environment);
  EXPECT_EQ(german.GetSite().hosts, environment.GetSite().hosts);
  EXPECT_NE(platform::Create<platform::Recordset>(german, "ADODB.Recordset"), nullptr);
}

TEST_F(AnEnvironment, MakesRegularExpressions) {
  const auto expression = environment.CreateRegExp();
  expression->Compile("b+", {.ignore_case = true, .global = true});

  EXPECT_EQ(expression->Replace("aBbcb", "-"), "a-c-");
}

TEST(EnvironmentOfASite, GivesItsViewsTheSitesDefault) {
  Environment plain("en-US");
  EXPECT_FALSE(component::DbView(plain).GetSettings().Hardened);

  Environment hardened("en-US", {.hardened = true});
  EXPECT_TRUE(component::DbView(hardened).GetSettings().Hardened);
}

TEST(EnvironmentOfASite, TakesOriginsAsBrowsersSendThem) {
  for (const char* origin : {"https://shop.example", "http://127.0.0.1:8080", "https://[::1]:8443"}) {
    EXPECT_NO_THROW(Environment("en-US", {.trusted_origins = {origin}})) << origin;
  }
  for (const char* origin :
       {"null", "*", "https://*.example", "shop.example", "https://shop.example/", "https://Shop.example",
        "ftp://shop.example", "https://shop.example:443", "http://a:80", "https://"}) {
    EXPECT_THROW(Environment("en-US", {.trusted_origins = {origin}}), platform::Error) << origin;
  }
}

TEST(EnvironmentOfASite, TakesHostsAsBrowsersSendThem) {
  EXPECT_NO_THROW(Environment("en-US", {.hosts = {"shop.example", "127.0.0.1:8080", "[::1]"}}));
  for (const char* host : {"", "*.example", "https://shop.example", "Shop.example"}) {
    EXPECT_THROW(Environment("en-US", {.hosts = {host}}), platform::Error) << host;
  }
}

TEST(EnvironmentOfASite, KeepsItsSiteWhenTheNextOneIsNone) {
  Environment environment("en-US", {.hosts = {"shop.example"}});
  EXPECT_THROW(environment.SetSite({.hosts = {"*"}}), platform::Error);
  EXPECT_EQ(environment.GetSite().hosts, std::vector<std::string>{"shop.example"});
}

}  // namespace
}  // namespace dralo::host
