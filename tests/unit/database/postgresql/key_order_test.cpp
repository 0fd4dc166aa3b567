#include <algorithm>
#include <set>
#include <utility>

#include "unit/database/postgresql/native_test.h"

namespace dralo::tests {

namespace {

/// Queries with equal sort keys. The rows of the table lie in another order than its keys.
class KeyOrder : public PostgreSqlProvider {
 protected:
  static constexpr int kRows = 300;

  void SetUp() override {
    Run("CREATE TABLE goods (id integer PRIMARY KEY, name varchar(20), stock integer)");
    Run("INSERT INTO goods SELECT 301 - i, 'good ' || i, i % 3 FROM generate_series(1, 300) i");
  }

  /// All rows as pages of 70 show them, each page asked for by a connection of its own.
  Lines Paged(std::string_view sql) const {
    Lines lines;
    for (int passed = 0; passed < kRows; passed += 70) {
      const Lines page = Page(Another(), sql, passed + 70, passed);
      lines.insert(lines.end(), page.begin(), page.end());
    }
    return lines;
  }

  /// What the server keeps prepared for the query, which comes until it is.
  std::string Sent(std::string_view sql) const {
    for (int i = 0; i < 3; ++i) Ask(sql, 5);
    const Lines found = Ask(
        "SELECT statement FROM pg_prepared_statements WHERE (statement LIKE '%FROM goods%' OR statement LIKE "
        "'%FROM kinds%') AND statement NOT LIKE '%pg_prepared%' ORDER BY prepare_time DESC");
    return found.empty() ? "" : found.front();
  }

