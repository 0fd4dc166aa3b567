#include "views/form_grid.h"

#include <gtest/gtest.h>

#include <string>

#include "settings/column_settings.h"
#include "support/expect_html.h"
#include "unit/views/form_page.h"

namespace dralo::tests {
namespace {

TEST_F(FormGrid, WritesARowOfLabelAndValueForEveryField) {
  EXPECT_HTML(Form(), Lines(R"(
      <tr><td><table width="100%" class="DRLOTableFormDataView">
      <tr class="DRLOTableTR"><th align=left>ID</th><td>7</td></tr>
      <tr class="DRLOTableTR"><th align=left>Name</th><td>Ann</td></tr>
      <tr class="DRLOTableTR"><th align=left>Member</th><td>True</td></tr>
      </table></td></tr>
      )"));
  EXPECT_EQ(rows, 1);
  EXPECT_EQ(settings.ErrorMessage, "");
}

TEST_F(FormGrid, HasNoClassesWithoutCss) {
  settings.UseCSS = false;

  EXPECT_HTML(Form(), Lines(R"(
      <tr><td><table width="100%">
      <tr><th align=left>ID</th><td>7</td></tr>
      <tr><th align=left>Name</th><td>Ann</td></tr>
      <tr><th align=left>Member</th><td>True</td></tr>
      </table></td></tr>
      )"));
}

TEST_F(FormGrid, WritesValueCellsOnlyWithoutTheHeader) {
  settings.DisplayHeader = false;
  settings.THTag = "nowrap";
  settings.FormCellWidths = "30%,70%";

  EXPECT_HTML(FieldRows(), Lines(R"(
      <tr class="DRLOTableTR"><td width="70%">7</td></tr>
      <tr class="DRLOTableTR"><td width="70%">Ann</td></tr>
      <tr class="DRLOTableTR"><td width="70%">True</td></tr>
      )"));
}

TEST_F(FormGrid, GivesAllLabelsTheFirstWidthAndAllValuesTheSecond) {
  settings.FormCellWidths = "30%,70%";

  EXPECT_HTML(FieldRows(), Lines(R"(
      <tr class="DRLOTableTR"><th width="30%" align=left>ID</th><td width="70%">7</td></tr>
      <tr class="DRLOTableTR"><th width="30%" align=left>Name</th><td width="70%">Ann</td></tr>
      <tr class="DRLOTableTR"><th width="30%" align=left>Member</th><td width="70%">True</td></tr>
      )"));
}

TEST_F(FormGrid, WritesNoWidthForAnEmptyItem) {
  settings.FormFieldsShow = "ID";
  settings.FormCellWidths = "120";
  EXPECT_EQ(FieldRows(), "<tr class=\"DRLOTableTR\"><th width=\"120\" align=left>ID</th><td>7</td></tr>\r\n");

  settings.FormCellWidths = ",120,9";
  EXPECT_EQ(FieldRows(), "<tr class=\"DRLOTableTR\"><th align=left>ID</th><td width=\"120\">7</td></tr>\r\n");
}

TEST_F(FormGrid, PutsTheTagOfHeaderCellsInPlaceOfTheAlignment) {
  settings.FormFieldsShow = "ID";
  settings.THTag = "nowrap valign=top";
  settings.FormCellWidths = "30%";

  EXPECT_EQ(FieldRows(),
            "<tr class=\"DRLOTableTR\"><th width=\"30%\" nowrap valign=top>ID</th><td>7</td></tr>\r\n");
}

TEST_F(FormGrid, PutsTheTagOfFormCellsBetweenWidthAndColumnAttributes) {
  settings.FormFieldsShow = "ID";
  settings.FormCellWidths = ",70%";
  settings.FormTDTag = "nowrap";
  settings::SetGridColAttributes(settings, 1, "title='No.'");

  EXPECT_EQ(
      FieldRows(),
      "<tr class=\"DRLOTableTR\"><th align=left>ID</th><td width=\"70%\" nowrap title='No.'>7</td></tr>\r\n");
}

TEST_F(FormGrid, PutsTheTagOfTheFormTableOnTheTableOfTheFields) {
  settings.FormTableTag = "border=1";
  settings.GridTableTag = "summary=grid";
  EXPECT_TRUE(
      Form().starts_with("<tr><td><table width=\"100%\" class=\"DRLOTableFormDataView\" border=1>\r\n"));

  settings.UseCSS = false;
  EXPECT_TRUE(Form().starts_with("<tr><td><table width=\"100%\" border=1>\r\n"));
}

TEST_F(FormGrid, LeavesColumnAttributesToTheGridWhenThePageSaysSo) {
  settings.FormFieldsShow = "ID,Name";
  settings.ApplyColFormattingToForm = false;
  settings::SetGridColAttributes(settings, 1, "title='No.'");

  EXPECT_FALSE(Contains(Form(), "title"));
}

TEST_F(FormGrid, LeavesOutHiddenFieldsButCountsThem) {
  settings.FormFieldsHide = "name";
  settings.FormFieldsShow = "Name";
  settings.GridFieldsHide = "ID";
  settings.FormDisplayFieldNames = "No.,Never shown,In the club";
  settings::SetGridColAttributes(settings, 3, "title='M'");

  EXPECT_HTML(FieldRows(), Lines(R"(
      <tr class="DRLOTableTR"><th align=left>No.</th><td>7</td></tr>
      <tr class="DRLOTableTR"><th align=left>In the club</th><td title='M'>True</td></tr>
      )"));
}

TEST_F(FormGrid, ShowsTheListedFieldsByNameAndByNumber) {
  settings.FormFieldsShow = "3,NAME";

  EXPECT_HTML(FieldRows(), Lines(R"(
      <tr class="DRLOTableTR"><th align=left>Name</th><td>Ann</td></tr>
      <tr class="DRLOTableTR"><th align=left>Member</th><td>True</td></tr>
      )"));
}

TEST_F(FormGrid, NamesFieldsByItsOwnList) {
  settings.GridDisplayFieldNames = "Not,for,forms";
  settings.FormDisplayFieldNames = ", ";

  EXPECT_HTML(FieldRows(), Lines(R"(
      <tr class="DRLOTableTR"><th align=left>ID</th><td>7</td></tr>
      <tr class="DRLOTableTR"><th align=left>&nbsp;</th><td>Ann</td></tr>
      <tr class="DRLOTableTR"><th align=left>Member</th><td>True</td></tr>
      )"));
}

TEST_F(FormGrid, WritesAnEmptyTableWhenNoFieldIsShown) {
  settings.FormFieldsShow = "Nobody";

  EXPECT_HTML(Form(), Lines(R"(
      <tr><td><table width="100%" class="DRLOTableFormDataView">
      </table></td></tr>
      )"));
  EXPECT_EQ(rows, 1);
}

}  // namespace
}  // namespace dralo::tests
