#include "text/decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace dralo::text {
namespace {

TEST(DecimalText, TellsPlainDecimals) {
  for (const char* text : {"0", "-1", "12.50", "0.1", "123456789012345678901234567890.5"}) {
    EXPECT_TRUE(IsPlainDecimal(text)) << text;
  }
  for (const char* text :
       {"", "-", ".5", "5.", "+1", "1e5", " 1", "1,5", "1.2.3", "abc", "1\xFF", "\xD9\xA1"}) {
    EXPECT_FALSE(IsPlainDecimal(text)) << text;
  }
}

TEST(DecimalText, ReadsNumbersExactlyIntoTheirShortestForm) {
  EXPECT_EQ(ParseDecimal("007.50"), "7.5");
  EXPECT_EQ(ParseDecimal(" +12 "), "12");
  EXPECT_EQ(ParseDecimal("-0.0"), "0");
  EXPECT_EQ(ParseDecimal(".5"), "0.5");
  EXPECT_EQ(ParseDecimal("5."), "5");
  EXPECT_EQ(ParseDecimal("75e-1"), "7.5");
  EXPECT_EQ(ParseDecimal("1.5E3"), "1500");
  EXPECT_EQ(ParseDecimal("1e-5"), "0.00001");
  EXPECT_EQ(ParseDecimal("12345678901234567890.12345678901234567890"),
            "12345678901234567890.1234567890123456789");
}

TEST(DecimalText, RefusesWhatIsNoNumber) {
  for (const char* text :
       {"", " ", "-", ".", "e5", "1e", "1e+-5", "1,5", "1 2", "0x10", "1e999999999999", "nan", "--1"}) {
    EXPECT_EQ(ParseDecimal(text), std::nullopt) << text;
  }
  EXPECT_EQ(ParseDecimal(std::string(401, '1')), std::nullopt);
}

TEST(SplitDecimal, CutsANumberIntoItsParts) {
  const auto parts = SplitDecimal("-007.50e-12");
  ASSERT_TRUE(parts);
  EXPECT_TRUE(parts->is_negative);
  EXPECT_EQ(parts->whole, "007");
  EXPECT_EQ(parts->fraction, "50");
  EXPECT_TRUE(parts->has_exponent);
  EXPECT_EQ(parts->exponent, -12);
  EXPECT_EQ(SplitDecimal("1e999999999999")->exponent, 100'000'000);
}

TEST(SplitDecimal, NeedsDigitsOnOneSideOfThePointOnly) {
  EXPECT_EQ(SplitDecimal("+5.")->whole, "5");
  EXPECT_EQ(SplitDecimal(".5")->fraction, "5");
  EXPECT_FALSE(SplitDecimal("5")->has_exponent);
  for (const char* text :
       {"", "-", ".", "-.", "e5", "1e", "1e+", "1e+-5", " 1", "1 ", "1,5", "--1", "\xFF", "1\x80"}) {
    EXPECT_FALSE(SplitDecimal(text)) << text;
  }
}

TEST(ExpandDecimal, WritesTheShortestPlainForm) {
  EXPECT_EQ(ExpandDecimal(false, "0750", 2), "7.5");
  EXPECT_EQ(ExpandDecimal(true, "75", -1), "-0.075");
  EXPECT_EQ(ExpandDecimal(true, "75", 4), "-7500");
  EXPECT_EQ(ExpandDecimal(true, "000", 5), "0");
  EXPECT_EQ(ExpandDecimal(false, "", 0), "0");
}

TEST(ExpandDecimal, RefusesMoreThanAThousandDigits) {
  EXPECT_EQ(ExpandDecimal(false, "1", 1000), "1" + std::string(999, '0'));
  EXPECT_EQ(ExpandDecimal(false, "1", 1001), std::nullopt);
  EXPECT_EQ(ExpandDecimal(false, "1", -998), "0." + std::string(998, '0') + "1");
  EXPECT_EQ(ExpandDecimal(false, "1", -999), std::nullopt);
}

TEST(ParseNumber, ReadsTheWholeTextOrNothing) {
  EXPECT_EQ(ParseNumber<int>("-7"), -7);
  EXPECT_EQ(ParseNumber<double>("1.5e1"), 15.0);
  EXPECT_EQ(ParseNumber<std::int64_t>("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
  for (const char* text : {"", "+7", " 7", "7 ", "7x", "2147483648", "1\xFF"}) {
    EXPECT_EQ(ParseNumber<int>(text), std::nullopt) << text;
  }
}

TEST(ParseNumber, ReadsShortDecimalsAsTheNearestNumbersLikeLongOnes) {
  std::mt19937_64 random(20);
  for (int i = 0; i < 100'000; ++i) {
    std::string text = std::to_string(random() % 1'000'000'000'000'000);
    text.resize(1 + random() % text.size());
    if (const auto point = random() % text.size(); point > 0) text.insert(point, ".");
    if (i % 2 == 0) text.insert(0, "-");
    const double expected = std::strtod(text.c_str(), nullptr);
    EXPECT_EQ(ParseNumber<double>(text), expected) << text;
    EXPECT_EQ(ParseNumber<double>(text + (text.find('.') == text.npos ? ".0" : "0")), expected);
  }
  EXPECT_TRUE(std::signbit(ParseNumber<double>("-0.00").value()));
  for (const char* text : {"", "-", "--1", "+1", "1.2.3", "1..2", "1,5", " 1", "1 ", "0x1", "."}) {
    EXPECT_EQ(ParseNumber<double>(text), std::nullopt) << text;
  }
}

TEST(DecimalText, WritesDoublesInTheirShortestForm) {
  EXPECT_EQ(DecimalText(0.1), "0.1");
  EXPECT_EQ(DecimalText(-1500.0), "-1500");
  EXPECT_EQ(DecimalText(1e21), "1000000000000000000000");
  EXPECT_EQ(DecimalText(std::numeric_limits<double>::infinity()), std::nullopt);
  EXPECT_EQ(std::stod(*DecimalText(std::numeric_limits<double>::max())), std::numeric_limits<double>::max());
  EXPECT_EQ(std::stod(*DecimalText(2.2250738585072014e-308)), 2.2250738585072014e-308);
}

}  // namespace
}  // namespace dralo::text
