#include "cells/free_format.h"

#include <gtest/gtest.h>

#include <string>

#include "settings/column_settings.h"
#include "support/fake_records.h"
#include "support/named_cases.h"
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

struct FreeFormatCell : testing::Test {
  Templates templates;
  Records books{kBooks};
};

TEST_F(FreeFormatCell, PutsFieldValuesBetweenTheTextOfABulkTemplate) {
  settings::SetGridFreeFormatCell(templates.settings, "2,<b>#Title#</b>,4,#Price# EUR");

  EXPECT_EQ(templates.Cell(*books, 2), "<b>The <i>Hobbit</i></b>");
  EXPECT_EQ(templates.Cell(*books, 4), "10.5 EUR");
  EXPECT_EQ(templates.settings.ErrorMessage, "");
}

struct TemplateCase {
  std::string_view name, text, cell;
  std::string_view message = "";
  std::string_view delimiter = "#";
};

class Template : public testing::TestWithParam<TemplateCase> {};

TEST_P(Template, MakesTheCell) {
  Templates templates;
  templates.settings.GridFreeFormatCellDataFieldDelimiter = GetParam().delimiter;
  EXPECT_EQ(templates.Cell(*Records(kBooks), GetParam().text), GetParam().cell);
  EXPECT_EQ(templates.settings.ErrorMessage, GetParam().message);
}

constexpr TemplateCase kTemplates[] = {
    {"OfOneField", "#ID#", "1"},
    {"OfAFieldBetweenTexts", "Dear #ID#!", "Dear 1!"},
    {"OfTextAlone", "words", "words"},
    {"OfNothing", "", ""},
    {"OfADateInItsPlainText", "[#Sold#]", "[3/5/2024]"},
    {"OfAFieldInAnyLetterCase", "#id#", "1"},
    {"OfAFieldButNotWithBlanks", "# ID#", "",
     "The record has no field named \" ID\" in GetFreeCellString. index=1, nArrIdx=1<br>"},
    {"UpToAPlaceholderThatNamesNoField", "No. #ID# by #Author#, #Price#", "No. 1 by ",
     "The record has no field named \"Author\" in GetFreeCellString. index=1, nArrIdx=1<br>"},
    {"UpToAnEmptyPlaceholder", "a##b", "a",
     "The record has no field named \"\" in GetFreeCellString. index=1, nArrIdx=1<br>"},
    {"WithTheRestBehindALastDelimiterAsAPlaceholder", "No. #ID", "No. 1"},
    {"WithAnotherDelimiter", "#Title# |ID|", "#Title# 1", "", "|"},
    {"OfTextAloneWithoutADelimiter", "#ID#", "#ID#", "", ""},
    {"OfALinkToTheRecord", "#DRALOPOSTBACKURL#", kLink},
    {"OfALinkToTheRecordInAnyLetterCase", "#dralopostbackurl#", kLink},
    {"OfALinkToTheRecordWithBlanks", "# DraloPostbackUrl  #", kLink},
    {"OfALinkWithTheViewAtItsEnd", "<a href='#draloformurl #'>#ID#</a>",
     "<a href='/p?&Morvu1BookMark=1&Morvu1OrderByFields=&Morvu1CurrRecord=1"
     "&Morvu1CountRecords=on&Morvu1maxrecords=20&Morvu1FormDisplay=formOneRec'>1</a>"},
};

INSTANTIATE_TEST_SUITE_P(Books, Template, testing::ValuesIn(kTemplates), kByName);

TEST_F(FreeFormatCell, WritesNullAsNothing) {
  books->MoveNext();
  EXPECT_EQ(templates.Cell(*books, "[#Title##Price##Sold#]"), "[]");
}

TEST_F(FreeFormatCell, IgnoresTheMemoLimit) {
  templates.settings.MemoFieldLimit = 2;
  const Records notes("CREATE TABLE T (Note TEXT); INSERT INTO T VALUES ('a long note')");

  EXPECT_EQ(templates.Cell(*notes, "#Note#"), "a long note");
}

