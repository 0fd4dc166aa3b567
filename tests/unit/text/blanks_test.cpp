#include "text/blanks.h"

#include <gtest/gtest.h>

namespace dralo::text {
namespace {

TEST(TrimBlanks, RemovesBlanksAtBothEndsOnly) {
  EXPECT_EQ(TrimBlanks("  a b  "), "a b");
  EXPECT_EQ(TrimBlanks("a"), "a");
  EXPECT_EQ(TrimBlanks(""), "");
  EXPECT_EQ(TrimBlanks("   "), "");
}

TEST(TrimBlanks, KeepsLineBreaksTabsAndOtherWhiteSpace) {
  EXPECT_EQ(TrimBlanks(" \n a \t "), "\n a \t");
  EXPECT_EQ(TrimBlanks(" \xC2\xA0 "), "\xC2\xA0");
}

TEST(IsBlank, IsTrueForNothingButBlanks) {
  EXPECT_TRUE(IsBlank(""));
  EXPECT_TRUE(IsBlank("   "));
  EXPECT_FALSE(IsBlank("  a "));
  EXPECT_FALSE(IsBlank(" \t"));
  EXPECT_FALSE(IsBlank("\n"));
  EXPECT_FALSE(IsBlank("\u00A0"));
}

}  // namespace
}  // namespace dralo::text
