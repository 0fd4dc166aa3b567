#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/expect_html.h"
#include "support/records.h"
#include "unit/editing/edit_form_page.h"

namespace dralo::tests {
namespace {

/// A page whose field "n" is looked up in a table.
struct LookupPage : EditFormPage {
  explicit LookupPage(std::string_view declared_type = "INTEGER", std::string_view literal = "2",
                      std::string_view table = "L", bool allow_nulls = false)
      : database("CREATE TABLE L(ID, Name); INSERT INTO L VALUES(1, 'One'), (2, 'Two')"),
        records(OneValue(declared_type, literal)) {
    settings.DrConnection = std::make_shared<component::DBConnection>(AmericanEnvironment());
    settings.DrConnection->Connection()->Open(database.ConnectionString());
    settings.lookups.Add({.field_name = "N",
                          .table = table,
                          .link_field = "ID",
                          .display_field = "Name",
                          .order_by = "Name",
                          .allow_nulls = allow_nulls});
  }

  std::string Control() { return EditFormPage::Control(records[0]); }

  TemporaryDatabase database;
  Records records;
};

TEST(LookupField, IsASelectList) {
  LookupPage page("INTEGER", "2", "L", true);
  EXPECT_HTML(page.Control(), Lines(R"(
      <select id="Morvu1_Form_n" name="Morvu1_Form_n">
      <option value=''>
      <option  value="1">One
      <option  selected  value="2">Two
      </select>

      )"));
  EXPECT_EQ(page.settings.ErrorMessage, "");
}

TEST(LookupField, IsASelectListWhateverItsTypeButNotForLongBinaryData) {
  for (const std::string_view type : {"TEXT", "VARCHAR(5)", "DATE", "DECIMAL", "BIGINT", "BOOLEAN"}) {
    LookupPage page(type, "NULL");
    EXPECT_TRUE(page.Control().starts_with("<select id=")) << type;
  }
  LookupPage page("BLOB", "x'41'");
  EXPECT_EQ(page.Control(), "&nbsp;\r\n");
}

TEST(LookupField, ThatIsReadOnlyIsDisabledAndCarriedByAHiddenInput) {
  LookupPage page;
  page.settings.EditFieldsReadOnly = "n";
  const std::string control = page.Control();
  EXPECT_TRUE(control.starts_with("<select  disabled id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\">\r\n"));
  EXPECT_TRUE(
      control.ends_with("</select>\r\n<input type=\"hidden\" name=\"Morvu1_Form_n\" value=\"2\">\r\n"));
}

TEST(LookupField, ThatIsRequiredStandsTogetherWithItsIndicator) {
  LookupPage page("INTEGER NOT NULL");
  const std::string control = page.Control();
  EXPECT_TRUE(control.starts_with("<nobr><select "));
  EXPECT_TRUE(control.ends_with("</select>\r\n&nbsp;*&nbsp;</nobr>\r\n"));
}

TEST(LookupField, AfterAFailedSaveShowsThePostedChoice) {
  LookupPage page;
  page.FailSave({{"n", "1"}});
  EXPECT_TRUE(Contains(page.Control(), "<option  selected  value=\"1\">One\r\n<option  value=\"2\">"));
}

TEST(LookupField, OfANewRecordHasNoChoiceMade) {
  LookupPage page;
  page.Post("FormAdd", "1");
  EXPECT_FALSE(Contains(page.Control(), "selected"));
}

TEST(LookupField, WhoseStatementFailsIsTheControlOfItsType) {
  LookupPage page("INTEGER", "2", "Missing");
  EXPECT_EQ(page.Control(),
            "<input class=\"DraloInput\" size=20 type=\"text\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\" "
            "value=\"2\" maxlength=\"20\">\r\n");
  EXPECT_TRUE(
      page.settings.ErrorMessage.ends_with(". lookup sql=SELECT ID,Name FROM Missing ORDER BY Name<br>"));
}

}  // namespace
}  // namespace dralo::tests
