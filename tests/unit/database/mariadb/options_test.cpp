#include "database/mariadb/options.h"

#include <gtest/gtest.h>

#include "data/shorthand.h"
#include "dralo/error.h"

namespace dralo::database::mariadb {

namespace {

Options ReadText(const std::string& text) {
  return ReadOptions(ConnectionString("Provider=MariaDB;" + text));
}

/// Why the text is refused.
std::string RefusalOf(const std::string& text) {
  return tests::MessageOf([&] { ReadText(text); });
}

TEST(MariaDbOptions, AreThoseOfTheConnectionString) {
  const Options options = ReadText(
      "Host=db1;Port=3307;Database=shop;User ID=pages;Password={a;b};SSL Mode=Required;SSL CA=/ca.pem;"
      "Connect Timeout=3;Query Timeout=4");
  ASSERT_EQ(options.hosts.size(), 1u);
  EXPECT_EQ(options.hosts[0].name, "db1");
  EXPECT_EQ(options.hosts[0].port, 3307u);
  EXPECT_EQ(options.database, "shop");
  EXPECT_EQ(options.user, "pages");
  EXPECT_EQ(options.password, "a;b");
  EXPECT_EQ(options.ssl_mode, SslMode::kRequired);
  EXPECT_EQ(options.ssl_authorities, "/ca.pem");
  EXPECT_EQ(options.connect_timeout_s, 3);
  EXPECT_EQ(options.query_timeout_s, 4);
}

TEST(MariaDbOptions, HaveDefaults) {
  const Options options = ReadText("");
  ASSERT_EQ(options.hosts.size(), 1u);
  EXPECT_EQ(options.hosts[0].name, "127.0.0.1");
  EXPECT_EQ(options.hosts[0].port, 3306u);
  EXPECT_EQ(options.ssl_mode, SslMode::kDisabled);
  EXPECT_EQ(options.connect_timeout_s, 15);
  EXPECT_EQ(options.query_timeout_s, 30);
}

TEST(MariaDbOptions, HaveOtherNames) {
  for (const char* text : {"Server=s;UID=u;PWD=p;Initial Catalog=d", "Data Source=s;User=u;pwd=p;database=d",
                           "HOST=s;username=u;password=p;DATABASE=d"}) {
    const Options options = ReadText(text);
    EXPECT_EQ(options.hosts.front().name, "s") << text;
    EXPECT_EQ(options.user, "u") << text;
    EXPECT_EQ(options.password, "p") << text;
    EXPECT_EQ(options.database, "d") << text;
  }
}

TEST(MariaDbOptions, HaveSeveralHostsWithPortsOfTheirOwn) {
  const Options options = ReadText("Hosts=a:3307, b,[::1]:3308,/run/socket;Port=3309");
  ASSERT_EQ(options.hosts.size(), 4u);
  EXPECT_EQ(options.hosts[0].name + " " + std::to_string(options.hosts[0].port), "a 3307");
  EXPECT_EQ(options.hosts[1].name + " " + std::to_string(options.hosts[1].port), "b 3309");
  EXPECT_EQ(options.hosts[2].name + " " + std::to_string(options.hosts[2].port), "::1 3308");
  EXPECT_EQ(options.hosts[3].name, "/run/socket");
}

TEST(MariaDbOptions, TakeAPortBehindTheNameOfTheOnlyHostToo) {
  const auto host_of = [](const char* text) {
    const Options::Host host = ReadText(text).hosts.at(0);
    return host.name + " " + std::to_string(host.port);
  };
  EXPECT_EQ(host_of("Host=a:3307"), "a 3307");
  EXPECT_EQ(host_of("Host=a;Port=3308"), "a 3308");
  EXPECT_EQ(host_of("Port=3308"), "127.0.0.1 3308");
  EXPECT_EQ(host_of("Host=::1"), "::1 3306");
  EXPECT_EQ(host_of("Hosts=fe80::1"), "fe80::1 3306");
  EXPECT_EQ(host_of("Host=[::1]:3307"), "::1 3307");
}

TEST(MariaDbOptions, RefuseHostsWithoutAName) {
  for (const char* text :
       {"Hosts=,a", "Hosts=a,,b", "Hosts=a,", "Hosts=", "Host=", "Host=:3306", "Host=[]"}) {
    EXPECT_EQ(RefusalOf(text), "The connection string has a host without a name; write Host=127.0.0.1")
        << text;
  }
}

TEST(MariaDbOptions, CheckAServerWhoseAuthoritiesAreNamed) {
  EXPECT_EQ(ReadText("SSL CA=/ca.pem").ssl_mode, SslMode::kVerified);
  EXPECT_EQ(ReadText("SSL Mode=Required;SSL CA=/ca.pem").ssl_mode, SslMode::kRequired);
  EXPECT_EQ(
      RefusalOf("SSL CA=/ca.pem;SSL Mode=Disabled"),
      "The connection string has an SSL CA, which SSL Mode=Disabled does not use; leave out one of them");
}

TEST(MariaDbOptions, NameTheKnownKeysButNotTheUnknownOne) {
  EXPECT_EQ(RefusalOf("Password=hush;4711=x"),
            "The connection string has a key that is unknown for MariaDB; known are Host, Port, Hosts, "
            "Database, User ID, Password, SSL Mode, SSL CA, Connect Timeout, Query Timeout");
}

TEST(MariaDbOptions, RefuseWhatIsNotUnderstood) {
  for (const char* text : {"Port=0", "Port=x", "Port=65536", "Hosts=a:b"}) {
    EXPECT_EQ(RefusalOf(text),
              "The connection string has a port that is no number from 1 to 65535; write Port=3306");
  }
  EXPECT_EQ(RefusalOf("Connect Timeout=soon"),
            "The Connect Timeout in the connection string is no number of seconds; write Connect Timeout=15");
  EXPECT_EQ(RefusalOf("Query Timeout=-1"),
            "The Query Timeout in the connection string is no number of seconds; write Query Timeout=30");
  EXPECT_EQ(RefusalOf("SSL Mode=maybe"),
            "The connection string has an unknown SSL Mode; write SSL Mode=Disabled, Preferred, Required, "
            "VerifyCA or VerifyFull");
  EXPECT_EQ(RefusalOf(std::string("Database=a\0b", 12)), "The connection string has a zero byte");
}

}  // namespace

}  // namespace dralo::database::mariadb
