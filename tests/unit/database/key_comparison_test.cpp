#include "database/key_comparison.h"

#include <gtest/gtest.h>

namespace dralo::tests {

namespace {

TEST(KeyComparison, ComparesBooleansWithTexts) {
  EXPECT_EQ(database::SameBoolean("[K]", "1"), "[K]='1'");
  EXPECT_EQ(database::SameBoolean("[K]", "0"), "[K]='0'");
  EXPECT_EQ(database::SameBoolean("[K]", "on"), "");
}

TEST(KeyComparison, ConvertsNumbersToTheTypeOfTheColumn) {
  EXPECT_EQ(database::SameMoney("K", "-12.50"), "K=CAST(-12.5 AS money)");
  EXPECT_EQ(database::SameReal("K", "1e+02"), "K=CAST(100 AS real)");
  EXPECT_EQ(database::SamePrintedNumber("K", "0.1"), "CAST(K AS CHAR)+0=0.1");
}

TEST(KeyComparison, NamesNumbersWithoutALimitByText) {
  EXPECT_EQ(database::SameUnlimited("K", "nan"), "K='NaN'");
  EXPECT_EQ(database::SameUnlimited("K", "inf"), "K='Infinity'");
  EXPECT_EQ(database::SameReal("K", "-Infinity"), "K='-Infinity'");
  EXPECT_EQ(database::SameUnlimited("K", "1.5"), "");
}

TEST(KeyComparison, LeavesTextsThatAreNoValuesToOthers) {
  for (const char* text : {"", "abc", "5 OR 1=1", "1)", "2024-02-30", "24:00:00"}) {
    EXPECT_EQ(database::SameMoney("K", text), "") << text;
    EXPECT_EQ(database::SameReal("K", text), "") << text;
    EXPECT_EQ(database::SameUnlimited("K", text), "") << text;
    EXPECT_EQ(database::SamePrintedNumber("K", text), "") << text;
    EXPECT_EQ(database::SameMoment("K", text), "") << text;
    EXPECT_EQ(database::SameTimeOfDay("K", text), "") << text;
  }
}

TEST(KeyComparison, NamesTheSpellingsOfAMoment) {
  EXPECT_EQ(database::SameMoment("K", "2024-05-03"),
            "K IN ('2024-05-03','2024-05-03 00:00:00','2024-05-03T00:00:00','2024-05-03T00:00:00Z',"
            "'2024-05-03 00:00:00.000','2024-05-03T00:00:00.000','2024-05-03T00:00:00.000Z',"
            "'2024-05-03 00:00','2024-05-03T00:00','2024-05-03T00:00Z',1714694400)");
  EXPECT_EQ(
      database::SameMoment("K", "2024-05-03 10:20:30.25"),
      "K IN ('2024-05-03 10:20:30.25','2024-05-03T10:20:30.25','2024-05-03T10:20:30.25Z',"
      "'2024-05-03 10:20:30.250','2024-05-03T10:20:30.250','2024-05-03T10:20:30.250Z',"
      "'2024-05-03 10:20:30.250000','2024-05-03T10:20:30.250000','2024-05-03T10:20:30.250000Z',"
      "'2024-05-03 10:20:30.250000000','2024-05-03T10:20:30.250000000','2024-05-03T10:20:30.250000000Z')");
}

TEST(KeyComparison, NamesTheSpellingsOfATimeOfDay) {
  EXPECT_EQ(database::SameTimeOfDay("K", "07:30:00"), "K IN ('07:30:00','07:30:00.000','07:30')");
  EXPECT_EQ(database::SameTimeOfDay("K", "07:30:01"), "K IN ('07:30:01','07:30:01.000')");
}

TEST(KeyComparison, TellsNumbersAndTextsOfNoTypeApart) {
  EXPECT_EQ(database::SameOfAnyKind("K", "1.50"), "K IN (1.5,'1.50')");
  EXPECT_EQ(database::SameOfAnyKind("K", "O'Neil"), "K='O''Neil'");
}

}  // namespace

}  // namespace dralo::tests
