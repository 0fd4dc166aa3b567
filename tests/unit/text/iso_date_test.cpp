#include "text/iso_date.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "data/show.h"

namespace dralo::text {
namespace {

using platform::DateTime;

std::string Parsed(std::string_view text) {
  const auto time = ParseIsoDateTime(text);
  return time ? tests::Shown(*time) : "nothing";
}

TEST(IsoDate, ReadsIsoForms) {
  EXPECT_EQ(Parsed("2024-02-29"), "2024-02-29 00:00:00");
  EXPECT_EQ(Parsed("2024-02-29 13:45"), "2024-02-29 13:45:00");
  EXPECT_EQ(Parsed("2024-02-29T13:45:07"), "2024-02-29 13:45:07");
  EXPECT_EQ(Parsed("2024-02-29T13:45:07Z"), "2024-02-29 13:45:07");
  EXPECT_EQ(Parsed("2024-02-29 13:45:07.25"), "2024-02-29 13:45:07.250000000");
  EXPECT_EQ(Parsed("2024-02-29 13:45:07.1234567899"), "2024-02-29 13:45:07.123456789");
}

TEST(IsoDate, RefusesWhatIsNoDate) {
  for (const char* text :
       {"", "2023-02-29", "2024-13-01", "0000-01-01", "24-01-01", "2024-1-1", "2024-01-01 ",
        "2024-01-01 24:00", "2024-01-01 12:60", "2024-01-01 12:00:60", "2024-01-01 12:00:00.",
        "2024-01-01 12:00x", "2024-01-01+", "20240101", "2024-01-01\xFF",
        "2024\xE2\x80\x90"
        "01-01",
        "2024-01-01T", "-024-01-01"}) {
    EXPECT_EQ(Parsed(text), "nothing") << text;
  }
}

TEST(IsoDate, TakesNothingButDigitsInTheirRange) {
  constexpr std::string_view kDate = "2011-11-11";
  constexpr std::string_view kHighest = "9999-12-29";
  for (std::size_t at = 0; at < kDate.size(); ++at) {
    for (int byte = 0; byte < 256; ++byte) {
      std::string text(kDate);
      text[at] = static_cast<char>(byte);
      const bool is_date = kDate[at] == '-' ? byte == '-' : '0' <= byte && byte <= kHighest[at];
      EXPECT_EQ(Parsed(text), is_date ? text + " 00:00:00" : "nothing") << testing::PrintToString(text);
    }
  }
}

TEST(IsoDate, ReadsATimeOfDayOnTheZeroDate) {
  EXPECT_EQ(ParseTimeOfDay("23:59:58"), (DateTime{1899, 12, 30, 23, 59, 58}));
  EXPECT_EQ(ParseTimeOfDay("08:05"), (DateTime{1899, 12, 30, 8, 5}));
  EXPECT_EQ(ParseTimeOfDay("8:05"), std::nullopt);
  EXPECT_EQ(ParseTimeOfDay("08:05 "), std::nullopt);
}

std::string Written(void (*put)(const DateTime&, std::string&), const DateTime& time) {
  std::string text = "on ";
  put(time, text);
  return text;
}

TEST(IsoDate, IsAppended) {
  EXPECT_EQ(Written(PutDate, {7, 1, 2, 3}), "on 0007-01-02");
  EXPECT_EQ(Written(PutTimeOfDay, {2024, 1, 2, 3, 4, 5}), "on 03:04:05");
  EXPECT_EQ(Written(PutTimeOfDay, {2024, 1, 2, 3, 4, 5, 120'000'000}), "on 03:04:05.12");
  EXPECT_EQ(Written(PutTimeOfDay, {2024, 1, 2, 3, 4, 50, 1}), "on 03:04:50.000000001");
}

TEST(IsoDate, DropsMidnightButNoFractionOfASecond) {
  EXPECT_EQ(Written(PutDateTime, {2024, 11, 22, 13, 14, 15}), "on 2024-11-22 13:14:15");
  EXPECT_EQ(Written(PutDateTime, {2024, 11, 22}), "on 2024-11-22");
  EXPECT_EQ(Written(PutDateTime, {2024, 11, 22, 0, 0, 0, 500'000'000}), "on 2024-11-22 00:00:00.5");
}

}  // namespace
}  // namespace dralo::text
