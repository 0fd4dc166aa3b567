#include "database/postgresql/options.h"

#include <gtest/gtest.h>

#include "data/shorthand.h"

namespace dralo::database::postgresql {

namespace {

Options Read(std::string_view text) { return ReadOptions(ConnectionString(text)); }

std::string Setting(const Options& options, std::string_view key) {
  for (const auto& [name, value] : options.settings) {
    if (name == key) return value;
  }
  return "none";
}

TEST(PostgreSqlOptions, HaveTheNamesOfTheClientLibrary) {
  const Options options =
      Read("Provider=PostgreSQL;Host=db1;Port=5433;Database=shop;User ID=pages;SSL Mode=require");
  EXPECT_EQ(Setting(options, "dbname"), "shop");
  EXPECT_EQ(Setting(options, "user"), "pages");
  EXPECT_EQ(Setting(options, "sslmode"), "require");
  EXPECT_EQ(Setting(options, "password"), "none");
  ASSERT_EQ(options.hosts.size(), 1u);
  EXPECT_EQ(options.hosts[0].name, "db1");
  EXPECT_EQ(options.hosts[0].port, "5433");
}

TEST(PostgreSqlOptions, KnowOtherNamesOfWhichTheLastCounts) {
  EXPECT_EQ(Read("Server=a;Data Source=b").hosts[0].name, "b");
  EXPECT_EQ(Setting(Read("User ID=a;UID=b;User=c"), "user"), "c");
  EXPECT_EQ(Setting(Read("Password=a;pwd=b"), "password"), "b");
  EXPECT_EQ(Setting(Read("Database=a;Initial Catalog=b"), "dbname"), "b");
}

TEST(PostgreSqlOptions, HaveTimeoutsInSeconds) {
  EXPECT_EQ(Read("Host=a").connect_timeout_s, 15);
  EXPECT_EQ(Read("Host=a").query_timeout_s, 30);
  EXPECT_EQ(Read("Connect Timeout=3;Query Timeout=0").connect_timeout_s, 3);
  EXPECT_EQ(Read("Connect Timeout=3;Query Timeout=0").query_timeout_s, 0);
  for (const char* text : {"Query Timeout=soon", "Query Timeout=-1", "Query Timeout="}) {
    EXPECT_EQ(tests::MessageOf([&] { Read(text); }),
              "The Query Timeout in the connection string is no number of seconds; write Query Timeout=30");
  }
}

TEST(PostgreSqlOptions, GiveAllHostsTheSamePort) {
  const Options options = Read("Hosts=a,b:5432,::1;Port=6432");
  ASSERT_EQ(options.hosts.size(), 3U);
  EXPECT_EQ(options.hosts[0].port, "6432");
  EXPECT_EQ(options.hosts[1].port, "5432");
  EXPECT_EQ(options.hosts[2].name, "::1");
  EXPECT_EQ(options.hosts[2].port, "6432");
}

TEST(PostgreSqlOptions, NameSeveralHostsInHostsOnly) {
  EXPECT_EQ(tests::MessageOf([] { Read("Host=a,b"); }),
            "The connection string has several names in its Host; write Hosts=db1,db2");
}

TEST(PostgreSqlOptions, NameSeveralHosts) {
  const Options options = Read("Hosts=a:5432, b,[::1]:5433,/var/run;Target Session Attributes=read-write");
  ASSERT_EQ(options.hosts.size(), 4u);
  EXPECT_EQ(options.hosts[0].name + " " + options.hosts[0].port, "a 5432");
  EXPECT_EQ(options.hosts[1].name + " " + options.hosts[1].port, "b ");
  EXPECT_EQ(options.hosts[2].name + " " + options.hosts[2].port, "::1 5433");
  EXPECT_EQ(options.hosts[3].name + " " + options.hosts[3].port, "/var/run ");
  EXPECT_EQ(options.target_attributes, "read-write");
}

TEST(PostgreSqlOptions, IgnoreAnEmptyListOfHostsAndACommaAtItsEnd) {
  const auto hosts_of = [](std::string_view text) {
    std::string hosts;
    for (const Options::Host& host : Read(text).hosts) hosts += "(" + host.name + " " + host.port + ")";
    return hosts;
  };
  EXPECT_EQ(hosts_of("Hosts=;Host=a"), "(a )");
  EXPECT_EQ(hosts_of("Hosts=a,;Host=b"), "(a )");
  EXPECT_EQ(hosts_of("Hosts=a:,,[::1];Port=6432"), "(a 6432)( 6432)(::1 6432)");
  EXPECT_EQ(hosts_of("Hosts=[::1,/run:1"), "([::1 )(/run 1)");
  EXPECT_EQ(hosts_of("Host=a:1"), "(a:1 )");
}

TEST(PostgreSqlOptions, SayWhatIsKnownAndNoPartOfAPassword) {
  const std::string message = tests::MessageOf([] { Read("Host=a;Password=hush;secret=4711"); });
  EXPECT_EQ(message.find("secret"), message.npos) << message;
  EXPECT_NE(message.find("known are Host, Port, Hosts, "), message.npos) << message;
  EXPECT_EQ(tests::MessageOf([] { Read("Prepare=maybe"); }),
            "The Prepare in the connection string must be 0 or 1; write Prepare=0 behind a pooler");
  EXPECT_FALSE(Read("Prepare=0").prepares);
  EXPECT_TRUE(Read("Prepare=1").prepares);
}

}  // namespace

}  // namespace dralo::database::postgresql
