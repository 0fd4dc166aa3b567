#include "database/money_text.h"

#include <gtest/gtest.h>

#include <variant>

namespace dralo::tests {

namespace {

std::string Amount(std::string_view text) {
  std::string scratch;
  const platform::VariantView value = database::ReadMoney(text, scratch);
  const auto* const decimal = std::get_if<platform::DecimalView>(&value);
  return decimal == nullptr ? "no amount" : std::string(decimal->text);
}

TEST(MoneyText, HasItsDecimalsBehindTheLastPointOrComma) {
  EXPECT_EQ(Amount("$1,234.50"), "1234.50");
  EXPECT_EQ(Amount("1.234,50 €"), "1234.50");
  EXPECT_EQ(Amount("1'234.5"), "1234.5");
}

TEST(MoneyText, HasNoDecimalsWhereThreeDigitsFollow) {
  EXPECT_EQ(Amount("$1,234"), "1234");
  EXPECT_EQ(Amount("1.234.567 Ft"), "1234567");
  EXPECT_EQ(Amount("¥12"), "12");
}

TEST(MoneyText, IsNegativeBehindASignOrInParentheses) {
  EXPECT_EQ(Amount("-$5.00"), "-5.00");
  EXPECT_EQ(Amount("($5.00)"), "-5.00");
}

TEST(MoneyText, StaysATextWithoutDigits) {
  EXPECT_EQ(Amount(""), "no amount");
  EXPECT_EQ(Amount("$"), "no amount");
  EXPECT_EQ(Amount("-"), "no amount");
}

}  // namespace

}  // namespace dralo::tests
