#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/expect_html.h"
#include "support/fake_records.h"
#include "support/records.h"
#include "unit/editing/edit_form_page.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;

/// The row of the field, with its end.
std::string RowOf(const std::string& html, std::string_view field) {
  const std::size_t name = html.find("name=\"Morvu1_Form_" + std::string(field) + "\"");
  EXPECT_NE(name, html.npos) << html;
  const std::size_t start = html.rfind("<tr>", name);
  return html.substr(start, html.find("</tr>", name) + 5 - start);
}

TEST_F(EditForm, HasARowOfButtonsAndARowForEveryField) {
  const Records people(kPeople);

  EXPECT_HTML(form.Form(*people), Lines(R"(
      <tr><td><table width="100%" cellspacing=0 cellpadding=0>
      <tr><td colspan=2 class="DraloEditBtnBar"><input type="hidden" name="Morvu1FormEdit" value="1"><input type="hidden" name="Morvu1FormInsert" value=""><input class="DraloInputBtn" type="submit" onclick="FormDraloGrid1.Morvu1FormEdit.value=''" name="Morvu1FormUpdate" value="Save">&nbsp;<input class="DraloInputBtn" type="submit" name="Morvu1FormView" value="Close"></td></tr>
      </table></td></tr>
      <tr><td><table width="100%" class="DRLOTableFormDataEdit">
      <tr><th align=left><span class="DraloRequiredFieldLabel">ID</span></th><td><nobr><input class="DraloInput" size=20 type="text" id="Morvu1_Form_ID" name="Morvu1_Form_ID" value="7" maxlength="20">&nbsp;*&nbsp;</nobr>
      </td></tr>
      <tr><th align=left><span class="DraloRequiredFieldLabel">Name</span></th><td><nobr><input class="DraloInput" size=22 type="text" id="Morvu1_Form_Name" name="Morvu1_Form_Name" value="Ann" maxlength="20">&nbsp;*&nbsp;</nobr>
      </td></tr>
      <tr><th align=left>City</th><td><input class="DraloInput" size=22 type="text" id="Morvu1_Form_City" name="Morvu1_Form_City" value="Oslo" maxlength="20">
      </td></tr>
      </table></td></tr>
      )"));
  EXPECT_EQ(form.settings.ErrorMessage, "");
}

TEST_F(EditForm, HasNoClassesWhenThePageWantsNone) {
  form.settings.UseCSS = false;
  form.settings.FormFieldsShow = "Name";
  form.settings.DeleteSQL = "DELETE FROM T";
  settings::SetEditOptions(form.settings, "UPDATE ADD DELETE");
  const Records people(kPeople);

  EXPECT_HTML(form.Form(*people), Lines(R"(
      <tr><td><table width="100%" cellspacing=0 cellpadding=0>
      <tr><td colspan=2><input type="hidden" name="Morvu1FormEdit" value="1"><input type="hidden" name="Morvu1FormInsert" value=""><input type="submit" onclick="FormDraloGrid1.Morvu1FormEdit.value=''" name="Morvu1FormUpdate" value="Save">&nbsp;<input type="submit" name="Morvu1FormView" value="Close">&nbsp;<input type="submit" name="Morvu1FormAdd" value="Add">&nbsp;<input type="submit" onclick="FormDraloGrid1.Morvu1FormEdit.value='';" name="Morvu1FormDelete" value="Delete"></td></tr>
      </table></td></tr>
      <tr><td><table width="100%">
      <tr><th align=left><span>Name</span></th><td><nobr><input size=22 type="text" id="Morvu1_Form_Name" name="Morvu1_Form_Name" value="Ann" maxlength="20">&nbsp;*&nbsp;</nobr>
      </td></tr>
      </table></td></tr>
      )"));
}

TEST_F(EditForm, ShowsTheFieldsOfTheListsAlone) {
  form.settings.FormFieldsShow = "name";
  EXPECT_FALSE(Contains(form.Form(*Records(kPeople)), "_Form_City"));
  form.settings.FormFieldsHide = "2";
  const std::string html = form.Form(*Records(kPeople));
  EXPECT_FALSE(Contains(html, "_Form_Name"));
  EXPECT_TRUE(Contains(html, "_Form_City"));
}

TEST_F(EditForm, CarriesHiddenKeysOfItsRecord) {
  form.settings.FormFieldsHide = "ID,City";
  form.settings.EditPrimaryKeys = "Other, id ";
  const std::string html = form.Form(*Records(kPeople));
  EXPECT_TRUE(Contains(html, "<input type=\"hidden\" name=\"Morvu1_Form_ID\" value=\"7\">"));
  EXPECT_FALSE(Contains(html, "_Form_City"));
}

TEST_F(EditForm, CarriesPostedHiddenKeysAfterAFailedSave) {
  form.settings.FormFieldsHide = "ID";
  form.settings.EditPrimaryKeys = "ID";
  form.FailSave({{"ID", "8"}});
  EXPECT_TRUE(
      Contains(form.Form(*Records(kPeople)), "<input type=\"hidden\" name=\"Morvu1_Form_ID\" value=\"8\">"));
}

TEST_F(EditForm, OfANewRecordHasNoHiddenKeys) {
  form.settings.FormFieldsHide = "ID";
  form.settings.EditPrimaryKeys = "ID";
  form.Post("FormAdd", "1");
  EXPECT_FALSE(Contains(form.Form(*Records(kPeople)), "_Form_ID"));
}

TEST_F(EditForm, NamesItsFieldsAsTheListSays) {
  form.settings.FormDisplayFieldNames = "Number,, ";
  const std::string html = form.Form(*Records(kPeople));
  EXPECT_TRUE(Contains(RowOf(html, "ID"), "\">Number</span></th>"));
  EXPECT_TRUE(Contains(RowOf(html, "Name"), "\">Name</span></th>"));
  EXPECT_TRUE(Contains(RowOf(html, "City"), "<th align=left>&nbsp;</th>"));
}

TEST_F(EditForm, GivesEveryLabelTheWidthOfItsColumn) {
  form.settings.FormCellWidths = "30%,,40";
  const std::string html = form.Form(*Records(kPeople));
  EXPECT_TRUE(Contains(RowOf(html, "ID"), "<tr><th width=\"30%\" align=left><span"));
  EXPECT_TRUE(Contains(RowOf(html, "Name"), "<tr><th align=left><span"));
  EXPECT_TRUE(Contains(RowOf(html, "City"), "<tr><th width=\"40\" align=left>City</th><td><input"));
}

TEST_F(EditForm, WithoutHeaderHasNoLabels) {
  form.settings.DisplayHeader = false;
  const std::string html = form.Form(*Records(kPeople));
  EXPECT_FALSE(Contains(html, "<th"));
  EXPECT_TRUE(Contains(html, "<tr><td><nobr><input"));
}

TEST_F(EditForm, TakesTheAttributesOfCellsAndTable) {
  form.settings.TDTag = "valign=top";
  form.settings.FormTableTag = "border=1";
  const std::string html = form.Form(*Records(kPeople));
  EXPECT_TRUE(Contains(html, "<tr><td><table width=\"100%\" class=\"DRLOTableFormDataEdit\" border=1>"));
  EXPECT_TRUE(Contains(RowOf(html, "City"), "</th><td valign=top><input"));
}

TEST_F(EditForm, CountsReadOnlyFieldsFromZero) {
  form.settings.EditFieldsReadOnly = "2";
  const std::string html = form.Form(*Records(kPeople));
  EXPECT_TRUE(Contains(RowOf(html, "City"), " disabled "));
  EXPECT_FALSE(Contains(RowOf(html, "Name"), " disabled "));
}

TEST_F(EditForm, KeepsTheRecordAndGoesToTheNext) {
  const Records people(kPeople);

  form.Form(*people);

  EXPECT_EQ(form.rows, 1);
  ASSERT_EQ(form.outcome.record.size(), 3u);
  EXPECT_EQ(std::get<std::string>(form.outcome.record[1]), "Ann");
  EXPECT_FALSE(people->Eof());
  EXPECT_EQ(std::get<std::string_view>(people[1].Value()), "Bo");

  form.Form(*people);

  EXPECT_EQ(std::get<std::string>(form.outcome.record[1]), "Bo");
  EXPECT_TRUE(people->Eof());
}

TEST_F(EditForm, OfANewRecordLeavesTheRecordsAlone) {
  form.Post("FormAdd", "1");
  FakeRecords records(1);
  records.Add("n", TypeCode::kInteger, Unreadable);

  EXPECT_TRUE(Contains(form.Form(records), "name=\"Morvu1_Form_n\" value=\"\""));

  EXPECT_EQ(form.rows, 1);
  EXPECT_EQ(records.row, 1);
  EXPECT_TRUE(form.outcome.record.empty());
  EXPECT_EQ(form.settings.ErrorMessage, "");
}

TEST_F(EditForm, OfANewRecordNeedsNoRecord) {
  form.Post("FormAdd", "1");
  const Records nobody(kPeople, "SELECT * FROM T WHERE ID=0");
  EXPECT_TRUE(Contains(form.Form(*nobody), "name=\"Morvu1_Form_City\" value=\"\""));
}

TEST_F(EditForm, WithoutRecordOffersToAddOneAndTellsTheOutcome) {
  settings::SetEditOptions(form.settings, "UPDATE ADD DELETE");
  form.outcome.status_message = "&nbsp;[Record deleted]";
  const Records nobody(kPeople, "SELECT * FROM T WHERE ID=0");

  EXPECT_HTML(form.Form(*nobody), Lines(R"(
      <tr><td><table width="100%" cellspacing=0 cellpadding=0>
      <tr><td colspan=2 class="DraloEditBtnBar">&nbsp;<input class="DraloInputBtn" type="submit" name="Morvu1FormAdd" value="Add">&nbsp;[Record deleted]</td></tr>
      </table></td></tr>
      )"));
  EXPECT_EQ(form.rows, 0);
  EXPECT_TRUE(form.outcome.record.empty());
}

TEST_F(EditForm, ComesBackWithWhatWasTypedWhenItsRecordIsGone) {
  form.FailSave({{"ID", "9"}, {"City", "typed"}});
  const Records nobody(kPeople, "SELECT * FROM T WHERE ID=9");
  const std::string html = form.Form(*nobody);
  EXPECT_TRUE(Contains(html, "name=\"Morvu1_Form_ID\" value=\"9\""));
  EXPECT_TRUE(Contains(html, "name=\"Morvu1_Form_City\" value=\"typed\""));
  EXPECT_EQ(form.rows, 0);
  EXPECT_EQ(form.settings.ErrorMessage, "");
}

TEST_F(EditForm, LeavesTheCellOfAFieldThatCannotBeReadEmpty) {
  FakeRecords records(1);
  records.Add("bad", TypeCode::kInteger, Unreadable);
  records.Add("good", TypeCode::kInteger, [] { return std::int64_t{7}; });
  const std::string html = form.Form(records);
  EXPECT_TRUE(Contains(html, "<tr><th align=left>bad</th><td></td></tr>"));
  EXPECT_TRUE(Contains(html, "name=\"Morvu1_Form_good\" value=\"7\""));
  EXPECT_EQ(form.settings.ErrorMessage, "Disk gone in GetFormEditField. oField.Name=bad<br>");
}

TEST_F(EditForm, StaysAsFarAsItWasWrittenWhenItFails) {
  FakeRecords records(2);
  records.Add("n", TypeCode::kInteger, [] { return std::int64_t{7}; });
  records.fail_moving_from = 1;
  EXPECT_TRUE(Contains(form.Form(records), "name=\"Morvu1_Form_n\" value=\"7\""));
  EXPECT_EQ(form.settings.ErrorMessage, "Disk gone in RenderEditForm<br>");
}

}  // namespace
}  // namespace dralo::tests
