#include "unit/database/sqlite/sqlite_editing.h"

namespace dralo::tests {

namespace {

class SqliteFailedEditing : public SqliteEditing {};

TEST_F(SqliteFailedEditing, ChangesNothingWhenATriggerObjects) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT)");
  Run("CREATE TABLE log (a TEXT)");
  Run("INSERT INTO t VALUES (1, 'old')");
  Run("CREATE TRIGGER guard BEFORE UPDATE ON t BEGIN INSERT INTO log VALUES (new.a); "
      "SELECT RAISE(ABORT, 'not on Sundays') WHERE new.a = 'abort'; "
      "SELECT RAISE(IGNORE) WHERE new.a = 'ignore'; SELECT RAISE(ROLLBACK, 'undone') WHERE new.a = "
      "'rollback'; END");
  Run("CREATE TRIGGER gate BEFORE INSERT ON t WHEN new.a = 'ignore' BEGIN INSERT INTO log VALUES ('x'); "
      "SELECT RAISE(IGNORE); END");

  const auto recordset = Edit(Database(), "SELECT * FROM t");
  Set(recordset, "a", "abort");
  const auto error = ErrorOf([&] { recordset->Update(); });
  EXPECT_STREQ(error.what(), "not on Sundays");
  EXPECT_EQ(ValueOf(*recordset, "a"), "'abort'");
  recordset->CancelUpdate();
  EXPECT_NE(Change("SELECT * FROM t", "a", "ignore"), "");
  EXPECT_EQ(Change("SELECT * FROM t", "a", "rollback"), "undone");

  recordset->AddNew();
  Set(recordset, "a", "ignore");
  EXPECT_EQ(MessageOf([&] { recordset->Update(); }),
            "The row was not added; a rule of the database prevented it");
  EXPECT_EQ(Rows("SELECT a FROM t UNION ALL SELECT a FROM log"), Lines{"'old'"});
}

TEST_F(SqliteFailedEditing, ChangesNothingWhenACheckAtTheEndFails) {
  Run("PRAGMA foreign_keys = ON");
  Run("CREATE TABLE p (id INTEGER PRIMARY KEY)");
  Run("CREATE TABLE c (id INTEGER PRIMARY KEY, p INTEGER REFERENCES p DEFERRABLE INITIALLY DEFERRED)");
  Run("INSERT INTO c VALUES (1, NULL)");
  const auto recordset = Edit(Database(), "SELECT * FROM c");
  Set(recordset, "p", "9");
  EXPECT_EQ(MessageOf([&] { recordset->Update(); }), "FOREIGN KEY constraint failed");
  EXPECT_EQ(ValueOf(*recordset, "p"), "9");
  EXPECT_EQ(Rows("SELECT p FROM c"), Lines{"null"});

  Run("INSERT INTO p VALUES (9)");
  recordset->Update();
  EXPECT_EQ(Rows("SELECT p FROM c"), Lines{"9"});
}

TEST_F(SqliteFailedEditing, ChangesNothingWhenTheDatabaseIsLocked) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT)");
  Run("INSERT INTO t VALUES (1, 'old')");
  const auto impatient = Connect(ConnectionString("Busy Timeout=1"));
  const auto recordset = Edit(impatient, "SELECT * FROM t");
  Set(recordset, "a", "new");
  Run("BEGIN IMMEDIATE");

  const auto error = ErrorOf([&] { recordset->Update(); });
  EXPECT_STREQ(error.what(), "database is locked");
  EXPECT_EQ(ValueOf(*recordset, "a"), "'new'");
  Run("COMMIT");
  recordset->Update();
  EXPECT_EQ(Rows("SELECT a FROM t"), Lines{"'new'"});
}

TEST_F(SqliteFailedEditing, WritesNothingToAReadOnlyFile) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT)");
  Run("INSERT INTO t VALUES (1, 'old')");
  const auto recordset = Edit(Connect("Provider=SQLite;Mode=Read;Data Source=" + Path()), "SELECT * FROM t");
  Set(recordset, "a", "new");
  EXPECT_EQ(MessageOf([&] { recordset->Update(); }), "attempt to write a readonly database");
}

}  // namespace

}  // namespace dralo::tests
