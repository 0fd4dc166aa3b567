#include "database/select_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dralo::database {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(SelectList, KnowsTheNamesThatAQueryGives) {
  EXPECT_THAT(GivenNames("SELECT a, t.b, \"c d\" FROM t"), IsEmpty());
  EXPECT_THAT(GivenNames("SELECT * FROM t"), IsEmpty());
  EXPECT_THAT(GivenNames("SELECT a AS b, b c, t.c \"d\"\"e\" FROM t"), ElementsAre("b", "c", "d\"e"));
  EXPECT_THAT(GivenNames("SELECT DISTINCT a + 1 x, (SELECT y FROM z) w, f(a, b) AS v, t.* FROM t"),
              ElementsAre("x", "w", "v"));
}

TEST(SelectList, SeesATableThatIsReadTwice) {
  EXPECT_TRUE(NamesTwice("SELECT a.id, b.x FROM goods a JOIN Goods b ON b.id = a.up", "goods"));
  EXPECT_TRUE(NamesTwice("SELECT * FROM s.\"goods\" a, goods b WHERE 1 = 1", "goods"));
  EXPECT_FALSE(NamesTwice("SELECT goods.id FROM goods WHERE goods.id = 1 ORDER BY goods.id", "goods"));
  EXPECT_FALSE(NamesTwice("SELECT id FROM goods WHERE id IN (SELECT id FROM goods)", "goods"));
  EXPECT_FALSE(NamesTwice("SELECT goods.id FROM goods JOIN kinds ON kinds.id = goods.kind", "goods"));
  EXPECT_FALSE(NamesTwice("SELECT id FROM kinds goods, s.goods WHERE a IS DISTINCT FROM goods", "goods"));
  EXPECT_FALSE(NamesTwice("SELECT (SELECT MAX(id) FROM goods), id FROM goods, f(goods.id) goods", "goods"));
  EXPECT_FALSE(
      NamesTwice("SELECT g.id FROM goods g JOIN kinds k ON k.id = (SELECT MAX(kind) FROM goods)", "goods"));
}

TEST(SelectList, SeesATableThatIsReadTwiceThroughQueries) {
  EXPECT_TRUE(NamesTwice("SELECT a.id, b.x FROM (SELECT * FROM goods) a JOIN goods b ON true", "goods"));
  EXPECT_TRUE(NamesTwice("SELECT a.id, b.x FROM goods a, LATERAL (SELECT * FROM goods) b", "goods"));
  EXPECT_TRUE(NamesTwice("SELECT * FROM (goods a JOIN ONLY goods b ON a.id = b.up)", "goods"));
  EXPECT_TRUE(NamesTwice("WITH c AS (SELECT * FROM goods) SELECT c.id, g.x FROM c JOIN goods g", "goods"));
  EXPECT_TRUE(NamesTwice("WITH c AS (SELECT * FROM goods) SELECT a.id, b.x FROM c a JOIN c b", "goods"));
  EXPECT_FALSE(NamesTwice("WITH c AS MATERIALIZED (SELECT * FROM goods) SELECT * FROM c", "goods"));
  EXPECT_FALSE(
      NamesTwice("SELECT * FROM (SELECT * FROM goods WHERE id IN (SELECT id FROM goods)) a", "goods"));
}

}  // namespace

}  // namespace dralo::database