  bool IsSentWithKeys(std::string_view sql) const { return Sent(sql).find(".\"") != std::string::npos; }
};

TEST_F(KeyOrder, IsThatOfTheTablesKeyWhereSortKeysAreEqual) {
  const std::string sql = "SELECT id FROM goods ORDER BY stock";
  const Lines sorted = Ask("SELECT id FROM goods ORDER BY stock, id LIMIT 1000");
  ASSERT_EQ(sorted.size(), 300u);
  EXPECT_EQ(Ask(sql), sorted);
  EXPECT_EQ(Paged(sql), sorted);
  for (int i = 0; i < 7; ++i) {
    EXPECT_EQ(Ask(sql, 1), Lines{sorted.front()});
    EXPECT_EQ(Page(connection_, sql, 205, 200), Lines(sorted.begin() + 200, sorted.begin() + 205));
  }
}

TEST_F(KeyOrder, HasTheDirectionOfTheLastField) {
  EXPECT_EQ(Paged("SELECT id FROM goods ORDER BY stock DESC"),
            Ask("SELECT id FROM goods ORDER BY stock DESC, id DESC LIMIT 1000"));
}

TEST_F(KeyOrder, IsThatOfTheKeysOfAllTables) {
  Run("CREATE SCHEMA \"Other one\"");
  Run("CREATE TABLE \"Other one\".kinds (a integer, \"B\" integer, PRIMARY KEY (\"B\", a))");
  Run("INSERT INTO \"Other one\".kinds VALUES (2, 1), (1, 1), (1, 0)");
  const std::string sql =
      "SELECT a, \"B\", id FROM goods AS g LEFT JOIN \"Other one\".kinds ON a < id WHERE id > 298 ORDER BY "
      "stock > 5";
  EXPECT_EQ(Paged(sql), (Lines{"1 0 299", "1 1 299", "2 1 299", "1 0 300", "1 1 300", "2 1 300"}));
}

TEST_F(KeyOrder, LetsTheServerSortOnlyTheRowsOfThePage) {
  Sent("SELECT * FROM goods ORDER BY stock");
  const std::string quoted =
      Ask("SELECT name FROM pg_prepared_statements WHERE statement LIKE '%ORDER BY stock%'").front();
  const std::string name = quoted.substr(1, quoted.size() - 2);
  const Lines plan = Ask("EXPLAIN (ANALYZE, COSTS OFF, TIMING OFF, SUMMARY OFF) EXECUTE " + name + "(5, 0)");
  const auto is_short = [](const std::string& line) { return line.find("top-N") != line.npos; };
  EXPECT_TRUE(std::ranges::any_of(plan, is_short));
}

TEST_F(KeyOrder, IsAsBeforeWhereTheRowsAreNotThoseOfTablesWithKeys) {
  Run("CREATE VIEW shown AS SELECT * FROM goods");
  Run("CREATE TABLE loose AS SELECT * FROM goods");
  Run("CREATE TABLE parents (id integer PRIMARY KEY, stock integer)");
  Run("CREATE TABLE children () INHERITS (parents)");
  Run("INSERT INTO children SELECT i / 2, i % 3 FROM generate_series(1, 300) i");
  EXPECT_TRUE(IsSentWithKeys("SELECT id FROM goods ORDER BY stock"));
  for (const std::string sql :
       {"SELECT DISTINCT id, stock % 2 FROM goods ORDER BY 2",
        "SELECT max(id) FROM goods GROUP BY stock ORDER BY 1",
        "SELECT id, row_number() OVER (ORDER BY stock) FROM goods ORDER BY stock", "SELECT id FROM goods",
        "SELECT b FROM goods g (b, id) ORDER BY stock",
        "SELECT id FROM goods ORDER BY stock FETCH FIRST 300 ROWS ONLY",
        "SELECT id FROM goods ORDER BY stock /* , */",
        "SELECT id FROM goods JOIN shown USING (id) ORDER BY goods.stock",
        "SELECT id, random() < 2 FROM goods ORDER BY stock", "SELECT COUNT(*) FROM goods ORDER BY 1",
        "SELECT id FROM goods, (SELECT 1) one ORDER BY stock", "(SELECT id FROM goods ORDER BY stock)"}) {
    Run("DEALLOCATE ALL");
    EXPECT_FALSE(IsSentWithKeys(sql)) << sql;
  }
  for (const std::string table : {"shown", "loose", "parents"}) {
    const std::string sql = "SELECT id FROM " + table + " ORDER BY stock";
    EXPECT_EQ(Paged(sql), Ask(sql));
  }
}

TEST_F(KeyOrder, IsNeverThatOfAKeyThatIsCheckedLater) {
  Run("CREATE TABLE kinds (id integer PRIMARY KEY DEFERRABLE, stock integer)");
  EXPECT_FALSE(IsSentWithKeys("SELECT stock FROM kinds ORDER BY stock"));
  Run("ALTER TABLE kinds ADD code integer NOT NULL UNIQUE");
  const std::string sent = Sent("SELECT id FROM kinds ORDER BY stock");
  EXPECT_NE(sent.find(".\"code\""), std::string::npos) << sent;
}

TEST_F(KeyOrder, IsThatOfTheKeyOfATableInPartitions) {
  Run("CREATE TABLE kinds (id integer PRIMARY KEY, stock integer) PARTITION BY RANGE (id)");
  Run("CREATE TABLE part PARTITION OF kinds FOR VALUES FROM (1) TO (100)");
  EXPECT_TRUE(IsSentWithKeys("SELECT id FROM kinds ORDER BY stock"));
}

TEST_F(KeyOrder, IsTriedInTransactionsWithoutHarm) {
  Run("BEGIN");
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM goods ORDER BY 1", 5), Lines{"300"});
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM goods ORDER BY 1", 1), Lines{"300"});
  EXPECT_THROW(Ask("SELECT id FROM nowhere.goods ORDER BY stock", 5), platform::Error);
  EXPECT_EQ(Ask("SELECT id FROM goods ORDER BY stock > 5", 2), (Lines{"1", "2"}));
  Run("COMMIT");
}

TEST_F(KeyOrder, IsNoLongerAskedForWhenTheKeyIsGone) {
  const std::string sql = "SELECT name FROM goods WHERE stock = 1 ORDER BY stock";
  EXPECT_TRUE(IsSentWithKeys(sql));
  Another()->Execute("ALTER TABLE goods DROP id");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Ask(sql, 200).size(), 100u);
  EXPECT_FALSE(IsSentWithKeys(sql));
}

TEST_F(KeyOrder, GivesWayToOneOrderOfAllPagesWhenTheKeyIsGone) {
  const std::string sql = "SELECT name FROM goods ORDER BY stock";
  for (int i = 0; i < 3; ++i) Ask(sql, 20);
  Another()->Execute("ALTER TABLE goods DROP id");
  for (int i = 0; i < 3; ++i) {
    std::set<std::string> seen;
    for (int passed = 0; passed < 300; passed += 20) {
      for (std::string& line : Page(connection_, sql, passed + 20, passed)) seen.insert(std::move(line));
    }
    EXPECT_EQ(seen.size(), 300u);
  }
}

TEST_F(KeyOrder, FollowsTheNamesOfTheSession) {
  Run("CREATE SCHEMA other");
  Run("CREATE TABLE other.goods (id integer, code integer PRIMARY KEY, stock integer)");
  Run("INSERT INTO other.goods VALUES (1, 2, 7), (2, 1, 7)");
  EXPECT_EQ(Ask("SELECT id FROM goods ORDER BY stock > 5", 1), Lines{"1"});
  Run("SET search_path = other");
  EXPECT_EQ(Ask("SELECT id FROM goods ORDER BY stock", 5), (Lines{"2", "1"}));
  connection_->Close();
  connection_->Open(database_.ConnectionString());
  EXPECT_EQ(Ask("SELECT id FROM goods ORDER BY stock >= 0", 2), (Lines{"1", "2"}));
}

}  // namespace

}  // namespace dralo::tests
