#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "dralo/error.h"
#include "editing/control_text.h"
#include "support/fake_records.h"
#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {
namespace {

using editing::IsTicked;
using editing::IsUntouched;
using platform::TypeCode;
using namespace std::string_view_literals;

std::string TextOf(platform::Field& field, const settings::Settings& settings = {}) {
  Rendering view;
  view.settings = settings;
  std::string scratch;
  std::string text;
  view.Text(
      [&](html::HtmlWriter&, state::Render& render) { text = editing::ControlText(render, field, scratch); });
  EXPECT_EQ(view.settings.ErrorMessage, "");
  return text;
}

std::string TextOf(TypeCode type, const platform::VariantView& value) {
  FakeRecords records(1);
  return TextOf(records.Add("V", type, [value] { return value; }));
}

/// What the control of the first column shows.
std::string TextOf(std::string_view declared_type, std::string_view literal) {
  return TextOf(Column(declared_type, {literal})[0]);
}

TEST(ControlText, OfNullIsEmpty) {
  for (const std::string_view type :
       {"INTEGER", "DECIMAL", "DATE", "TEXT", "VARCHAR(9)", "BOOLEAN", "BLOB"}) {
    EXPECT_EQ(TextOf(type, "NULL"), "") << type;
  }
}

TEST(ControlText, OfBinaryValuesIsEmpty) { EXPECT_EQ(TextOf("BLOB", "x'414243'"), ""); }

TEST(ControlText, OfDatesIsTheRegionalText) {
  EXPECT_EQ(TextOf("DATE", "'2024-05-03'"), "5/3/2024");
  EXPECT_EQ(TextOf("DATETIME", "'2024-05-03 14:05:09'"), "5/3/2024 2:05:09 PM");
  EXPECT_EQ(TextOf("DATETIME", "'2024-05-03 00:00:00'"), "5/3/2024");
  EXPECT_EQ(TextOf("TIME", "'14:05:09'"), "2:05:09 PM");
  EXPECT_EQ(TextOf(TypeCode::kDbDate, platform::DateTime{2024, 5, 3}), "5/3/2024");
  EXPECT_EQ(TextOf(TypeCode::kDbTimestamp, platform::DateTime{2024, 5, 3, 1, 2, 3}), "5/3/2024 1:02:03 AM");
}

TEST(ControlText, OfNumbersIsWhole) {
  EXPECT_EQ(TextOf("BIGINT", "-9223372036854775808"), "-9223372036854775808");
  EXPECT_EQ(TextOf("BIGINT", "9007199254740993"), "9007199254740993");
  EXPECT_EQ(TextOf("DECIMAL(9,2)", "2.5"), "2.5");
  EXPECT_EQ(TextOf("DOUBLE", "0.1"), "0.1");
}

TEST(ControlText, OfBooleansIsAWord) {
  EXPECT_EQ(TextOf("BOOLEAN", "1"), "True");
  EXPECT_EQ(TextOf("BOOLEAN", "0"), "False");
}

TEST(ControlText, OfMemosIsWholeWhateverTheLimit) {
  const Records records = Column("TEXT", {"'  one two three  '"});
  for (const int limit : {-1, 0, 3}) {
    settings::Settings settings;
    settings.MemoFieldLimit = limit;
    EXPECT_EQ(TextOf(records[0], settings), "  one two three  ") << limit;
  }
}

TEST(ControlText, OfTextsIsNeitherTrimmedNorEscaped) {
  EXPECT_EQ(TextOf("VARCHAR(20)", "' <b>\"x\" & y '"), " <b>\"x\" & y ");
}

TEST(ControlText, OfTextsOfBlanksIsEmpty) { EXPECT_EQ(TextOf("VARCHAR(20)", "'   '"), ""); }

TEST(ControlText, OfAFieldThatCannotBeReadThrows) {
  FakeRecords records(1);
  platform::Field& field = records.Add("V", TypeCode::kInteger, Unreadable);
  EXPECT_THROW(TextOf(field), platform::Error);
}

TEST(ControlText, OfAMemoThatCannotBeReadIsEmpty) {
  FakeRecords records(1);
  EXPECT_EQ(TextOf(records.Add("V", TypeCode::kLongVarWideChar, Unreadable)), "");
}

TEST(TickedBox, IsThatOfATrueValue) {
  for (const platform::VariantView& value :
       std::vector<platform::VariantView>{true, std::int64_t{1}, std::int64_t{-1}, 0.5,
                                          platform::DecimalView{"-0.10"}, "True"sv, "true"sv}) {
    EXPECT_TRUE(IsTicked(value)) << value.index();
  }
}

TEST(TickedBox, IsNotThatOfAnyOtherValue) {
  for (const platform::VariantView& value : std::vector<platform::VariantView>{
           platform::Null(), false, std::int64_t{0}, 0.0, platform::DecimalView{"0.00"}, ""sv, "False"sv,
           platform::DateTime(), platform::BytesView()}) {
    EXPECT_FALSE(IsTicked(value)) << value.index();
  }
}

TEST(UntouchedControl, PostsWhatItShowed) {
  for (const bool is_one_line : {false, true}) {
    EXPECT_TRUE(IsUntouched("", "", is_one_line));
    EXPECT_TRUE(
        IsUntouched("O'Neil & \"Co\" \t\xF0\x9F\x98\x80", "O'Neil & \"Co\" \t\xF0\x9F\x98\x80", is_one_line));
  }
}

TEST(UntouchedControl, PostsEveryLineBreakAsCrlf) {
  EXPECT_TRUE(IsUntouched("\r\na\r\nb\r\n\r\nc\r\n", "\na\rb\n\nc\r\n", false));
  EXPECT_TRUE(IsUntouched("\r\n\r\n", "\r\r", false));
  EXPECT_TRUE(IsUntouched("\r\n\r\n", "\n\r", false));
}

TEST(UntouchedControl, OfOneLinePostsNoLineBreaks) {
  EXPECT_TRUE(IsUntouched("abc", "\r\na\nb\rc\n", true));
  EXPECT_FALSE(IsUntouched("abc", "a\nbc", false));
}

TEST(UntouchedControl, PostsReplacementsForWhatNoPageCanHold) {
  constexpr std::string_view kOne = "\xEF\xBF\xBD";
  const std::string two = std::string(kOne) + std::string(kOne);
  EXPECT_TRUE(IsUntouched(kOne, "\0"sv, true));
  EXPECT_TRUE(IsUntouched(kOne, "\xFF", true));
  EXPECT_TRUE(IsUntouched(kOne, "\xE2\x82", true)) << "a character that is broken off";
  EXPECT_TRUE(IsUntouched(kOne, "\xF0\x9F\x98", true));
  EXPECT_TRUE(IsUntouched("a" + two + "b",
                          "a\xE2\x82\xF0\x9F"
                          "b",
                          true));
  EXPECT_TRUE(IsUntouched(two, "\xC0\x80", true)) << "a longer spelling than necessary";
  EXPECT_TRUE(IsUntouched(two + std::string(kOne), "\xED\xA0\x80", true)) << "half of a pair";
  EXPECT_TRUE(IsUntouched(two + two, "\xF4\x90\x80\x80", true)) << "beyond the last character";
  EXPECT_FALSE(IsUntouched(kOne, "\xC0\x80", true));
  EXPECT_FALSE(IsUntouched(two, "\xE2\x82", true));
}

TEST(UntouchedControl, KeepsEveryCharacterOfUtf8) {
  for (const std::string_view text :
       {"\x7F"sv, "\xC2\x80"sv, "\xDF\xBF"sv, "\xE0\xA0\x80"sv, "\xED\x9F\xBF"sv, "\xEF\xBF\xBF"sv,
        "\xF0\x90\x80\x80"sv, "\xF4\x8F\xBF\xBF"sv}) {
    // A line break that is spelled differently makes the texts be compared character by character.
    EXPECT_TRUE(IsUntouched("\r\n" + std::string(text), "\n" + std::string(text), false));
    EXPECT_FALSE(IsUntouched("\r\n\xEF\xBF\xBD", "\n" + std::string(text), false));
  }
}

TEST(TouchedControl, PostsAnythingElse) {
  for (const bool is_one_line : {false, true}) {
    EXPECT_FALSE(IsUntouched("a", "", is_one_line));
    EXPECT_FALSE(IsUntouched("", "a", is_one_line));
    EXPECT_FALSE(IsUntouched("a ", "a", is_one_line));
    EXPECT_FALSE(IsUntouched("A", "a", is_one_line));
    EXPECT_FALSE(IsUntouched("ab", "a", is_one_line));
    EXPECT_FALSE(IsUntouched("2.50", "2.5", is_one_line));
  }
  EXPECT_FALSE(IsUntouched("a\r\n\r\nb", "a\nb", false));
  EXPECT_FALSE(IsUntouched("a b", "a\nb", false));
}

TEST(UntouchedControl, OfAMegabyteIsComparedWhole) {
  std::string shown(1048576, 'x');
  shown[524288] = '\n';
  std::string posted = shown;
  posted.insert(524288, "\r");
  EXPECT_TRUE(IsUntouched(posted, shown, false));
  posted.back() = 'y';
  EXPECT_FALSE(IsUntouched(posted, shown, false));
}

}  // namespace
}  // namespace dralo::tests
