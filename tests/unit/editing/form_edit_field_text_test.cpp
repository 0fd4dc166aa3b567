#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/fake_records.h"
#include "unit/editing/edit_form_page.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;

TEST_F(EditField, OfANewRecordIsEmpty) {
  form.Post("FormAdd", "Add");
  for (const std::string_view type : {"TEXT", "VARCHAR(10)", "INTEGER", "DATE", "BOOLEAN"}) {
    const std::string control = form.Control(OneValue(type, "1")[0]);
    EXPECT_TRUE(Contains(control, "value=\"\"") || Contains(control, "></textarea>") ||
                (type == "BOOLEAN" && !Contains(control, "checked")))
        << control;
    EXPECT_FALSE(Contains(control, "1\"")) << control;
  }
}

TEST_F(EditField, OfANewRecordIsNotRead) {
  form.Post("FormAdd", "Add");
  FakeRecords records(1);
  EXPECT_NE(form.Control(records.Add("n", TypeCode::kInteger, Unreadable)), "");
  EXPECT_NE(form.Control(records.Add("b", TypeCode::kBoolean, Unreadable)), "");
  EXPECT_EQ(form.settings.ErrorMessage, "");
}

TEST_F(EditField, AfterAFailedSaveShowsThePostedTextWithoutBlanksAroundIt) {
  form.FailSave({{"n", "  a \"b\"  "}});
  EXPECT_TRUE(Contains(form.Control(OneValue("VARCHAR(10)", "'v'")[0]), "value=\"a &quot;b&quot;\""));
  EXPECT_TRUE(Contains(form.Control(OneValue("TEXT", "'v'")[0]), ">a &quot;b&quot;</textarea>"));
  EXPECT_TRUE(Contains(form.Control(OneValue("INTEGER", "7")[0]), "value=\"a &quot;b&quot;\""));
  EXPECT_TRUE(Contains(form.Control(OneValue("DATE", "'2024-05-03'")[0]), "value=\"a &quot;b&quot;\""));
}

TEST_F(EditField, AfterAFailedSaveIsEmptyWhenNothingWasPosted) {
  form.FailSave({});
  EXPECT_TRUE(Contains(form.Control(OneValue("VARCHAR(10)", "'v'")[0]), "value=\"\""));
}

TEST_F(EditField, AfterAFailedSaveTakesThePostedTextFromTheFormAlone) {
  form.outcome.has_failed_to_save = true;
  form.page.query.push_back({"Morvu1_Form_n", "asked"});
  EXPECT_TRUE(Contains(form.Control(OneValue("VARCHAR(10)", "'v'")[0]), "value=\"\""));
  form.page.form.push_back({"MORVU1_form_N", "posted"});
  EXPECT_TRUE(Contains(form.Control(OneValue("VARCHAR(10)", "'v'")[0]), "value=\"posted\""));
}

TEST_F(EditField, AfterAFailedSaveIsTickedWhenItWasPosted) {
  const Records records = OneValue("BOOLEAN", "1");
  EditFormPage unticked;
  unticked.FailSave({});
  EXPECT_FALSE(Contains(unticked.Control(records[0]), "checked"));
  EditFormPage ticked;
  ticked.FailSave({{"n", "on"}});
  EXPECT_TRUE(Contains(ticked.Control(OneValue("BOOLEAN", "0")[0]), " checked >"));
}

TEST_F(EditField, ThatIsReadOnlyKeepsItsTickAfterAFailedSave) {
  const Records records = OneValue("BOOLEAN", "1");
  for (const bool was_ticked : {false, true}) {
    EditFormPage page;
    page.settings.EditFieldsReadOnly = "n";
    const std::string_view text = was_ticked ? "True" : "False";
    page.FailSave({{"n", text}});
    const std::string control = page.Control(records[0]);
    EXPECT_EQ(Contains(control, " checked >"), was_ticked);
    EXPECT_TRUE(Contains(control, "value=\"" + std::string(text) + "\""));
  }
}

}  // namespace
}  // namespace dralo::tests
