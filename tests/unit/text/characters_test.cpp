#include "text/characters.h"

#include <gtest/gtest.h>

#include <string>

namespace dralo::text {
namespace {

TEST(CountCharacters, CountsCodePointsAndNotBytes) {
  EXPECT_EQ(CountCharacters(""), 0U);
  EXPECT_EQ(CountCharacters("abc"), 3U);
  EXPECT_EQ(CountCharacters("Größe"), 5U);
  EXPECT_EQ(CountCharacters("€"), 1U);
  EXPECT_EQ(CountCharacters("a😀b"), 3U);
}

TEST(CountCharacters, CountsAByteThatIsNoUtf8AsOneCharacter) {
  EXPECT_EQ(CountCharacters("\xFF"), 1U);
  EXPECT_EQ(CountCharacters("\x80\x80"), 2U);
  EXPECT_EQ(CountCharacters("a\xE2\x82"), 3U);  // cut in the middle
  EXPECT_EQ(CountCharacters("\xC3zz"), 3U);
  EXPECT_EQ(CountCharacters("\xC0\x80"), 2U);          // longer than necessary
  EXPECT_EQ(CountCharacters("\xED\xA0\x80"), 3U);      // a surrogate
  EXPECT_EQ(CountCharacters("\xF4\x90\x80\x80"), 4U);  // above U+10FFFF
  EXPECT_EQ(CountCharacters(std::string_view("\0\0", 2)), 2U);
}

TEST(BytesOfCharacters, EndsBehindTheLastOfThem) {
  EXPECT_EQ(BytesOfCharacters("Größe", 0), 0U);
  EXPECT_EQ(BytesOfCharacters("Größe", 2), 2U);
  EXPECT_EQ(BytesOfCharacters("Größe", 3), 4U);
  EXPECT_EQ(BytesOfCharacters("Größe", 4), 6U);
  EXPECT_EQ(BytesOfCharacters("a😀b", 2), 5U);
}

TEST(BytesOfCharacters, TakesTheWholeTextWhenItIsShorter) {
  EXPECT_EQ(BytesOfCharacters("Größe", 5), 7U);
  EXPECT_EQ(BytesOfCharacters("Größe", 1'000), 7U);
  EXPECT_EQ(BytesOfCharacters("", 3), 0U);
}

TEST(BytesOfCharacters, AgreesWithTheirNumberInLongTexts) {
  for (std::size_t before = 0; before < 20; ++before) {
    const std::string start(before, 'x');
    const std::string text = start + "\xC3\xB6\xFF" + std::string(20, 'y');
    EXPECT_EQ(CountCharacters(text), before + 22);
    EXPECT_EQ(BytesOfCharacters(text, before), before);
    EXPECT_EQ(BytesOfCharacters(text, before + 1), before + 2);
    EXPECT_EQ(BytesOfCharacters(text, before + 2), before + 3);
    EXPECT_EQ(BytesOfCharacters(text, before + 13), before + 14);
  }
}

TEST(BytesOfCharacters, NeverGoesBeyondATextThatEndsInTheMiddleOfACharacter) {
  const std::string cut = "a\xF0\x9F\x98";
  for (std::size_t characters = 0; characters < 6; ++characters) {
    EXPECT_LE(BytesOfCharacters(cut, characters), cut.size());
  }
  EXPECT_EQ(BytesOfCharacters(cut, 2), 2U);
  EXPECT_EQ(BytesOfCharacters(std::string_view("€€", 5), 2), 4U);  // the missing byte lies behind the text
}

}  // namespace
}  // namespace dralo::text
