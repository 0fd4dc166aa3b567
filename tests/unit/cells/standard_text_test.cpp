#include "cells/standard_text.h"

#include <gtest/gtest.h>

#include <string>

#include "support/fake_records.h"
#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;

/// The texts of single fields.
struct Cells : Rendering {
  std::string Standard(platform::Field& field) {
    return Text([&](html::HtmlWriter& out, state::Render& render) {
      out.Write(html::Verbatim{cells::GetStdDbFieldString(render, field)});
    });
  }
  std::string Raw(platform::Field& field) {
    return Text([&](html::HtmlWriter& out, state::Render& render) {
      out.Write(html::Verbatim{cells::GetStdDbFieldStringRaw(render, field)});
    });
  }
};

/// One row with one column of the declared type.
Records OneValue(std::string_view declared_type, std::string_view value) {
  std::string statements("CREATE TABLE T (V ");
  statements.append(declared_type).append("); INSERT INTO T VALUES (").append(value).append(")");
  return Records(statements);
}

FakeField Made(TypeCode type, FakeField::Read read) { return {"V", type, std::move(read)}; }

TEST(StandardText, CutsALongMemoBehindTheLimit) {
  Cells cells;
  cells.settings.MemoFieldLimit = 20;
  const Records records = OneValue("TEXT", "'123456789012345678901234567890'");

  EXPECT_EQ(cells.Standard(records[0]), "12345678901234567890...");
}

TEST(StandardText, WritesAMemoUpToTheLimitWholeWithABlankBehind) {
  Cells cells;
  const Records records = OneValue("TEXT", "'123456789012345678901234567890'");

  cells.settings.MemoFieldLimit = 30;
  EXPECT_EQ(cells.Standard(records[0]), "123456789012345678901234567890&nbsp;");
  cells.settings.MemoFieldLimit = 2147483647;
  EXPECT_EQ(cells.Standard(records[0]), "123456789012345678901234567890&nbsp;");
}

TEST(StandardText, WritesTheWholeMemoInTheOneRecordViewForAnyPositiveLimit) {
  Cells cells;
  cells.mode = state::Mode::kFormView;
  const Records records = OneValue("TEXT", "'123456789012345678901234567890'");

  for (const int limit : {1, 20, 30, 31}) {
    cells.settings.MemoFieldLimit = limit;
    EXPECT_EQ(cells.Standard(records[0]), "123456789012345678901234567890&nbsp;") << limit;
  }
}

TEST(StandardText, HidesMemosUnderALimitOfZeroInBothViews) {
  Cells cells;
  cells.settings.MemoFieldLimit = 0;
  const Records records = OneValue("TEXT", "'words'");

  EXPECT_EQ(cells.Standard(records[0]), "&nbsp;");
  cells.mode = state::Mode::kFormView;
  EXPECT_EQ(cells.Standard(records[0]), "&nbsp;");
}

TEST(StandardText, WritesMemosUnchangedWithoutALimit) {
  Cells cells;
  const Records records = OneValue("TEXT", "' a  memo '");

  EXPECT_EQ(cells.Standard(records[0]), " a  memo ");
  cells.mode = state::Mode::kFormView;
  EXPECT_EQ(cells.Standard(records[0]), " a  memo ");
}

TEST(StandardText, WritesABlankCellForAMemoOfBlanks) {
  Cells cells;
  const Records records = OneValue("TEXT", "'   '");

  EXPECT_EQ(cells.Standard(records[0]), "&nbsp;");
  EXPECT_EQ(cells.Raw(records[0]), "   ");
}

TEST(StandardText, KeepsTheBlanksOfAMemoOfBlanksThatFitsTheLimit) {
  Cells cells;
  cells.settings.MemoFieldLimit = 5;
  const Records records = OneValue("TEXT", "'   '");

  EXPECT_EQ(cells.Standard(records[0]), "   &nbsp;");
}

TEST(StandardText, WritesABlankCellForAnEmptyMemo) {
  Cells cells;
  for (const int limit : {-1, 0, 5}) {
    cells.settings.MemoFieldLimit = limit;
    for (const std::string_view value : {"''", "NULL"}) {
      const Records records = OneValue("TEXT", value);
      EXPECT_EQ(cells.Standard(records[0]), "&nbsp;") << limit << value;
      EXPECT_EQ(cells.Raw(records[0]), "") << limit << value;
    }
  }
}

TEST(StandardText, CountsTheCharactersOfAMemoAndNotItsBytes) {
  Cells cells;
  cells.settings.MemoFieldLimit = 3;

  EXPECT_EQ(cells.Standard(OneValue("TEXT", "'äöüß'")[0]), "äöü...");
  EXPECT_EQ(cells.Standard(OneValue("TEXT", "'äöü'")[0]), "äöü&nbsp;");
  EXPECT_EQ(cells.Standard(OneValue("TEXT", "'😀😀😀😀'")[0]), "😀😀😀...");
}

