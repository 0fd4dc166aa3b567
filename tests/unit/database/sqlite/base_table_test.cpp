#include "unit/database/sqlite/sqlite_editing.h"

namespace dralo::tests {

namespace {

class SqliteBaseTable : public SqliteEditing {};

TEST_F(SqliteBaseTable, QuotesNames) {
  Run(R"(CREATE TABLE "my ""odd"" table" ("the id" INTEGER PRIMARY KEY, "select" TEXT, "a]b'c" TEXT))");
  const auto recordset = Edit(Database(), R"(SELECT * FROM "my ""odd"" table")");
  recordset->AddNew();
  Save(recordset, "select", "one");
  Save(recordset, "a]b'c", "two");
  EXPECT_EQ(Rows(R"(SELECT * FROM "my ""odd"" table")"), Lines{"1 'one' 'two'"});
}

TEST_F(SqliteBaseTable, FindsTheRecordByEveryKindOfKey) {
  Run("CREATE TABLE by_rowid (a TEXT)");
  Run("CREATE TABLE by_text (k TEXT PRIMARY KEY, a TEXT)");
  Run("CREATE TABLE by_two (k INTEGER, l TEXT, a TEXT, PRIMARY KEY (l, k)) WITHOUT ROWID");
  Run("CREATE TABLE by_unique (k TEXT NOT NULL UNIQUE, n TEXT UNIQUE, a TEXT)");
  Run("CREATE TABLE by_alias (k INTEGER PRIMARY KEY, a TEXT)");
  Run("INSERT INTO by_rowid VALUES ('old'), ('old')");
  Run("INSERT INTO by_text VALUES ('x', 'old'), ('y', 'old')");
  Run("INSERT INTO by_two VALUES (1, 'x', 'old'), (1, 'y', 'old')");
  Run("INSERT INTO by_unique VALUES ('x', NULL, 'old'), ('y', NULL, 'old')");
  Run("INSERT INTO by_alias VALUES (1, 'old'), (2, 'old')");

  EXPECT_EQ(Change("SELECT rowid, a FROM by_rowid", "a", "new"), "");
  EXPECT_EQ(Change("SELECT a, k FROM by_text", "a", "new"), "");
  EXPECT_EQ(Change("SELECT * FROM by_two", "a", "new"), "");
  EXPECT_EQ(Change("SELECT k, a FROM by_unique", "a", "new"), "");
  EXPECT_EQ(Change("SELECT rowid AS r, a FROM by_alias", "a", "new"), "");
  for (const char* table : {"by_rowid", "by_text", "by_two", "by_unique", "by_alias"}) {
    EXPECT_EQ(Rows(std::string("SELECT a FROM ") + table + " ORDER BY a"), (Lines{"'new'", "'old'"}))
        << table;
  }
}

TEST_F(SqliteBaseTable, ComparesAllFieldsWithoutAWholeKey) {
  const std::string equal =
      "Several records are equal in all fields of the query, so none was changed. Add a field that tells "
      "them "
      "apart.";
  Run("CREATE TABLE by_rowid (a TEXT)");
  Run("CREATE TABLE by_two (k INTEGER, l TEXT, a TEXT, PRIMARY KEY (l, k))");
  Run("CREATE TABLE by_unique (n TEXT UNIQUE, m TEXT NOT NULL, a TEXT)");
  Run("CREATE UNIQUE INDEX partial ON by_unique (m) WHERE m > 'n'");
  Run("CREATE UNIQUE INDEX computed ON by_unique (lower(n))");
  Run("INSERT INTO by_rowid VALUES ('old'), ('old')");
  Run("INSERT INTO by_two VALUES (1, 'x', 'old'), (1, 'y', 'old')");
  Run("INSERT INTO by_unique VALUES (NULL, 'm', 'old'), (NULL, 'm', 'old')");
  for (const char* query : {"SELECT a FROM by_rowid", "SELECT k, a FROM by_two", "SELECT * FROM by_unique"}) {
    EXPECT_EQ(Change(query, "a", "new"), equal) << query;
  }
  Run("UPDATE by_unique SET n = 'x' WHERE rowid = 1");
  EXPECT_EQ(Change("SELECT * FROM by_unique", "a", "new"), "");
  EXPECT_EQ(Rows("SELECT n, a FROM by_unique ORDER BY rowid"), (Lines{"'x' 'new'", "null 'old'"}));
}

TEST_F(SqliteBaseTable, ChangesOnlyRecordsOfOneTable) {
  const std::string several = "The records cannot be changed: they are not records of one table";
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT, parent INTEGER)");
  Run("CREATE TABLE u (id INTEGER PRIMARY KEY, a TEXT)");
  Run("INSERT INTO t VALUES (1, 'one', 2), (2, 'two', NULL)");
  Run("INSERT INTO u VALUES (1, 'one')");
  Run("CREATE VIEW simple AS SELECT id, a FROM t WHERE id < 9");
  Run("CREATE VIEW both AS SELECT id, a FROM t UNION SELECT id, a FROM u");

