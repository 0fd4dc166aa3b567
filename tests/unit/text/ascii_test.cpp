#include "text/ascii.h"

#include <gtest/gtest.h>

#include <cctype>

namespace dralo::text {
namespace {

TEST(Ascii, IsThatOfTheCLibraryForEveryByte) {
  for (int byte = 0; byte < 256; ++byte) {
    const auto c = static_cast<char>(byte);
    EXPECT_EQ(ToUpper(c), static_cast<char>(std::toupper(byte))) << byte;
    EXPECT_EQ(ToLower(c), static_cast<char>(std::tolower(byte))) << byte;
    EXPECT_EQ(IsDigit(c), std::isdigit(byte) != 0) << byte;
    EXPECT_EQ(IsLetter(c), std::isalpha(byte) != 0) << byte;
    EXPECT_EQ(IsLetterOrDigit(c), std::isalnum(byte) != 0) << byte;
  }
}

TEST(HexDigit, KnowsSixteenDigitsInBothLetterCases) {
  int digits = 0;
  for (int byte = 0; byte < 256; ++byte) {
    const int value = HexDigit(static_cast<char>(byte));
    EXPECT_EQ(value >= 0, std::isxdigit(byte) != 0) << byte;
    if (value >= 0) digits += value;
  }
  EXPECT_EQ(digits, 45 + 2 * 75);
  EXPECT_EQ(HexDigit('7'), 7);
  EXPECT_EQ(HexDigit('a'), 10);
  EXPECT_EQ(HexDigit('F'), 15);
}

TEST(EqualAscii, ComparesWholeTexts) {
  EXPECT_TRUE(EqualAscii("", ""));
  EXPECT_TRUE(EqualAscii("Data Source", "DATA source"));
  EXPECT_FALSE(EqualAscii("Mode", "Modes"));
  EXPECT_FALSE(EqualAscii("[", "{"));
}

TEST(EqualAscii, TakesOtherLettersAsTheyAre) {
  EXPECT_TRUE(EqualAscii("größe", "GRößE"));
  EXPECT_FALSE(EqualAscii("größe", "GRÖßE"));
  EXPECT_FALSE(EqualAscii("ſ", "S"));
  EXPECT_FALSE(EqualAscii("\xFF", "\xDF"));
}

TEST(StartsWithAscii, ComparesTheBeginning) {
  EXPECT_TRUE(StartsWithAscii("decimal(10,2)", "DECIMAL"));
  EXPECT_TRUE(StartsWithAscii("x", ""));
  EXPECT_FALSE(StartsWithAscii("dec", "DECIMAL"));
  EXPECT_FALSE(StartsWithAscii(" dec", "DEC"));
}

TEST(FindAscii, CountsTheBytesOfTheTextAsItIs) {
  EXPECT_EQ(FindAscii("ııwidth", "WIDTH"), 4U);
  EXPECT_EQ(FindAscii("wıdth", "WIDTH"), std::string_view::npos);
  EXPECT_EQ(FindAscii("a", ""), 0U);
  EXPECT_EQ(FindAscii("", ""), 0U);
}

TEST(ContainsAscii, FindsTheLettersAnywhereInAnyLetterCase) {
  EXPECT_TRUE(ContainsAscii("topBoth", "BOTH"));
  EXPECT_TRUE(ContainsAscii("FORM", "FORM"));
  EXPECT_TRUE(ContainsAscii("form", "Form"));
  EXPECT_TRUE(ContainsAscii("x", ""));
  EXPECT_TRUE(ContainsAscii("", ""));
}

TEST(ContainsAscii, DoesNotFindWhatIsNotThere) {
  EXPECT_FALSE(ContainsAscii("", "TOP"));
  EXPECT_FALSE(ContainsAscii("TO P", "TOP"));
  EXPECT_FALSE(ContainsAscii("bo\xC3tom", "BOTTOM"));
}

}  // namespace
}  // namespace dralo::text
