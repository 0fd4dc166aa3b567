#include "text/letter_case.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <string>

#include "text/utf8.h"

namespace dralo::text {
namespace {

std::string Utf8(UChar32 letter) {
  std::string text;
  AppendUtf8(text, static_cast<char32_t>(letter));
  return text;
}

bool IsSurrogate(UChar32 letter) { return 0xD800 <= letter && letter < 0xE000; }

TEST(LetterCase, IsTheSimpleMappingOfUnicodeForEveryCharacter) {
  int cased = 0;
  for (UChar32 letter = 0; letter <= UCHAR_MAX_VALUE; ++letter) {
    if (IsSurrogate(letter)) continue;
    const std::string text = Utf8(letter);
    const std::string capital = Utf8(u_toupper(letter));
    const std::string small = Utf8(u_tolower(letter));
    cased += capital != text || small != text ? 1 : 0;

    ASSERT_EQ(ToUpper(text), capital) << letter;
    ASSERT_EQ(ToLower(text), small) << letter;
    ASSERT_TRUE(EqualIgnoringCase(text, capital)) << letter;
    ASSERT_EQ(EqualIgnoringCase(text, small), ToUpper(text) == ToUpper(small)) << letter;
  }
  EXPECT_GE(cased, 2'799);
}

TEST(LetterCase, ChangesLettersOfAllScripts) {
  EXPECT_EQ(ToUpper("ςıſµǅ"), "ΣISΜǄ");
  EXPECT_EQ(ToLower("İKÅẞΣǅ"), "ikåßσǆ");
  EXPECT_EQ(ToUpper("ａｚ ἀῷᾳ ⱥⲁ ა ꭰ ⓩ ⅷ 𐐨𞤢"),
            "ＡＺ Ἀῷᾼ ȺⲀ Ა Ꭰ Ⓩ Ⅷ 𐐀𞤀");
  EXPECT_EQ(ToLower("ＡＺ ἈΏ ȺⲀ Ა Ꭰ Ⓩ Ⅷ 𐐀𞤀"),
            "ａｚ ἀώ ⱥⲁ ა ꭰ ⓩ ⅷ 𐐨𞤢");
}

TEST(LetterCase, IsAppendedIntoMemoryThatIsThere) {
  std::string to = "äß ";
  to.reserve(100);
  const char* const memory = to.data();
  AppendUpper(to, "ⱥς");
  AppendLower(to, "ÄB");

  EXPECT_EQ(to, "äß ȺΣäb");
  EXPECT_EQ(to.data(), memory);
}

TEST(LetterCase, KeepsCharactersWithoutASinglePartner) {
  const std::string kept = "0123 []{}@`ß÷×ĸŉΐΰև中😀";

  EXPECT_EQ(ToUpper(kept), kept);
  EXPECT_EQ(ToLower(kept), kept);
}

TEST(LetterCase, KeepsBytesThatAreNoUtf8) {
  for (const char* text :
       {"\xFF\xFE", "\x80", "\xC3", "\xE1\xBA", "\xF8\x88", "\xC1\xA1", "\xE0\x81\xA1", "\xE0\x83\xA0",
        "\xED\xA0\x80", "\xF0\x9F\x98", "\xF0\x83\x83\xA0", "\xF4\x90\x90\xA8"}) {
    EXPECT_EQ(ToUpper(text), text);
    EXPECT_EQ(ToLower(text), text);
  }
  EXPECT_EQ(ToUpper("a\xC3z"), "A\xC3Z");
  EXPECT_EQ(ToLower("\xE1"
                    "BC"),
            "\xE1"
            "bc");
}

TEST(EqualIgnoringCase, ComparesWholeTextsWithoutRegardToCase) {
  EXPECT_TRUE(EqualIgnoringCase("", ""));
  EXPECT_TRUE(EqualIgnoringCase("formOneRec", "FORMONEREC"));
  EXPECT_TRUE(EqualIgnoringCase("ÆØÅ og я", "æøå OG Я"));
  EXPECT_FALSE(EqualIgnoringCase("a", "ab"));
  EXPECT_FALSE(EqualIgnoringCase("a ", "a"));
  EXPECT_FALSE(EqualIgnoringCase("o", "ö"));
  EXPECT_FALSE(EqualIgnoringCase("[", "{"));
}

TEST(EqualIgnoringCase, ComparesLettersWhoseCapitalTakesOtherBytes) {
  EXPECT_TRUE(EqualIgnoringCase("ⱥıſς😀", "ȺISσ😀"));
  EXPECT_TRUE(EqualIgnoringCase("KaΣ", "Kaς"));
  EXPECT_FALSE(EqualIgnoringCase("ⱥ", "Ⱥa"));
  EXPECT_FALSE(EqualIgnoringCase("ß", "SS"));
}

TEST(EqualIgnoringCase, TellsDifferentBytesThatAreNoUtf8Apart) {
  EXPECT_TRUE(EqualIgnoringCase("a\xFF", "A\xFF"));
  EXPECT_FALSE(EqualIgnoringCase("\xFF", "\xFE"));
  EXPECT_FALSE(EqualIgnoringCase("\xE0\x83\xA0", "à"));
}

}  // namespace
}  // namespace dralo::text
