#include "database/conversion.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

#include "data/show.h"
#include "unit/database/one_date.h"

namespace dralo::database {

namespace {

using platform::Bytes;
using platform::DateTime;
using platform::Decimal;
using platform::Null;
using platform::TypeCode;
using platform::Variant;

Column Of(TypeCode type) {
  Column column;
  column.type = type;
  column.has_declared_type = true;
  return column;
}

/// The converted value, or why it is refused.
std::string Converted(const Column& column, const Variant& value,
                      const platform::Formatting* formatting = nullptr) {
  Variant converted;
  const std::string refusal = Convert(column, View(value), formatting, converted);
  return refusal.empty() ? tests::Shown(View(converted)) : refusal;
}

std::string Converted(TypeCode type, const Variant& value) { return Converted(Of(type), value); }

TEST(Conversion, KeepsNull) { EXPECT_EQ(Converted(TypeCode::kInteger, Null{}), "null"); }

TEST(Conversion, MakesWholeNumbers) {
  EXPECT_EQ(Converted(TypeCode::kInteger, " 42 "), "42");
  EXPECT_EQ(Converted(TypeCode::kInteger, "-7.00"), "-7");
  EXPECT_EQ(Converted(TypeCode::kInteger, 5.0), "5");
  EXPECT_EQ(Converted(TypeCode::kInteger, true), "1");
  EXPECT_EQ(Converted(TypeCode::kInteger, Decimal{"12"}), "12");
  EXPECT_EQ(Converted(TypeCode::kBigInt, "9223372036854775807"), "9223372036854775807");
}

TEST(Conversion, RefusesWhatIsNoWholeNumber) {
  EXPECT_EQ(Converted(TypeCode::kInteger, "3,5"), "is not a number");
  EXPECT_EQ(Converted(TypeCode::kInteger, ""), "is not a number");
  EXPECT_EQ(Converted(TypeCode::kInteger, "3.5"), "is not a whole number");
  EXPECT_EQ(Converted(TypeCode::kInteger, 0.5), "is not a whole number");
  EXPECT_EQ(Converted(TypeCode::kInteger, DateTime{2024, 1, 1}), "is not a number");
  EXPECT_EQ(Converted(TypeCode::kInteger, Bytes{1}), "is not a number");
}

TEST(Conversion, ChecksTheRangeOfTheColumn) {
  EXPECT_EQ(Converted(TypeCode::kTinyInt, "127"), "127");
  EXPECT_EQ(Converted(TypeCode::kTinyInt, "128"), "is not between -128 and 127");
  EXPECT_EQ(Converted(TypeCode::kSmallInt, "-32769"), "is not between -32768 and 32767");
  EXPECT_EQ(Converted(TypeCode::kInteger, "2147483648"), "is not between -2147483648 and 2147483647");
  EXPECT_EQ(Converted(TypeCode::kUnsignedTinyInt, "-1"), "is not between 0 and 255");
  EXPECT_EQ(Converted(TypeCode::kBigInt, "9223372036854775808"),
            "is not between -9223372036854775808 and 9223372036854775807");
}

TEST(Conversion, KeepsSixtyFourBitsWhereTheColumnDoes) {
  Column column = Of(TypeCode::kInteger);
  column.holds_64_bits = true;
  EXPECT_EQ(Converted(column, "5000000000"), "5000000000");
}

TEST(Conversion, MakesExactDecimals) {
  EXPECT_EQ(Converted(TypeCode::kNumeric, "12345678901234567890.10"), "12345678901234567890.1m");
  EXPECT_EQ(Converted(TypeCode::kCurrency, std::int64_t{5}), "5m");
  EXPECT_EQ(Converted(TypeCode::kNumeric, 0.1), "0.1m");
  EXPECT_EQ(Converted(TypeCode::kNumeric, "1,5"), "is not a number");
  EXPECT_EQ(Converted(TypeCode::kNumeric, std::numeric_limits<double>::infinity()), "is not a number");
}

TEST(Conversion, MakesDoubles) {
  EXPECT_EQ(Converted(TypeCode::kDouble, "0.1"), "0.1");
  EXPECT_EQ(Converted(TypeCode::kDouble, "1e3"), "1000.0");
  EXPECT_EQ(Converted(TypeCode::kDouble, "1e400"), "is too large");
  EXPECT_EQ(Converted(TypeCode::kDouble, "abc"), "is not a number");
}

TEST(Conversion, MakesBooleans) {
  EXPECT_EQ(Converted(TypeCode::kBoolean, true), "true");
  EXPECT_EQ(Converted(TypeCode::kBoolean, std::int64_t{0}), "false");
  EXPECT_EQ(Converted(TypeCode::kBoolean, std::int64_t{-1}), "true");
  EXPECT_EQ(Converted(TypeCode::kBoolean, "1"), "true");
  EXPECT_EQ(Converted(TypeCode::kBoolean, "fALSE"), "false");
  EXPECT_EQ(Converted(TypeCode::kBoolean, " True "), "true");
  EXPECT_EQ(Converted(TypeCode::kBoolean, std::int64_t{2}), "is neither True nor False");
  EXPECT_EQ(Converted(TypeCode::kBoolean, "yes"), "is neither True nor False");
}

TEST(Conversion, MakesDates) {
  EXPECT_EQ(Converted(TypeCode::kDate, " 2024-02-03 04:05:06 "), "2024-02-03 04:05:06");
  EXPECT_EQ(Converted(TypeCode::kDate, "04:05"), "1899-12-30 04:05:00");
  EXPECT_EQ(Converted(TypeCode::kDate, "3.2.2024"), "is not a date");
  EXPECT_EQ(Converted(TypeCode::kDate, DateTime{2024, 2, 30}), "is not a date");
  EXPECT_EQ(Converted(TypeCode::kDate, std::int64_t{5}), "is not a date");
}

TEST(Conversion, RecognisesRegionalDates) {
  const tests::OneDate formatting;
  EXPECT_EQ(Converted(Of(TypeCode::kDate), "3.2.2024", &formatting), "2024-02-03 00:00:00");
  EXPECT_EQ(Converted(Of(TypeCode::kDate), "2024-02-04", &formatting), "2024-02-04 00:00:00");
  EXPECT_EQ(Converted(Of(TypeCode::kDate), "3.3.2024", &formatting), "is not a date");
}

TEST(Conversion, DropsThePartsThatTheColumnDoesNotKeep) {
  Column date = Of(TypeCode::kDate);
  date.time_parts = TimeParts::kDate;
  Column time = Of(TypeCode::kDbTime);
  time.time_parts = TimeParts::kTime;
  EXPECT_EQ(Converted(date, "2024-02-03 04:05:06"), "2024-02-03 00:00:00");
  EXPECT_EQ(Converted(time, DateTime{2024, 2, 3, 4, 5, 6}), "1899-12-30 04:05:06");
}

TEST(Conversion, MakesText) {
  EXPECT_EQ(Converted(TypeCode::kVarWideChar, std::int64_t{5}), "'5'");
  EXPECT_EQ(Converted(TypeCode::kVarWideChar, 0.5), "'0.5'");
  EXPECT_EQ(Converted(TypeCode::kVarWideChar, false), "'False'");
  EXPECT_EQ(Converted(TypeCode::kVarWideChar, DateTime{2024, 2, 3}), "'2024-02-03'");
  EXPECT_EQ(Converted(TypeCode::kLongVarWideChar, DateTime{2024, 2, 3, 0, 0, 0, 500'000'000}),
            "'2024-02-03 00:00:00.5'");
  EXPECT_EQ(Converted(TypeCode::kLongVarWideChar, DateTime{1899, 12, 30, 0, 0, 0, 1}),
            "'00:00:00.000000001'");
  EXPECT_EQ(Converted(TypeCode::kGuid, DateTime{2024, 2, 3, 4, 5, 6}), "'2024-02-03 04:05:06'");
  EXPECT_EQ(Converted(TypeCode::kVarWideChar, Bytes{1}), "is not text");
}

TEST(Conversion, MeasuresTextInCharacters) {
  Column column = Of(TypeCode::kVarWideChar);
  column.defined_size = 2;
  EXPECT_EQ(Converted(column, "\xC3\xA4\xE2\x82\xAC"), "'\xC3\xA4\xE2\x82\xAC'");
  EXPECT_EQ(Converted(column, "abc"), "is longer than 2 characters");
}

TEST(Conversion, MakesBytes) {
  EXPECT_EQ(Converted(TypeCode::kLongVarBinary, Bytes{1, 2}), "x'0102'");
  EXPECT_EQ(Converted(TypeCode::kLongVarBinary, "AB"), "x'4142'");
  EXPECT_EQ(Converted(TypeCode::kLongVarBinary, std::int64_t{1}), "is not binary");
}

TEST(Conversion, TakesEverythingWhereNoTypeIsDeclared) {
  EXPECT_EQ(Converted(Column{}, std::int64_t{5}), "5");
  EXPECT_EQ(Converted(Column{}, Bytes{1}), "x'01'");
}

}  // namespace

}  // namespace dralo::database
