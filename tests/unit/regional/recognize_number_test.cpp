#include <gtest/gtest.h>

#include "regional/locale_formatting.h"

namespace dralo::regional {
namespace {

std::string Recognized(std::string_view locale, std::string_view text) {
  const auto number = MakeFormatting(locale)->RecognizeNumber(text);
  return number ? number->text : "none";
}

struct NumberRow {
  std::string_view text, number;
};

template <std::size_t Size>
void ExpectNumbers(std::string_view locale, const NumberRow (&table)[Size]) {
  const auto formatting = MakeFormatting(locale);
  for (const auto& [text, number] : table) {
    const auto recognized = formatting->RecognizeNumber(text);
    EXPECT_EQ(recognized ? recognized->text : "none", number) << locale << ": " << text;
  }
}

TEST(RecognizeNumber, ReadsTheFormsOfAmericanEnglish) {
  ExpectNumbers("en-US", {
                             {"0", "0"},
                             {"42", "42"},
                             {" \t42\n", "42"},
                             {"\u00A042\u202F", "42"},
                             {"+42", "42"},
                             {"-42", "-42"},
                             {"\u221242", "-42"},
                             {"\u200E-42", "-42"},
                             {"3.14159", "3.14159"},
                             {".5", "0.5"},
                             {"-.5", "-0.5"},
                             {"5.", "5"},
                             {"1,234", "1234"},
                             {"1,234,567.89", "1234567.89"},
                             {"1234567.89", "1234567.89"},
                             {"12345678901234567890.123456789012345678901",
                              "12345678901234567890.123456789012345678901"},
                         });
}

TEST(RecognizeNumber, GivesEachNumberOneForm) {
  ExpectNumbers("en-US", {
                             {"007", "7"},
                             {"1.50", "1.5"},
                             {"2.000", "2"},
                             {"-0", "0"},
                             {"-0.00", "0"},
                             {"+0", "0"},
                             {"0e999999999999", "0"},
                             {"00.5", "0.5"},
                         });
}

TEST(RecognizeNumber, ExpandsExponents) {
  ExpectNumbers("en-US", {
                             {"1e3", "1000"},
                             {"1.5E+2", "150"},
                             {"-1.25e1", "-12.5"},
                             {"12.5e-3", "0.0125"},
                             {"1E-06", "0.000001"},
                             {"1,234e1", "12340"},
                             {"0.001e3", "1"},
                             {"1e", "none"},
                             {"1e+", "none"},
                             {"1e1.5", "none"},
                             {"e5", "none"},
                             {"1 e5", "none"},
                         });
}

TEST(RecognizeNumber, EndsAtAThousandDigits) {
  EXPECT_EQ(Recognized("en-US", "1e999"), "1" + std::string(999, '0'));
  EXPECT_EQ(Recognized("en-US", "1e1000"), "none");
  EXPECT_EQ(Recognized("en-US", "1e-999"), "0." + std::string(998, '0') + "1");
  EXPECT_EQ(Recognized("en-US", "1e-1000"), "none");
  EXPECT_EQ(Recognized("en-US", "1e99999999999999999999"), "none");
  EXPECT_EQ(Recognized("en-US", "1e-99999999999999999999"), "none");
  EXPECT_EQ(Recognized("en-US", std::string(1000, '9')), std::string(1000, '9'));
  EXPECT_EQ(Recognized("en-US", std::string(1001, '9')), "none");
  EXPECT_EQ(Recognized("en-US", std::string(100'000, '0') + "1"), "1");
}

TEST(RecognizeNumber, RefusesWhatIsNoNumber) {
  for (const std::string_view text :
       {"",      " ",    "-",   "+",        ".",    ",",    "abc",
        "1a",    "a1",   "1 2", "--1",      "+-1",  "- 1",  "1-",
        "(5)",   "$5",   "5$",  "5%",       "&H10", "0x10", "&O17",
        "1.2.3", "1..2", "NaN", "Infinity", "1/2",  "True", "\xD9\xA1\xD9\xA2"}) {
    EXPECT_EQ(Recognized("en-US", text), "none") << text;
  }
  EXPECT_EQ(Recognized("en-US", std::string_view("1\0", 2)), "none");
}

TEST(RecognizeNumber, TakesGroupingOnlyWhereTheLocaleHasIt) {
  ExpectNumbers("en-US", {
                             {"12,5", "none"},
                             {"1,2345", "none"},
                             {"1234,567", "none"},
                             {",123", "none"},
                             {"123,", "none"},
                             {"1,,234", "none"},
                             {"1,234,56", "none"},
                             {"1.234,567", "none"},
                             {"12,34,567", "none"},
                         });
  ExpectNumbers("en-IN", {{"12,34,567", "1234567"}, {"1,234,567", "1234567"}, {"12,34", "none"}});
}

TEST(RecognizeNumber, FollowsTheLocale) {
  ExpectNumbers("de-DE", {{"1.234,5", "1234.5"},
                          {"1234,5", "1234.5"},
                          {"1.234", "1234"},
                          {"12.5", "none"},
                          {"1,234.5", "none"}});
  ExpectNumbers(
      "nb-NO",
      {{"1\u00A0234,5", "1234.5"}, {"1 234 567", "1234567"}, {"1\u202F234", "1234"}, {"12 34", "none"}});
  ExpectNumbers("fr-FR",
                {{"1\u202F234,5", "1234.5"}, {"1 234,5", "1234.5"}, {"1\u00A0234", "1234"}, {"1.5", "none"}});
  ExpectNumbers("de-CH", {{"1\u2019234.5", "1234.5"}, {"1'234.5", "1234.5"}, {"1,5", "none"}});
  ExpectNumbers("ar-EG", {{"1,234.5", "1234.5"}, {"\u061C-5", "-5"}});
  ExpectNumbers("ja-JP", {{"1,234.5", "1234.5"}});
}

}  // namespace
}  // namespace dralo::regional
