#include "database/decimal_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace dralo::database {

namespace {

TEST(DecimalText, TellsPlainDecimals) {
  for (const char* text : {"0", "-1", "12.50", "0.1", "123456789012345678901234567890.5"}) {
    EXPECT_TRUE(IsPlainDecimal(text)) << text;
  }
  for (const char* text : {"", "-", ".5", "5.", "+1", "1e5", " 1", "1,5", "1.2.3", "abc"}) {
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

TEST(DecimalText, WritesDoublesInTheirShortestForm) {
  EXPECT_EQ(DecimalText(0.1), "0.1");
  EXPECT_EQ(DecimalText(-1500.0), "-1500");
  EXPECT_EQ(DecimalText(1e21), "1000000000000000000000");
  EXPECT_EQ(DecimalText(std::numeric_limits<double>::infinity()), std::nullopt);
  EXPECT_EQ(std::stod(*DecimalText(std::numeric_limits<double>::max())), std::numeric_limits<double>::max());
  EXPECT_EQ(std::stod(*DecimalText(2.2250738585072014e-308)), 2.2250738585072014e-308);
}

}  // namespace

}  // namespace dralo::database
