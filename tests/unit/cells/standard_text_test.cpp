#include "cells/standard_text.h"

#include <gtest/gtest.h>

#include <string>

#include "support/fake_records.h"
#include "support/named_cases.h"
#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;

/// The texts of single fields.
struct Cells : Rendering {
  cells::ValueForm form = cells::ValueForm::kPlain;

  std::string Standard(platform::Field& field) {
    return Text([&](html::HtmlWriter& out, state::Render& render) {
      out.Write(html::Verbatim{cells::GetStdDbFieldString(render, field, form)});
    });
  }
  std::string Raw(platform::Field& field) {
    return Text([&](html::HtmlWriter& out, state::Render& render) {
      out.Write(html::Verbatim{cells::GetStdDbFieldStringRaw(render, field)});
    });
  }
};

FakeField Made(TypeCode type, FakeField::Read read) { return {"V", type, std::move(read)}; }

struct ValueCase {
  std::string_view name, type, value, standard, raw;
  int memo_limit = -1;
  state::Mode mode = state::Mode::kGrid;
};

class TextOfAValue : public testing::TestWithParam<ValueCase> {};

TEST_P(TextOfAValue, IsStandardOrRaw) {
  Cells cells;
  cells.settings.MemoFieldLimit = GetParam().memo_limit;
  cells.mode = GetParam().mode;
  const Records records = Column(GetParam().type, {GetParam().value});
  EXPECT_EQ(cells.Standard(records[0]), GetParam().standard);
  EXPECT_EQ(cells.Raw(records[0]), GetParam().raw);
  EXPECT_EQ(cells.settings.ErrorMessage, "");
}

constexpr auto kForm = state::Mode::kFormView;

constexpr ValueCase kMemos[] = {
    {"CutBehindTheLimit", "TEXT", "'1234567890'", "12345...", "1234567890", 5},
    {"LongerThanTheLimitByOne", "TEXT", "'1234567890'", "123456789...", "1234567890", 9},
    {"UpToTheLimitWithABlankBehind", "TEXT", "'1234567890'", "1234567890&nbsp;", "1234567890", 10},
    {"FarBelowTheLimit", "TEXT", "'1234567890'", "1234567890&nbsp;", "1234567890", 2147483647},
    {"WholeInTheFormForALimitOfOne", "TEXT", "'1234567890'", "1234567890&nbsp;", "1234567890", 1, kForm},
    {"WholeInTheFormBeyondTheLimit", "TEXT", "'1234567890'", "1234567890&nbsp;", "1234567890", 9, kForm},
    {"WholeInTheFormUpToTheLimit", "TEXT", "'1234567890'", "1234567890&nbsp;", "1234567890", 10, kForm},
    {"WholeInTheFormBelowTheLimit", "TEXT", "'1234567890'", "1234567890&nbsp;", "1234567890", 11, kForm},
    {"HiddenUnderALimitOfZero", "TEXT", "'words'", "&nbsp;", "words", 0},
    {"HiddenInTheFormUnderALimitOfZero", "TEXT", "'words'", "&nbsp;", "words", 0, kForm},
    {"UnchangedWithoutALimit", "TEXT", "' a  memo '", " a  memo ", " a  memo "},
    {"UnchangedInTheFormWithoutALimit", "TEXT", "' a  memo '", " a  memo ", " a  memo ", -1, kForm},
    {"OfBlanks", "TEXT", "'   '", "&nbsp;", "   "},
    {"OfBlanksThatFitTheLimit", "TEXT", "'   '", "   &nbsp;", "   ", 5},
    {"EmptyWithoutALimit", "TEXT", "''", "&nbsp;", ""},
    {"EmptyWithALimitOfZero", "TEXT", "''", "&nbsp;", "", 0},
    {"EmptyWithALimit", "TEXT", "''", "&nbsp;", "", 5},
    {"NullWithoutALimit", "TEXT", "NULL", "&nbsp;", ""},
    {"NullWithALimitOfZero", "TEXT", "NULL", "&nbsp;", "", 0},
    {"NullWithALimit", "TEXT", "NULL", "&nbsp;", "", 5},
    {"WithMoreCharactersThanTheLimit", "TEXT", "'äöüß'", "äöü...", "äöüß", 3},
    {"WithMoreBytesThanTheLimit", "TEXT", "'äöü'", "äöü&nbsp;", "äöü", 3},
    {"OfCharactersOfFourBytes", "TEXT", "'😀😀😀😀'", "😀😀😀...", "😀😀😀😀", 3},
    {"OfALineBreak", "TEXT", "char(13, 10)", "\r\n", "\r\n"},
};

constexpr ValueCase kOtherTexts[] = {
    {"LongerThanTheLimitOfMemos", "VARCHAR(20)", "'Hamburg'", "Hamburg", "Hamburg", 2},
    {"OfBlanks", "VARCHAR(10)", "'   '", "&nbsp;", ""},
    {"Empty", "VARCHAR(10)", "''", "&nbsp;", ""},
    {"Null", "VARCHAR(10)", "NULL", "&nbsp;", ""},
    {"WithBlanksAround", "VARCHAR(10)", "'  x '", "  x ", "  x "},
    {"OfATab", "VARCHAR(10)", "char(9)", "\t", "\t"},
    {"OfMarkup", "VARCHAR(50)", "'<b class=\"x\">A & B</b>'", R"(<b class="x">A & B</b>)",
     R"(<b class="x">A & B</b>)"},
};

