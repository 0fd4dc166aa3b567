#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>

#include "dralo/error.h"
#include "regional/locale_formatting.h"

namespace dralo::regional {
namespace {

using platform::NumberKind;
using platform::NumberOptions;
using platform::Tristate;

std::string In(std::string_view locale, std::string_view decimal, NumberKind kind,
               const NumberOptions& options = {}) {
  std::string scratch;
  return std::string(MakeFormatting(locale)->NumberText({decimal}, kind, options, scratch));
}

std::string Number(std::string_view decimal, const NumberOptions& options = {}) {
  static const auto formatting = MakeFormatting("en-US");
  std::string scratch;
  return std::string(formatting->NumberText({decimal}, NumberKind::kNumber, options, scratch));
}

TEST(NumberText, FollowsTheLocale) {
  struct Expected {
    std::string_view locale, number, currency, negative_currency, in_parentheses, percent;
  };
  // By its version ICU has the Norwegian krone before or behind the number.
  const bool krone_first = In("nb-NO", "1", NumberKind::kCurrency).starts_with("kr");
  const Expected table[] = {
      {"en-US", "-1,234,567.50", "$1,234.50", "-$1,234.50", "($1,234.50)", "-12.50%"},
      {"de-DE", "-1.234.567,50", "1.234,50\u00A0€", "-1.234,50\u00A0€", "(1.234,50\u00A0€)", "-12,50\u00A0%"},
      krone_first ? Expected{"nb-NO", "-1\u00A0234\u00A0567,50", "kr\u00A01\u00A0234,50",
                             "kr\u00A0-1\u00A0234,50", "(kr\u00A01\u00A0234,50)", "-12,50\u00A0%"}
                  : Expected{"nb-NO", "-1\u00A0234\u00A0567,50", "1\u00A0234,50\u00A0kr",
                             "-1\u00A0234,50\u00A0kr", "(1\u00A0234,50\u00A0kr)", "-12,50\u00A0%"},
      {"en-IN", "-12,34,567.50", "₹1,234.50", "-₹1,234.50", "(₹1,234.50)", "-12.50%"},
  };
  for (const Expected& expected : table) {
    SCOPED_TRACE(expected.locale);
    EXPECT_EQ(In(expected.locale, "-1234567.5", NumberKind::kNumber), expected.number);
    EXPECT_EQ(In(expected.locale, "1234.5", NumberKind::kCurrency), expected.currency);
    EXPECT_EQ(In(expected.locale, "-1234.5", NumberKind::kCurrency), expected.negative_currency);
    EXPECT_EQ(In(expected.locale, "-1234.5", NumberKind::kCurrency, {.parentheses = Tristate::kTrue}),
              expected.in_parentheses);
    EXPECT_EQ(In(expected.locale, "-0.125", NumberKind::kPercent), expected.percent);
  }
}

TEST(NumberText, HasTheCurrencysOwnDigitsByDefault) {
  EXPECT_EQ(In("ja-JP", "1234.5", NumberKind::kCurrency), "￥1,235");
  EXPECT_EQ(In("ja-JP", "1234.5", NumberKind::kCurrency, {.digits = 1}), "￥1,234.5");
}

TEST(NumberText, RoundsHalfAwayFromZeroWithoutBinaryErrors) {
  EXPECT_EQ(Number("2.675"), "2.68");
  EXPECT_EQ(Number("-2.675"), "-2.68");
  EXPECT_EQ(Number("1.005"), "1.01");
  EXPECT_EQ(Number("0.5", {.digits = 0}), "1");
  EXPECT_EQ(Number("0.49999999999999999999", {.digits = 0}), "0");
  EXPECT_EQ(Number("99.995"), "100.00");
  EXPECT_EQ(Number("999999999999999999999.995"), "1,000,000,000,000,000,000,000.00");
}

TEST(NumberText, FillsWithZeros) {
  EXPECT_EQ(Number("3", {.digits = 5}), "3.00000");
  EXPECT_EQ(Number("0"), "0.00");
  EXPECT_EQ(Number("0", {.digits = 0}), "0");
  EXPECT_EQ(Number("0.0004", {.digits = 3}), "0.000");
}

TEST(NumberText, HasNoSignForWhatIsRoundedToZero) {
  EXPECT_EQ(Number("-0.004"), "0.00");
  EXPECT_EQ(Number("-0.004", {.parentheses = Tristate::kTrue}), "0.00");
  EXPECT_EQ(Number("-0.005"), "-0.01");
}

TEST(NumberText, TakesOptions) {
  EXPECT_EQ(Number("-0.5", {.leading_digit = Tristate::kFalse}), "-.50");
  EXPECT_EQ(Number("0", {.digits = 0, .leading_digit = Tristate::kFalse}), "0");
  EXPECT_EQ(Number("-1234.5", {.parentheses = Tristate::kTrue}), "(1,234.50)");
  EXPECT_EQ(Number("-1234.5", {.parentheses = Tristate::kFalse}), "-1,234.50");
  EXPECT_EQ(Number("1234.5", {.groups = Tristate::kFalse}), "1234.50");
  EXPECT_EQ(Number("1234.5", {.groups = Tristate::kTrue}), "1,234.50");
}

TEST(NumberText, ThrowsForWhatIsNoDecimal) {
  EXPECT_THROW(Number("12a"), platform::Error);
  EXPECT_THROW(Number(std::string(2000, '1')), platform::Error);
}

TEST(NumberText, AgreesWithExactArithmetic) {
  std::mt19937_64 random(42);
  std::uniform_int_distribution<std::int64_t> numbers(-9'000'000'000'000, 9'000'000'000'000);
  for (int i = 0; i < 20'000; ++i) {
    const std::int64_t millionths = numbers(random);
    const std::uint64_t magnitude = static_cast<std::uint64_t>(std::abs(millionths));
    std::string fraction = std::to_string(magnitude % 1'000'000);
    fraction.insert(0, 6 - fraction.size(), '0');
    const std::string sign = millionths < 0 ? "-" : "";
    const std::string decimal = sign + std::to_string(magnitude / 1'000'000) + "." + fraction;

    const std::uint64_t hundredths = (magnitude + 5'000) / 10'000;
    std::string cents = std::to_string(hundredths % 100);
    cents.insert(0, 2 - cents.size(), '0');
    const std::string expected =
        (hundredths == 0 ? "" : sign) + std::to_string(hundredths / 100) + "." + cents;
    ASSERT_EQ(Number(decimal, {.groups = Tristate::kFalse}), expected) << decimal;
  }
}

TEST(Rounded, RoundsHalfToEven) {
  const auto formatting = MakeFormatting("en-US");
  const auto rounded = [&](std::string_view number, int digits) {
    return formatting->Rounded({number}, digits).text;
  };
  EXPECT_EQ(rounded("0.5", 0), "0");
  EXPECT_EQ(rounded("1.5", 0), "2");
  EXPECT_EQ(rounded("2.5", 0), "2");
  EXPECT_EQ(rounded("-2.5", 0), "-2");
  EXPECT_EQ(rounded("-0.5", 0), "0");
  EXPECT_EQ(rounded("2.5000001", 0), "3");
  EXPECT_EQ(rounded("2.665", 2), "2.66");
  EXPECT_EQ(rounded("2.675", 2), "2.68");
  EXPECT_EQ(rounded("9.995", 2), "10");
  EXPECT_EQ(rounded("0.05", 1), "0");
  EXPECT_EQ(rounded("0.15", 1), "0.2");
  EXPECT_EQ(rounded("12", 3), "12");
  EXPECT_EQ(rounded("0.00012", 5), "0.00012");
}

}  // namespace
}  // namespace dralo::regional
