#include "cells/free_format.h"

#include <gtest/gtest.h>

#include <string>

#include "settings/column_settings.h"
#include "support/fake_records.h"
#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;

struct Templates : Rendering {
  /// The cell of a column.
  std::string Cell(platform::Recordset& records, int column, std::int32_t number = 1) {
    return Text([&](html::HtmlWriter& out, state::Render& render) {
      cells::FreeFormatCell(render, records, column).Put(out, render, number);
    });
  }

  /// The cell of column 1 with that template.
  std::string Cell(platform::Recordset& records, std::string_view text) {
    settings::SetGridFreeFormatCellByCol(settings, 1, text);
    return Cell(records, 1);
  }

  std::string Tag(platform::Recordset& records, std::string_view text) {
    return Text([&](html::HtmlWriter& out, state::Render& render) {
      out.Write(html::Verbatim{cells::RecordTag(text, render, records).Text(render, 1)});
    });
  }
};

constexpr std::string_view kBooks = R"(
    CREATE TABLE T (ID INTEGER PRIMARY KEY, Title VARCHAR(50), Price DECIMAL(8,2), Sold DATE);
    INSERT INTO T VALUES (1, 'The <i>Hobbit</i>', 10.50, '2024-03-05'), (2, NULL, NULL, NULL))";

constexpr std::string_view kLink =
    "/p?Morvu1FormDisplay=formOneRec&Morvu1BookMark=1&Morvu1OrderByFields=&Morvu1CurrRecord=1"
    "&Morvu1CountRecords=on&Morvu1maxrecords=20";
constexpr std::string_view kFormLink =
    "/p?&Morvu1BookMark=1&Morvu1OrderByFields=&Morvu1CurrRecord=1"
    "&Morvu1CountRecords=on&Morvu1maxrecords=20&Morvu1FormDisplay=formOneRec";

TEST(FreeFormatCell, PutsFieldValuesBetweenTheTextOfABulkTemplate) {
  Templates templates;
  const Records books(kBooks);
  settings::SetGridFreeFormatCell(templates.settings, "2,<b>#Title#</b>,4,#Price# EUR");

  EXPECT_EQ(templates.Cell(*books, 2), "<b>The <i>Hobbit</i></b>");
  EXPECT_EQ(templates.Cell(*books, 4), "10.5 EUR");
  EXPECT_EQ(templates.settings.ErrorMessage, "");
}

TEST(FreeFormatCell, MayBeOneFieldOrTextAlone) {
  Templates templates;
  const Records books(kBooks);

  EXPECT_EQ(templates.Cell(*books, "#ID#"), "1");
  EXPECT_EQ(templates.Cell(*books, "Dear #ID#!"), "Dear 1!");
  EXPECT_EQ(templates.Cell(*books, "words"), "words");
  EXPECT_EQ(templates.Cell(*books, ""), "");
}

TEST(FreeFormatCell, WritesNullAsNothingAndDatesInTheirPlainText) {
  Templates templates;
  const Records books(kBooks);

  EXPECT_EQ(templates.Cell(*books, "[#Sold#]"), "[3/5/2024]");
  books->MoveNext();
  EXPECT_EQ(templates.Cell(*books, "[#Title##Price##Sold#]"), "[]");
}

TEST(FreeFormatCell, IgnoresTheMemoLimit) {
  Templates templates;
  templates.settings.MemoFieldLimit = 2;
  const Records notes("CREATE TABLE T (Note TEXT); INSERT INTO T VALUES ('a long note')");

  EXPECT_EQ(templates.Cell(*notes, "#Note#"), "a long note");
}

TEST(FreeFormatCell, FindsFieldsInAnyLetterCaseButNotWithBlanks) {
  Templates templates;
  const Records books(kBooks);

  EXPECT_EQ(templates.Cell(*books, "#id#"), "1");
  EXPECT_EQ(templates.settings.ErrorMessage, "");
  EXPECT_EQ(templates.Cell(*books, "# ID#"), "");
  EXPECT_EQ(templates.settings.ErrorMessage,
            "The record has no field named \" ID\" in GetFreeCellString. index=1, nArrIdx=1<br>");
}

TEST(FreeFormatCell, FindsFieldsWithLettersOfEveryScript) {
  Templates templates;
  const Records records("CREATE TABLE T (\"ⱥθήνας\" TEXT); INSERT INTO T VALUES ('x')");

  EXPECT_EQ(templates.Cell(*records, "#ȺΘΉΝΑΣ#"), "x");
  EXPECT_EQ(templates.settings.ErrorMessage, "");
}

TEST(FreeFormatCell, ReportsAPlaceholderThatNamesNoFieldAndKeepsWhatStandsBefore) {
  Templates templates;
  const Records books(kBooks);

  EXPECT_EQ(templates.Cell(*books, "No. #ID# by #Author#, #Price#"), "No. 1 by ");
  EXPECT_EQ(templates.settings.ErrorMessage,
            "The record has no field named \"Author\" in GetFreeCellString. index=1, nArrIdx=1<br>");
}

TEST(FreeFormatCell, ReportsAnEmptyPlaceholder) {
  Templates templates;
  const Records books(kBooks);

  EXPECT_EQ(templates.Cell(*books, "a##b"), "a");
  EXPECT_EQ(templates.settings.ErrorMessage,
            "The record has no field named \"\" in GetFreeCellString. index=1, nArrIdx=1<br>");
}

