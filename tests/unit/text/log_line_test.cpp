#include "text/log_line.h"

#include <gtest/gtest.h>

namespace dralo::text {
namespace {

TEST(LogLine, KeepsOrdinaryText) { EXPECT_EQ(LogLine("Größe 漢字 \\x0A \"a\""), "Größe 漢字 \\x0A \"a\""); }

TEST(LogLine, HasNoLineBreakOfAnyKind) {
  EXPECT_EQ(LogLine("a\r\nb"), "a\\x0D\\x0Ab");
  EXPECT_EQ(LogLine("a\xC2\x85"
                    "b"),
            "a\\xC2\\x85"
            "b");
  EXPECT_EQ(LogLine("\u2028|\u2029"), "\\xE2\\x80\\xA8|\\xE2\\x80\\xA9");
}

TEST(LogLine, HasNoSignsForTerminals) {
  using namespace std::string_view_literals;
  EXPECT_EQ(LogLine("\0\x1B[2J\x7F"sv), "\\x00\\x1B[2J\\x7F");
  EXPECT_EQ(LogLine("\xC2\x9B"), "\\xC2\\x9B");
}

TEST(LogLine, ShowsBytesThatAreNoUtf8) { EXPECT_EQ(LogLine("a\xFF\xFE"), "a\\xFF\\xFE"); }

TEST(LogLine, IsCutBetweenCharacters) {
  EXPECT_EQ(LogLine(std::string(5'000, 'a')).size(), kLogLineBytes);
  EXPECT_EQ(LogLine(std::string(1'999, 'a') + "ö").size(), 1'999U);
  EXPECT_EQ(LogLine(std::string(1'998, 'a') + "\n").size(), 1'998U);
}

}  // namespace
}  // namespace dralo::text
