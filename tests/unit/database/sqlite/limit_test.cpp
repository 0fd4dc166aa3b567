#include "unit/database/sqlite/sqlite_file.h"
#include "unit/database/sqlite/trace.h"

namespace dralo::tests {

namespace {

/// A table of 30 records.
class SqliteLimit : public SqliteFile {
 protected:
  SqliteLimit() {
    Run("CREATE TABLE t (id INTEGER PRIMARY KEY, n INTEGER, s TEXT)");
    Run("WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 30) "
        "INSERT INTO t SELECT i, i % 4, 's' || i FROM c");
    trace_.Clear();
  }

  std::string LastRun() const { return trace_.Runs().empty() ? "" : trace_.Runs().back().text; }

  Lines Page(const std::string& sql, std::int64_t max_records, std::int64_t passed) {
    return tests::Page(Database(), sql, max_records, passed);
  }

  /// Whether every page of a query has the records that stepping through all of them gives it.
  ::testing::AssertionResult PagesAreRight(const std::string& sql) {
    const Lines all = Rows(sql);
    for (const std::int64_t passed : {0, 1, 4, 29, 30, 31}) {
      for (const std::int64_t limit : {0, 1, 5, 30, 100}) {
        const auto first = std::min<std::size_t>(all.size(), static_cast<std::size_t>(passed));
        const auto last = limit == 0 ? all.size() : std::min(all.size(), static_cast<std::size_t>(limit));
        const Lines expected = first < last ? Lines(all.begin() + static_cast<std::ptrdiff_t>(first),
                                                    all.begin() + static_cast<std::ptrdiff_t>(last))
                                            : Lines{};
        if (Page(sql, limit, passed) != expected) {
          return ::testing::AssertionFailure() << sql << " with the limit " << limit << " behind " << passed;
        }
      }
    }
    return ::testing::AssertionSuccess();
  }

