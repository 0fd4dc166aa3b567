#include "state/request_number.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "dralo/error.h"
#include "regional/locale_formatting.h"

namespace dralo::state {
namespace {

using platform::DecimalView;
using platform::VariantView;

const platform::Formatting& American() {
  static const auto formatting = regional::MakeFormatting("en-US");
  return *formatting;
}

std::int32_t Int32(const VariantView& value) { return ToInt32(American(), value, "Morvu1CurrRecord"); }
std::int16_t Int16(const VariantView& value) { return ToInt16(American(), value, "Morvu1maxrecords"); }

VariantView Text(std::string_view text) { return text; }

struct Spelled {
  const char* text;
  std::int32_t number;
};

class WholeNumberText : public testing::TestWithParam<Spelled> {};

TEST_P(WholeNumberText, IsRead) { EXPECT_EQ(Int32(Text(GetParam().text)), GetParam().number); }

INSTANTIATE_TEST_SUITE_P(Plain, WholeNumberText,
                         testing::Values(Spelled{"0", 0}, Spelled{"21", 21}, Spelled{"007", 7},
                                         Spelled{"-5", -5}, Spelled{"+5", 5}, Spelled{"-0", 0},
                                         Spelled{"  21  ", 21}, Spelled{" -5", -5}, Spelled{"1,234", 1'234},
                                         Spelled{"1e3", 1'000}, Spelled{"2147483647", 2'147'483'647},
                                         Spelled{"-2147483648", std::numeric_limits<std::int32_t>::min()}));

INSTANTIATE_TEST_SUITE_P(FractionsAreRoundedHalfToEven, WholeNumberText,
                         testing::Values(Spelled{"0.5", 0}, Spelled{"1.5", 2}, Spelled{"2.5", 2},
                                         Spelled{"3.5", 4}, Spelled{"-0.5", 0}, Spelled{"-1.5", -2},
                                         Spelled{"-2.5", -2}, Spelled{"2.50000", 2},
                                         Spelled{"2.500000000000000000000001", 3}, Spelled{"-2.51", -3},
                                         Spelled{"2.49999", 2}, Spelled{"-0.9", -1}, Spelled{".5", 0},
                                         Spelled{".6", 1}, Spelled{"7.", 7},
                                         Spelled{"2147483647.4", 2147483647}, Spelled{"1e-400", 0}));

class NoWholeNumberText : public testing::TestWithParam<std::string> {};

TEST_P(NoWholeNumberText, IsRefused) {
  EXPECT_THROW(Int32(Text(GetParam())), platform::Error);
  EXPECT_THROW(Int16(Text(GetParam())), platform::Error);
}

INSTANTIATE_TEST_SUITE_P(Words, NoWholeNumberText,
                         testing::Values("", " ", "abc", "12abc", "1 2", "21, 1", "0x10", "&H10", "--5", "5-",
                                         "- 5", ".", "-", "1..2", "NaN", "inf", "True", "'1'", "\xFF",
                                         std::string("1\0", 2)));

INSTANTIATE_TEST_SUITE_P(BeyondTheRange, NoWholeNumberText,
                         testing::Values("2147483648", "2147483647.5", "-2147483649", "-2147483648.6",
                                         "4294967297", "9223372036854775807", "9223372036854775807.5",
                                         "-9223372036854775808.9", "9223372036854775808",
                                         "99999999999999999999999999", "1e10", "1e400", "1e999999999",
                                         "-1e999999999", std::string(1'000'000, '9')));

TEST(ToInt16, HoldsSixteenBits) {
  EXPECT_EQ(Int16(Text("32767")), 32'767);
  EXPECT_EQ(Int16(Text("-32768")), -32'768);
  EXPECT_EQ(Int16(Text("-32768.5")), -32'768);
  EXPECT_THROW(Int16(Text("32768")), platform::Error);
  EXPECT_THROW(Int16(Text("32767.5")), platform::Error);
  EXPECT_THROW(Int16(Text("-32769")), platform::Error);
  EXPECT_THROW(Int16(Text("65537")), platform::Error);
}

TEST(ToInt32, TakesValuesThatAreNumbersAlready) {
  EXPECT_EQ(Int32(std::int64_t{-7}), -7);
  EXPECT_EQ(Int32(2.5), 2);
  EXPECT_EQ(Int32(-3.5), -4);
  EXPECT_EQ(Int32(DecimalView{"3.50"}), 4);
  EXPECT_EQ(Int32(DecimalView{"-0.5"}), 0);
}

TEST(ToInt32, TakesTrueAsAllBitsSet) {
  EXPECT_EQ(Int32(true), -1);
  EXPECT_EQ(Int32(false), 0);
}

TEST(ToInt32, RefusesValuesThatAreNoNumber) {
  EXPECT_THROW(Int32(platform::Null{}), platform::Error);
  EXPECT_THROW(Int32(platform::BytesView{}), platform::Error);
  EXPECT_THROW(Int32(platform::DateTime{}), platform::Error);
  EXPECT_THROW(Int32(std::numeric_limits<double>::quiet_NaN()), platform::Error);
  EXPECT_THROW(Int32(std::numeric_limits<double>::infinity()), platform::Error);
  EXPECT_THROW(Int32(1e300), platform::Error);
  EXPECT_THROW(Int32(std::numeric_limits<std::int64_t>::max()), platform::Error);
}

TEST(ToInt32, ReadsNumbersInTheFormOfTheLocale) {
  const auto german = regional::MakeFormatting("de-DE");

  EXPECT_EQ(ToInt32(*german, Text("1.234"), "x"), 1'234);
  EXPECT_EQ(ToInt32(*german, Text("3,5"), "x"), 4);
  EXPECT_EQ(ToInt32(*german, 3.5, "x"), 4);
}

TEST(ToInt32, NamesTheKeyAndNotTheValueInItsMessage) {
  try {
    Int32(Text("<script>7"));
    FAIL() << "no number was read as one";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Description(), "Morvu1CurrRecord must be a whole number from -2147483648 to 2147483647");
  }
}

TEST(ToInt16, NamesTheKeyAndItsOwnRangeInItsMessage) {
  try {
    Int16(Text("\"70000"));
    FAIL() << "no number was read as one";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Description(), "Morvu1maxrecords must be a whole number from -32768 to 32767");
  }
}

}  // namespace
}  // namespace dralo::state
