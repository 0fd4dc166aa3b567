#include "database/odbc/packed_row.h"

#include <gtest/gtest.h>

#include "data/show.h"

namespace dralo::database::odbc {

namespace {

/// The values of a row whose columns are read as told.
std::string Values(std::string text, const std::vector<Reading>& readings) {
  std::vector<Reader> readers;
  for (const Reading reading : readings) readers.push_back({reading, 0, false});
  PackedRow row(readers);
  row.Parse(text);
  std::string shown;
  for (std::size_t i = 0; i < readings.size(); ++i) shown += tests::Shown(row.Value(i)) + " ";
  return shown;
}

constexpr Reading kText = Reading::kText;

TEST(PackedRow, TellsNullFromAnEmptyText) {
  EXPECT_EQ(Values(R"~((,"",,a))~", {kText, kText, kText, kText}), "null '' null 'a' ");
  EXPECT_EQ(Values("()", {kText}), "null ");
  EXPECT_EQ(Values("(,)", {kText, kText}), "null null ");
}

TEST(PackedRow, TakesQuotesOff) {
  EXPECT_EQ(Values(R"~(("a,b",")","""x"" \\ ""","{""a"":""b""}",c))~", {kText, kText, kText, kText, kText}),
            R"('a,b' ')' '"x" \ "' '{"a":"b"}' 'c' )");
  EXPECT_EQ(Values(R"~(("\\","""" ))~", {kText}), R"('\' )");
}

TEST(PackedRow, ReadsNumbers) {
  EXPECT_EQ(Values("(-7,9223372036854775807,0.1,12.50,t,f)",
                   {Reading::kInteger, Reading::kInteger, Reading::kDouble, Reading::kDecimal,
                    Reading::kBoolean, Reading::kBoolean}),
            "-7 9223372036854775807 0.1 12.50m true false ");
  EXPECT_EQ(Values("(1e+300,NaN)", {Reading::kDouble, Reading::kDecimal}), "1e+300 'NaN' ");
}

TEST(PackedRow, ReadsDatesWithoutTheirZone) {
  EXPECT_EQ(Values(R"~((2024-02-29,"2024-03-01 10:20:30.000006","2024-03-01 10:20:30-05:30",10:20:30+02))~",
                   {Reading::kDateText, Reading::kDateText, Reading::kDateText, Reading::kTimeText}),
            "2024-02-29 00:00:00 2024-03-01 10:20:30.000006000 2024-03-01 10:20:30 1899-12-30 10:20:30 ");
  EXPECT_EQ(Values(R"~((infinity,"0044-03-15 BC"))~", {Reading::kDateText, Reading::kDateText}),
            "'infinity' '0044-03-15 BC' ");
}

TEST(PackedRow, ReadsBytes) {
  EXPECT_EQ(Values(R"~(("\\x00ffAb","\\x"))~", {Reading::kBytes, Reading::kBytes}), "x'00FFAB' x'' ");
}

TEST(PackedRow, YieldsAValueTwice) {
  std::string text = R"~(("a ""b""","\\x0102"))~";
  PackedRow row({{Reading::kText, 0, false}, {Reading::kBytes, 0, false}});
  row.Parse(text);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(tests::Shown(row.Value(0)), R"('a "b"')");
    EXPECT_EQ(tests::Shown(row.Value(1)), "x'0102'");
  }
}

TEST(PackedRow, SurvivesARowThatIsCutOff) {
  for (const char* text : {"", "(", "(a", "(\"a", "(\"a\"", "(\"a\\"}) {
    const std::string shown = Values(text, {kText, kText});
    EXPECT_TRUE(shown.ends_with("null ")) << shown;
  }
}

}  // namespace

}  // namespace dralo::database::odbc
