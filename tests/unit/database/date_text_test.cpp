#include "database/date_text.h"

#include <gtest/gtest.h>

namespace dralo::database {

namespace {

using platform::DateTime;

TEST(DateText, DropsWhatSaysNothing) {
  EXPECT_EQ(PlainText({1899, 12, 30, 13, 14, 15}), "13:14:15");
  EXPECT_EQ(PlainText({1899, 12, 30}), "00:00:00");
  EXPECT_EQ(PlainText({2024, 11, 22}), "2024-11-22");
  EXPECT_EQ(PlainText({2024, 11, 22, 13, 14, 15}), "2024-11-22 13:14:15");
}

TEST(DateText, WritesWhatAColumnKeeps) {
  const DateTime time{2024, 11, 22, 13, 14, 15};
  EXPECT_EQ(StoredText(time, TimeParts::kDate), "2024-11-22");
  EXPECT_EQ(StoredText(time, TimeParts::kTime), "13:14:15");
  EXPECT_EQ(StoredText(time, TimeParts::kDateAndTime), "2024-11-22 13:14:15");
  EXPECT_EQ(StoredText({2024, 11, 22}, TimeParts::kDateAndTime), "2024-11-22 00:00:00");
}

}  // namespace

}  // namespace dralo::database
