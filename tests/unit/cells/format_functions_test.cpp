#include "cells/format_functions.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

#include "settings/column_settings.h"
#include "support/cpu_time.h"
#include "support/fake_records.h"
#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;

/// Cells of column 1 with a format function.
struct FormatCells : Rendering {
  cells::ValueForm form = cells::ValueForm::kPlain;

  std::string Cell(std::string_view format, platform::Field& field) {
    settings.GridFormatCellFunction = {};
    settings::SetGridFormatCellFunction(settings, 1, "X");
    settings::SetGridFormatCellFunction(settings, 1, format);
    return Text([&](html::HtmlWriter& out, state::Render& render) {
      out.Write(html::Verbatim{cells::FormatFunction(render, 1, form).CellText(render, field)});
    });
  }

  /// The cell of a text.
  std::string Cell(std::string_view format, std::string_view text) {
    FakeField field("V", TypeCode::kVarWideChar, [text] { return platform::VariantView(text); });
    return Cell(format, field);
  }

  const std::string& Message() const { return settings.ErrorMessage; }
};

struct Case {
  std::string_view format, value, cell;
};

class FormatFunctions : public ::testing::TestWithParam<Case> {};

TEST_P(FormatFunctions, WriteTheCell) {
  FormatCells cells;
  EXPECT_EQ(cells.Cell(GetParam().format, GetParam().value), GetParam().cell);
  EXPECT_EQ(cells.Message(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, FormatFunctions,
    ::testing::Values(
        Case{"FORMATNUMBER,2", "3.14159", "3.14"}, Case{"formatnumber,2", "3.14159", "3.14"},
        Case{" FormatNumber , 2 ", "3.14159", "3.14"}, Case{"FORMATNUMBER", "1234.5", "1,234.50"},
        Case{"FORMATNUMBER,0", "2.5", "3"}, Case{"FORMATNUMBER,-1", "1", "1.00"},
        Case{"FORMATNUMBER,1,0", "0.5", ".5"}, Case{"FORMATNUMBER,1,-2,-1", "-5", "(5.0)"},
        Case{"FORMATNUMBER,1,-2,0,0", "-5000", "-5000.0"}, Case{"FORMATNUMBER,,,,-1", "5000", "5,000.00"},
        Case{"FORMATNUMBER,1,-1,0,-1,what", "5", "5.0"}, Case{"FORMATCURRENCY", "-1234.5", "-$1,234.50"},
        Case{"FORMATCURRENCY,0,-2,-1", "-1234.5", "($1,235)"}, Case{"FORMATPERCENT", "0.125", "12.50%"},
        Case{"FORMATPERCENT,0", "0.125", "13%"}, Case{"ROUND", "2.5", "2"}, Case{"ROUND", "3.5", "4"},
        Case{"ROUND,1", "0.25", "0.2"}, Case{"ROUND,2", "1234.5", "1234.5"}, Case{"ROUND,1,9", "1.26", "1.3"},
        Case{"ABS", "-12.50", "12.5"}, Case{"ABS", "7", "7"},
        Case{"ABS", "-99999999999999999999999.25", "99999999999999999999999.25"}, Case{"ABS,1", "-1", "1"}));

INSTANTIATE_TEST_SUITE_P(
    Dates, FormatFunctions,
    ::testing::Values(Case{"FORMATDATETIME", "5/3/2024 14:07:09", "5/3/2024 2:07:09 PM"},
                      Case{"FORMATDATETIME,0", "5/3/2024", "5/3/2024"},
                      Case{"FORMATDATETIME,1", "5/3/2024", "Friday, May 3, 2024"},
                      Case{"FORMATDATETIME,2", "5/3/2024 14:07:09", "5/3/2024"},
                      Case{"FORMATDATETIME,3", "5/3/2024 14:07:09", "2:07:09 PM"},
                      Case{"FORMATDATETIME,4,x", "5/3/2024 14:07:09", "14:07"},
                      Case{"DATEADD,m,1", "1/31/2024", "2/29/2024"},
                      Case{"DATEADD,h,-1", "5/3/2024", "5/2/2024 11:00:00 PM"},
                      Case{"DATEADD,m", "1/31/2024", "Invalid number of arguments to DateAdd"},
                      Case{"DATEADD,m,1,2", "1/31/2024", "Invalid number of arguments to DateAdd"},
                      Case{"DATEPART,yyyy", "5/3/2024", "2024"}, Case{"DATEPART,w,2", "5/3/2024", "5"},
                      Case{"DATEPART,ww,2,2", "1/1/2021", "53"},
                      Case{"DATEPART", "5/3/2024", "Invalid number of arguments to DatePart"},
                      Case{"DATEPART,w,1,1,1", "5/3/2024", "Invalid number of arguments to DatePart"}));

INSTANTIATE_TEST_SUITE_P(
    Patterns, FormatFunctions,
    ::testing::Values(Case{"FORMAT,0.00", "2.5", "2.50"}, Case{"FORMAT,yyyy-mm-dd", "5/3/2024", "2024-05-03"},
                      Case{"FORMAT,w,2", "5/3/2024", "5"}, Case{"FORMAT,ww,2,2", "1/1/2021", "53"},
                      Case{"FORMAT,>", "abc", "ABC"}, Case{"FORMAT,@@-@@", "abcd", "ab-cd"},
                      Case{"FORMAT,Yes/No", "True", "Yes"}, Case{"FORMAT,0.00", "none", "none"},
                      Case{"FORMAT,#", "0", "&nbsp;"}));

INSTANTIATE_TEST_SUITE_P(
    Texts, FormatFunctions,
    ::testing::Values(
        Case{"REPLACE,a,b", "banana", "bbnbnb"}, Case{"REPLACE,a,b,3", "banana", "banbnb"},
        Case{"REPLACE,a,b,99", "banana", "banana"}, Case{"REPLACE,ä,ö,3", "äää", "ääö"},
        Case{"REPLACE,,b", "banana", "banana"}, Case{"REPLACE,A,b", "banana", "banana"},
        Case{"REPLACE,banana,", "banana", "&nbsp;"},
        Case{"REPLACE,a", "banana", "Invalid number of arguments to Replace"},
        Case{"REPLACE,a,b,1,1", "banana", "Invalid number of arguments to Replace"},
        Case{"LEFT,2", "äöü", "äö"}, Case{"LEFT,9", "äöü", "äöü"}, Case{"LEFT,0", "äöü", "&nbsp;"},
        Case{"LEFT", "x", "Invalid number of arguments to Left"},
        Case{"LEFT,1,2", "x", "Invalid number of arguments to Left"}, Case{"RIGHT,2", "äöü", "öü"},
        Case{"RIGHT,9", "äöü", "äöü"}, Case{"RIGHT", "x", "Invalid number of arguments to Right"},
        Case{"MID,2", "äöüß", "öüß"}, Case{"MID,2,2", "äöüß", "öü"}, Case{"MID,9", "äöü", "&nbsp;"},
        Case{"MID", "x", "Invalid number of arguments to Mid"},
        Case{"MID,1,2,3", "x", "Invalid number of arguments to Mid"}, Case{"UCASE", "äbc", "ÄBC"},
        Case{"LCASE", "ÄBC", "äbc"}, Case{"UCASE", "Ὀδυσσεύς ｘ ı", "ὈΔΥΣΣΕΎΣ Ｘ I"},
        Case{"LCASE", "ὈΔΥΣΣΕΎΣ Ｘ İ", "ὀδυσσεύσ ｘ i"}, Case{"INITCAPS", "ⱥς", "Ⱥσ"},
        Case{"INITCAPSALL", "ἈΘΉΝΑ ＡＢ", " Ἀθήνα Ａｂ"}, Case{"FORMAT,>", "ῳς", "ῼΣ"},
        Case{"INITCAPS", "hello WORLD", "Hello world"}, Case{"INITCAPSALL", "JOHN SMITH", " John Smith"},
        Case{"INITCAPSALL", "John SMITH", "John SMITH"}, Case{"INITCAPSALL", "123", " 123"},
        Case{"LEN", "äöü ", "4"}, Case{"LEN,7", "abc", "3"}));

INSTANTIATE_TEST_SUITE_P(
    RegularExpressions, FormatFunctions,
    ::testing::Values(
        Case{R"(REGEXPREPLACE,/a\/b/g,x)", "a/b a/b", "x x"}, Case{"REGEXPREPLACE,/a/,x", "aAa", "xAa"},
        Case{"REGEXPREPLACE,/a/gi,x", "aAa", "xxx"}, Case{"REGEXPREPLACE,/^b/m,x", "a\nb", "a\nx"},
        Case{"REGEXPREPLACE,/(\\w+), (\\w+)/,$2 $1", "Smith, John", "John Smith"},
        Case{"REGEXPREPLACE,/b+/, x ", "abba", "a x a"}, Case{"REGEXPREPLACE,/b/,x,y", "abc", "ax,yc"},
        Case{"REGEXPREPLACE,/b/", "abc", "ac"}, Case{"REGEXPREPLACE,/.+/,", "abc", "&nbsp;"},
        Case{" regexpreplace ,/b/,x", "abc", "axc"}, Case{"REGEXPREPLACE,/b", "abc", "Invalid RegExp"},
        Case{R"(REGEXPREPLACE,/b\/)", "abc", "Invalid RegExp"},
        Case{"REGEXPREPLACE", "abc", "Invalid RegExp"}));

INSTANTIATE_TEST_SUITE_P(Others, FormatFunctions,
                         ::testing::Values(Case{"FOO", "abc", "[Unknown function : FOO] abc"},
                                           Case{" foo , 1", "abc", "[Unknown function : FOO] abc"},
                                           Case{"", "abc", "[Unknown function : ] abc"},
                                           Case{"LEFT", "", "&nbsp;"}, Case{"LEFT", "   ", "&nbsp;"},
                                           Case{"FOO", " ", "&nbsp;"},
                                           Case{"REGEXPREPLACE,/(/,x", " ", "&nbsp;"}));

class FailingFormat : public ::testing::TestWithParam<Case> {};

TEST_P(FailingFormat, LeavesABlankCellAndAMessage) {
  FormatCells cells;
  EXPECT_EQ(cells.Cell(GetParam().format, GetParam().value), "&nbsp;");
  EXPECT_EQ(cells.Message(), std::string(GetParam().cell) + " Invalid Formatting arguments<br>");
}

INSTANTIATE_TEST_SUITE_P(
    Functions, FailingFormat,
    ::testing::Values(
        Case{"FORMATNUMBER,2", "abc", "The value is no number"},
        Case{"FORMATCURRENCY", "12x", "The value is no number"}, Case{"ROUND", "x", "The value is no number"},
        Case{"ABS", "x", "The value is no number"}, Case{"FORMATDATETIME", "x", "The value is no date"},
        Case{"DATEPART,d", "2/30/2024", "The value is no date"},
        Case{"FORMATNUMBER,256", "1", "Argument 1 of FORMATNUMBER must be from -1 to 255"},
        Case{"FORMATDATETIME,5", "5/3/2024", "Argument 1 of FORMATDATETIME must be from 0 to 4"},
        Case{"ROUND,-1", "1", "Argument 1 of ROUND must be from 0 to 255"},
        Case{"LEFT,-1", "abc", "Argument 1 of LEFT must be from 0 to 2147483647"},
        Case{"MID,0", "abc", "Argument 1 of MID must be from 1 to 2147483647"},
        Case{"LEFT,x", "abc", "Argument 1 of LEFT must be a whole number from -2147483648 to 2147483647"},
        Case{"REPLACE,a,b,0", "abc", "Argument 3 of REPLACE must be from 1 to 2147483647"},
        Case{"DATEADD,x,1", "5/3/2024", "The interval is none of yyyy, q, m, y, d, w, ww, h, n and s"},
        Case{"DATEADD,yyyy,9999", "5/3/2024", "The date is outside the years 1 to 9999"},
        Case{"DATEPART,w,8", "5/3/2024", "Argument 2 of DATEPART must be from 0 to 7"},
        Case{"FORMAT", "1",
             "FORMAT takes a pattern, and perhaps the first day of the week and the first week"},
        Case{"FORMAT,0,1,1,1", "1",
             "FORMAT takes a pattern, and perhaps the first day of the week and the first week"},
        Case{"REGEXPREPLACE,/(/,x", "abc",
             "The regular expression is not valid after 1 characters: missing closing parenthesis"}));

TEST(FormatCell, UsesTheCurrentDelimiter) {
  FormatCells cells;
  cells.settings.GridFreeFormatCellColumnDelimiter = ";";
  EXPECT_EQ(cells.Cell("FORMATNUMBER;1", "3.14"), "3.1");
  EXPECT_EQ(cells.Cell("FORMAT;#,##0.0", "1234.5"), "1,234.5");
  EXPECT_EQ(cells.Cell("REGEXPREPLACE;/b/g;x,y", "abcb"), "ax,ycx,y");
  EXPECT_EQ(cells.Cell("REGEXPREPLACE;/b/g,x", "abcb"), "axcx");
  EXPECT_EQ(cells.Cell("LEFT,2", "abc"), "[Unknown function : LEFT,2] abc");
}

TEST(FormatCell, ReportsEveryFailingCell) {
  FormatCells cells;
  settings::SetGridFormatCellFunction(cells.settings, 1, "ABS");
  FakeField field("V", TypeCode::kVarWideChar, [] { return platform::VariantView(std::string_view("x")); });
  cells.Text([&](html::HtmlWriter&, state::Render& render) {
    cells::FormatFunction function(render, 1, cells.form);
    for (int i = 0; i < 2; ++i) function.CellText(render, field);
  });
  EXPECT_EQ(cells.Message(),
            "The value is no number Invalid Formatting arguments<br>"
            "The value is no number Invalid Formatting arguments<br>");
}

TEST(FormatCell, ReportsAValueThatCannotBeReadOnce) {
  for (const TypeCode type : {TypeCode::kDate, TypeCode::kInteger, TypeCode::kVarWideChar}) {
    FormatCells cells;
    FakeField field("V", type, Unreadable);
    EXPECT_EQ(cells.Cell("ABS", field), "&nbsp;");
    EXPECT_EQ(cells.Message(), "Disk gone in GetStdDbFieldStringRaw. oField.Name=V<br>");
  }
}

TEST(FormatCell, FormatsEveryKindOfColumn) {
  FormatCells cells;
  const auto cell = [&](std::string_view type, std::string_view value, std::string_view format) {
    return cells.Cell(format, Column(type, {value})[0]);
  };
  EXPECT_EQ(cell("INTEGER", "-1234567", "FORMATNUMBER,0"), "-1,234,567");
  EXPECT_EQ(cell("INTEGER", "1234567", "RIGHT,3"), "567");
  EXPECT_EQ(cell("INTEGER", "-5", "ABS"), "5");
  EXPECT_EQ(cell("DOUBLE", "0.1 + 0.2", "ABS"), "0.3");
  EXPECT_EQ(cell("DOUBLE", "1e20", "FORMATNUMBER,0"), "100,000,000,000,000,000,000");
  EXPECT_EQ(cell("DECIMAL(10,3)", "'2.675'", "FORMATCURRENCY"), "$2.68");
  EXPECT_EQ(cell("DATETIME", "'2024-05-03 14:07:09'", "FORMATDATETIME,4"), "14:07");
  EXPECT_EQ(cell("DATETIME", "'2024-05-03 14:07:09'", "LEFT,3"), "5/3");
  EXPECT_EQ(cell("DATETIME", "'2024-05-03'", "FORMAT,dddd"), "Friday");
  EXPECT_EQ(cell("DATETIME", "'2024-02-30'", "FORMATDATETIME"), "&nbsp;");
  EXPECT_EQ(cell("BOOLEAN", "1", "FORMAT,On/Off"), "On");
  EXPECT_EQ(cell("BOOLEAN", "0", "FORMAT,Yes/No"), "No");
  EXPECT_EQ(cell("BOOLEAN", "1", "FORMATNUMBER,1"), "-1.0");
  EXPECT_EQ(cell("BOOLEAN", "0", "FORMATCURRENCY"), "$0.00");
  EXPECT_EQ(cell("BOOLEAN", "1", "FORMATPERCENT,0"), "-100%");
  EXPECT_EQ(cell("BOOLEAN", "1", "ABS"), "1");
  EXPECT_EQ(cell("BOOLEAN", "1", "ROUND"), "-1");
  EXPECT_EQ(cell("BOOLEAN", "1", "FORMAT,0.0"), "-1.0");
  EXPECT_EQ(cell("BOOLEAN", "1", "FORMAT,yyyy"), "True");
  EXPECT_EQ(cell("BOOLEAN", "1", "FORMAT,<"), "true");
  EXPECT_EQ(cell("BOOLEAN", "1", "REPLACE,True,yes"), "yes");
  EXPECT_EQ(cell("BOOLEAN", "NULL", "ABS"), "&nbsp;");
  EXPECT_EQ(cell("BOOLEAN", "0", "LCASE"), "false");
  EXPECT_EQ(cell("TEXT", "'a long text'", "LEFT,6"), "a long");
  EXPECT_EQ(cell("BLOB", "x'41'", "LEN"), "&nbsp;");
  EXPECT_EQ(cell("INTEGER", "NULL", "ABS"), "&nbsp;");
  EXPECT_EQ(cells.Message(), "");
}

TEST(FormatCell, HasTheTextOfTheValueWithAnEmptyPattern) {
  FormatCells cells;
  const auto cell = [&](std::string_view type, std::string_view value) {
    return cells.Cell("FORMAT,", Column(type, {value})[0]);
  };
  EXPECT_EQ(cell("INTEGER", "-1234567"), "-1234567");
  EXPECT_EQ(cell("DECIMAL(10,3)", "'2.50'"), "2.5");
  EXPECT_EQ(cell("BOOLEAN", "1"), "True");
  EXPECT_EQ(cell("DATE", "'2024-05-03'"), "5/3/2024");
  EXPECT_EQ(cell("TEXT", "'2.50'"), "2.50");
  EXPECT_EQ(cells.Message(), "");
}

TEST(FormatCell, EndsACatastrophicPatternWithTheMessage) {
  FormatCells cells;
  const std::string text = std::string(5'000, 'a') + "!";
  const double start = CpuSeconds();
  EXPECT_EQ(cells.Cell("REGEXPREPLACE,/^(a|aa)+$/g,x", text), "&nbsp;");
  EXPECT_LT(CpuSeconds() - start, 20);
  EXPECT_TRUE(cells.Message().ends_with(" Invalid Formatting arguments<br>")) << cells.Message();
}

TEST(FormatCell, SurvivesAnyBytes) {
  constexpr std::string_view kNames[] = {
      "FORMATNUMBER", "FORMATDATETIME", "FORMAT", "DATEADD", "DATEPART",
      "REPLACE",      "LEFT",           "RIGHT",  "MID",     "UCASE",
      "INITCAPSALL",  "ROUND",          "ABS",    "LEN",     "REGEXPREPLACE"};
  constexpr std::string_view kBytes = ",,,//\\()[]*+?{}$019-.ymdhw#@&<>!;\" \xC3\xA4\xFFiga";
  std::mt19937 random(11);
  const auto bytes = [&](std::size_t most) {
    std::string text;
    for (auto size = random() % most; size > 0; --size) text += kBytes[random() % kBytes.size()];
    return text;
  };
  FormatCells cells;
  for (int i = 0; i < 5'000; ++i) {
    const std::string format = std::string(kNames[random() % std::size(kNames)]) + "," + bytes(16);
    const std::string value = i % 3 == 0 ? "5/3/2024 14:07" : i % 3 == 1 ? "-1234.5" : bytes(30);
    ASSERT_NE(cells.Cell(format, value), "") << format;
    cells.settings.ErrorMessage.clear();
  }
}

}  // namespace
}  // namespace dralo::tests
