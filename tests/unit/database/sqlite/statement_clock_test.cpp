#include "platform/statement_clock.h"

#include "unit/database/sqlite/sqlite_file.h"

namespace dralo::tests {
namespace {

using platform::StatementClock;
using std::chrono::seconds;

/// A statement that no machine comes to the end of.
constexpr char kWithoutEnd[] =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n WHERE i < 0";

class SqliteStatementClock : public SqliteFile {};

TEST_F(SqliteStatementClock, EndsAStatementWhenTheTimeOfThePageIsOver) {
  const auto connection = Connect(ConnectionString("Query Timeout=0"));
  {
    const StatementClock clock(seconds(0));
    const auto error = ErrorOf([&] { Rest(*Read(connection, kWithoutEnd)); });
    EXPECT_STREQ(error.what(),
                 "The statement was ended: all those of the page have taken longer than the Query Timeout");
  }
  EXPECT_EQ(tests::Rows(connection, "SELECT 1"), Lines{"1"}) << "the connection can be used on";
}

TEST(StatementClock, IsThatOfTheShorterTime) {
  EXPECT_FALSE(StatementClock::IsOver());
  const StatementClock page(seconds(0));
  EXPECT_TRUE(StatementClock::IsOver());
  {
    const StatementClock longer(seconds(100));
    EXPECT_TRUE(StatementClock::IsOver());
  }
  EXPECT_TRUE(StatementClock::IsOver());
}

TEST(StatementClock, EndsWithItsObject) {
  {
    const StatementClock page(seconds(100));
    {
      const StatementClock shorter(seconds(0));
      EXPECT_TRUE(StatementClock::IsOver());
    }
    EXPECT_FALSE(StatementClock::IsOver());
  }
  const StatementClock page(seconds(100));
  EXPECT_FALSE(StatementClock::IsOver());
}

}  // namespace
}  // namespace dralo::tests
