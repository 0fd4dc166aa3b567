#include "text/utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace dralo::text {
namespace {

/// Of each step how many bytes it took, negative when they were no UTF-8.
std::vector<int> StepsThrough(std::string_view text) {
  std::vector<int> steps;
  while (!text.empty()) {
    const Decoded first = DecodeFirst(text);
    steps.push_back(first.character ? static_cast<int>(first.bytes) : -static_cast<int>(first.bytes));
    text.remove_prefix(first.bytes);
  }
  return steps;
}

TEST(Utf8, IsReadAsItWasWrittenForEveryCharacter) {
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    std::string text;
    AppendUtf8(text, character);
    const Decoded first = DecodeFirst(text + "\x80");
    const bool is_surrogate = 0xD800 <= character && character <= 0xDFFF;

    ASSERT_EQ(first.character.has_value(), !is_surrogate) << std::uint32_t{character};
    if (is_surrogate) continue;
    ASSERT_EQ(*first.character, character);
    ASSERT_EQ(first.bytes, text.size());
  }
}

TEST(Utf8, TakesOneToFourBytesForACharacter) {
  EXPECT_EQ(StepsThrough("a\u00E9\u20AC\U0001F600z"), (std::vector{1, 2, 3, 4, 1}));
  EXPECT_EQ(StepsThrough("\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF"),
            (std::vector{1, 2, 2, 3, 3, 4, 4}));
  EXPECT_EQ(StepsThrough(std::string_view("\0", 1)), std::vector{1});
  EXPECT_EQ(StepsThrough("\uFFFD"), std::vector{3});  // A character like others where somebody wrote it.
}

TEST(Utf8, TakesABrokenCharacterAsFarAsItGoes) {
  EXPECT_EQ(StepsThrough("\xC3"), std::vector{-1});
  EXPECT_EQ(StepsThrough("\xE2\x82"), std::vector{-2});
  EXPECT_EQ(StepsThrough("\xF0\x9F\x98"), std::vector{-3});
  EXPECT_EQ(StepsThrough("\xF0\x9F\x98z"), (std::vector{-3, 1}));
  EXPECT_EQ(StepsThrough("\xE2\x82\xE2\x82\xAC"), (std::vector{-2, 3}));
  EXPECT_EQ(StepsThrough("\xF4\x8F\xF4"), (std::vector{-2, -1}));
}

TEST(Utf8, TakesBytesThatBeginNoCharacterOneByOne) {
  EXPECT_EQ(StepsThrough("\x80\xBF"), (std::vector{-1, -1}));
  EXPECT_EQ(StepsThrough("\xFE\xFF"), (std::vector{-1, -1}));
  EXPECT_EQ(StepsThrough("\xF5\x80\x80\x80"), (std::vector{-1, -1, -1, -1}));
  EXPECT_EQ(StepsThrough("\xF8\x88\x80\x80\x80"), (std::vector{-1, -1, -1, -1, -1}));
}

TEST(Utf8, TakesSpellingsThatAreTooLongByteByByte) {
  EXPECT_EQ(StepsThrough("\xC0\x80\xC1\xBF"), (std::vector{-1, -1, -1, -1}));
  EXPECT_EQ(StepsThrough("\xE0\x9F\xBF"), (std::vector{-1, -1, -1}));
  EXPECT_EQ(StepsThrough("\xF0\x8F\xBF\xBF"), (std::vector{-1, -1, -1, -1}));
}

TEST(Utf8, TakesSurrogatesAndTooHighNumbersByteByByte) {
  EXPECT_EQ(StepsThrough("\xED\xA0\x80\xED\xBF\xBF"), (std::vector{-1, -1, -1, -1, -1, -1}));
  EXPECT_EQ(StepsThrough("\xF4\x90\x80\x80"), (std::vector{-1, -1, -1, -1}));
}

TEST(Utf8, NeverReadsBehindTheText) {
  const std::string_view text = std::string_view("\u20AC").substr(0, 2);
  EXPECT_EQ(DecodeFirst(text).bytes, 2U);
  EXPECT_EQ(DecodeFirst(text).character, std::nullopt);
}

}  // namespace
}  // namespace dralo::text
