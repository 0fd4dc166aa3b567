#include "state/key_text.h"

#include <gtest/gtest.h>

#include <string>

#include "support/fake_records.h"

namespace dralo::tests {
namespace {

using platform::DateTime;
using platform::TypeCode;

std::string TextOf(const platform::VariantView& value, TypeCode type = TypeCode::kInteger) {
  FakeField field("K", type, [&] { return value; });
  std::string scratch = "of another value";
  return std::string(state::KeyText(field, scratch));
}

TEST(KeyText, OfWholeNumbersHasNoGroups) {
  EXPECT_EQ(TextOf(std::int64_t{1234567}), "1234567");
  EXPECT_EQ(TextOf(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(KeyText, OfNumbersIsExactWithAPoint) {
  EXPECT_EQ(TextOf(1.5), "1.5");
  EXPECT_EQ(TextOf(2.0), "2");
  EXPECT_EQ(TextOf(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(TextOf(platform::DecimalView{"1234567890123456789.500"}), "1234567890123456789.500");
}

TEST(KeyText, OfBooleansIsANumber) {
  EXPECT_EQ(TextOf(true), "1");
  EXPECT_EQ(TextOf(false), "0");
}

TEST(KeyText, OfTextIsTheText) { EXPECT_EQ(TextOf(std::string_view(" O'Neil ")), " O'Neil "); }

TEST(KeyText, OfNullAndBytesIsEmpty) {
  const std::uint8_t bytes[] = {65, 66};
  EXPECT_EQ(TextOf(platform::Null{}), "");
  EXPECT_EQ(TextOf(platform::BytesView{bytes, 2}), "");
}

TEST(KeyText, OfDatesIsIsoAndDropsMidnight) {
  EXPECT_EQ(TextOf(DateTime{2001, 2, 3}, TypeCode::kDate), "2001-02-03");
  EXPECT_EQ(TextOf(DateTime{99, 12, 31}, TypeCode::kDbDate), "0099-12-31");
  EXPECT_EQ(TextOf(DateTime{2001, 2, 3, 4, 5, 6}, TypeCode::kDbTimestamp), "2001-02-03 04:05:06");
  EXPECT_EQ(TextOf(DateTime{2001, 2, 3, 0, 0, 0, 250'000'000}, TypeCode::kDate), "2001-02-03 00:00:00.25");
  EXPECT_EQ(TextOf(DateTime{2001, 2, 3, 4, 5, 6, 7}, TypeCode::kDate), "2001-02-03 04:05:06.000000007");
}

TEST(KeyText, OfTheZeroDateIsADateExceptForTimesOfDay) {
  EXPECT_EQ(TextOf(DateTime{1899, 12, 30, 12}, TypeCode::kDate), "1899-12-30 12:00:00");
  EXPECT_EQ(TextOf(DateTime{1899, 12, 30}, TypeCode::kDate), "1899-12-30");
  EXPECT_EQ(TextOf(DateTime{1899, 12, 30, 12}, TypeCode::kDbTime), "12:00:00");
  EXPECT_EQ(TextOf(DateTime{}, TypeCode::kDbTime), "00:00:00");
}

}  // namespace
}  // namespace dralo::tests
