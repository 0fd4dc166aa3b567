#include "database/select_shape.h"

#include <gtest/gtest.h>

namespace dralo::database {

namespace {

/// "database.table=alias" of every table, "?" for one that is not understood.
std::string Tables(std::string_view query) {
  std::string tables;
  for (const NamedTable& named : ShapeOf(query).tables) {
    if (!tables.empty()) tables += ' ';
    if (!named.database.empty()) tables += named.database + ".";
    tables += named.table.empty() ? "?" : named.table + "=" + named.alias;
  }
  return tables;
}

TEST(SelectShape, FindsTheTablesBehindFrom) {
  EXPECT_EQ(Tables("SELECT * FROM Goods"), "Goods=Goods");
  EXPECT_EQ(Tables("select a from shop.Goods g where x = 1"), "shop.Goods=g");
  EXPECT_EQ(Tables("SELECT a FROM `two ``words` AS `t w`, \"Other\" ORDER BY 1"),
            "two `words=t w Other=Other");
  EXPECT_EQ(Tables("SELECT a FROM a LEFT OUTER JOIN b x ON x.i = a.i NATURAL JOIN c USING (i)"),
            "a=a b=x c=c");
  EXPECT_EQ(Tables("SELECT a FROM a USE INDEX (i) STRAIGHT_JOIN b"), "a=a b=b");
}

TEST(SelectShape, DoesNotTakeSubqueriesAndFunctionsForTables) {
  EXPECT_EQ(Tables("SELECT * FROM (SELECT b AS a FROM Other) Goods"), "?");
  EXPECT_EQ(Tables("SELECT * FROM JSON_TABLE('[]', '$[*]' COLUMNS (i INT PATH '$')) Goods, b"), "? b=b");
  EXPECT_EQ(Tables("SELECT * FROM (a JOIN b ON a.i = b.i)"), "?");
  EXPECT_EQ(Tables("SELECT 1"), "");
}

TEST(SelectShape, KeepsNamesAsTheyAreWritten) {
  const auto tables = ShapeOf("SELECT a FROM Goods, \"my shop\" . `Goods` AS G JOIN b x ON x.i = 1").tables;
  ASSERT_EQ(tables.size(), 3u);
  EXPECT_EQ(tables[0].written, "Goods");
  EXPECT_EQ(tables[0].written_alias, "Goods");
  EXPECT_EQ(tables[1].written, "\"my shop\" . `Goods`");
  EXPECT_EQ(tables[1].written_alias, "G");
  EXPECT_EQ(tables[2].written, "b");
  EXPECT_EQ(tables[2].written_alias, "x");
  EXPECT_EQ(ShapeOf("SELECT a FROM s.Goods").tables[0].written_alias, "Goods");
}

TEST(SelectShape, DoesNotKnowTablesWhoseColumnsAreRenamed) {
  EXPECT_EQ(Tables("SELECT a FROM Goods g (a, b), Goods AS h (a), i USING (a)"), "? ? i=i");
}

TEST(SelectShape, KnowsWhetherAnythingFollowsTheTables) {
  EXPECT_TRUE(ShapeOf("SELECT (SELECT b FROM u WHERE b = 1) FROM t JOIN v ON v.a = t.a;").ends_with_tables);
  EXPECT_FALSE(ShapeOf("SELECT a FROM t WHERE a = 1").ends_with_tables);
  EXPECT_FALSE(ShapeOf("SELECT a FROM t LIMIT 1").ends_with_tables);
}

TEST(SelectShape, SeesWindows) {
  EXPECT_TRUE(ShapeOf("SELECT ROW_NUMBER() OVER (ORDER BY a) FROM t").has_windows);
  EXPECT_FALSE(ShapeOf("SELECT \"over\", (SELECT MAX(a) OVER (ORDER BY b)) FROM t").has_windows);
}

TEST(SelectShape, PassesOverTextsAndComments) {
  EXPECT_EQ(
      Tables("SELECT ' FROM x', 'it\\'s FROM y', \"\"\" FROM z\" FROM /* FROM c */ a -- FROM d\n# FROM e\n"),
      "a=a");
  EXPECT_EQ(Tables("SELECT (SELECT b FROM inner_table), a--1 FROM a"), "a=a");
}

TEST(SelectShape, KnowsWhatIsNoSimpleQuery) {
  EXPECT_TRUE(ShapeOf("SELECT a FROM t WHERE b IN (SELECT 1 UNION SELECT 2);").is_simple);
  for (const char* query :
       {"SELECT 1", "SELECT a FROM t UNION SELECT b FROM u", "WITH t AS (SELECT 1) SELECT * FROM t",
        "(SELECT a FROM t)", "DELETE FROM t", "", "SELECT a FROM t EXCEPT SELECT b FROM u"}) {
    EXPECT_FALSE(ShapeOf(query).is_simple) << query;
    EXPECT_FALSE(ShapeOf(query).ends_with_order) << query;
  }
}

TEST(SelectShape, KnowsWhetherTheRowsAreThoseOfTheTables) {
  EXPECT_TRUE(ShapeOf("SELECT COUNT(DISTINCT a) FROM t ORDER BY 1").has_rows_of_tables);
  EXPECT_FALSE(ShapeOf("SELECT DISTINCT a FROM t ORDER BY 1").has_rows_of_tables);
  EXPECT_FALSE(ShapeOf("SELECT a, COUNT(*) FROM t GROUP BY a ORDER BY 1").has_rows_of_tables);
}

TEST(SelectShape, FindsAnOrderAtTheEndOnly) {
  EXPECT_TRUE(ShapeOf("SELECT a FROM t ORDER BY a").ends_with_order);
  EXPECT_TRUE(ShapeOf("SELECT a FROM t ORDER BY a, LOWER(b) DESC ; ").ends_with_order);
  EXPECT_FALSE(ShapeOf("SELECT a FROM t").ends_with_order);
  EXPECT_FALSE(ShapeOf("SELECT ROW_NUMBER() OVER (ORDER BY a) FROM t").ends_with_order);
  EXPECT_FALSE(ShapeOf("SELECT a FROM t ORDER BY a LIMIT 3").ends_with_order);
  EXPECT_FALSE(ShapeOf("SELECT a FROM t ORDER BY a FOR UPDATE").ends_with_order);
  EXPECT_FALSE(ShapeOf("SELECT a FROM t ORDER BY").ends_with_order);
}

TEST(SelectShape, TellsTheDirectionOfTheLastField) {
  EXPECT_TRUE(ShapeOf("SELECT a FROM t ORDER BY a, b desc").is_descending);
  EXPECT_FALSE(ShapeOf("SELECT a FROM t ORDER BY a DESC, b").is_descending);
  EXPECT_FALSE(ShapeOf("SELECT a FROM t ORDER BY `desc`").is_descending);
}

}  // namespace

}  // namespace dralo::database
