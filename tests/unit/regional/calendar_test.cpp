#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "dralo/error.h"
#include "regional/locale_formatting.h"

namespace dralo::regional {
namespace {

using platform::DateTime;
using platform::WeekRule;
namespace chrono = std::chrono;

const platform::ValueFormatting& American() {
  static const auto formatting = MakeFormatting("en-US");
  return *formatting;
}

DateTime Add(std::string_view interval, std::int64_t number, const DateTime& time) {
  return American().DateAdd(interval, number, time);
}

int Part(std::string_view interval, const DateTime& time, WeekRule rule = {}) {
  return American().DatePart(interval, time, rule);
}

constexpr DateTime kMoment{2024, 1, 31, 23, 59, 58, 0};

TEST(DateAdd, KnowsEveryIntervalInAnyLetterCase) {
  EXPECT_EQ(Add("yyyy", 1, kMoment), (DateTime{2025, 1, 31, 23, 59, 58, 0}));
  EXPECT_EQ(Add("Q", -1, kMoment), (DateTime{2023, 10, 31, 23, 59, 58, 0}));
  EXPECT_EQ(Add("m", 2, kMoment), (DateTime{2024, 3, 31, 23, 59, 58, 0}));
  for (const std::string_view day : {"y", "d", "w"}) {
    EXPECT_EQ(Add(day, 30, kMoment), (DateTime{2024, 3, 1, 23, 59, 58, 0})) << day;
  }
  EXPECT_EQ(Add("WW", 1, kMoment), (DateTime{2024, 2, 7, 23, 59, 58, 0}));
  EXPECT_EQ(Add("h", 1, kMoment), (DateTime{2024, 2, 1, 0, 59, 58, 0}));
  EXPECT_EQ(Add("n", 1, kMoment), (DateTime{2024, 2, 1, 0, 0, 58, 0}));
  EXPECT_EQ(Add("s", -59, kMoment), (DateTime{2024, 1, 31, 23, 58, 59, 0}));
}

TEST(DateAdd, TakesTheLastDayOfAShorterMonth) {
  EXPECT_EQ(Add("m", 1, kMoment).day, 29);
  EXPECT_EQ(Add("m", 13, kMoment).day, 28);
  EXPECT_EQ(Add("yyyy", 1, DateTime{2024, 2, 29}), (DateTime{2025, 2, 28}));
  EXPECT_EQ(Add("q", 1, kMoment), (DateTime{2024, 4, 30, 23, 59, 58, 0}));
}

TEST(DateAdd, ThrowsBeyondTheCalendarAndForUnknownIntervals) {
  EXPECT_THROW(Add("d", 1, DateTime{9999, 12, 31}), platform::Error);
  EXPECT_THROW(Add("s", -1, DateTime{1, 1, 1}), platform::Error);
  EXPECT_THROW(Add("yyyy", INT64_MAX, kMoment), platform::Error);
  EXPECT_THROW(Add("ww", INT64_MIN, kMoment), platform::Error);
  EXPECT_THROW(Add("m", -24'300, kMoment), platform::Error);
  for (const std::string_view interval : {"", "yy", "x", "years", "ss"}) {
    EXPECT_THROW(Add(interval, 1, kMoment), platform::Error) << interval;
  }
}

TEST(DateAdd, AgreesWithTheCalendarOfTheStandardLibrary) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> days(-500'000, 500'000);
  for (int i = 0; i < 5'000; ++i) {
    const int number = days(random);
    const chrono::year_month_day expected{chrono::sys_days{chrono::year{2024} / 1 / 31} +
                                          chrono::days{number}};
    const DateTime got = Add("d", number, kMoment);
    ASSERT_EQ(chrono::year{got.year} / got.month / got.day, expected) << number;
    ASSERT_EQ(got.second, 58);
    ASSERT_EQ(Add("h", -24L * number, got), kMoment);
    ASSERT_EQ(Part("y", got),
              (chrono::sys_days{expected} - chrono::sys_days{expected.year() / 1 / 1}).count() + 1);
    ASSERT_EQ(Part("w", got), chrono::weekday{chrono::sys_days{expected}}.c_encoding() + 1);
  }
}

TEST(DatePart, KnowsEveryInterval) {
  const DateTime moment{2024, 5, 3, 14, 7, 9, 0};  // A Friday.
  EXPECT_EQ(Part("yyyy", moment), 2024);
  EXPECT_EQ(Part("q", moment), 2);
  EXPECT_EQ(Part("m", moment), 5);
  EXPECT_EQ(Part("y", moment), 124);
  EXPECT_EQ(Part("d", moment), 3);
  EXPECT_EQ(Part("w", moment), 6);
  EXPECT_EQ(Part("ww", moment), 18);
  EXPECT_EQ(Part("h", moment), 14);
  EXPECT_EQ(Part("n", moment), 7);
  EXPECT_EQ(Part("s", moment), 9);
  EXPECT_THROW(Part("year", moment), platform::Error);
}

TEST(DatePart, CountsWeeksByTheRule) {
  EXPECT_EQ(Part("w", DateTime{2024, 5, 3}, {2, 1}), 5);
  EXPECT_EQ(Part("ww", DateTime{2021, 1, 1}, {1, 1}), 1);
  EXPECT_EQ(Part("ww", DateTime{2021, 1, 1}, {2, 2}), 53);
  EXPECT_EQ(Part("ww", DateTime{2021, 1, 4}, {2, 2}), 1);
  EXPECT_EQ(Part("ww", DateTime{2024, 12, 30}, {2, 2}), 1);
  EXPECT_EQ(Part("ww", DateTime{2024, 12, 30}, {2, 1}), 53);
  EXPECT_EQ(Part("ww", DateTime{2023, 1, 1}, {2, 3}), 52);
  EXPECT_EQ(Part("ww", DateTime{2023, 1, 2}, {2, 3}), 1);
  EXPECT_EQ(Part("ww", DateTime{1, 1, 1}, {1, 3}), 53);
}

TEST(DatePart, TakesTheLocalesWeekForZero) {
  const DateTime new_year{2021, 1, 1};
  EXPECT_EQ(MakeFormatting("de-DE")->DatePart("ww", new_year, {0, 0}), 53);
  EXPECT_EQ(MakeFormatting("nb-NO")->DatePart("w", new_year, {0, 0}), 5);
  EXPECT_EQ(American().DatePart("ww", new_year, {0, 0}), 1);
  EXPECT_EQ(American().DatePart("w", new_year, {0, 0}), 6);
  EXPECT_THROW(Part("w", new_year, {8, 1}), platform::Error);
  EXPECT_THROW(Part("w", new_year, {1, 4}), platform::Error);
}

/// The week after ISO 8601: that of the year which the week's Thursday lies in.
TEST(DatePart, AgreesWithIsoWeeks) {
  for (chrono::sys_days day = chrono::year{1990} / 1 / 1; day < chrono::year{2030} / 1 / 1;
       day += chrono::days{1}) {
    const unsigned from_monday = chrono::weekday{day}.iso_encoding() - 1;
    const chrono::sys_days thursday = day - chrono::days{from_monday} + chrono::days{3};
    const chrono::sys_days first = chrono::year_month_day{thursday}.year() / 1 / 1;
    const chrono::year_month_day date{day};
    const DateTime time{static_cast<std::int16_t>(static_cast<int>(date.year())),
                        static_cast<std::uint8_t>(static_cast<unsigned>(date.month())),
                        static_cast<std::uint8_t>(static_cast<unsigned>(date.day()))};
    ASSERT_EQ(Part("ww", time, {2, 2}), (thursday - first).count() / 7 + 1);
  }
}

}  // namespace
}  // namespace dralo::regional
