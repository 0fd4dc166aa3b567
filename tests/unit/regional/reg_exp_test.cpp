#include "regional/reg_exp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dralo/error.h"
#include "support/cpu_time.h"

namespace dralo::regional {
namespace {

using platform::Error;
using platform::RegExp;
using ::testing::HasSubstr;

constexpr RegExp::Options kFirst{};
constexpr RegExp::Options kAll{.ignore_case = false, .global = true, .multi_line = false};
constexpr RegExp::Options kAllLines{.ignore_case = false, .global = true, .multi_line = true};
constexpr RegExp::Options kAnyCase{.ignore_case = true, .global = true, .multi_line = false};

std::string Replaced(std::string_view pattern, const RegExp::Options& options, std::string_view text,
                     std::string_view replacement) {
  const auto expression = MakeRegExp();
  expression->Compile(pattern, options);
  return expression->Replace(text, replacement);
}

std::string FailureOf(std::string_view pattern, std::string_view text) {
  try {
    Replaced(pattern, kAll, text, "");
  } catch (const Error& error) {
    return error.what();
  }
  return "no failure";
}

TEST(RegExp, ReplacesTheFirstMatchOrAll) {
  EXPECT_EQ(Replaced("a", kFirst, "banana", "o"), "bonana");
  EXPECT_EQ(Replaced("a", kAll, "banana", "o"), "bonono");
  EXPECT_EQ(Replaced("x", kAll, "banana", "o"), "banana");
  EXPECT_EQ(Replaced("a\\/b", kAll, "a/b and a/b", "x"), "x and x");
  EXPECT_EQ(Replaced("an", kAll, "banana", ""), "ba");
}

TEST(RegExp, IgnoresCaseAlsoBeyondAscii) {
  EXPECT_EQ(Replaced("A", kAll, "aA", "x"), "ax");
  EXPECT_EQ(Replaced("A", kAnyCase, "aA", "x"), "xx");
  EXPECT_EQ(Replaced("ä", kAnyCase, "äÄ", "x"), "xx");
}

TEST(RegExp, MatchesLineEndsOnlyWhenMultiLine) {
  EXPECT_EQ(Replaced("^", kAll, "a\nb", ">"), ">a\nb");
  EXPECT_EQ(Replaced("^", kAllLines, "a\nb", ">"), ">a\n>b");
  EXPECT_EQ(Replaced("a$", kAll, "a\na", "x"), "a\nx");
  EXPECT_EQ(Replaced("a$", kAll, "a\n", "x"), "a\n");
  EXPECT_EQ(Replaced("a$", kAllLines, "a\r\na\n", "x"), "x\r\nx\n");
  EXPECT_EQ(Replaced(".+", kAll, "ab\r\ncd", "x"), "x\r\nx");
}

TEST(RegExp, PutsGroupsIntoTheReplacement) {
  EXPECT_EQ(Replaced("(\\w+) (\\w+)", kFirst, "John Smith", "$2, $1"), "Smith, John");
  EXPECT_EQ(Replaced("\\d+", kAll, "1 and 22", "<$&>"), "<1> and <22>");
  EXPECT_EQ(Replaced("5", kAll, "5", "$$5"), "$5");
  EXPECT_EQ(Replaced("(a)|(b)", kAll, "ab", "[$1|$2]"), "[a|][|b]");
  EXPECT_EQ(Replaced("(a)?(b)?c", kAll, "c", "[$1$2]"), "[]");
}

TEST(RegExp, TakesTwoDigitsOfAGroupOnlyIfThereIsSuchAGroup) {
  EXPECT_EQ(Replaced("(a)", kFirst, "a", "$10"), "a0");
  EXPECT_EQ(Replaced("(a)", kFirst, "a", "$01$011"), "aa1");
  EXPECT_EQ(Replaced("(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)(k)", kFirst, "abcdefghijk", "$11$10$1"), "kja");
  EXPECT_EQ(Replaced("(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)", kFirst, "abcdefghij", "$109"), "j9");
}

TEST(RegExp, LeavesOtherDollarsAsTheyAre) {
  EXPECT_EQ(Replaced("(a)", kFirst, "a", "$"), "$");
  EXPECT_EQ(Replaced("(a)", kFirst, "a", "$x$2$0$00$99"), "$x$2$0$00$99");
  EXPECT_EQ(Replaced("(a)", kFirst, "a", "5 $ \\1"), "5 $ \\1");
}

TEST(RegExp, GoesOneCharacterFurtherAfterAnEmptyMatch) {
  EXPECT_EQ(Replaced("", kAll, "abc", "-"), "-a-b-c-");
  EXPECT_EQ(Replaced("b*", kAll, "abc", "-"), "-a--c-");
  EXPECT_EQ(Replaced("", kAll, "åé", "-"), "-å-é-");
  EXPECT_EQ(Replaced("", kAll, "", "x"), "x");
  EXPECT_EQ(Replaced("", kFirst, "ab", "-"), "-ab");
  EXPECT_EQ(Replaced("x*", kAll, "\U0001F600", "-"), "-\U0001F600-");
}

TEST(RegExp, CountsCharactersNotBytes) {
  EXPECT_EQ(Replaced("^.", kFirst, "Ærlig", "x"), "xrlig");
  EXPECT_EQ(Replaced("[åä]", kAll, "på väg", "a"), "pa vag");
  EXPECT_EQ(Replaced("\\u00e5", kAll, "på", "a"), "pa");
  EXPECT_EQ(Replaced("\\x41", kAll, "A", "a"), "a");
}

TEST(RegExp, LooksAround) {
  EXPECT_EQ(Replaced("(\\d)(?=(\\d{3})+$)", kAll, "1234567", "$1,"), "1,234,567");
  EXPECT_EQ(Replaced("(?<=a)b", kAll, "abab", "x"), "axax");
  EXPECT_EQ(Replaced("\\bcat\\b", kAll, "cat concat cat", "dog"), "dog concat dog");
}

TEST(RegExp, FindsMatchesAnywhereInLongText) {
  std::string text;
  std::string expected;
  for (int i = 0; i < 3'000; ++i) {
    text += std::string(static_cast<std::size_t>(i % 700), 'x') + "ø12";
    expected += std::string(static_cast<std::size_t>(i % 700), 'x') + "ø[12]";
  }
  EXPECT_EQ(Replaced("\\d+", kAll, text, "[$&]"), expected);
  EXPECT_EQ(Replaced("q", kAll, text, "!"), text);
  EXPECT_EQ(Replaced("2$", kFirst, text, "!"), text.substr(0, text.size() - 1) + "!");
}

TEST(RegExp, KeepsBytesThatAreNoUtf8) {
  EXPECT_EQ(Replaced("a", kAll,
                     "\xFF"
                     "a\xC3"
                     "a\x80",
                     "b"),
            "\xFF"
            "b\xC3"
            "b\x80");
  EXPECT_EQ(Replaced(".", kAll, "\xFF\xFE", "b"), "\xFF\xFE");
}

TEST(RegExp, SaysWhereAndWhyAPatternIsNotValid) {
  EXPECT_THAT(FailureOf("ab(c", ""), HasSubstr("not valid after 4 characters: missing closing parenthesis"));
  EXPECT_THAT(FailureOf("åå(c", ""), HasSubstr("not valid after 4 characters"));
  EXPECT_THAT(FailureOf("*", ""), HasSubstr("quantifier does not follow"));
  EXPECT_THAT(FailureOf("\\C", ""), HasSubstr("\\C"));
  EXPECT_THAT(FailureOf("\xFF", ""), HasSubstr("not valid after 0 characters: UTF-8 error"));
}

TEST(RegExp, KeepsItsPatternWhenAnotherFailsToCompile) {
  const auto expression = MakeRegExp();
  EXPECT_THROW(expression->Replace("a", "b"), Error);
  expression->Compile("a", kAll);
  EXPECT_THROW(expression->Compile("(", kAll), Error);
  EXPECT_EQ(expression->Replace("aa", "b"), "bb");
  expression->Compile("c", kFirst);
  EXPECT_EQ(expression->Replace("acc", "b"), "abc");
}

TEST(RegExp, GivesUpOnPatternsThatTakeTooLong) {
  const double start = tests::CpuSeconds();
  EXPECT_THAT(FailureOf("(a+)+$", std::string(40, 'a') + "b"), HasSubstr("takes too long"));
  EXPECT_THAT(FailureOf("^(\\w+\\s?)*$", std::string(40, 'a') + "!"), HasSubstr("takes too long"));
  EXPECT_THAT(FailureOf("(x+x+)+y", std::string(60, 'x')), HasSubstr("no failure"));
  EXPECT_THAT(FailureOf("(?:(x+)(x+))+[yz]", std::string(60, 'x')), HasSubstr("takes too long"));
  EXPECT_LT(tests::CpuSeconds() - start, 20);
}

TEST(RegExp, GivesUpOnLongTextsThatAreSlowAtEveryPlace) {
  const double start = tests::CpuSeconds();
  const std::string text(300'000, 'a');
  EXPECT_THAT(FailureOf("(?:a|aa){0,30}[bc]", text), HasSubstr("takes too long"));
  EXPECT_THAT(FailureOf("(?:a(?=.*?[bc]))", text), HasSubstr("takes too long"));
  EXPECT_THAT(FailureOf("a(?=(?:.*?[bc])?)", text), HasSubstr("takes too long"));
  EXPECT_LT(tests::CpuSeconds() - start, 20);
}

TEST(RegExp, HandlesDeepRepetitionOfGroups) {
  const std::string text(50'000, 'a');
  EXPECT_EQ(Replaced("^(?:a|b)*$", kFirst, text, "x"), "x");
}

}  // namespace
}  // namespace dralo::regional
