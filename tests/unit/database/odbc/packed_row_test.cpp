#include "database/odbc/packed_row.h"

#include <gtest/gtest.h>

#include "data/show.h"
#include "database/odbc/row_packing.h"

namespace dralo::database::odbc {

namespace {

constexpr Reading kText = Reading::kText;

/// What PostgreSQL sends for values between whose "|" the separator stands.
std::string Packed(std::string_view text) {
  std::string packed;
  for (const char c : text) packed += c == '|' ? FieldSeparator() : std::string(1, c);
  return packed;
}

/// The values of the row at the front of `text`, whose columns are read as told.
std::string Values(const std::string& text, const std::vector<Reading>& readings) {
  std::vector<Reader> readers;
  for (const Reading reading : readings) readers.push_back({reading, 0, false});
  PackedRow row(readers);
  row.Parse(text);
  std::string shown;
  for (std::size_t i = 0; i < readings.size(); ++i) shown += tests::Shown(row.Value(i)) + " ";
  return shown;
}

TEST(PackedRow, TellsNullFromAnEmptyText) {
  EXPECT_EQ(Values(Packed("5||a"), {kText, kText, kText, kText}), "null '' null 'a' ");
  EXPECT_EQ(Values(Packed("1"), {kText}), "null ");
  EXPECT_EQ(Values(Packed("0|"), {kText}), "'' ");
  EXPECT_EQ(Values(Packed("3"), {kText, kText}), "null null ");
}

TEST(PackedRow, LeavesTextAsItIs) {
  EXPECT_EQ(Values(Packed(R"~(0|a,b|)|"x" \ "|)~"), {kText, kText, kText, kText}),
            R"~('a,b' ')' '"x" \ "' '' )~");
}

TEST(PackedRow, KnowsTheSeparatorFromItsBeginnings) {
  const std::string beginning = FieldSeparator().substr(0, kSeparatorBytes - 1);
  const std::string text =
      Packed("0|") + beginning + "X" + Packed("|") + beginning[0] + Packed("|") + beginning;
  EXPECT_EQ(Values(text, {kText, kText, kText}),
            "'" + beginning + "X' '" + beginning[0] + "' '" + beginning + "' ");
}

TEST(PackedRow, TakesOneRowAfterTheOther) {
  const std::string page = Packed("0|1|a|2|2|1||0|3|");
  PackedRow row({{Reading::kInteger, 0, false}, {kText, 0, false}});
  std::string shown;
  for (std::string_view rest = page; !rest.empty();) {
    rest = row.Parse(rest);
    shown += tests::Shown(row.Value(0)) + " " + tests::Shown(row.Value(1)) + "; ";
  }
  EXPECT_EQ(shown, "1 'a'; 2 null; null ''; 3 ''; ");
}

TEST(PackedRow, KnowsTheNullsOfManyColumns) {
  const std::vector<Reading> readings(kMaxPackedColumns, kText);
  const std::string shown = Values(Packed("4611686018427387905|" + std::string(60, '|')), readings);
  EXPECT_TRUE(shown.starts_with("null '' '' "));
  EXPECT_TRUE(shown.ends_with(" '' null "));
}

TEST(PackedRow, ReadsNumbers) {
  EXPECT_EQ(Values(Packed("0|-7|9223372036854775807|0.1|12.50|t|f"),
                   {Reading::kInteger, Reading::kInteger, Reading::kDouble, Reading::kDecimal,
                    Reading::kBoolean, Reading::kBoolean}),
            "-7 9223372036854775807 0.1 12.50m true false ");
  EXPECT_EQ(Values(Packed("0|1e+300|NaN"), {Reading::kDouble, Reading::kDecimal}), "1e+300 'NaN' ");
}

TEST(PackedRow, ReadsDatesWithoutTheirZone) {
  EXPECT_EQ(Values(Packed("0|2024-02-29|2024-03-01 10:20:30.000006|2024-03-01 10:20:30-05:30|10:20:30+02"),
                   {Reading::kDateText, Reading::kDateText, Reading::kDateText, Reading::kTimeText}),
            "2024-02-29 00:00:00 2024-03-01 10:20:30.000006000 2024-03-01 10:20:30 1899-12-30 10:20:30 ");
  EXPECT_EQ(Values(Packed("0|infinity|0044-03-15 BC"), {Reading::kDateText, Reading::kDateText}),
            "'infinity' '0044-03-15 BC' ");
}

TEST(PackedRow, ReadsBytes) {
  EXPECT_EQ(Values(Packed(R"~(0|\x00ffAb|\x)~"), {Reading::kBytes, Reading::kBytes}), "x'00FFAB' x'' ");
}

TEST(PackedRow, YieldsAValueTwice) {
  const std::string text = Packed(R"~(0|a "b"|\x0102)~");
  PackedRow row({{Reading::kText, 0, false}, {Reading::kBytes, 0, false}});
  row.Parse(text);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(tests::Shown(row.Value(0)), R"('a "b"')");
    EXPECT_EQ(tests::Shown(row.Value(1)), "x'0102'");
  }
}

TEST(PackedRow, SurvivesARowThatIsCutOff) {
  for (const std::string& text :
       {std::string(), std::string("0"), FieldSeparator().substr(0, 3), Packed("0|a"), Packed("|")}) {
    EXPECT_TRUE(Values(text, {kText, kText}).ends_with("'' ")) << text;
  }
}

}  // namespace

}  // namespace dralo::database::odbc