  EXPECT_EQ(Change("SELECT t.id, t.a, u.a AS b FROM t JOIN u ON u.id = t.id", "a", "x"), several);
  EXPECT_EQ(Change("SELECT x.id, y.a FROM t x JOIN t y ON y.id = x.parent", "a", "x"), several);
  EXPECT_EQ(Change("SELECT id, a FROM t UNION SELECT id, a FROM u", "a", "x"), several);
  EXPECT_EQ(Change("SELECT id, a FROM t UNION ALL SELECT id, a FROM u", "a", "x"), several);
  EXPECT_EQ(Change("SELECT * FROM both", "a", "x"), several);
  EXPECT_EQ(Rows("SELECT a FROM t UNION ALL SELECT a FROM u"), (Lines{"'one'", "'two'", "'one'"}));

  EXPECT_EQ(Change("SELECT * FROM simple", "a", "1"), "");
  EXPECT_EQ(Change("SELECT * FROM t AS x WHERE x.id IN (SELECT id FROM u)", "a", "2"), "");
  EXPECT_EQ(Change("WITH w AS (SELECT * FROM t) SELECT * FROM w ORDER BY id", "a", "3"), "");
  EXPECT_EQ(Change("SELECT * FROM t WHERE a = '3' OR id = 1 ORDER BY a", "a", "4"), "");
  EXPECT_EQ(Rows("SELECT a FROM t WHERE id = 1"), Lines{"'4'"});
}

TEST_F(SqliteBaseTable, TakesASubqueryForAComputedField) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT, parent INTEGER)");
  Run("CREATE TABLE u (id INTEGER PRIMARY KEY, city TEXT)");
  Run("INSERT INTO t VALUES (1, 'one', 2), (2, 'two', NULL)");
  Run("INSERT INTO u VALUES (1, 'Oslo')");
  const std::string sql =
      "SELECT id, a, (SELECT city FROM u WHERE u.id = t.id) AS city, "
      "(SELECT p.a FROM t p WHERE p.id = t.parent) AS parent_name FROM t ORDER BY id";

  EXPECT_EQ(Change(sql, "a", "new"), "");
  EXPECT_EQ(Change(sql, "city", "Rome"), "The field city is computed and cannot be set");
  EXPECT_EQ(Change(sql, "parent_name", "x"), "The field parent_name is computed and cannot be set");
  EXPECT_EQ(Rows("SELECT a, city FROM t JOIN u USING (id)"), Lines{"'new' 'Oslo'"});
  EXPECT_EQ(Rows("SELECT a FROM t WHERE id = 2"), Lines{"'two'"});
}

TEST_F(SqliteBaseTable, WritesToTheRightDatabase) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT)");
  Run("ATTACH ':memory:' AS other");
  Run("CREATE TABLE other.t (id INTEGER PRIMARY KEY, a TEXT)");
  Run("INSERT INTO t VALUES (1, 'here')");
  Run("INSERT INTO other.t VALUES (1, 'there')");
  EXPECT_EQ(Change("SELECT * FROM other.t", "a", "changed"), "");
  EXPECT_EQ(Rows("SELECT a FROM main.t UNION ALL SELECT a FROM other.t"), (Lines{"'here'", "'changed'"}));
}

}  // namespace

}  // namespace dralo::tests