TEST(StandardText, NeverCutsTheRawText) {
  Cells cells;
  const Records records = OneValue("TEXT", "'123456789012345678901234567890'");

  for (const int limit : {-1, 0, 20, 40}) {
    cells.settings.MemoFieldLimit = limit;
    EXPECT_EQ(cells.Raw(records[0]), "123456789012345678901234567890") << limit;
  }
}

TEST(StandardText, DoesNotCutTextsThatAreNoMemos) {
  Cells cells;
  cells.settings.MemoFieldLimit = 2;

  EXPECT_EQ(cells.Standard(OneValue("VARCHAR(20)", "'Hamburg'")[0]), "Hamburg");
}

TEST(StandardText, WritesDatesInTheRegionalForm) {
  Cells cells;

  EXPECT_EQ(cells.Standard(OneValue("DATETIME", "'2024-03-05 14:07:09'")[0]), "3/5/2024 2:07:09 PM");
  EXPECT_EQ(cells.Raw(OneValue("DATETIME", "'2024-03-05 14:07:09'")[0]), "3/5/2024 2:07:09 PM");
}

TEST(StandardText, LeavesOutTheTimeAtMidnightAndTheZeroDate) {
  Cells cells;

  EXPECT_EQ(cells.Standard(OneValue("DATE", "'2024-03-05'")[0]), "3/5/2024");
  EXPECT_EQ(cells.Standard(OneValue("DATETIME", "'2024-03-05 00:00:00'")[0]), "3/5/2024");
  EXPECT_EQ(cells.Standard(OneValue("DATETIME", "'1899-12-30 14:07:09'")[0]), "2:07:09 PM");
}

TEST(StandardText, WritesABlankCellForWhatIsNoDate) {
  Cells cells;
  for (const std::string_view value : {"NULL", "''", "'never'", "'2024-02-30'", "x'00'"}) {
    const Records records = OneValue("DATETIME", value);
    EXPECT_EQ(cells.Standard(records[0]), "&nbsp;") << value;
    EXPECT_EQ(cells.Raw(records[0]), "") << value;
  }
  EXPECT_EQ(cells.settings.ErrorMessage, "");
}

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

TEST(StandardText, NeverShowsBinaryValues) {
  Cells cells;
  const Records records = OneValue("BLOB", "x'414243'");

  EXPECT_EQ(cells.Standard(records[0]), "&nbsp;");
  EXPECT_EQ(cells.Raw(records[0]), "");
}

TEST(StandardText, WritesABlankCellForATextOfBlanksAndForNull) {
  Cells cells;
  for (const std::string_view value : {"'   '", "''", "NULL"}) {
    const Records records = OneValue("VARCHAR(10)", value);
    EXPECT_EQ(cells.Standard(records[0]), "&nbsp;") << value;
    EXPECT_EQ(cells.Raw(records[0]), "") << value;
  }
}

TEST(StandardText, KeepsTheBlanksAroundAText) {
  Cells cells;
  const Records records = OneValue("VARCHAR(10)", "'  x '");

  EXPECT_EQ(cells.Standard(records[0]), "  x ");
  EXPECT_EQ(cells.Raw(records[0]), "  x ");
}

TEST(StandardText, TreatsTabsAndLineBreaksAsText) {
  Cells cells;

  EXPECT_EQ(cells.Standard(OneValue("VARCHAR(10)", "char(9)")[0]), "\t");
  EXPECT_EQ(cells.Standard(OneValue("TEXT", "char(13, 10)")[0]), "\r\n");
}

TEST(StandardText, WritesNumbersAndBooleansInTheirPlainForm) {
  Cells cells;

  EXPECT_EQ(cells.Standard(OneValue("INTEGER", "-1234567")[0]), "-1234567");
  EXPECT_EQ(cells.Standard(OneValue("DOUBLE", "1234.5")[0]), "1234.5");
  EXPECT_EQ(cells.Standard(OneValue("DECIMAL(10, 2)", "21.00")[0]), "21");
  EXPECT_EQ(cells.Standard(OneValue("DECIMAL(10, 2)", "10.50")[0]), "10.5");
  EXPECT_EQ(cells.Standard(OneValue("BOOLEAN", "1")[0]), "True");
  EXPECT_EQ(cells.Standard(OneValue("BOOLEAN", "0")[0]), "False");
}

TEST(StandardText, WritesMarkupAsItStands) {
  Cells cells;
  const Records records = OneValue("VARCHAR(50)", "'<b class=\"x\">A & B</b>'");

  EXPECT_EQ(cells.Standard(records[0]), R"(<b class="x">A & B</b>)");
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
