#include <unistd.h>

#include "data/databases.h"
#include "database/session_pool.h"
#include "support/child_process.h"

namespace dralo::tests {

namespace {

using database::SessionPool;

class Pooling : public DatabaseContract {
 protected:
  static std::size_t InUse() { return SessionPool::Instance().Count().in_use; }
  static std::size_t Idle() { return SessionPool::Instance().Count().idle; }

  /// Ends all sessions of the test's database but that of this connection.
  void EndOtherSessions(const ConnectionPtr& connection) {
    if (GetParam().list_endings.empty()) return;
    for (const std::string& ending : Rows(connection, GetParam().list_endings)) {
      connection->Execute(ending.substr(1, ending.size() - 2));
    }
  }
};
INSTANTIATE_TEST_SUITE_P(Databases, Pooling, kDatabases, DatabaseName);

TEST_P(Pooling, KeepsASessionForTheNextUser) {
  SessionPool::Instance().CloseIdle();
  connection_.reset();
  EXPECT_EQ(InUse(), 0u);
  EXPECT_EQ(Idle(), 1u);

  connection_ = Connect(ConnectionString());
  EXPECT_EQ(InUse(), 1u);
  EXPECT_EQ(Idle(), 0u);
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods"), Lines{"5"});
}

TEST_P(Pooling, ShowsTheNextUserNoTraces) {
  const Lines clean = Rows(Connect(ConnectionString()), GetParam().shows_traces);
  for (const auto& [preparation, trace] : GetParam().traces) {
    SessionPool::Instance().CloseIdle();
    auto connection = Connect(ConnectionString());
    if (!preparation.empty()) connection_->Execute(preparation);
    if (const auto result = connection->Execute(trace); result->IsOpen()) Rest(*result);
    EXPECT_NE(Rows(connection, GetParam().shows_traces), clean) << trace;
    connection.reset();

    EXPECT_EQ(Rows(Connect(ConnectionString()), GetParam().shows_traces), clean) << trace;
  }
}

TEST_P(Pooling, UndoesTheTransactionOfTheLastUserAndEndsItsStatements) {
  const auto reading = Read(connection_, "SELECT ID FROM Goods");
  EXPECT_FALSE(reading->Eof());
  connection_->Execute("BEGIN");
  connection_->Execute("UPDATE Goods SET Stock = 0");
  connection_->Close();

  const auto other = Connect(ConnectionString());
  other->Execute("UPDATE Goods SET Stock = Stock + 1 WHERE ID = 1");
  EXPECT_EQ(Rows(other, "SELECT Stock FROM Goods WHERE ID = 1"), Lines{"4"});
}

TEST_P(Pooling, ReplacesSessionsThatTheServerHasEnded) {
  auto others = {Connect(ConnectionString()), Connect(ConnectionString()), Connect(ConnectionString())};
  for (const auto& other : others) other->Close();
  EndOtherSessions(connection_);

  for (const auto& other : others) {
    other->Open(ConnectionString());
    EXPECT_EQ(Rows(other, "SELECT COUNT(*) FROM Goods"), Lines{"5"});
  }
}

TEST_P(Pooling, DropsASessionThatEndedInUse) {
  const auto victim = Connect(ConnectionString());
  const auto reading = Read(victim, "SELECT ID FROM Goods");
  EndOtherSessions(connection_);
  if (!GetParam().list_endings.empty()) {
    EXPECT_THROW(victim->Execute("UPDATE Goods SET Stock = 1"), platform::Error);
  }
  victim->Close();

  victim->Open(ConnectionString());
  EXPECT_EQ(Rows(victim, "SELECT COUNT(*) FROM Goods"), Lines{"5"});
}

TEST_P(Pooling, LeavesTheSessionsOfTheParentToTheParent) {
  const auto kept = Connect(ConnectionString());
  kept->Close();
  const auto reading = Read(connection_, "SELECT ID FROM Goods ORDER BY ID");
  EXPECT_EQ(Line(*reading), "1");

  EXPECT_TRUE(HoldsInChild([&] {
    const Lines count = Rows(Connect(ConnectionString()), "SELECT COUNT(*) FROM Goods");
    bool is_refused = false;
    try {
      connection_->Execute("UPDATE Goods SET Stock = 8 WHERE ID = 1");
    } catch (const platform::Error&) {
      is_refused = true;
    }
    connection_.reset();
    return is_refused && count == Lines{"5"};
  }));

  EXPECT_EQ(Rest(*reading), (Lines{"1", "2", "3", "4", "5"}));
  kept->Open(ConnectionString());
  EXPECT_EQ(Rows(kept, "SELECT Stock FROM Goods WHERE ID = 1"), Lines{"3"});
}

TEST_P(Pooling, SaysWhyThereIsNoConnectionButNotThePassword) {
  for (const auto& [setting, reason] : GetParam().wrong_settings) {
    const auto error = ErrorOf([&] { Connect(ConnectionString() + setting); });
    EXPECT_NE(error.Description().find(reason), std::string::npos) << error.Description();
    EXPECT_EQ(error.Description().find(kServerPassword), std::string::npos) << error.Description();
    EXPECT_EQ(error.Source().find(kServerPassword), std::string::npos) << error.Source();
  }
}

}  // namespace

}  // namespace dralo::tests
