#include "text/white_space.h"

#include <gtest/gtest.h>

#include <cctype>

namespace dralo::text {
namespace {

TEST(AsciiSpace, IsThatOfTheCLibraryForEveryByte) {
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(IsAsciiSpace(static_cast<char>(byte)), std::isspace(byte) != 0) << byte;
  }
}

TEST(AsciiSpace, IsTrimmedAtBothEnds) {
  EXPECT_EQ(TrimAsciiSpace("\t a b\r\n"), "a b");
  EXPECT_EQ(TrimAsciiSpace(" \v\f "), "");
  EXPECT_EQ(TrimAsciiSpace("\u00A0a"), "\u00A0a");
}

TEST(WhiteSpaceSize, KnowsWhatStandsForABlank) {
  for (const char* space : {" ", "\t", "\n", "\u00A0", "\u2007", "\u2009", "\u202F", "\u3000"}) {
    EXPECT_EQ(WhiteSpaceSize(space), std::string_view(space).size()) << space;
  }
  for (const char* other : {"", "a ", "\u200B", "\u2008", "\u00AD", "\u200E"}) {
    EXPECT_EQ(WhiteSpaceSize(other), 0U) << other;
  }
}

TEST(TrimWhiteSpace, TakesDirectionMarksOffToo) {
  EXPECT_EQ(TrimWhiteSpace("\u200F \u00A0a\u202Fb\u3000\u061C\u200E\t"), "a\u202Fb");
  EXPECT_EQ(TrimWhiteSpace("\u3000\u00A0"), "");
}

TEST(TrimWhiteSpace, KeepsBytesThatAreNoUtf8) {
  EXPECT_EQ(TrimWhiteSpace(" \xC2 "), "\xC2");
  EXPECT_EQ(TrimWhiteSpace("\xA0"), "\xA0");
  EXPECT_EQ(TrimWhiteSpace("\xE2\x80"), "\xE2\x80");
  EXPECT_EQ(TrimWhiteSpace("\x80\x89"), "\x80\x89");
  EXPECT_EQ(TrimWhiteSpace("\xE2\xC2\xA0"), "\xE2");
}

TEST(PlainWhiteSpace, WritesABlankForEachAndNoDirectionMarks) {
  EXPECT_EQ(PlainWhiteSpace(" 1\u202F234\u200E\u00A0\u00A0kr\u00A0"), "1 234  kr");
  EXPECT_EQ(PlainWhiteSpace("a\tb\xFF"), "a b\xFF");
}

}  // namespace
}  // namespace dralo::text
