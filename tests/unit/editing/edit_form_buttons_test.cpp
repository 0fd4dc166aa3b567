#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/named_cases.h"
#include "unit/editing/edit_form_page.h"

namespace dralo::tests {
namespace {

/// The cell with the buttons and the message, without its tags.
std::string Bar(EditFormPage& form) {
  const std::string html = form.Form(*Records(kPeople));
  const std::string_view start =
      form.settings.UseCSS ? "<td colspan=2 class=\"DraloEditBtnBar\">" : "<td colspan=2>";
  const std::string_view bar = Part(html, start, "</td></tr>\r\n</table></td></tr>\r\n");
  EXPECT_NE(bar, "") << html;
  return std::string(bar.substr(start.size(), bar.find("</td></tr>") - start.size()));
}

TEST_F(EditForm, OfANewRecordHasNeitherAddNorDelete) {
  settings::SetEditOptions(form.settings, "UPDATE ADD DELETE");
  form.settings.DeleteSQL = "DELETE FROM T";
  const std::string buttons =
      "<input type=\"hidden\" name=\"Morvu1FormEdit\" value=\"1\"><input type=\"hidden\" "
      "name=\"Morvu1FormInsert\" value=\"1\"><input class=\"DraloInputBtn\" type=\"submit\" "
      "onclick=\"FormDraloGrid1.Morvu1FormEdit.value=''\" name=\"Morvu1FormUpdate\" value=\"Save\">"
      "&nbsp;<input class=\"DraloInputBtn\" type=\"submit\" name=\"Morvu1FormView\" value=\"Close\">";
  form.Post("FormAdd", " 1 ");
  EXPECT_EQ(Bar(form), buttons);

  EditFormPage failed;
  settings::SetEditOptions(failed.settings, "UPDATE ADD DELETE");
  failed.settings.DeleteSQL = "DELETE FROM T";
  failed.FailSave({});
  failed.Post("FormInsert", "1");
  EXPECT_EQ(Bar(failed), buttons);
}

struct ButtonCase {
  std::string_view name, options, delete_sql, confirmation, posted, posted_value, part;
  bool is_there = true;
};

class ButtonsOfTheEditForm : public testing::TestWithParam<ButtonCase> {};

TEST_P(ButtonsOfTheEditForm, HaveOrLackAPart) {
  EditFormPage form;
  settings::SetEditOptions(form.settings, GetParam().options);
  form.settings.DeleteSQL = GetParam().delete_sql;
  form.settings.EditConfirmDeleteString = GetParam().confirmation;
  if (!GetParam().posted.empty()) form.Post(GetParam().posted, GetParam().posted_value);
  const std::string bar = Bar(form);
  EXPECT_EQ(Contains(bar, GetParam().part), GetParam().is_there) << bar;
}

constexpr ButtonCase kButtons[] = {
    {"OfANewRecordForAnInsert", "UPDATE", "", "", "FormAdd", "Add",
     R"(<input type="hidden" name="Morvu1FormInsert" value="1">)"},
    {"AfterASaveThatWentWellForNoInsert", "UPDATE", "", "", "FormInsert", "1",
     R"(name="Morvu1FormInsert" value="")"},
    {"WithOneThatClosesTheForm", "UPDATE", "", "", "", "",
     R"(&nbsp;<input class="DraloInputBtn" type="submit" name="Morvu1FormView" value="Close">)"},
    {"WithoutOneThatClosesTheFormWhereThereIsNoView", "UPDATE NOVIEW", "", "", "", "", "Morvu1FormView",
     false},
    {"WithOneThatAddsWhereAddingIsAllowed", "UPDATE ADD", "", "", "", "",
     R"(&nbsp;<input class="DraloInputBtn" type="submit" name="Morvu1FormAdd" value="Add">)"},
    {"WithoutOneThatAddsElsewhere", "UPDATE", "", "", "", "", "Morvu1FormAdd", false},
    {"WithOneThatDeletesWhereDeletingIsAllowedAndHasAStatement", "UPDATE DELETE", "DELETE FROM T", "", "", "",
     R"(&nbsp;<input class="DraloInputBtn" type="submit" onclick="FormDraloGrid1.Morvu1FormEdit.value='';" name="Morvu1FormDelete" value="Delete">)"},
    {"WithoutOneThatDeletesWhereThatIsNotAllowed", "UPDATE", "DELETE FROM T", "", "", "", "Morvu1FormDelete",
     false},
    {"WithoutOneThatDeletesWithoutAStatement", "UPDATE DELETE", "", "", "", "", "Morvu1FormDelete", false},
    {"WithOneThatAsksBeforeItDeletes", "UPDATE DELETE", "DELETE FROM T", "Really?", "", "",
     R"(&nbsp;<input class="DraloInputBtn" type="submit" onclick="FormDraloGrid1.Morvu1FormEdit.value='';return confirm('Really?');" name="Morvu1FormDelete" value="Delete">)"},
};

INSTANTIATE_TEST_SUITE_P(Bars, ButtonsOfTheEditForm, testing::ValuesIn(kButtons), kByName);

TEST_F(EditForm, AfterAFailedUpdateIsStillAnUpdate) {
  form.FailSave({{"Name", "new"}});
  form.Post("FormInsert", " ");
  EXPECT_TRUE(Contains(Bar(form), "name=\"Morvu1FormInsert\" value=\"\""));
}

TEST_F(EditForm, ThatWasClosedAddsNothing) {
  form.Post("FormAdd", "1");
  form.Post("FormView", "Close");
  EXPECT_TRUE(Contains(Bar(form), "name=\"Morvu1FormInsert\" value=\"\""));
}

TEST_F(EditForm, SpeaksTheLanguageOfTheView) {
  form.settings.language_tables = settings::BuiltInTables("NOR");
  settings::SetEditOptions(form.settings, "UPDATE ADD DELETE");
  form.settings.DeleteSQL = "DELETE FROM T";
  const std::string bar = Bar(form);
  for (const std::string_view caption : {"Lagre", "Lukk", "Ny", "Slett"}) {
    EXPECT_TRUE(Contains(bar, "value=\"" + std::string(caption) + "\">")) << caption;
  }
}

TEST_F(EditForm, BearsTheTagOfTheView) {
  form.settings.Tag = "2";
  settings::SetEditOptions(form.settings, "UPDATE DELETE");
  form.settings.DeleteSQL = "DELETE FROM T";
  const std::string bar = Bar(form);
  EXPECT_FALSE(Contains(bar, "Morvu1"));
  EXPECT_TRUE(Contains(bar, "onclick=\"FormDraloGrid2.Morvu2FormEdit.value=''\" name=\"Morvu2FormUpdate\""));
  EXPECT_TRUE(Contains(bar, "onclick=\"FormDraloGrid2.Morvu2FormEdit.value='';\" name=\"Morvu2FormDelete\""));
}

TEST_F(EditForm, TellsTheOutcomeOfTheLastSave) {
  form.outcome.status_message = "&nbsp;[Record saved ok]";
  EXPECT_TRUE(Bar(form).ends_with("value=\"Close\">&nbsp;[Record saved ok]"));
}

}  // namespace
}  // namespace dralo::tests