TEST_F(FreeFormatCell, FindsFieldsWithLettersOfEveryScript) {
  const Records records("CREATE TABLE T (\"ⱥθήνας\" TEXT); INSERT INTO T VALUES ('x')");

  EXPECT_EQ(templates.Cell(*records, "#ȺΘΉΝΑΣ#"), "x");
  EXPECT_EQ(templates.settings.ErrorMessage, "");
}

TEST_F(FreeFormatCell, ReportsAValueThatCannotBeRead) {
  FakeRecords records(1);
  records.Add("A", TypeCode::kInteger, Unreadable);

  EXPECT_EQ(templates.Cell(records, "[#A#]"), "[");
  EXPECT_EQ(templates.settings.ErrorMessage, "Disk gone in GetFreeCellString. index=1, nArrIdx=1<br>");
}

TEST_F(FreeFormatCell, ReportsAColumnWithoutATemplate) {
  EXPECT_EQ(templates.Cell(*books, 3), "");
  EXPECT_EQ(templates.settings.ErrorMessage,
            "The column has no setting in GetFreeCellString. index=3, nArrIdx=-1<br>");
}

TEST_F(FreeFormatCell, ReportsAColumnWhoseTemplateIsMissingInTheBulkText) {
  settings::SetGridFreeFormatCell(templates.settings, "1,x,2");

  EXPECT_EQ(templates.Cell(*books, 2), "");
  EXPECT_EQ(templates.settings.ErrorMessage,
            "The column has no setting in GetFreeCellString. index=2, nArrIdx=3<br>");
}

TEST_F(FreeFormatCell, PrefersTheLinkToAFieldOfThatName) {
  const Records records("CREATE TABLE T (DRALOPOSTBACKURL INTEGER); INSERT INTO T VALUES (1)");

  EXPECT_EQ(templates.Cell(*records, "#DRALOPOSTBACKURL#"), kLink);
}

TEST_F(FreeFormatCell, LinksToTheKeyOfEachRecord) {
  templates.settings.EditSQL = "SELECT * FROM T";
  templates.settings.EditPrimaryKeys = "ID";
  books->MoveNext();
  settings::SetGridFreeFormatCellByCol(templates.settings, 1, "#DRALOFORMURL#");

  EXPECT_EQ(templates.Cell(*books, 1, 27),
            "/p?&Morvu1PK=2&Morvu1OrderByFields=&Morvu1CurrRecord=27"
            "&Morvu1CountRecords=on&Morvu1maxrecords=20&Morvu1FormDisplay=formOneRec");
}

struct TagCase {
  std::string_view name, tag, text;
  std::string_view message = "";
};

class RecordTag : public testing::TestWithParam<TagCase> {};

TEST_P(RecordTag, HasFieldValuesBetweenDoubleMarks) {
  Templates templates;
  templates.settings.GridFreeFormatCellDataFieldDelimiter = "|";
  EXPECT_EQ(templates.Tag(*Records(kBooks), GetParam().tag), GetParam().text);
  EXPECT_EQ(templates.settings.ErrorMessage, GetParam().message);
}

constexpr TagCase kTags[] = {
    {"InAttributes", R"(class="book##ID##" data-price="##Price##")", R"(class="book1" data-price="10.5")"},
    {"ButNotBetweenSingleMarksOrTheDelimiterOfTemplates", "bgcolor=#FFEE00 |ID|", "bgcolor=#FFEE00 |ID|"},
    {"AndIsTrimmed", "  nowrap  ", "nowrap"},
    {"AndIsTrimmedAroundAField", "  ##ID## ", "1"},
    {"AndIsEmptyForBlanks", "   ", ""},
    {"UpToAFieldThatIsNone", "id=##ID## class=##Kind##",
     "id=1 class=", "The record has no field named \"Kind\" in ReplaceFieldValuesFromTag<br>"},
    {"AndLinks", "data-url='##DRALOPOSTBACKURL##'",
     "data-url='/p?Morvu1FormDisplay=formOneRec&Morvu1BookMark=1&Morvu1OrderByFields="
     "&Morvu1CurrRecord=1&Morvu1CountRecords=on&Morvu1maxrecords=20'"},
};

INSTANTIATE_TEST_SUITE_P(Books, RecordTag, testing::ValuesIn(kTags), kByName);

}  // namespace
}  // namespace dralo::tests