  Trace trace_;
};

TEST_F(SqliteLimit, IsLeftToSqlite) {
  EXPECT_EQ(Page("SELECT id FROM t ORDER BY n, id", 23, 20), (Lines{"22", "26", "30"}));
  EXPECT_EQ(LastRun(), "SELECT id FROM t ORDER BY n, id\nLIMIT 3 OFFSET 20");

  EXPECT_EQ(Page("SELECT id FROM t", 2, 0), (Lines{"1", "2"}));
  EXPECT_EQ(LastRun(), "SELECT id FROM t\nLIMIT 2 OFFSET 0");

  EXPECT_EQ(Page("SELECT id FROM t", 0, 29), Lines{"30"});
  EXPECT_EQ(LastRun(), "SELECT id FROM t\nLIMIT -1 OFFSET 29");
}

TEST_F(SqliteLimit, IsNotGivenWhereNoneIsAsked) {
  Page("SELECT id FROM t", 0, 0);
  EXPECT_EQ(LastRun(), "SELECT id FROM t");
}

TEST_F(SqliteLimit, CostsFarLessThanSteppingThroughASortedResult) {
  Run("WITH RECURSIVE c(i) AS (SELECT 31 UNION ALL SELECT i + 1 FROM c WHERE i < 20000) "
      "INSERT INTO t SELECT i, i * 7919 % 10007, hex(i) FROM c");
  const std::string sql = "SELECT id, n, s, s || n AS x FROM t ORDER BY n DESC";
  const Lines all = Rows(sql);
  const int steps_of_all = trace_.Runs().back().steps;

  EXPECT_EQ(Page(sql, 21, 0), Lines(all.begin(), all.begin() + 21));
  EXPECT_LT(trace_.Runs().back().steps, steps_of_all / 2);
}

TEST_F(SqliteLimit, IsNotGivenWhereSortingTheWholeResultCostsLess) {
  Page("SELECT id FROM t ORDER BY s", 8000, 7990);
  EXPECT_EQ(LastRun(), "SELECT id FROM t ORDER BY s\nLIMIT 10 OFFSET 7990");
  Page("SELECT id FROM t ORDER BY s", 8001, 7990);
  EXPECT_EQ(LastRun(), "SELECT id FROM t ORDER BY s");
  EXPECT_EQ(Page("SELECT id FROM t ORDER BY s", 0, 28), (Lines{"8", "9"}));
  EXPECT_EQ(LastRun(), "SELECT id FROM t ORDER BY s");

  Run("CREATE INDEX sorted ON t (s)");
  EXPECT_EQ(Page("SELECT id FROM t ORDER BY s", 0, 28), (Lines{"8", "9"}));
  EXPECT_EQ(LastRun(), "SELECT id FROM t ORDER BY s\nLIMIT -1 OFFSET 28");
}

TEST_F(SqliteLimit, ReadsNoRowOfAPageBehindTheLimit) {
  EXPECT_EQ(Page("SELECT id FROM t", 5, 5), Lines{});
  EXPECT_TRUE(trace_.Runs().empty());
}

TEST_F(SqliteLimit, PreparesOneStatementForAllPages) {
  for (int page = 0; page < 5; ++page) Page("SELECT id FROM t ORDER BY s", page * 5 + 5, page * 5);
  EXPECT_EQ(trace_.Runs().back().runs, 5);
}

TEST_F(SqliteLimit, LeavesTheFirstRowToAnExpressionWhoseTypeItDecides) {
  const auto recordset =
      Read(Database(), "SELECT id, CASE WHEN id = 1 THEN 1 ELSE 'text' END AS e FROM t", 10);
  recordset->Move(8);

  EXPECT_EQ(FieldOf(*recordset, "e").Type(), platform::TypeCode::kBigInt);
  EXPECT_EQ(Rest(*recordset), (Lines{"9 'text'", "10 'text'"}));
  recordset->Close();
  EXPECT_EQ(LastRun(), "SELECT id, CASE WHEN id = 1 THEN 1 ELSE 'text' END AS e FROM t\nLIMIT 10 OFFSET 0");
}

TEST_F(SqliteLimit, GivesTheSamePagesAsStepping) {
  for (const char* sql : {
           "SELECT id, s FROM t",
           "SELECT id FROM t ORDER BY n",
           "SELECT id FROM t ORDER BY n DESC, s",
           "SELECT id FROM t;",
           "SELECT id FROM t ; ; ",
           "SELECT id FROM t; -- the end",
           "SELECT id FROM t -- comment",
           "SELECT id FROM t /* comment */",
           "SELECT id FROM t /* open comment",
           "SELECT id FROM t -- ;",
           "SELECT id, ';' FROM t",
           "SELECT id FROM t LIMIT 7",
           "SELECT id FROM t LIMIT 7 OFFSET 2",
           "SELECT id FROM t LIMIT 7 -- ",
           "SELECT id FROM (SELECT id FROM t ORDER BY s LIMIT 9)",
           "SELECT id FROM t WHERE n = 1 UNION SELECT n FROM t ORDER BY 1 DESC",
           "SELECT id FROM t WHERE n = 1 UNION ALL SELECT n FROM t",
           "SELECT id FROM t EXCEPT SELECT n FROM t",
           "WITH w AS (SELECT id FROM t WHERE n > 1) SELECT * FROM w",
           "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c LIMIT 12) SELECT i FROM c",
           "VALUES (1), (2), (3)",
           "SELECT n, COUNT(*) FROM t GROUP BY n HAVING COUNT(*) > 1",
           "SELECT DISTINCT n FROM t",
           "SELECT id, row_number() OVER (ORDER BY s) FROM t",
           "SELECT a.id FROM t a JOIN t b ON a.id = b.n",
           "PRAGMA table_info(t)",
           "EXPLAIN QUERY PLAN SELECT id FROM t ORDER BY n",
           "EXPLAIN SELECT id FROM t",
           "SELECT 1",
       }) {
    EXPECT_TRUE(PagesAreRight(sql));
  }
}

TEST_F(SqliteLimit, HasTheSameOrderOfEqualKeysWithAndWithoutALimit) {
  Run("CREATE TABLE big (id INTEGER PRIMARY KEY, k INTEGER, filler TEXT)");
  Run("WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 40000) "
      "INSERT INTO big SELECT i, i * 7919 % 5, hex(zeroblob(60)) FROM c");
  const std::string sql = "SELECT id, k, filler FROM big ORDER BY k DESC";
  const Lines all = Rows(sql);
  Lines pages;
  for (std::int64_t passed = 0; passed < 40000; passed += 8000) {
    const Lines page = Page(sql, passed + 8000, passed);
    pages.insert(pages.end(), page.begin(), page.end());
  }
  EXPECT_TRUE(pages == all);
  EXPECT_EQ(Page(sql, 0, 39990), Lines(all.end() - 10, all.end()));
}

TEST_F(SqliteLimit, NeverChangesWhatAStatementDoes) {
  const auto limited = [&](const char* sql) { return Read(Database(), sql, 2); };
  limited("DELETE FROM t WHERE id > 25");
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM t"), Lines{"25"});
  limited("UPDATE t SET n = 9 WHERE id > 20");
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM t WHERE n = 9"), Lines{"5"});
  limited("INSERT INTO t (n) SELECT n FROM t WHERE n = 9");
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM t WHERE n = 9"), Lines{"10"});

  EXPECT_EQ(Rest(*limited("DELETE FROM t WHERE n = 9 RETURNING n")), (Lines{"9", "9"}));
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM t"), Lines{"20"});
  EXPECT_EQ(Rest(*limited("UPDATE t SET n = 8 WHERE id > 10 RETURNING n")), (Lines{"8", "8"}));
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM t WHERE n = 8"), Lines{"10"});
  EXPECT_EQ(Rest(*limited("INSERT INTO t (n) VALUES (7), (7), (7) RETURNING n")), (Lines{"7", "7"}));
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM t WHERE n = 7"), Lines{"3"});
  limited("CREATE TABLE copy AS SELECT * FROM t");
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM copy"), Lines{"23"});
}

TEST_F(SqliteLimit, KeepsParametersInTheirPlace) {
  platform::Command command;
  command.active_connection = Database();
  command.command_text = "SELECT id FROM t WHERE n = ? AND id > ? /* open";
  command.parameters = {std::int64_t{1}, std::int64_t{4}};
  for (const char* text :
       {"SELECT id FROM t WHERE n = ? AND id > ?", "SELECT id FROM t WHERE n = ?1 AND id > ?2;",
        "SELECT id FROM t WHERE n = :n AND id > :i /* open",
        "SELECT id FROM t WHERE n = ? AND id > ? LIMIT 9"}) {
    command.command_text = text;
    const auto recordset = database::MakeRecordset();
    recordset->SetMaxRecords(4);
    recordset->Open(command);
    recordset->Move(2);
    EXPECT_EQ(Rest(*recordset), (Lines{"13", "17"})) << text;
  }
}

TEST_F(SqliteLimit, DoesNotTakeTheParametersOfTheTextForItsOwn) {
  EXPECT_EQ(MessageOf([&] { Read(Database(), "SELECT id FROM t WHERE n = ? AND id > ? /* open", 5); }),
            "The statement expects 2 parameter values, but 0 were given");
  EXPECT_EQ(MessageOf([&] { Read(Database(), "SELECT id FROM t WHERE n = ?", 5); }),
            "The statement expects 1 parameter value, but 0 were given");
}

TEST_F(SqliteLimit, NeverShowsInAFailure) {
  for (const char* sql :
       {"SELECT id FROM nowhere", "SELECT id FROM t ORDER BY a ORDER BY b", "SELECT id FROM",
        "SELECT 'open FROM t", "SELECT (id FROM t", "SELECT id FROM t LIMIT", "nonsense !", "SELECT ?"}) {
    const auto plain = ErrorOf([&] { Read(Database(), sql); });
    const auto limited = ErrorOf([&] { Read(Database(), sql, 5); });
    EXPECT_EQ(limited.Description(), plain.Description()) << sql;
    EXPECT_EQ(limited.Number(), plain.Number()) << sql;
    EXPECT_EQ(limited.Source(), sql);
  }
}

}  // namespace

}  // namespace dralo::tests
