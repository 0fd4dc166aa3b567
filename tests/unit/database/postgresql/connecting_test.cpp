#include <chrono>

#include "unit/database/postgresql/native_test.h"
#include "unit/database/postgresql/proxy.h"

namespace dralo::tests {

namespace {

class Connecting : public PostgreSqlProvider {
 protected:
  static std::string ServerPort() { return PortOf(dralo::tests::Server::kPostgreSql); }

  /// Over another port.
  ConnectionPtr Over(const Proxy& proxy, const std::string& settings = {}) const {
    return Another(";Port=" + proxy.Port() + ";SSL Mode=disable" + settings);
  }
};

TEST_F(Connecting, ReportsAWrongPasswordWithoutIt) {
  const auto error = ErrorOf([&] { Another(";Password=wrong4712"); });
  EXPECT_NE(error.Description().find("password authentication failed for user \"dralo\""), std::string::npos)
      << error.Description();
  EXPECT_EQ(error.Description().find("wrong4712"), std::string::npos) << error.Description();
  EXPECT_TRUE(error.Description().starts_with("The database cannot be opened: ")) << error.Description();
  EXPECT_EQ(error.SqlState(), "08001");
}

TEST_F(Connecting, GivesUpAServerThatSaysNothing) {
  const Proxy proxy(Proxy::Manner::kSilent, ServerPort());
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(MessageOf([&] { Over(proxy, ";Connect Timeout=1"); }),
            "The database cannot be opened: the server has not answered in time (SQLSTATE 08001)");
  const auto taken = std::chrono::steady_clock::now() - start;
  EXPECT_GE(taken, std::chrono::milliseconds(990));
  EXPECT_LT(taken, std::chrono::seconds(3));
}

TEST_F(Connecting, TriesOneHostAfterTheOther) {
  const Proxy silent(Proxy::Manner::kSilent, ServerPort());
  const std::string hosts = ";Connect Timeout=3;SSL Mode=disable;Hosts=127.0.0.1:" + silent.Port() +
                            ",127.0.0.1:1,127.0.0.1:" + ServerPort();
  EXPECT_EQ(Rows(Another(hosts), "SELECT 7"), Lines{"7"});
  EXPECT_EQ(Rows(Another(hosts + ";Target Session Attributes=read-write"), "SELECT 7"), Lines{"7"});
  EXPECT_EQ(Rows(Another(hosts + ";Target Session Attributes=prefer-standby;Connect Timeout=9"), "SELECT 7"),
            Lines{"7"});
}

TEST_F(Connecting, SaysWhyNoHostLetsIn) {
  const std::string message = MessageOf([&] {
    Another(";Hosts=127.0.0.1:1,127.0.0.1:" + ServerPort() + ";Target Session Attributes=standby");
  });
  EXPECT_NE(message.find("Connection refused"), message.npos) << message;
  EXPECT_NE(message.find("standby"), message.npos) << message;
}

TEST_F(Connecting, DoesWithoutOptionsWhereAPoolerRefusesThem) {
  const Proxy proxy(Proxy::Manner::kRefusesOptions, ServerPort());
  const auto connection = Over(proxy);
  EXPECT_EQ(proxy.Refused(), 1);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Rest(*Read(connection, "SELECT i FROM generate_series(1, 3) i", 2)), (Lines{"1", "2"}));
  }
  EXPECT_EQ(Rows(connection, "SELECT COUNT(*) FROM pg_prepared_statements"), Lines{"0"});
}

TEST_F(Connecting, KeepsNoSessionOfAPoolerThatThePageHasChanged) {
  const Proxy proxy(Proxy::Manner::kRefusesOptions, ServerPort());
  const auto is_read_only = [&](std::string_view change) {
    const auto connection = Over(proxy);
    const Lines setting = Rows(connection, "SHOW default_transaction_read_only");
    if (!change.empty()) connection->Execute(change);
    connection->Close();
    return setting == Lines{"'on'"};
  };
  is_read_only("");
  is_read_only("SET default_transaction_read_only = on");
  EXPECT_EQ(proxy.Refused(), 1) << "kept";
  EXPECT_FALSE(is_read_only(""));
  EXPECT_EQ(proxy.Refused(), 2) << "opened again";
}

TEST_F(Connecting, RequiresDaysInTheFormThatItReads) {
  Run("DO $$ BEGIN EXECUTE 'ALTER DATABASE ' || current_database() || ' SET DateStyle = German'; END $$");
  EXPECT_EQ(Rows(Another(";Application Name=other"), "SHOW DateStyle"), Lines{"'ISO, MDY'"});
  const Proxy proxy(Proxy::Manner::kRefusesOptions, ServerPort());
  EXPECT_EQ(
      MessageOf([&] { Over(proxy); }),
      "The database cannot be opened: the server writes days in another form than ISO; set DateStyle to "
      "ISO for the database (SQLSTATE 08001)");
}

TEST_F(Connecting, DoesWithoutALookForTheClientWhereTheServerKnowsNone) {
  const Proxy proxy(Proxy::Manner::kKnowsNoCheck, ServerPort());
  const auto connection = Over(proxy, ";Query Timeout=7");
  EXPECT_EQ(proxy.Refused(), 1);
  EXPECT_EQ(Rows(connection, "SHOW statement_timeout"), Lines{"'7s'"});
  EXPECT_EQ(Rows(connection, "SHOW client_connection_check_interval"), Lines{"'0'"});
  for (int i = 0; i < 3; ++i) Rest(*Read(connection, "SELECT i FROM generate_series(1, 3) i", 2));
  EXPECT_EQ(Rows(connection, "SELECT COUNT(*) FROM pg_prepared_statements WHERE statement LIKE '%(1, 3)%'"),
            Lines{"1"});
}

TEST_F(Connecting, GoesOnToTheNextHostWhenOneStallsBehindItsStart) {
  const Proxy stalling(Proxy::Manner::kStallsBehindStart, ServerPort());
  const auto connection = Another(";Connect Timeout=4;SSL Mode=disable;Hosts=127.0.0.1:" + stalling.Port() +
                                  ",127.0.0.1:" + ServerPort());
  EXPECT_EQ(Rows(connection, "SELECT 7"), Lines{"7"});
}

TEST_F(Connecting, SetsTheFormsThatItReadsAndTheLimitOfTheServer) {
  const auto connection = Another(";Query Timeout=7;Application Name=test page");
  EXPECT_EQ(Rest(*Read(connection,
                       "SELECT current_setting('statement_timeout'), current_setting('DateStyle'), "
                       "current_setting('client_encoding'), current_setting('application_name'), "
                       "current_setting('client_connection_check_interval')",
                       1)),
            Lines{"'7s' 'ISO, MDY' 'UTF8' 'test page' '500ms'"});
}

}  // namespace

}  // namespace dralo::tests