TEST(FreeFormatCell, TakesTheRestBehindALastDelimiterAsAPlaceholder) {
  Templates templates;
  const Records books(kBooks);

  EXPECT_EQ(templates.Cell(*books, "No. #ID"), "No. 1");
}

TEST(FreeFormatCell, ReportsAValueThatCannotBeRead) {
  Templates templates;
  FakeRecords records(1);
  records.Add("A", TypeCode::kInteger, Unreadable);

  EXPECT_EQ(templates.Cell(records, "[#A#]"), "[");
  EXPECT_EQ(templates.settings.ErrorMessage, "Disk gone in GetFreeCellString. index=1, nArrIdx=1<br>");
}

TEST(FreeFormatCell, ReportsAColumnWithoutATemplate) {
  Templates templates;
  const Records books(kBooks);

  EXPECT_EQ(templates.Cell(*books, 3), "");
  EXPECT_EQ(templates.settings.ErrorMessage,
            "The column has no setting in GetFreeCellString. index=3, nArrIdx=-1<br>");
}

TEST(FreeFormatCell, ReportsAColumnWhoseTemplateIsMissingInTheBulkText) {
  Templates templates;
  const Records books(kBooks);
  settings::SetGridFreeFormatCell(templates.settings, "1,x,2");

  EXPECT_EQ(templates.Cell(*books, 2), "");
  EXPECT_EQ(templates.settings.ErrorMessage,
            "The column has no setting in GetFreeCellString. index=2, nArrIdx=3<br>");
}

TEST(FreeFormatCell, TakesAnotherDelimiter) {
  Templates templates;
  const Records books(kBooks);
  templates.settings.GridFreeFormatCellDataFieldDelimiter = "|";

  EXPECT_EQ(templates.Cell(*books, "#Title# |ID|"), "#Title# 1");
}

TEST(FreeFormatCell, IsTextAloneWithoutADelimiter) {
  Templates templates;
  const Records books(kBooks);
  templates.settings.GridFreeFormatCellDataFieldDelimiter = "";

  EXPECT_EQ(templates.Cell(*books, "#ID#"), "#ID#");
}

TEST(FreeFormatCell, LinksToTheRecordInAnyLetterCaseAndWithBlanks) {
  Templates templates;
  const Records books(kBooks);

  for (const std::string_view text : {"#DRALOPOSTBACKURL#", "#dralopostbackurl#", "# DraloPostbackUrl  #"}) {
    EXPECT_EQ(templates.Cell(*books, text), kLink) << text;
  }
  EXPECT_EQ(templates.Cell(*books, "<a href='#draloformurl #'>#ID#</a>"),
            "<a href='" + std::string(kFormLink) + "'>1</a>");
}

TEST(FreeFormatCell, PrefersTheLinkToAFieldOfThatName) {
  Templates templates;
  const Records records("CREATE TABLE T (DRALOPOSTBACKURL INTEGER); INSERT INTO T VALUES (1)");

  EXPECT_EQ(templates.Cell(*records, "#DRALOPOSTBACKURL#"), kLink);
}

TEST(FreeFormatCell, LinksToTheKeyOfEachRecord) {
  Templates templates;
  templates.settings.EditSQL = "SELECT * FROM T";
  templates.settings.EditPrimaryKeys = "ID";
  const Records books(kBooks);
  books->MoveNext();
  settings::SetGridFreeFormatCellByCol(templates.settings, 1, "#DRALOFORMURL#");

  EXPECT_EQ(templates.Cell(*books, 1, 27),
            "/p?&Morvu1PK=2&Morvu1OrderByFields=&Morvu1CurrRecord=27"
            "&Morvu1CountRecords=on&Morvu1maxrecords=20&Morvu1FormDisplay=formOneRec");
}

TEST(RecordTag, PutsFieldValuesBetweenDoubleMarks) {
  Templates templates;
  const Records books(kBooks);

  EXPECT_EQ(templates.Tag(*books, "class=\"book##ID##\" data-price=\"##Price##\""),
            "class=\"book1\" data-price=\"10.5\"");
}

TEST(RecordTag, LeavesSingleMarksAloneWhateverTheDelimiterOfTemplates) {
  Templates templates;
  templates.settings.GridFreeFormatCellDataFieldDelimiter = "|";
  const Records books(kBooks);

  EXPECT_EQ(templates.Tag(*books, "bgcolor=#FFEE00 |ID|"), "bgcolor=#FFEE00 |ID|");
}

TEST(RecordTag, IsTrimmed) {
  Templates templates;
  const Records books(kBooks);

  EXPECT_EQ(templates.Tag(*books, "  nowrap  "), "nowrap");
  EXPECT_EQ(templates.Tag(*books, "  ##ID## "), "1");
  EXPECT_EQ(templates.Tag(*books, "   "), "");
}

TEST(RecordTag, ReportsAFieldThatIsNoneAndKeepsWhatStandsBefore) {
  Templates templates;
  const Records books(kBooks);

  EXPECT_EQ(templates.Tag(*books, "id=##ID## class=##Kind##"), "id=1 class=");
  EXPECT_EQ(templates.settings.ErrorMessage,
            "The record has no field named \"Kind\" in ReplaceFieldValuesFromTag<br>");
}

TEST(RecordTag, KnowsTheLinks) {
  Templates templates;
  const Records books(kBooks);

  EXPECT_EQ(templates.Tag(*books, "data-url='##DRALOPOSTBACKURL##'"),
            "data-url='" + std::string(kLink) + "'");
}

}  // namespace
}  // namespace dralo::tests
