#include "database/statement_text.h"

#include <gtest/gtest.h>

#include "dralo/error.h"

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

TEST(StatementText, BeginsWithItsFirstWordBehindAnyComment) {
  EXPECT_EQ(FromFirstWord("# one\n ((-- two\n# three\n SELECT 1 # four\n"), "SELECT 1 # four\n");
  EXPECT_EQ(FromFirstWord("# SELECT 1"), "");
}

TEST(StatementText, HoldsNothingBehindAnOpenComment) {
  for (const std::string_view text : {"", " ;", "-- SELECT 1", "/* SELECT 1", "/*/", "/* a */ -- b"}) {
    EXPECT_EQ(WithoutFront(text, ';'), "") << text;
  }
}

TEST(StatementText, IsRefusedWhenBlankOrWithAZeroByte) {
  const auto refusal = [](std::string_view text) -> std::string {
    try {
      RequireStatement(text);
    } catch (const platform::Error& error) {
      return error.what();
    }
    return "none";
  };
  using namespace std::string_view_literals;
  EXPECT_EQ(refusal(" \n"), "The statement is empty");
  EXPECT_EQ(refusal("SELECT 1\0, 2"sv), "The statement has a zero byte in its text");
  EXPECT_EQ(refusal("SELECT 1"), "none");
}

}  // namespace

}  // namespace dralo::database
