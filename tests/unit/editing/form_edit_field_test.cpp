#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/field_kind.h"
#include "support/fake_records.h"
#include "unit/editing/edit_form_page.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;

/// The control that a fresh page shows for the value.
std::string ControlOf(std::string_view declared_type, std::string_view literal, bool use_css = true) {
  EditFormPage form;
  form.settings.UseCSS = use_css;
  const Records records = OneValue(declared_type, literal);
  const std::string control = form.Control(records[0]);
  EXPECT_EQ(form.settings.ErrorMessage, "");
  return control;
}

std::string ReadOnlyControlOf(std::string_view declared_type, std::string_view literal, bool use_css = true) {
  EditFormPage form;
  form.settings.UseCSS = use_css;
  form.settings.EditFieldsReadOnly = "*";
  return form.Control(OneValue(declared_type, literal)[0]);
}

std::string FakeControl(EditFormPage& form, TypeCode type, const platform::VariantView& value) {
  FakeRecords records(1);
  return form.Control(records.Add("n", type, [value] { return value; }));
}

TEST(EditField, OfAMemoIsATextarea) {
  EXPECT_EQ(ControlOf("TEXT", "'one'"),
            "<textarea cols=60 rows=5 class=\"DraloTextArea\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\">"
            "one</textarea>\r\n");
  EXPECT_EQ(ControlOf("TEXT", "'one'", false),
            "<textarea cols=60 rows=5 id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\">one</textarea>\r\n");
}

TEST(EditField, OfAReadOnlyMemoIsDisabledAndCarriedByAHiddenInput) {
  EXPECT_EQ(ReadOnlyControlOf("TEXT", "'one'"),
            "<textarea cols=60 rows=5  disabled class=\"DraloTextArea\" id=\"Morvu1_Form_n\" "
            "name=\"Morvu1_Form_n\">one</textarea><input type=\"hidden\" name=\"Morvu1_Form_n\" "
            "value=\"one\">\r\n");
}

TEST(EditField, OfABooleanIsACheckbox) {
  EXPECT_EQ(ControlOf("BOOLEAN", "1"),
            "<input type=\"checkbox\" class=\"DraloCheckBox\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\" "
            "checked >\r\n");
  EXPECT_EQ(ControlOf("BOOLEAN", "1", false),
            "<input type=\"checkbox\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\" checked >\r\n");
  const std::string unticked =
      "<input type=\"checkbox\" class=\"DraloCheckBox\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\">\r\n";
  EXPECT_EQ(ControlOf("BOOLEAN", "0"), unticked);
  EXPECT_EQ(ControlOf("BOOLEAN", "NULL"), unticked);
}

TEST(EditField, OfAReadOnlyBooleanIsDisabledAndCarriedByAHiddenInput) {
  EXPECT_EQ(ReadOnlyControlOf("BOOLEAN", "1"),
            "<input  disabled type=\"checkbox\" class=\"DraloCheckBox\" id=\"Morvu1_Form_n\" "
            "name=\"Morvu1_Form_n\" checked ><input type=\"hidden\" name=\"Morvu1_Form_n\" "
            "value=\"True\">\r\n");
  EXPECT_EQ(ReadOnlyControlOf("BOOLEAN", "0", false),
            "<input  disabled type=\"checkbox\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\"><input "
            "type=\"hidden\" name=\"Morvu1_Form_n\" value=\"False\">\r\n");
}

TEST(EditField, OfLongBinaryDataIsABlank) {
  EXPECT_EQ(ControlOf("BLOB", "x'41'"), "&nbsp;\r\n");
  EXPECT_EQ(ReadOnlyControlOf("BLOB", "x'41'"), "&nbsp;\r\n");
}

TEST(EditField, OfADateIsAnInput) {
  const std::string with_css =
      "<input class=\"DraloInput\" size=22 maxlength=25 type=\"text\" id=\"Morvu1_Form_n\" "
      "name=\"Morvu1_Form_n\" value=\"5/3/2024\">\r\n";
  EXPECT_EQ(ControlOf("DATE", "'2024-05-03'"), with_css);
  EXPECT_EQ(ControlOf("DATE", "'2024-05-03'", false),
            "<input size=22 maxlength=25 type=\"text\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\" "
            "value=\"5/3/2024\">\r\n");
  EditFormPage form;
  for (const TypeCode type : {TypeCode::kDate, TypeCode::kDbDate, TypeCode::kDbTimestamp}) {
    EXPECT_EQ(FakeControl(form, type, platform::DateTime{2024, 5, 3}), with_css);
  }
}

