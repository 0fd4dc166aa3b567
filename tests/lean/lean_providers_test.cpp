#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "database/objects.h"
#include "dralo/connection.h"
#include "dralo/error.h"
#include "hosts/cpp/providers.h"

namespace dralo::tests {

namespace {

/// What opening a connection says; "" when it opens.
std::string OutcomeOf(std::string_view connection_string) {
  try {
    database::MakeConnection(host::AllProviders())->Open(connection_string);
    return {};
  } catch (const platform::Error& error) {
    return std::string(error.Description());
  }
}

TEST(LeanProviders, OpenSqlite) { EXPECT_EQ(OutcomeOf("Provider=SQLite;Data Source=:memory:"), ""); }

TEST(LeanProviders, SayWhichOptionBringsTheOneThatIsAskedFor) {
  const std::string_view asked[][3] = {
      {"Provider=PostgreSQL;Database=x", "PostgreSQL", "DRALO_POSTGRESQL"},
      {"Provider=MariaDB;Database=x", "MariaDB", "DRALO_MARIADB"},
      {"Provider=MySQL;Database=x", "MariaDB", "DRALO_MARIADB"},
      {"Driver=SQLite3;Database=x", "MSDASQL", "DRALO_ODBC"},
      {"DSN=x", "MSDASQL", "DRALO_ODBC"},
      {"Provider=MSDASQL;Data Source=x", "MSDASQL", "DRALO_ODBC"},
  };
  for (const auto& [connection_string, provider, option] : asked) {
    EXPECT_EQ(OutcomeOf(connection_string), "This build of Dralo has no provider " + std::string(provider) +
                                                "; build it with " + std::string(option) + "=ON")
        << connection_string;
  }
}

}  // namespace

}  // namespace dralo::tests