constexpr ValueCase kOtherValues[] = {
    {"DateAndTime", "DATETIME", "'2024-03-05 14:07:09'", "3/5/2024 2:07:09 PM", "3/5/2024 2:07:09 PM"},
    {"Date", "DATE", "'2024-03-05'", "3/5/2024", "3/5/2024"},
    {"DateAtMidnight", "DATETIME", "'2024-03-05 00:00:00'", "3/5/2024", "3/5/2024"},
    {"TimeOnTheZeroDate", "DATETIME", "'1899-12-30 14:07:09'", "2:07:09 PM", "2:07:09 PM"},
    {"NullForADate", "DATETIME", "NULL", "&nbsp;", ""},
    {"EmptyTextForADate", "DATETIME", "''", "&nbsp;", ""},
    {"WordForADate", "DATETIME", "'never'", "&nbsp;", ""},
    {"DateThatDoesNotExist", "DATETIME", "'2024-02-30'", "&nbsp;", ""},
    {"BytesForADate", "DATETIME", "x'00'", "&nbsp;", ""},
    {"Bytes", "BLOB", "x'414243'", "&nbsp;", ""},
    {"WholeNumber", "INTEGER", "-1234567", "-1234567", "-1234567"},
    {"FloatingPointNumber", "DOUBLE", "1234.5", "1234.5", "1234.5"},
    {"DecimalWithoutAFraction", "DECIMAL(10, 2)", "21.00", "21", "21"},
    {"DecimalWithAFraction", "DECIMAL(10, 2)", "10.50", "10.5", "10.5"},
    {"True", "BOOLEAN", "1", "True", "True"},
    {"False", "BOOLEAN", "0", "False", "False"},
};

INSTANTIATE_TEST_SUITE_P(Memos, TextOfAValue, testing::ValuesIn(kMemos), kByName);
INSTANTIATE_TEST_SUITE_P(OtherTexts, TextOfAValue, testing::ValuesIn(kOtherTexts), kByName);
INSTANTIATE_TEST_SUITE_P(OtherValues, TextOfAValue, testing::ValuesIn(kOtherValues), kByName);

TEST(StandardText, KnowsTheDateTypesAndLeavesTimesOfDayAsTheyAre) {
  Cells cells;
  const auto read = [] { return platform::VariantView(std::string_view("2024-03-05")); };
  for (const TypeCode type : {TypeCode::kDate, TypeCode::kDbDate, TypeCode::kDbTimestamp}) {
    FakeField field = Made(type, read);
    EXPECT_EQ(cells.Standard(field), "3/5/2024") << static_cast<int>(type);
  }
  FakeField time = Made(TypeCode::kDbTime, read);
  EXPECT_EQ(cells.Standard(time), "2024-03-05");
}

TEST(StandardText, WritesABlankCellForADateOutsideTheCalendar) {
  Cells cells;
  FakeField field = Made(TypeCode::kDate, [] {
    return platform::VariantView(platform::DateTime{.year = 2023, .month = 2, .day = 29});
  });

  EXPECT_EQ(cells.Standard(field), "&nbsp;");
}

TEST(StandardText, ReportsAValueThatCannotBeReadAndWritesABlankCell) {
  for (const TypeCode type : {TypeCode::kDate, TypeCode::kInteger, TypeCode::kVarWideChar}) {
    Cells cells;
    FakeField field = Made(type, Unreadable);
    EXPECT_EQ(cells.Standard(field), "&nbsp;");
    EXPECT_EQ(cells.settings.ErrorMessage, "Disk gone in GetStdDbFieldString. oField.Name=V<br>");
  }
}

TEST(StandardText, ReportsAValueThatCannotBeReadInTheRawTextToo) {
  Cells cells;
  FakeField field = Made(TypeCode::kInteger, Unreadable);

  EXPECT_EQ(cells.Raw(field), "");
  EXPECT_EQ(cells.settings.ErrorMessage, "Disk gone in GetStdDbFieldStringRaw. oField.Name=V<br>");
}

TEST(StandardText, ReadsEachValueOnce) {
  Cells cells;
  cells.settings.MemoFieldLimit = 3;
  for (const TypeCode type : {TypeCode::kLongVarWideChar, TypeCode::kDate, TypeCode::kVarWideChar}) {
    FakeField field = Made(type, [] { return platform::VariantView(std::string_view("2024-03-05")); });
    cells.Standard(field);
    EXPECT_EQ(field.reads, 1) << static_cast<int>(type);
  }
}

TEST(MemoFieldText, TakesTheTrimmedSecondReadWhenTheFirstFails) {
  Cells cells;
  bool failed = false;
  FakeField field = Made(TypeCode::kLongVarChar, [&failed] {
    if (!std::exchange(failed, true)) return Unreadable();
    return platform::VariantView(std::string_view("  text "));
  });

  EXPECT_EQ(cells.Standard(field), "text");
  EXPECT_EQ(cells.settings.ErrorMessage, "");
}

TEST(MemoFieldText, IsEmptyWithoutAMessageWhenBothReadsFail) {
  Cells cells;
  FakeField field = Made(TypeCode::kLongVarWideChar, Unreadable);

  EXPECT_EQ(cells.Standard(field), "&nbsp;");
  EXPECT_EQ(field.reads, 2);
  EXPECT_EQ(cells.settings.ErrorMessage, "");
}

}  // namespace
}  // namespace dralo::tests
