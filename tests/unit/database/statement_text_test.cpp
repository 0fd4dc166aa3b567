#include "database/statement_text.h"

#include <gtest/gtest.h>

namespace dralo::database {

namespace {

TEST(StatementText, IsCutAtTheEnd) {
  EXPECT_EQ(WithoutEnd("SELECT 1 ; \n;"), "SELECT 1");
  EXPECT_EQ(WithoutEnd("SELECT 1 -- ; "), "SELECT 1 --");
  EXPECT_EQ(WithoutEnd(" ;; "), "");
}

TEST(StatementText, IsCutAtTheFront) {
  EXPECT_EQ(WithoutFront(" \t-- one\n/* two */ ((SELECT 1)", '('), "SELECT 1)");
  EXPECT_EQ(WithoutFront("; ;SELECT 1", ';'), "SELECT 1");
  EXPECT_EQ(WithoutFront("(SELECT 1)", ';'), "(SELECT 1)");
}

TEST(StatementText, HoldsNothingBehindAnOpenComment) {
  for (const std::string_view text : {"", " ;", "-- SELECT 1", "/* SELECT 1", "/*/", "/* a */ -- b"}) {
    EXPECT_EQ(WithoutFront(text, ';'), "") << text;
  }
}

}  // namespace

}  // namespace dralo::database
