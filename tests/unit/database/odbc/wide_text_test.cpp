#include "database/odbc/wide_text.h"

#include <gtest/gtest.h>

namespace dralo::database::odbc {

namespace {

TEST(WideText, KeepsCharactersOfAnyLength) {
  const std::string text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z";
  EXPECT_EQ(ToWide(text), u"a\u00E9\u20AC\U0001F600z");
  EXPECT_EQ(ToNarrow(ToWide(text)), text);
}

TEST(WideText, KeepsZeroBytes) {
  const std::string text("a\0b", 3);
  EXPECT_EQ(ToWide(text).size(), 3u);
  EXPECT_EQ(ToNarrow(ToWide(text)), text);
}

TEST(WideText, ReplacesWhatIsNoUtf8) {
  EXPECT_EQ(ToWide("a\xFFz"), u"a\uFFFDz");
  EXPECT_EQ(ToWide("\xF0\x9F\x98"), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(ToWide("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(ToWide("\xC0\xAF"), u"\uFFFD\uFFFD");
}

TEST(WideText, ReplacesHalvesOfPairs) {
  const char16_t halves[] = {0xD83D, u'x', 0xDE00};
  EXPECT_EQ(ToNarrow({halves, 3}), "\xEF\xBF\xBDx\xEF\xBF\xBD");
  EXPECT_EQ(ToNarrow({halves, 1}), "\xEF\xBF\xBD");
}

}  // namespace

}  // namespace dralo::database::odbc