TEST(EditField, OfAReadOnlyDateIsDisabledAndCarriedByAHiddenInput) {
  EXPECT_EQ(ReadOnlyControlOf("DATE", "'2024-05-03'"),
            "<input  disabled class=\"DraloInput\" size=22 maxlength=25 type=\"text\" id=\"Morvu1_Form_n\" "
            "name=\"Morvu1_Form_n\" value=\"5/3/2024\"><input type=\"hidden\" name=\"Morvu1_Form_n\" "
            "value=\"5/3/2024\">\r\n");
}

TEST(EditField, OfANumberTakesTwentyCharacters) {
  const std::string number =
      "<input class=\"DraloInput\" size=20 type=\"text\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\" "
      "value=\"7\" maxlength=\"20\">\r\n";
  for (const std::string_view type :
       {"BIGINT", "TINYINT", "SMALLINT", "INTEGER", "REAL", "DECIMAL", "MONEY"}) {
    EXPECT_EQ(ControlOf(type, "7"), number) << type;
  }
  EditFormPage form;
  for (const int code : {2, 3, 4, 5, 6, 14, 16, 17, 18, 19, 20, 21, 131, 139}) {
    EXPECT_EQ(FakeControl(form, static_cast<TypeCode>(code), std::int64_t{7}), number) << code;
  }
  EXPECT_EQ(ControlOf("INTEGER", "7", false),
            "<input size=20 type=\"text\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\" value=\"7\" "
            "maxlength=\"20\">\r\n");
}

TEST(EditField, OfATextIsAsLongAsItsColumnAndTwo) {
  EXPECT_EQ(ControlOf("VARCHAR(10)", "'v'"),
            "<input class=\"DraloInput\" size=12 type=\"text\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\" "
            "value=\"v\" maxlength=\"10\">\r\n");
  EXPECT_EQ(ControlOf("VARCHAR(10)", "'v'", false),
            "<input size=12 type=\"text\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\" value=\"v\" "
            "maxlength=\"10\">\r\n");
}

TEST(EditField, OfATextIsNotWiderThanSixty) {
  EXPECT_TRUE(Contains(ControlOf("VARCHAR(57)", "'v'"), " size=59 "));
  EXPECT_TRUE(Contains(ControlOf("VARCHAR(58)", "'v'"), " size=60 "));
  EXPECT_EQ(ControlOf("VARCHAR(255)", "'v'"),
            "<input class=\"DraloInput\" size=60 type=\"text\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\" "
            "value=\"v\" maxlength=\"255\">\r\n");
}

TEST(EditField, OfATextOfAnyLengthHasAnEmptyMaxlength) {
  const std::string text =
      "<input class=\"DraloInput\" size=60 type=\"text\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\" "
      "value=\"v\" maxlength=\"\">\r\n";
  EXPECT_EQ(ControlOf("VARCHAR", "'v'"), text);
  EditFormPage form;
  for (const int code : {0, 8, 72, 128, 129, 130, 134, 200, 202, 204, 9999}) {
    EXPECT_EQ(FakeControl(form, static_cast<TypeCode>(code), std::string_view("v")), text) << code;
  }
}

TEST(EditField, OfAReadOnlyTextIsDisabledAndCarriedByAHiddenInput) {
  EXPECT_EQ(ReadOnlyControlOf("VARCHAR(10)", "'a\"b'"),
            "<input  disabled class=\"DraloInput\" size=12 type=\"text\" id=\"Morvu1_Form_n\" "
            "name=\"Morvu1_Form_n\" value=\"a&quot;b\" maxlength=\"10\"><input type=\"hidden\" "
            "name=\"Morvu1_Form_n\" value=\"a&quot;b\">\r\n");
  EXPECT_EQ(ReadOnlyControlOf("VARCHAR(10)", "NULL", false),
            "<input  disabled size=12 type=\"text\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\" value=\"\" "
            "maxlength=\"10\"><input type=\"hidden\" name=\"Morvu1_Form_n\" value=\"\">\r\n");
}

TEST(EditField, IsReadOnlyByNameOrByItsIndexFromZero) {
  const Records records = OneValue("VARCHAR(10)", "'v'");
  EditFormPage form;
  form.settings.EditFieldsReadOnly = "x,N";
  EXPECT_TRUE(Contains(form.Control(records[0], 5), " disabled "));
  form.settings.EditFieldsReadOnly = "5";
  EXPECT_TRUE(Contains(form.Control(records[0], 5), " disabled "));
  EXPECT_FALSE(Contains(form.Control(records[0], 4), " disabled "));
}

