#include "text/sql_piece.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dralo::text {
namespace {

std::vector<std::string> Pieces(std::string_view statement) {
  std::vector<std::string> pieces;
  while (!statement.empty()) {
    pieces.emplace_back(FirstSqlPiece(statement));
    statement.remove_prefix(pieces.back().size());
  }
  return pieces;
}

TEST(SqlPieces, AreWordsSignsBlanksQuotesAndComments) {
  using Texts = std::vector<std::string>;
  EXPECT_EQ(Pieces("SELECT a1 ,\n b"), (Texts{"SELECT", " ", "a1", " ", ",", "\n ", "b"}));
  EXPECT_EQ(Pieces("'it''s'\"a b\"`c`"), (Texts{"'it'", "'s'", "\"a b\"", "`c`"}));
  EXPECT_EQ(Pieces("a--b ?\nc/* ' */d"), (Texts{"a", "--b ?", "\n", "c", "/* ' */", "d"}));
  EXPECT_EQ(Pieces("'open"), (Texts{"'open"}));
  EXPECT_EQ(Pieces("/* open"), (Texts{"/* open"}));
  EXPECT_EQ(Pieces("a-b"), (Texts{"a", "-", "b"}));
}

TEST(SqlPieces, AreTheQuotesOfPostgreSqlToo) {
  using Texts = std::vector<std::string>;
  EXPECT_EQ(Pieces(R"(e'it\'s ?',E'\\'a)"), (Texts{R"(e'it\'s ?')", ",", R"(E'\\')", "a"}));
  EXPECT_EQ(Pieces("be'a\\'b"), (Texts{"be", "'a\\'", "b"}));
  EXPECT_EQ(Pieces("$$it's $ ?$$a"), (Texts{"$$it's $ ?$$", "a"}));
  EXPECT_EQ(Pieces("$a1$ $b$ ? $a1$$"), (Texts{"$a1$ $b$ ? $a1$", "$"}));
  EXPECT_EQ(Pieces("$1$?$1$"), (Texts{"$1$", "?", "$1$"}));
  EXPECT_EQ(Pieces("$name ? a$b$ ?"), (Texts{"$name", " ", "?", " ", "a$b$", " ", "?"}));
  EXPECT_EQ(Pieces("$a$ ?"), (Texts{"$a$ ?"}));
  EXPECT_EQ(Pieces("$"), (Texts{"$"}));
}

TEST(SqlPieces, OfSpaceAreBlanksAndComments) {
  for (const char* space : {" ", "\n", "-- a", "/* a */"}) EXPECT_TRUE(IsSqlSpace(space)) << space;
  for (const char* other : {"a", "-", "/", "'", "?"}) EXPECT_FALSE(IsSqlSpace(other)) << other;
}

TEST(CountSqlParameters, CountsWhatStandsForAValue) {
  EXPECT_EQ(CountSqlParameters("SELECT ? FROM t WHERE a=? AND b IN (?,?)"), 4U);
  EXPECT_EQ(CountSqlParameters("SELECT '?', \"?\", `?` FROM t -- ?\nWHERE /* ? */ a ?? b"), 0U);
  EXPECT_EQ(CountSqlParameters(""), 0U);
}

}  // namespace
}  // namespace dralo::text
