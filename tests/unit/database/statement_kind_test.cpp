#include "database/statement_kind.h"

#include <gtest/gtest.h>

namespace dralo::database {

namespace {

TEST(StatementKind, FindsQueriesBehindCommentsAndParentheses) {
  for (const char* text : {"select 1", " \n(SELECT 1)", "-- note\nSELECT 1", "/* note */ VALUES (1)",
                           "TABLE t", "WITH a AS (SELECT 1) SELECT * FROM a"}) {
    EXPECT_TRUE(KindOf(text).is_query) << text;
    EXPECT_TRUE(KindOf(text).is_select) << text;
  }
}

TEST(StatementKind, TellsStatementsThatOnlyLookLikeQueries) {
  EXPECT_FALSE(KindOf("WITH a AS (DELETE FROM t RETURNING *) SELECT * FROM a").is_query);
  EXPECT_FALSE(KindOf("SELECT * INTO b FROM a").is_select);
  EXPECT_FALSE(KindOf("SHOW TABLES").is_select);
  EXPECT_TRUE(KindOf("SHOW TABLES").is_query);
  EXPECT_FALSE(KindOf("UPDATE t SET a = 1").is_query);
  EXPECT_FALSE(KindOf("").is_query);
}

TEST(StatementKind, TellsWhatControlsATransaction) {
  for (const char* text : {"BEGIN", "start transaction", "COMMIT", "ROLLBACK TO a", "SAVEPOINT a",
                           "RELEASE a", "SET TRANSACTION READ ONLY", "PREPARE TRANSACTION 'a'"}) {
    EXPECT_TRUE(KindOf(text).controls_transaction) << text;
  }
  for (const char* text : {"SELECT 1", "UPDATE t SET a = 1", "CREATE TABLE t (a integer)"}) {
    EXPECT_FALSE(KindOf(text).controls_transaction) << text;
  }
}

TEST(StatementKind, TellsWhatMayChangeTheTables) {
  for (const char* text : {"CREATE TABLE t (a integer)", "ALTER TABLE t ADD b integer", "DROP TABLE t",
                           "CALL f()", "SELECT 1 AS a INTO t", "ROLLBACK", "ROLLBACK TO a"}) {
    EXPECT_TRUE(KindOf(text).defines) << text;
  }
  for (const char* text : {"SELECT 1", "UPDATE t SET a = 1", "BEGIN", "SAVEPOINT a"}) {
    EXPECT_FALSE(KindOf(text).defines) << text;
  }
}

TEST(StatementKind, FollowsTransactions) {
  EXPECT_TRUE(KindOf("begin").begins_transaction);
  EXPECT_TRUE(KindOf("START TRANSACTION").begins_transaction);
  EXPECT_TRUE(KindOf("COMMIT").ends_transaction);
  EXPECT_TRUE(KindOf("ROLLBACK").ends_transaction);
  EXPECT_FALSE(KindOf("ROLLBACK TO here").ends_transaction);
  EXPECT_FALSE(KindOf("SAVEPOINT here").ends_transaction);
}

TEST(StatementKind, KnowsWhatLeavesTraces) {
  for (const char* text :
       {"SET search_path = a", "CREATE TEMPORARY TABLE a (b INTEGER)", "CALL p()", "{call p()}",
        "LOCK TABLES a WRITE", "SELECT * INTO b FROM a", "PRAGMA foreign_keys = 1"}) {
    EXPECT_TRUE(KindOf(text).leaves_traces) << text;
  }
  for (const char* text :
       {"SELECT 1", "INSERT INTO a VALUES (1)", "CREATE TABLE a (b INTEGER)", "BEGIN", "ROLLBACK"}) {
    EXPECT_FALSE(KindOf(text).leaves_traces) << text;
  }
}

TEST(StatementKind, PassesOverWordsInQuotesAndComments) {
  for (const char* text :
       {"SELECT 'into the wild'", "SELECT \"into\" FROM a -- into b", "SELECT 1 /* into b */ FROM a",
        "SELECT 'it''s' FROM a WHERE b = 'into'", "WITH a AS (SELECT 'delete') SELECT * FROM a",
        "WITH a AS (SELECT REPLACE(b, 'c', 'd') FROM e) SELECT * FROM a"}) {
    EXPECT_TRUE(KindOf(text).is_select) << text;
    EXPECT_FALSE(KindOf(text).leaves_traces) << text;
  }
}

TEST(StatementKind, SeesAllWordsWhereDatabasesDifferInWhatAQuoteIs) {
  for (const char* text :
       {"SELECT 'it\\'s', 1 INTO b FROM a --'", "SELECT 'back\\' INTO b FROM a --'",
        "SELECT [it's] INTO b -- '", "SELECT $$it's$$ INTO b -- '", "SELECT 1 # it's\nINTO b -- '",
        "SELECT 1 --1 INTO b", "SELECT 1 /*! INTO b */ FROM a", "SELECT 1 /* it's */ INTO b -- '",
        "SELECT 'open INTO b"}) {
    EXPECT_FALSE(KindOf(text).is_select) << text;
    EXPECT_TRUE(KindOf(text).leaves_traces) << text;
  }
  EXPECT_FALSE(KindOf("WITH a AS (SELECT 1) REPLACE INTO b SELECT * FROM a").is_query);
}

TEST(StatementKind, KnowsCallsOfUnknownFunctions) {
  for (const char* text : {"SELECT remember()", "SELECT \"Remember\" (1)", "SELECT @a := 1",
                           "SELECT a FROM f(1)", "INSERT INTO s.a SELECT f(1)"}) {
    EXPECT_TRUE(KindOf(text).calls_functions) << text;
  }
  for (const char* text :
       {"SELECT COUNT(*) AS n FROM (SELECT a FROM b) c", "SELECT a FROM b WHERE c IN (1, 2)",
        "UPDATE a SET b = ? WHERE CAST(CONVERT(c USING utf8mb4) AS BINARY) = ?",
        "INSERT INTO a (b, c) VALUES (1, 2)", "INSERT INTO \"s\".\"a\" (\"b\") VALUES (?)",
        "INSERT INTO `s` . `a` (`b`) VALUES (?)", "CREATE TABLE a (b VARCHAR(20))"}) {
    EXPECT_FALSE(KindOf(text).calls_functions) << text;
  }
}

}  // namespace

}  // namespace dralo::database
