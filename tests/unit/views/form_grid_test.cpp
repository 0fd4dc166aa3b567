#include "views/form_grid.h"
#include "support/expect_html.h"

#include <gtest/gtest.h>

#include <string>

#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "unit/views/form_page.h"

namespace dralo::tests {
namespace {

TEST(FormGrid, WritesARowOfLabelAndValueForEveryField) {
  FormPage page;
  const Records people(kPeople);

  EXPECT_HTML(page.Form(*people), Lines(R"(
      <tr><td><table width="100%" class="DRLOTableFormDataView">
      <tr class="DRLOTableTR"><th align=left>ID</th><td>7</td></tr>
      <tr class="DRLOTableTR"><th align=left>Name</th><td>Ann</td></tr>
      <tr class="DRLOTableTR"><th align=left>Member</th><td>True</td></tr>
      </table></td></tr>
      )"));
  EXPECT_EQ(page.rows, 1);
  EXPECT_EQ(page.settings.ErrorMessage, "");
}

TEST(FormGrid, HasNoClassesWithoutCss) {
  FormPage page;
  page.settings.UseCSS = false;
  const Records people(kPeople);

  EXPECT_HTML(page.Form(*people), Lines(R"(
      <tr><td><table width="100%">
      <tr><th align=left>ID</th><td>7</td></tr>
      <tr><th align=left>Name</th><td>Ann</td></tr>
      <tr><th align=left>Member</th><td>True</td></tr>
      </table></td></tr>
      )"));
}

TEST(FormGrid, WritesValueCellsOnlyWithoutTheHeader) {
  FormPage page;
  page.settings.DisplayHeader = false;
  page.settings.THTag = "nowrap";
  page.settings.FormCellWidths = "30%,70%";
  const Records people(kPeople);

  EXPECT_HTML(FieldRows(page.Form(*people)), Lines(R"(
      <tr class="DRLOTableTR"><td width="70%">7</td></tr>
      <tr class="DRLOTableTR"><td width="70%">Ann</td></tr>
      <tr class="DRLOTableTR"><td width="70%">True</td></tr>
      )"));
}

TEST(FormGrid, GivesAllLabelsTheFirstWidthAndAllValuesTheSecond) {
  FormPage page;
  page.settings.FormCellWidths = "30%,70%";
  const Records people(kPeople);

  EXPECT_HTML(FieldRows(page.Form(*people)), Lines(R"(
      <tr class="DRLOTableTR"><th width="30%" align=left>ID</th><td width="70%">7</td></tr>
      <tr class="DRLOTableTR"><th width="30%" align=left>Name</th><td width="70%">Ann</td></tr>
      <tr class="DRLOTableTR"><th width="30%" align=left>Member</th><td width="70%">True</td></tr>
      )"));
}

TEST(FormGrid, WritesNoWidthForAnEmptyItem) {
  FormPage page;
  page.settings.FormFieldsShow = "ID";
  const auto widths = [&](const char* list) {
    page.settings.FormCellWidths = list;
    const Records people(kPeople);
    return FieldRows(page.Form(*people));
  };

  EXPECT_EQ(widths("120"),
            "<tr class=\"DRLOTableTR\"><th width=\"120\" align=left>ID</th><td>7</td></tr>\r\n");
  EXPECT_EQ(widths(",120,9"),
            "<tr class=\"DRLOTableTR\"><th align=left>ID</th><td width=\"120\">7</td></tr>\r\n");
}

TEST(FormGrid, PutsTheTagOfHeaderCellsInPlaceOfTheAlignment) {
  FormPage page;
  page.settings.FormFieldsShow = "ID";
  page.settings.THTag = "nowrap valign=top";
  page.settings.FormCellWidths = "30%";
  const Records people(kPeople);

  EXPECT_EQ(FieldRows(page.Form(*people)),
            "<tr class=\"DRLOTableTR\"><th width=\"30%\" nowrap valign=top>ID</th><td>7</td></tr>\r\n");
}

TEST(FormGrid, PutsTheTagOfFormCellsBetweenWidthAndColumnAttributes) {
  FormPage page;
  page.settings.FormFieldsShow = "ID";
  page.settings.FormCellWidths = ",70%";
  page.settings.FormTDTag = "nowrap";
  settings::SetGridColAttributes(page.settings, 1, "title='No.'");
  const Records people(kPeople);

  EXPECT_EQ(
      FieldRows(page.Form(*people)),
      "<tr class=\"DRLOTableTR\"><th align=left>ID</th><td width=\"70%\" nowrap title='No.'>7</td></tr>\r\n");
}

TEST(FormGrid, PutsTheTagOfTheFormTableOnTheTableOfTheFields) {
  FormPage page;
  page.settings.FormTableTag = "border=1";
  page.settings.GridTableTag = "summary=grid";
  const Records people(kPeople);
  EXPECT_TRUE(page.Form(*people).starts_with(
      "<tr><td><table width=\"100%\" class=\"DRLOTableFormDataView\" border=1>\r\n"));

  page.settings.UseCSS = false;
  EXPECT_TRUE(page.Form(*people).starts_with("<tr><td><table width=\"100%\" border=1>\r\n"));
}

TEST(FormGrid, LeavesColumnAttributesToTheGridWhenThePageSaysSo) {
  FormPage page;
  page.settings.FormFieldsShow = "ID,Name";
  page.settings.ApplyColFormattingToForm = false;
  settings::SetGridColAttributes(page.settings, 1, "title='No.'");
  const Records people(kPeople);

  EXPECT_FALSE(Contains(page.Form(*people), "title"));
}

TEST(FormGrid, LeavesOutHiddenFieldsButCountsThem) {
  FormPage page;
  page.settings.FormFieldsHide = "name";
  page.settings.FormFieldsShow = "Name";
  page.settings.GridFieldsHide = "ID";
  page.settings.FormDisplayFieldNames = "No.,Never shown,In the club";
  settings::SetGridColAttributes(page.settings, 3, "title='M'");
  const Records people(kPeople);

  EXPECT_HTML(FieldRows(page.Form(*people)), Lines(R"(
      <tr class="DRLOTableTR"><th align=left>No.</th><td>7</td></tr>
      <tr class="DRLOTableTR"><th align=left>In the club</th><td title='M'>True</td></tr>
      )"));
}

TEST(FormGrid, ShowsTheListedFieldsByNameAndByNumber) {
  FormPage page;
  page.settings.FormFieldsShow = "3,NAME";
  const Records people(kPeople);

  EXPECT_HTML(FieldRows(page.Form(*people)), Lines(R"(
      <tr class="DRLOTableTR"><th align=left>Name</th><td>Ann</td></tr>
      <tr class="DRLOTableTR"><th align=left>Member</th><td>True</td></tr>
      )"));
}

TEST(FormGrid, NamesFieldsByItsOwnList) {
  FormPage page;
  page.settings.GridDisplayFieldNames = "Not,for,forms";
  page.settings.FormDisplayFieldNames = ", ";
  const Records people(kPeople);

  EXPECT_HTML(FieldRows(page.Form(*people)), Lines(R"(
      <tr class="DRLOTableTR"><th align=left>ID</th><td>7</td></tr>
      <tr class="DRLOTableTR"><th align=left>&nbsp;</th><td>Ann</td></tr>
      <tr class="DRLOTableTR"><th align=left>Member</th><td>True</td></tr>
      )"));
}

TEST(FormGrid, WritesAnEmptyTableWhenNoFieldIsShown) {
  FormPage page;
  page.settings.FormFieldsShow = "Nobody";
  const Records people(kPeople);

  EXPECT_HTML(page.Form(*people), Lines(R"(
      <tr><td><table width="100%" class="DRLOTableFormDataView">
      </table></td></tr>
      )"));
  EXPECT_EQ(page.rows, 1);
}

}  // namespace
}  // namespace dralo::tests
