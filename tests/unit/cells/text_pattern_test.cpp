#include "cells/text_pattern.h"

#include <gtest/gtest.h>

namespace dralo::tests {
namespace {

std::string Written(std::string_view pattern, std::string_view text) {
  std::string to;
  cells::TextPattern(pattern).Write(text, to);
  return to;
}

TEST(TextPattern, FillsPlacesFromTheRight) {
  EXPECT_EQ(Written("@@@@", "ab"), "  ab");
  EXPECT_EQ(Written("&&&&", "ab"), "ab");
  EXPECT_EQ(Written("@@-@@", "abcd"), "ab-cd");
  EXPECT_EQ(Written("@@-@@", "abc"), " a-bc");
  EXPECT_EQ(Written("&&-&&", "abc"), "a-bc");
}

TEST(TextPattern, FillsPlacesFromTheLeftWithAnExclamationMark) {
  EXPECT_EQ(Written("!@@@@", "ab"), "ab  ");
  EXPECT_EQ(Written("@@-@@!", "abc"), "ab-c ");
  EXPECT_EQ(Written("!&&-&&", "abc"), "ab-c");
}

TEST(TextPattern, KeepsCharactersWithoutAPlace) {
  EXPECT_EQ(Written("@-@", "abcd"), "abc-d");
  EXPECT_EQ(Written("!@-@", "abcd"), "a-bcd");
  EXPECT_EQ(Written("x: ", "abcd"), "x: abcd");
}

TEST(TextPattern, ChangesLetterCase) {
  EXPECT_EQ(Written("<", "ÄBc"), "äbc");
  EXPECT_EQ(Written(">", "äbC"), "ÄBC");
  EXPECT_EQ(Written(">@@@@", "äb"), "  ÄB");
}

TEST(TextPattern, CountsCharacters) {
  EXPECT_EQ(Written("@@@", "äö"), " äö");
  EXPECT_EQ(Written("@.@", "äö"), "ä.ö");
}

TEST(TextPattern, KeepsLiterals) {
  EXPECT_EQ(Written(R"("@" @)", "a"), "@ a");
  EXPECT_EQ(Written(R"(\@@)", "a"), "@a");
  EXPECT_EQ(Written(R"(\ä@)", "a"), "äa");
  EXPECT_EQ(Written(R"("open)", "a"), "opena");
  EXPECT_EQ(Written("@\\", "a"), "a\\");
  EXPECT_EQ(Written("@;empty", "a"), "a");
}

}  // namespace
}  // namespace dralo::tests
