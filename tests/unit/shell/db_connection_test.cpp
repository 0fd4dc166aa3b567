#include "shell/db_connection.h"

#include <gtest/gtest.h>

#include "support/view_page.h"

namespace dralo::shell {
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

TEST(DBConnection, LetsGoOfItsOwnConnectionWhenAnotherIsSupplied) {
  DBConnection connection(TestEnvironment());
  const std::weak_ptr<platform::Connection> own = connection.Connection();
  connection.SetConnection(platform::Create<platform::Connection>(TestEnvironment(), "ADODB.Connection"));
  EXPECT_TRUE(own.expired());
}

}  // namespace
}  // namespace dralo::shell