TEST(EditField, ThatIsRequiredStandsTogetherWithItsIndicator) {
  EXPECT_EQ(ControlOf("VARCHAR(10) NOT NULL", "'v'"),
            "<nobr><input class=\"DraloInput\" size=12 type=\"text\" id=\"Morvu1_Form_n\" "
            "name=\"Morvu1_Form_n\" value=\"v\" maxlength=\"10\">&nbsp;*&nbsp;</nobr>\r\n");
  EXPECT_EQ(ControlOf("BOOLEAN NOT NULL", "0", false),
            "<nobr><input type=\"checkbox\" id=\"Morvu1_Form_n\" name=\"Morvu1_Form_n\">&nbsp;*&nbsp;</nobr>"
            "\r\n");
  EXPECT_EQ(ControlOf("BLOB NOT NULL", "x'41'"), "<nobr>&nbsp;&nbsp;*&nbsp;</nobr>\r\n");

  EditFormPage form;
  form.settings.RequiredFieldIndicator = "<b>!</b>";
  form.settings.EditFieldsReadOnly = "*";
  EXPECT_EQ(form.Control(OneValue("VARCHAR(10) NOT NULL", "'v'")[0]),
            "<nobr><input  disabled class=\"DraloInput\" size=12 type=\"text\" id=\"Morvu1_Form_n\" "
            "name=\"Morvu1_Form_n\" value=\"v\" maxlength=\"10\"><input type=\"hidden\" "
            "name=\"Morvu1_Form_n\" value=\"v\"><b>!</b></nobr>\r\n");
}

TEST(EditField, BearsTheTagOfTheView) {
  EditFormPage form;
  form.settings.Tag = "Two";
  EXPECT_TRUE(Contains(form.Control(OneValue("INTEGER", "7")[0]),
                       "id=\"MorvuTwo_Form_n\" name=\"MorvuTwo_Form_n\" value=\"7\""));
}

TEST(EditField, ThatCannotBeReadStaysEmpty) {
  for (const TypeCode type :
       {TypeCode::kInteger, TypeCode::kDate, TypeCode::kBoolean, TypeCode::kVarWideChar}) {
    EditFormPage form;
    form.settings.EditFieldsReadOnly = "*";
    FakeRecords records(1);
    EXPECT_EQ(form.Control(records.Add("n", type, Unreadable)), "");
    EXPECT_EQ(form.settings.ErrorMessage, "Disk gone in GetFormEditField. oField.Name=n<br>");
  }
}

TEST(EditField, OfLongBinaryDataIsNeverRead) {
  EditFormPage form;
  FakeRecords records(1);
  FakeField& field = records.Add("n", TypeCode::kLongVarBinary, Unreadable);
  EXPECT_EQ(form.Control(field), "&nbsp;\r\n");
  EXPECT_EQ(field.reads, 0);
}

TEST(EditField, IsOneOfTheControlsForEveryTypeCode) {
  EditFormPage form;
  for (int code = 0; code <= 260; ++code) {
    const std::string control = FakeControl(form, static_cast<TypeCode>(code), std::string_view("v"));
    const bool is_memo = code == 201 || code == 203;
    const bool is_date = code == 7 || code == 133 || code == 135;
    const std::string_view expected = is_memo       ? "<textarea "
                                      : code == 11  ? "type=\"checkbox\""
                                      : code == 205 ? "&nbsp;"
                                      : is_date     ? "maxlength=25"
                                      : platform::IsNumericFieldType(static_cast<TypeCode>(code))
                                          ? "maxlength=\"20\""
                                          : "maxlength=\"\"";
    EXPECT_TRUE(Contains(control, expected)) << code << control;
    EXPECT_TRUE(control.ends_with("\r\n"));
  }
  EXPECT_EQ(form.settings.ErrorMessage, "");
}

TEST(EditField, WhoseNameHoldsAQuoteIsStillPostedUnderIt) {
  EditFormPage form;
  FakeRecords records(1);
  EXPECT_TRUE(Contains(form.Control(records.Add("a\"b", TypeCode::kInteger, [] { return std::int64_t{7}; })),
                       "id=\"Morvu1_Form_a&quot;b\" name=\"Morvu1_Form_a&quot;b\" value=\"7\""));
}

}  // namespace
}  // namespace dralo::tests
