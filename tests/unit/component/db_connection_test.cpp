#include "component/db_connection.h"

#include <gtest/gtest.h>

#include "support/view_page.h"

namespace dralo::component {
namespace {

using tests::TestEnvironment;

TEST(DatabaseEngine, ReadsBackKnownNamesInCapitals) {
  DBConnection connection(TestEnvironment());
  for (const auto& [assigned, read] : std::initializer_list<std::pair<std::string_view, std::string_view>>{
           {"mssql", "MSSQL"}, {"Access", "ACCESS"}, {"sqla", "SQLA"}, {"ORACLE", "ORACLE"}}) {
    connection.SetEngineName(assigned);
    EXPECT_EQ(connection.EngineName(), read);
  }
}

TEST(DatabaseEngine, ReadsBackUnknownNamesAsOracle) {
  DBConnection connection(TestEnvironment());
  connection.SetEngineName("MSSQL");
  connection.SetEngineName("DB2");
  EXPECT_EQ(connection.EngineName(), "ORACLE");
}

TEST(DatabaseEngine, ThatWasNeverSetReadsOracle) {
  EXPECT_EQ(DBConnection(TestEnvironment()).EngineName(), "ORACLE");
}

TEST(DBConnection, ReleasesItsOwnConnectionAtPageEnd) {
  DBConnection connection(TestEnvironment());
  const std::weak_ptr<platform::Connection> own = connection.Connection();
  connection.OnEndPage();
  EXPECT_TRUE(own.expired());
}

TEST(DBConnection, KeepsASuppliedConnectionAtPageEnd) {
  const tests::TemporaryDatabase database;
  const auto supplied = platform::Create<platform::Connection>(TestEnvironment(), "ADODB.Connection");
  supplied->Open(database.ConnectionString());
  DBConnection connection(TestEnvironment());
  connection.SetConnection(supplied);
  connection.OnEndPage();
  EXPECT_TRUE(supplied->IsOpen());
}

TEST(DBConnection, HasANewConnectionOfItsOwnOnASecondPage) {
  const tests::TemporaryDatabase database;
  tests::FakePage page;
  DBConnection connection(TestEnvironment());
  const auto first = connection.Connection();
  connection.OnStartPage(page);
  EXPECT_EQ(connection.Connection(), first);
  connection.OnEndPage();
  connection.OnStartPage(page);
  ASSERT_NE(connection.Connection(), nullptr);
  EXPECT_FALSE(connection.Connection()->IsOpen());
  connection.Connection()->Open(database.ConnectionString());
  connection.OnStartPage(page);
  EXPECT_TRUE(connection.Connection()->IsOpen());
}

TEST(DBConnection, HasTheSuppliedConnectionOnASecondPage) {
  tests::FakePage page;
  const auto supplied = platform::Create<platform::Connection>(TestEnvironment(), "ADODB.Connection");
  DBConnection connection(TestEnvironment());
  connection.SetConnection(supplied);
  connection.OnEndPage();
  connection.OnStartPage(page);
  EXPECT_EQ(connection.Connection(), supplied);
}

TEST(DBConnection, LetsGoOfItsOwnConnectionWhenAnotherIsSupplied) {
  DBConnection connection(TestEnvironment());
  const std::weak_ptr<platform::Connection> own = connection.Connection();
  connection.SetConnection(platform::Create<platform::Connection>(TestEnvironment(), "ADODB.Connection"));
  EXPECT_TRUE(own.expired());
}

}  // namespace
}  // namespace dralo::component
