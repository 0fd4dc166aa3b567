#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "unit/editing/one_field.h"

namespace dralo::tests {

namespace {

// Whole numbers

TEST(WholeNumberField, StoresTheNumber) {
  for (const std::string type : {"INTEGER", "INT", "SMALLINT"}) {
    EXPECT_EQ(Saved(type, "42"), "42") << type;
    EXPECT_EQ(Saved(type, "-7"), "-7") << type;
    EXPECT_EQ(Saved(type, " 5 "), "5") << type;
    EXPECT_EQ(Inserted(type, "42"), "42") << type;
  }
  EXPECT_EQ(Saved("TINYINT", "100"), "100");
}

TEST(WholeNumberField, RefusesWhatIsNoNumber) {
  EXPECT_EQ(Saved("INT", "abc", "5"), "5 &nbsp;abc is not a number");
  EXPECT_EQ(Saved("INT", "3,5", "5"), "5 &nbsp;3,5 is not a number");
  EXPECT_EQ(Saved("INT", " ", "5"), "5 &nbsp;  is not a number");
  EXPECT_EQ(Saved("INT", "&H10", "5"), "5 &nbsp;&H10 is not a number");
  EXPECT_EQ(Inserted("INT", "1;2"), " &nbsp;1;2 is not a number");
}

TEST(WholeNumberField, TakesTheGroupingOfTheLocale) {
  EXPECT_EQ(Saved("INT", "1,234"), "1234");
  EXPECT_EQ(OneField("INT", "NULL", German()).Save("1.234"), "1234");
  EXPECT_EQ(OneField("BIGINT", "NULL", German()).Save("1.234"), "1234");
}

TEST(WholeNumberField, LeavesFractionsAndLimitsToTheDatabase) {
  EXPECT_EQ(Saved("INT", "3.5", "5"),
            "5 The value for the field V is not a whole number in UpdateRecord.<br>");
  EXPECT_EQ(OneField("INT", "5", German()).Save("3,5"),
            "5 The value for the field V is not a whole number in UpdateRecord.<br>");
  EXPECT_EQ(Saved("SMALLINT", "70000", "5"),
            "5 The value for the field V is not between -32768 and 32767 in UpdateRecord.<br>");
}

TEST(WholeNumberField, IsNullWhenEmpty) {
  EXPECT_EQ(Saved("INT", "", "5"), "NULL");
  EXPECT_EQ(Inserted("INT", ""), "NULL");
}

TEST(WholeNumberField, HasToBeFilledOutWhenItIsRequired) {
  EXPECT_EQ(Saved("INT NOT NULL", "", "5"), "5" + std::string(kRequired));
  EXPECT_EQ(OneField("INT NOT NULL", "5").Insert(""), std::string(kRequired));
}

TEST(BigWholeNumberField, IsNotTestedButConverted) {
  EXPECT_EQ(Saved("BIGINT", "9223372036854775807"), "9223372036854775807");
  EXPECT_EQ(Saved("BIGINT", "abc", "5"), "5 The value for the field V is not a number in UpdateRecord.<br>");
  EXPECT_EQ(Saved("BIGINT", "", "5"), "NULL");
  EXPECT_EQ(Saved("BIGINT NOT NULL", "", "5"), "5" + std::string(kRequired));
}

// Numbers with fractions

TEST(FractionalField, TakesCommaAndPointForTheDecimalPointInEveryLocale) {
  for (const std::string type : {"DECIMAL(10,2)", "NUMERIC", "MONEY", "REAL", "DOUBLE"}) {
    EXPECT_EQ(Saved(type, "3,5"), "3.5") << type;
    EXPECT_EQ(Saved(type, "3.5"), "3.5") << type;
    EXPECT_EQ(OneField(type, "NULL", German()).Save("3,5"), "3.5") << type;
    EXPECT_EQ(OneField(type, "NULL", German()).Save("3.5"), "3.5") << type;
    EXPECT_EQ(Inserted(type, "3,5"), "3.5") << type;
  }
}

TEST(FractionalField, TakesSignsBlanksAndExponents) {
  EXPECT_EQ(Saved("DECIMAL", " -,5 "), "-0.5");
  EXPECT_EQ(Saved("DECIMAL", "+5."), "5");
  EXPECT_EQ(Saved("DOUBLE", "1,5e-3"), "0.0015");
  EXPECT_EQ(Saved("DOUBLE", "2E2"), "200.0");
}

TEST(FractionalField, HasNoGrouping) {
  EXPECT_EQ(Saved("DECIMAL", "1,234"), "1.234");
  EXPECT_EQ(Saved("DECIMAL", "1,234.50", "5"), "5 &nbsp;1,234.50 is not a number");
  EXPECT_EQ(OneField("DECIMAL", "5", German()).Save("1.234,50"), "5 &nbsp;1.234,50 is not a number");
}

TEST(FractionalField, RefusesWhatIsNoNumber) {
  for (const std::string posted :
       {"abc", " ", ",", "-", "1e", "e5", "1e5.5", "--1", "1 2", "3,5,", "0x10", "5 EUR"}) {
    EXPECT_EQ(Saved("DECIMAL", posted, "5"), "5 &nbsp;" + posted + " is not a number");
  }
}

TEST(FractionalField, IsNullWhenEmptyUnlessItIsRequired) {
  EXPECT_EQ(Saved("DECIMAL", "", "5"), "NULL");
  EXPECT_EQ(Saved("DECIMAL NOT NULL", "", "5"), "5" + std::string(kRequired));
}

// Dates

TEST(DateField, TakesTheFormsOfTheLocaleAndIso) {
  EXPECT_EQ(Saved("DATE", "5/3/2024"), "'2024-05-03'");
  EXPECT_EQ(Saved("DATE", "2024-05-03"), "'2024-05-03'");
  EXPECT_EQ(Saved("DATETIME", "5/3/2024 4:30:00 PM"), "'2024-05-03 16:30:00'");
  EXPECT_EQ(OneField("DATE", "NULL", German()).Save("03.05.2024"), "'2024-05-03'");
  EXPECT_EQ(Inserted("DATE", "5/3/2024"), "'2024-05-03'");
}

TEST(DateField, RefusesWhatIsNoDate) {
  EXPECT_EQ(Saved("DATE", "soon", "'2024-05-03'"), "'2024-05-03' &nbsp;soon is not a valid date");
  EXPECT_EQ(Saved("DATE", "2/30/2024", "'2024-05-03'"), "'2024-05-03' &nbsp;2/30/2024 is not a valid date");
  EXPECT_EQ(Inserted("DATE", "00"), " &nbsp;00 is not a valid date");
}

TEST(DateField, IsNullWhenEmptyOrZero) {
  EXPECT_EQ(Saved("DATE", "", "'2024-05-03'"), "NULL");
  EXPECT_EQ(Saved("DATE", "0", "'2024-05-03'"), "NULL");
  EXPECT_EQ(Saved("DATE NOT NULL", "", "'2024-05-03'"), "'2024-05-03'" + std::string(kRequired));
  EXPECT_EQ(Saved("DATE NOT NULL", "0", "'2024-05-03'"), "'2024-05-03'" + std::string(kRequired));
}

TEST(TimeField, IsNotTestedButConverted) {
  EXPECT_EQ(Saved("TIME", "16:30"), "'16:30:00'");
  EXPECT_EQ(Saved("TIME", "0", "'10:00:00'"),
            "'10:00:00' The value for the field V is not a date in UpdateRecord.<br>");
}

// Booleans

TEST(BooleanField, IsTrueForEveryText) {
  for (const std::string_view posted : {"on", "True", "1", "0", "False", " "}) {
    EXPECT_EQ(Saved("BOOLEAN", posted, "0"), "1") << posted;
    EXPECT_EQ(Inserted("BOOLEAN", posted), "1") << posted;
  }
}

TEST(BooleanField, IsFalseWithoutOne) {
  EXPECT_EQ(Saved("BOOLEAN", "", "1"), "0");
  EXPECT_EQ(OneField("BOOLEAN", "1").SaveWithoutInput(), "0");
  EXPECT_EQ(Saved("BOOLEAN NOT NULL", "", "1"), "0");
  EXPECT_EQ(Inserted("BOOLEAN", ""), "0");
  EXPECT_EQ(OneField("BOOLEAN NOT NULL", "1").Insert(""), "0");
}

TEST(BooleanField, IsFalseWithoutOneAlsoWhereItWasNull) {
  EXPECT_EQ(Saved("BOOLEAN", "", "NULL"), "0");
  EXPECT_EQ(OneField("BOOLEAN", "NULL").SaveWithoutInput(), "0");
}

// Texts and the rest

TEST(TextField, StoresThePostedTextAsItIs) {
  const std::string text = " a 'b' \"c\" <d> &amp; [e]\t\r\n\r\n \xF0\x9F\x8D\xB5 \xE9 ";
  OneField field("TEXT");
  field.saving.Post({{"ID", "1"}, {"V", text}});
  EXPECT_TRUE(field.saving.Save());
  EXPECT_EQ(Saved("VARCHAR(40)", " it''s "), "' it''''s '");
  EXPECT_EQ(Inserted("TEXT", text), "' a ''b'' \"c\" <d> &amp; [e]\t\r\n\r\n \xF0\x9F\x8D\xB5 \xE9 '");
}

TEST(TextField, StoresAMemoOfAMegabyte) {
  const std::string text(1'000'000, 'x');
  EXPECT_EQ(Saved("TEXT", text), "'" + text + "'");
}

TEST(TextField, IsNullWhenEmptyUnlessItIsRequired) {
  EXPECT_EQ(Saved("VARCHAR(40)", "", "'a'"), "NULL");
  EXPECT_EQ(Saved("TEXT", "", "'a'"), "NULL");
  EXPECT_EQ(Saved("VARCHAR(40) NOT NULL", "", "'a'"), "'a'" + std::string(kRequired));
  EXPECT_EQ(Saved("VARCHAR(40) NOT NULL", " ", "'a'"), "' '");
  EXPECT_EQ(OneField("VARCHAR(40)", "'a'").SaveWithoutInput(), "NULL");
}

TEST(TextField, TakesNoMoreThanItHolds) {
  EXPECT_EQ(Saved("VARCHAR(3)", "abcd", "'a'"),
            "'a' The value for the field V is longer than 3 characters in UpdateRecord.<br>");
}

TEST(LongBinaryField, IsNeverSet) {
  EXPECT_EQ(Saved("BLOB", "abc", "x'0102'"), "X'0102'");
  EXPECT_EQ(OneField("BLOB NOT NULL", "x'0102'").SaveWithoutInput(), "X'0102'");
  EXPECT_EQ(Inserted("BLOB", "abc"), "NULL");
}

// All fields of a form

TEST(Validation, StopsAtTheFirstBadFieldAndSavesNothing) {
  const TemporaryDatabase database(kCustomers);
  const auto status = [&](std::string_view name, std::string_view stock, std::string_view since) {
    Saving saving(database);
    saving.Post({{"ID", "1"}, {"Name", name}, {"City", "Rome"}, {"Stock", stock}, {"Since", since}});
    EXPECT_FALSE(saving.Save());
    EXPECT_EQ(saving.Message(), "");
    return saving.Status();
  };
  EXPECT_EQ(status("", "x", "y"), "&nbsp;Record WAS NOT SAVED. Fill out all required fields.");
  EXPECT_EQ(status("Eve", "x", "y"), "&nbsp;x is not a number");
  EXPECT_EQ(status("Eve", "7", "y"), "&nbsp;y is not a valid date");
  EXPECT_EQ(Row(database), "1,'Anna','Oslo',3,2.5,'2024-05-03',1,'first'");
}

TEST(Validation, ShowsTheValueAsItWasPosted) {
  EXPECT_EQ(Saved("INT", " <b>\"x\" ", "5"), "5 &nbsp; <b>\"x\"  is not a number");
}

TEST(ComputedField, CanBeShownAndSavedWhenNobodyTouchesIt) {
  const TemporaryDatabase database(kCustomers);
  Saving saving(database);
  saving.settings.EditSQL = "SELECT ID, Name, upper(Name) AS Big FROM T";
  saving.Post({{"ID", "1"}, {"Name", "Eve"}, {"Big", "ANNA"}});
  EXPECT_TRUE(saving.Save()) << saving.Message();
  EXPECT_EQ(database.Value("SELECT Name FROM T WHERE ID=1"), "Eve");

  saving.page.form[2].value = "changed";
  EXPECT_FALSE(saving.Update());
  EXPECT_EQ(saving.Message(), "The field Big is computed and cannot be set in UpdateRecord.<br>");
}

TEST(ChosenBooleans, AreThoseOfTheSelectList) {
  const TemporaryDatabase database(
      "CREATE TABLE T(ID INTEGER PRIMARY KEY, B BOOLEAN); INSERT INTO T VALUES(1, 1), (2, 0), (3, NULL)");
  const auto save = [&](std::string_view id, std::string_view choice) {
    Saving saving(database);
    saving.settings.lookups.Add({"B", "Words", "Flag", "Word", "", true});
    saving.Post({{"ID", id}, {"B", choice}});
    EXPECT_TRUE(saving.Save()) << saving.Message();
    return Row(database, "ID=" + std::string(id), "B");
  };
  EXPECT_EQ(save("2", "False"), "0");
  EXPECT_EQ(save("3", ""), "NULL") << "a list shows Null";
  EXPECT_EQ(save("1", "False"), "0");
  EXPECT_EQ(save("1", "True"), "1");
  EXPECT_EQ(save("2", "1"), "1");
  EXPECT_EQ(save("2", "0"), "0");
  EXPECT_EQ(save("1", ""), "0");
}

TEST(GeneratedBooleans, KeepTheirValue) {
  const TemporaryDatabase database(
      "CREATE TABLE T(K BOOLEAN, V TEXT); CREATE TABLE S(B BOOLEAN); INSERT INTO S VALUES(0)");
  Saving saving(database);
  saving.settings.EditPrimaryKeys = "K";
  saving.settings.EditNewPKStatement = "SELECT B FROM S";
  saving.Post("V", "x");
  EXPECT_TRUE(saving.Insert()) << saving.Message();
  EXPECT_EQ(Row(database, "V='x'", "K"), "0");
}

}  // namespace

}  // namespace dralo::tests
