#include <gtest/gtest.h>

#include <random>
#include <span>

#include "dralo/error.h"
#include "regional/locale_formatting.h"
#include "regional/reg_exp.h"

namespace dralo::regional {
namespace {

/// Texts from pieces that dates, numbers and patterns are made of, and from any bytes.
class AnyBytes : public ::testing::Test {
 protected:
  std::string Text(std::span<const std::string_view> pieces) {
    std::string text;
    for (std::size_t i = random_() % 12; i > 0; --i) {
      if (random_() % 5 == 0) {
        text += static_cast<char>(random_());
      } else {
        text += pieces[random_() % pieces.size()];
      }
    }
    return text;
  }

  std::mt19937 random_{4711};
};

constexpr std::string_view kDatePieces[] = {
    "1",  "12",   "2024", "99", "/",    ".",        "-",      ":",       " ",   "\u202F", "\u00A0",
    "PM", "am",   "T",    "Z",  ",",    "'",        "e",      "May",     "Mai", "年",     "月",
    "日", "오후", "г",    "E5", "\xC2", "\xE2\x80", "\u200F", "tháng 1", "+",   "\u2212"};

TEST_F(AnyBytes, AreRecognisedAsValidValuesOrNone) {
  int dates = 0;
  int numbers = 0;
  for (const std::string_view locale :
       {"en-US", "de-DE", "fr-FR", "ja-JP", "ko-KR", "vi-VN", "bg-BG", "en-IN"}) {
    const auto formatting = MakeFormatting(locale);
    for (int i = 0; i < 15'000; ++i) {
      const std::string text = Text(kDatePieces);
      if (const auto time = formatting->RecognizeDate(text)) {
        ASSERT_TRUE(time->IsValid()) << text;
        ++dates;
      }
      if (const auto number = formatting->RecognizeNumber(text)) {
        ASSERT_EQ(number->text.find_first_not_of("-.0123456789"), std::string::npos) << text;
        ++numbers;
      }
    }
  }
  EXPECT_GT(dates, 50);
  EXPECT_GT(numbers, 500);
}

constexpr std::string_view kPatternPieces[] = {
    "a",  "b",   ".",   "*",   "+",     "?", "(",   ")",   "(?:", "|",     "[",    "]",  "^",         "$",
    "\\", "\\d", "\\w", "\\b", "{2,3}", "å", "\\1", "(?=", "(?<", "\\u00", "\\x{", "$1", "\U0001F600"};
constexpr std::string_view kTextPieces[] = {"a", "b",          "1",    " ",    "\n",  "\r\n",
                                            "å", "\U0001F600", "\xC3", "\x80", "aaaa"};
constexpr std::string_view kReplacementPieces[] = {"$", "$1", "$&", "$12", "$$", "x", "9"};

TEST_F(AnyBytes, AreReplacedOrRefused) {
  int compiled = 0;
  for (int i = 0; i < 10'000; ++i) {
    const auto expression = MakeRegExp();
    const std::string pattern = Text(kPatternPieces);
    try {
      expression->Compile(pattern, {random_() % 2 == 0, random_() % 2 == 0, random_() % 2 == 0});
    } catch (const platform::Error&) {
      continue;
    }
    ++compiled;
    for (int j = 0; j < 4; ++j) {
      const std::string text = Text(kTextPieces);
      ASSERT_EQ(expression->Replace(text, "$&"), text) << "pattern " << pattern;
      expression->Replace(text, Text(kReplacementPieces));
    }
  }
  EXPECT_GT(compiled, 500);
}

}  // namespace
}  // namespace dralo::regional
