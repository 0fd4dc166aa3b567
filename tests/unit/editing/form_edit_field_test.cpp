#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/field_kind.h"
#include "support/fake_records.h"
#include "support/named_cases.h"
#include "unit/editing/edit_form_page.h"

namespace dralo::tests {
namespace {

using platform::TypeCode;

/// The control as the tables below have it: `@` stands for the id and the name of the input, `+` for the
/// hidden input that carries the value of one that is disabled, up to its value.
std::string Unfolded(std::string_view control) {
  std::string html;
  for (const char c : control) {
    if (c == '@') {
      html += R"(id="Morvu1_Form_n" name="Morvu1_Form_n")";
    } else if (c == '+') {
      html += R"(<input type="hidden" name="Morvu1_Form_n" value=)";
    } else {
      html += c;
    }
  }
  return html + "\r\n";
}

std::string FakeControl(EditFormPage& form, TypeCode type, const platform::VariantView& value) {
  FakeRecords records(1);
  return form.Control(records.Add("n", type, [value] { return value; }));
}

struct ControlCase {
  std::string_view name, type, literal, control;
  bool use_css = true;
  std::string_view read_only = "";
  std::string_view indicator = "&nbsp;*&nbsp;";
};

class ControlOf : public testing::TestWithParam<ControlCase> {};

TEST_P(ControlOf, AField) {
  EditFormPage form;
  form.settings.UseCSS = GetParam().use_css;
  form.settings.EditFieldsReadOnly = GetParam().read_only;
  form.settings.RequiredFieldIndicator = GetParam().indicator;
  EXPECT_EQ(form.Control(OneValue(GetParam().type, GetParam().literal)[0]), Unfolded(GetParam().control));
  EXPECT_EQ(form.settings.ErrorMessage, "");
}

constexpr ControlCase kControls[] = {
    {"OfAMemoIsATextarea", "TEXT", "'one'",
     R"(<textarea cols=60 rows=5 class="DraloTextArea" @>one</textarea>)"},
    {"OfAMemoWithoutCss", "TEXT", "'one'", "<textarea cols=60 rows=5 @>one</textarea>", false},
    {"OfATrueBooleanIsATickedBox", "BOOLEAN", "1",
     R"(<input type="checkbox" class="DraloCheckBox" @ checked >)"},
    {"OfATrueBooleanWithoutCss", "BOOLEAN", "1", R"(<input type="checkbox" @ checked >)", false},
    {"OfAFalseBooleanIsABox", "BOOLEAN", "0", R"(<input type="checkbox" class="DraloCheckBox" @>)"},
    {"OfNullIsABox", "BOOLEAN", "NULL", R"(<input type="checkbox" class="DraloCheckBox" @>)"},
    {"OfLongBinaryDataIsABlank", "BLOB", "x'41'", "&nbsp;"},
    {"OfADateIsAnInput", "DATE", "'2024-05-03'",
     R"(<input class="DraloInput" size=22 maxlength=25 type="text" @ value="5/3/2024">)"},
    {"OfADateWithoutCss", "DATE", "'2024-05-03'",
     R"(<input size=22 maxlength=25 type="text" @ value="5/3/2024">)", false},
    {"OfANumberWithoutCss", "INTEGER", "7", R"(<input size=20 type="text" @ value="7" maxlength="20">)",
     false},
    {"OfATextIsAsLongAsItsColumnAndTwo", "VARCHAR(10)", "'v'",
     R"(<input class="DraloInput" size=12 type="text" @ value="v" maxlength="10">)"},
    {"OfATextWithoutCss", "VARCHAR(10)", "'v'", R"(<input size=12 type="text" @ value="v" maxlength="10">)",
     false},
    {"OfALongTextIsNotWiderThanSixty", "VARCHAR(255)", "'v'",
     R"(<input class="DraloInput" size=60 type="text" @ value="v" maxlength="255">)"},
};

constexpr ControlCase kReadOnlyControls[] = {
    {"OfAMemo", "TEXT", "'one'",
     R"(<textarea cols=60 rows=5  disabled class="DraloTextArea" @>one</textarea>+"one">)", true, "*"},
    {"OfATrueBoolean", "BOOLEAN", "1",
     R"(<input  disabled type="checkbox" class="DraloCheckBox" @ checked >+"True">)", true, "*"},
    {"OfAFalseBooleanWithoutCss", "BOOLEAN", "0", R"(<input  disabled type="checkbox" @>+"False">)", false,
     "*"},
    {"OfLongBinaryData", "BLOB", "x'41'", "&nbsp;", true, "*"},
    {"OfADate", "DATE", "'2024-05-03'",
     R"(<input  disabled class="DraloInput" size=22 maxlength=25 type="text" @ value="5/3/2024">+"5/3/2024">)",
     true, "*"},
    {"OfAText", "VARCHAR(10)", "'a\"b'",
     R"(<input  disabled class="DraloInput" size=12 type="text" @ value="a&quot;b" maxlength="10">+"a&quot;b">)",
     true, "*"},
    {"OfNullWithoutCss", "VARCHAR(10)", "NULL",
     R"(<input  disabled size=12 type="text" @ value="" maxlength="10">+"">)", false, "*"},
};

constexpr ControlCase kRequiredControls[] = {
    {"StandTogetherWithTheirIndicator", "VARCHAR(10) NOT NULL", "'v'",
     R"(<nobr><input class="DraloInput" size=12 type="text" @ value="v" maxlength="10">&nbsp;*&nbsp;</nobr>)"},
    {"OfABooleanWithoutCss", "BOOLEAN NOT NULL", "0",
     R"(<nobr><input type="checkbox" @>&nbsp;*&nbsp;</nobr>)", false},
    {"OfLongBinaryData", "BLOB NOT NULL", "x'41'", "<nobr>&nbsp;&nbsp;*&nbsp;</nobr>"},
    {"ThatAreReadOnlyWithAnotherIndicator", "VARCHAR(10) NOT NULL", "'v'",
     R"(<nobr><input  disabled class="DraloInput" size=12 type="text" @ value="v" maxlength="10">+"v"><b>!</b></nobr>)",
     true, "*", "<b>!</b>"},
};

INSTANTIATE_TEST_SUITE_P(Plain, ControlOf, testing::ValuesIn(kControls), kByName);
INSTANTIATE_TEST_SUITE_P(ReadOnly, ControlOf, testing::ValuesIn(kReadOnlyControls), kByName);
INSTANTIATE_TEST_SUITE_P(Required, ControlOf, testing::ValuesIn(kRequiredControls), kByName);

TEST_F(EditField, OfADateIsTheSameForAllTypesOfDates) {
  for (const TypeCode type : {TypeCode::kDate, TypeCode::kDbDate, TypeCode::kDbTimestamp}) {
    EXPECT_EQ(FakeControl(form, type, platform::DateTime{2024, 5, 3}),
              Unfolded(R"(<input class="DraloInput" size=22 maxlength=25 type="text" @ value="5/3/2024">)"));
  }
}

TEST_F(EditField, OfANumberTakesTwentyCharacters) {
  const std::string number =
      Unfolded(R"(<input class="DraloInput" size=20 type="text" @ value="7" maxlength="20">)");
  for (const std::string_view type :
       {"BIGINT", "TINYINT", "SMALLINT", "INTEGER", "REAL", "DECIMAL", "MONEY"}) {
    EXPECT_EQ(form.Control(OneValue(type, "7")[0]), number) << type;
  }
  for (const int code : {2, 3, 4, 5, 6, 14, 16, 17, 18, 19, 20, 21, 131, 139}) {
    EXPECT_EQ(FakeControl(form, static_cast<TypeCode>(code), std::int64_t{7}), number) << code;
  }
  EXPECT_EQ(form.settings.ErrorMessage, "");
}

TEST_F(EditField, OfATextIsNotWiderThanSixty) {
  EXPECT_TRUE(Contains(form.Control(OneValue("VARCHAR(57)", "'v'")[0]), " size=59 "));
  EXPECT_TRUE(Contains(form.Control(OneValue("VARCHAR(58)", "'v'")[0]), " size=60 "));
}

TEST_F(EditField, OfATextOfAnyLengthHasAnEmptyMaxlength) {
  const std::string text =
      Unfolded(R"(<input class="DraloInput" size=60 type="text" @ value="v" maxlength="">)");
  EXPECT_EQ(form.Control(OneValue("VARCHAR", "'v'")[0]), text);
  for (const int code : {0, 8, 72, 128, 129, 130, 134, 200, 202, 204, 9999}) {
    EXPECT_EQ(FakeControl(form, static_cast<TypeCode>(code), std::string_view("v")), text) << code;
  }
}

TEST_F(EditField, IsReadOnlyByNameOrByItsIndexFromZero) {
  const Records records = OneValue("VARCHAR(10)", "'v'");
  form.settings.EditFieldsReadOnly = "x,N";
  EXPECT_TRUE(Contains(form.Control(records[0], 5), " disabled "));
  form.settings.EditFieldsReadOnly = "5";
  EXPECT_TRUE(Contains(form.Control(records[0], 5), " disabled "));
  EXPECT_FALSE(Contains(form.Control(records[0], 4), " disabled "));
}

TEST_F(EditField, BearsTheTagOfTheView) {
  form.settings.Tag = "Two";
  EXPECT_TRUE(Contains(form.Control(OneValue("INTEGER", "7")[0]),
                       "id=\"MorvuTwo_Form_n\" name=\"MorvuTwo_Form_n\" value=\"7\""));
}

TEST_F(EditField, ThatCannotBeReadStaysEmpty) {
  for (const TypeCode type :
       {TypeCode::kInteger, TypeCode::kDate, TypeCode::kBoolean, TypeCode::kVarWideChar}) {
    EditFormPage page;
    page.settings.EditFieldsReadOnly = "*";
    FakeRecords records(1);
    EXPECT_EQ(page.Control(records.Add("n", type, Unreadable)), "");
    EXPECT_EQ(page.settings.ErrorMessage, "Disk gone in GetFormEditField. oField.Name=n<br>");
  }
}

TEST_F(EditField, OfLongBinaryDataIsNeverRead) {
  FakeRecords records(1);
  FakeField& field = records.Add("n", TypeCode::kLongVarBinary, Unreadable);
  EXPECT_EQ(form.Control(field), "&nbsp;\r\n");
  EXPECT_EQ(field.reads, 0);
}

TEST_F(EditField, IsOneOfTheControlsForEveryTypeCode) {
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

TEST_F(EditField, WhoseNameHoldsAQuoteIsStillPostedUnderIt) {
  FakeRecords records(1);
  EXPECT_TRUE(Contains(form.Control(records.Add("a\"b", TypeCode::kInteger, [] { return std::int64_t{7}; })),
                       "id=\"Morvu1_Form_a&quot;b\" name=\"Morvu1_Form_a&quot;b\" value=\"7\""));
}

}  // namespace
}  // namespace dralo::tests
