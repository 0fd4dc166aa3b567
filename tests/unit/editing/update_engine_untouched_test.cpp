#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "unit/editing/one_field.h"

namespace dralo::tests {

namespace {

TEST(ReadOnlyField, KeepsItsValueWhateverIsPosted) {
  for (const std::string_view list : {"V", "1", "ID,v", " * "}) {
    OneField field("TEXT", "'a'");
    field.saving.settings.EditFieldsReadOnly = list;
    EXPECT_EQ(field.Save("b"), "'a'") << list;
  }
}

TEST(ReadOnlyField, IsCountedFromZero) {
  OneField field("TEXT", "'a'");
  field.saving.settings.EditFieldsReadOnly = "2";
  EXPECT_EQ(field.Save("b"), "'b'");
}

TEST(ReadOnlyField, HasNoValueInANewRecord) {
  OneField field("TEXT");
  field.saving.settings.EditFieldsReadOnly = "V";
  EXPECT_EQ(field.Insert("b"), "NULL");
}

TEST(HiddenField, KeepsItsValueWhenItHasNoInput) {
  for (const std::string type : {"TEXT", "TEXT NOT NULL", "BOOLEAN", "DATE"}) {
    OneField hidden(type, "'a'");
    hidden.saving.settings.FormFieldsHide = "2";
    EXPECT_EQ(hidden.SaveWithoutInput(), "'a'") << type;
    OneField not_shown(type, "'a'");
    not_shown.saving.settings.FormFieldsShow = "ID";
    EXPECT_EQ(not_shown.SaveWithoutInput(), "'a'") << type;
  }
}

TEST(HiddenField, IsSavedWhenTheInputIsThere) {
  OneField field("TEXT", "'a'");
  field.saving.settings.FormFieldsHide = "V";
  EXPECT_EQ(field.Save("b"), "'b'");
  OneField emptied("TEXT", "'a'");
  emptied.saving.settings.FormFieldsHide = "V";
  EXPECT_EQ(emptied.Save(""), "NULL");
}

TEST(HiddenField, IsLeftToTheDatabaseInANewRecord) {
  const TemporaryDatabase database("CREATE TABLE T(ID INTEGER PRIMARY KEY, V TEXT NOT NULL DEFAULT 'new')");
  Saving saving(database);
  saving.settings.FormFieldsHide = "V";
  saving.Post("ID", "1");
  EXPECT_TRUE(saving.Insert());
  EXPECT_EQ(Row(database, "ID=1", "V"), "'new'");
}

/// What a browser posts for a form that nobody touched.
struct Untouched {
  std::string type;
  std::string stored;
  std::string posted;
};

TEST(UntouchedField, KeepsItsStoredValueByteForByte) {
  for (const auto& [type, stored, posted] : {
           Untouched{"DATETIME", "'2024-05-03T10:20:30.123'", "5/3/2024 10:20:30 AM"},
           {"DATE", "'2024-05-03 23:59:59'", "5/3/2024 11:59:59 PM"},
           {"DATE", "NULL", ""},
           {"DATE NOT NULL", "''", ""},
           {"DECIMAL(10,4)", "'1.5000'", "1.5"},
           {"DOUBLE", "0.1", "0.1"},
           {"BIGINT", "-9223372036854775808", "-9223372036854775808"},
           {"BOOLEAN", "-1", "on"},
           {"BOOLEAN", "0", ""},
           {"TEXT", "char(10)||'a'||char(10)||char(13)||'b'||char(9)", "\r\na\r\n\r\nb\t"},
           {"TEXT", "'a  '", "a  "},
           {"TEXT NOT NULL", "''", ""},
           {"VARCHAR(40)", "'a'||char(10)||'b'", "ab"},
           {"VARCHAR(40)", "'<b>&amp;\"'", "<b>&amp;\""},
           {"VARBINARY(4)", "x'00ff'", ""},
       }) {
    OneField field(type, stored);
    const TemporaryDatabase plain("CREATE TABLE T(ID INTEGER PRIMARY KEY, V " + type +
                                  "); INSERT INTO T VALUES(1," + stored + ")");
    EXPECT_EQ(field.Save(posted), Row(plain, "ID=1", "V")) << type << " " << stored;
  }
}

TEST(UntouchedField, IsFoundInEveryLocale) {
  EXPECT_EQ(OneField("DOUBLE", "1234.5", German()).Save("1234,5"), "1234.5");
  EXPECT_EQ(OneField("DATE", "'2024-05-03T00:00:00'", German()).Save("03.05.2024"), "'2024-05-03T00:00:00'");
}

TEST(UntouchedField, IsAMatterOfEveryByte) {
  EXPECT_EQ(Saved("TEXT", "a ", "'a'"), "'a '");
  EXPECT_EQ(Saved("TEXT", "A", "'a'"), "'A'");
  EXPECT_EQ(Saved("VARCHAR(40)", "a\r\nb", "'ab'"), "'ab'") << "no browser posts it";
  EXPECT_EQ(Saved("TEXT", "ab", "'a'||char(10)||'b'"), "'ab'");
}

TEST(UntouchedField, KeepsTheLineBreaksOfASelectedOption) {
  OneField field("VARCHAR(40)", "'a'||char(10)||'b'");
  field.saving.settings.lookups.Add({"v", "T", "V", "V", "", true});
  EXPECT_EQ(field.Save("ab"), "'ab'");
}

}  // namespace

}  // namespace dralo::tests
