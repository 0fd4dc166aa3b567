#include <gtest/gtest.h>

#include <optional>

#include "support/named_cases.h"
#include "unit/editing/one_field.h"
#include "unit/editing/saving.h"

namespace dralo::tests {

namespace {

/// The source of an update is told by the message when there is no record for it.
std::string SourceOf(Saving& saving) {
  saving.settings.DisplayDebug = true;
  saving.settings.ErrorMessage.clear();
  saving.Save();
  const std::string_view message = saving.Message();
  const std::string_view before = "sql='";
  const std::size_t from = message.find(before);
  return std::string(message.substr(from + before.size(), message.rfind('\'') - from - before.size()));
}

class UpdateKeys : public testing::Test {
 protected:
  TemporaryDatabase database{
      "CREATE TABLE T(A VARCHAR(40), B INT, C VARCHAR(40), PRIMARY KEY(A, B));"
      "INSERT INTO T VALUES('x', 2, 'one'), ('O''Neil', 3, 'two'), ('[a]', 4, 'three');"};
  Saving saving{database};

  UpdateKeys() { saving.settings.EditPrimaryKeys = "A,B"; }
};

// The key condition

TEST_F(UpdateKeys, AreTrimmedAndWrittenAsTheEngineKnowsThem) {
  saving.settings.EditPrimaryKeys = "A, B ";
  saving.Post({{"A", " none "}, {"B", "2"}});
  EXPECT_EQ(SourceOf(saving), "SELECT * FROM T WHERE (A='none') AND (B=2)") << "no engine is set";
  saving.settings.DrConnection->SetEngineName("access");
  EXPECT_EQ(SourceOf(saving), "SELECT * FROM T WHERE ([A]='none') AND ([B]=2)");
}

TEST_F(UpdateKeys, FindTheRecordWhoseKeyTheFormShowsInTheRegionalForm) {
  const TemporaryDatabase prices(
      "CREATE TABLE T(Price DECIMAL(10,2), Since DATE, C VARCHAR(40), PRIMARY KEY(Price, Since));"
      "INSERT INTO T VALUES(3.5, '2024-02-03', 'one'), (3.5, '2024-03-02', 'two')");
  Saving german(prices, German());
  german.settings.EditPrimaryKeys = "Price,Since";
  german.Post({{"Price", "3,5"}, {"Since", "03.02.2024"}, {"C", "new"}});
  EXPECT_TRUE(german.Save()) << german.Message();
  EXPECT_EQ(prices.Value("SELECT group_concat(C) FROM T"), "new,two");
}

struct FoundCase {
  std::string_view name, opened, engine, a, b, rows;
};

class FoundKeys : public UpdateKeys, public testing::WithParamInterface<FoundCase> {};

TEST_P(FoundKeys, ChangeTheirRecord) {
  if (!GetParam().opened.empty()) saving.page.form.push_back({"Morvu1PK", std::string(GetParam().opened)});
  if (!GetParam().engine.empty()) saving.settings.DrConnection->SetEngineName(GetParam().engine);
  EXPECT_TRUE(saving.Post({{"A", GetParam().a}, {"B", GetParam().b}, {"C", "new"}}).Save());
  EXPECT_EQ(database.Value("SELECT group_concat(A||C) FROM (SELECT A, C FROM T ORDER BY B)"),
            GetParam().rows);
}

constexpr FoundCase kFoundKeys[] = {
    {"WithQuotesDoubled", "", "", "O'Neil", "3", "xone,O'Neilnew,[a]three"},
    {"WithoutTheBracketsInsideValues", "", "", "[x]", "2", "[x]new,O'Neiltwo,[a]three"},
    {"WithTheBracketsInsideValuesOnEnginesThatKnowThem", "", "MSSQL", "[a]", "4", "xone,O'Neiltwo,[a]new"},
    {"WithTheBracketsInsideValuesOnTheOtherEngine", "", "ACCESS", "[a]", "4", "xone,O'Neiltwo,[a]new"},
    {"PostedInTheFormAndNotTheOneThatAddressedTheRecord", "x,2", "", "O'Neil", "3",
     "xone,O'Neilnew,[a]three"},
};

INSTANTIATE_TEST_SUITE_P(Records, FoundKeys, testing::ValuesIn(kFoundKeys), kByName);

TEST_F(UpdateKeys, AreQuotedByTheTypeOfTheColumnAtTheirPosition) {
  saving.settings.EditSQL = "SELECT C, A, B FROM T";
  saving.Post({{"A", "none"}, {"B", "2"}});
  EXPECT_EQ(SourceOf(saving), "SELECT C, A, B FROM T WHERE (A='none') AND (B='2')");
  saving.settings.EditSQL = "SELECT B, A, C FROM T";
  EXPECT_FALSE(saving.Update());
  EXPECT_NE(saving.Message().find("(A=none) AND (B='2')"), std::string::npos) << saving.Message();
}

TEST_F(UpdateKeys, ThatAreNotPostedAreEmpty) {
  saving.settings.EditPrimaryKeys = "A";
  saving.Post("C", "new");
  EXPECT_EQ(SourceOf(saving), "SELECT * FROM T WHERE (A='')");
}

TEST_F(UpdateKeys, AddressTheRecordToDelete) {
  saving.settings.DeleteSQL = "DELETE FROM T";
  saving.Post({{"A", "O'Neil"}, {"B", "3"}});
  EXPECT_TRUE(saving.Delete());
  EXPECT_EQ(database.Value("SELECT group_concat(B) FROM (SELECT B FROM T ORDER BY B)"), "2,4");
}

TEST_F(UpdateKeys, OfTextAreNoWayIntoTheStatement) {
  saving.settings.DeleteSQL = "DELETE FROM T";
  saving.settings.EditPrimaryKeys = "A";
  saving.Post("A", "' OR ''='");
  EXPECT_TRUE(saving.Delete());
  EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "3");
}

// The source

TEST_F(UpdateKeys, ReplaceTheWhereOfEditSqlAndWhatFollows) {
  saving.Post({{"A", "none"}, {"B", "2"}});
  for (const std::string_view where :
       {" where B=1 ORDER BY B", " WHERE B=1", " Where B IN (SELECT 1 WHERE 1=1)"}) {
    saving.settings.EditSQL = "select * from T" + std::string(where);
    EXPECT_EQ(SourceOf(saving), "select * from T WHERE (A='none') AND (B=2)") << where;
  }
}

struct BadKeys {
  std::string_view name, keys, statement, message;
};

class UnusableKeys : public UpdateKeys, public testing::WithParamInterface<BadKeys> {};

TEST_P(UnusableKeys, AreReported) {
  saving.settings.EditPrimaryKeys = GetParam().keys;
  saving.settings.EditSQL = GetParam().statement;
  saving.Post({{"A", "x"}, {"B", "2"}, {"C", "new"}, {"Nope", "5"}});
  EXPECT_FALSE(saving.Save());
  EXPECT_EQ(saving.Message(), GetParam().message);
}

constexpr BadKeys kBadKeys[] = {
    {"OfWhichOneIsNoField", "A,Nope", "SELECT * FROM T",
     "Unable to open recordset. sql='SELECT * FROM T WHERE (A='x') AND (Nope=5)' no such column: Nope<br>"},
    {"WithAnEmptyItem", "A,", "SELECT * FROM T",
     "Unable to open recordset. sql='SELECT * FROM T WHERE (A='x') AND (=)' near \"=\": syntax error<br>"},
    {"MoreThanColumns", "A,B,C,D", "SELECT * FROM T",
     "EditPrimaryKeys names more keys than there are columns in UpdateRecord.<br>"},
    {"BehindAnOrderThatHasNoWhere", "A,B", "SELECT * FROM T ORDER BY B",
     "Unable to open recordset. sql='SELECT * FROM T ORDER BY B WHERE (A='x') AND (B=2)' near \"WHERE\": "
     "syntax error<br>"},
    {"BehindAWhereWithoutBlanksAroundIt", "A,B", "SELECT * FROM T\nWHERE B=2",
     "Unable to open recordset. sql='SELECT * FROM T\nWHERE B=2 WHERE (A='x') AND (B=2)' near \"WHERE\": "
     "syntax error<br>"},
};

INSTANTIATE_TEST_SUITE_P(Failures, UnusableKeys, testing::ValuesIn(kBadKeys), kByName);

TEST_F(UpdateKeys, AreFoundBehindNamesOfAnyLetters) {
  database.Run(
      "CREATE TABLE \"Ärzte ſ ΐ\"(ID INTEGER PRIMARY KEY, N TEXT); INSERT INTO \"Ärzte ſ ΐ\" VALUES(1,'a')");
  saving.settings.EditSQL = "SELECT * FROM \"Ärzte ſ ΐ\" WHERE 1=2";
  saving.settings.EditPrimaryKeys = "ID";
  saving.Post({{"ID", "1"}, {"N", "b"}});
  EXPECT_TRUE(saving.Save()) << saving.Message();
  EXPECT_EQ(database.Value("SELECT N FROM \"Ärzte ſ ΐ\""), "b");
}

// New records

class NewRecords : public testing::Test {
 protected:
  TemporaryDatabase database{kCustomers};
  Saving saving{database};
};

TEST_F(NewRecords, AreAddedWithThePostedKey) {
  saving.Post({{"ID", "9"}, {"Name", "Ida"}, {"Price", "1,25"}, {"Active", "on"}});
  EXPECT_TRUE(saving.Insert());
  EXPECT_EQ(saving.Status(), "&nbsp;[New record saved ok]");
  EXPECT_EQ(saving.Message(), "");
  EXPECT_EQ(Row(database, "ID=9"), "9,'Ida',NULL,NULL,1.25,NULL,1,NULL");
}

TEST_F(NewRecords, DoNotCareForTheWhereOfEditSql) {
  saving.settings.EditSQL = "select * from T where City='Rome' order by Name";
  saving.Post({{"ID", "9"}, {"Name", "Ida"}});
  EXPECT_TRUE(saving.Insert());
  EXPECT_EQ(database.Value("SELECT Name FROM T WHERE ID=9"), "Ida");
}

TEST_F(NewRecords, CanBeTheFirstOfATable) {
  database.Run("DELETE FROM T");
  saving.Post({{"ID", "9"}, {"Name", "Ida"}});
  EXPECT_TRUE(saving.Insert());
  EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "1");
}

TEST_F(NewRecords, GetTheirKeyFromTheDatabase) {
  for (const std::string_view word : {"autoincrement", "AutoIncrement", "AUTOINCREMENT"}) {
    saving.page.form.clear();
    saving.settings.EditNewPKStatement = word;
    saving.Post({{"ID", "77"}, {"Name", "Ida"}});
    EXPECT_TRUE(saving.Insert()) << word;
  }
  EXPECT_EQ(database.Value("SELECT group_concat(ID) FROM T"), "1,2,3,4,5");
}

TEST_F(NewRecords, TakeAWordWithBlanksAroundForAStatement) {
  saving.settings.EditNewPKStatement = " autoincrement";
  saving.Post({{"ID", "77"}, {"Name", "Ida"}});
  EXPECT_FALSE(saving.Insert());
  EXPECT_NE(saving.Message().find(" in GetNewPKValue.<br>"), std::string::npos) << saving.Message();
  EXPECT_EQ(saving.Status(), "&nbsp;Record WAS NOT SAVED. Fill out all required fields.");
  EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "2");
}

struct NewKeyCase {
  std::string_view name, statement, read_only, hidden;
  std::optional<std::string_view> posted;
  std::string_view key;
};

class NewKey : public NewRecords, public testing::WithParamInterface<NewKeyCase> {};

TEST_P(NewKey, IsStored) {
  saving.settings.EditNewPKStatement = GetParam().statement;
  saving.settings.EditFieldsReadOnly = GetParam().read_only;
  saving.settings.FormFieldsHide = GetParam().hidden;
  if (GetParam().posted) saving.Post("ID", *GetParam().posted);
  EXPECT_TRUE(saving.Post("Name", "Ida").Insert());
  EXPECT_EQ(database.Value("SELECT ID FROM T WHERE Name='Ida'"), GetParam().key);
}

constexpr NewKeyCase kNewKeys[] = {
    {"FromAStatement", "SELECT max(ID)+10 FROM T", "", "", "77", "12"},
    {"FromAStatementEvenWhenItIsReadOnly", "SELECT max(ID)+10 FROM T", "ID", "", "77", "12"},
    {"FromAStatementEvenWhenItIsHidden", "SELECT max(ID)+10 FROM T", "", "ID", std::nullopt, "12"},
    {"AsPostedWhereTheStatementIsBlank", "  ", "", "", "9", "9"},
};

INSTANTIATE_TEST_SUITE_P(Keys, NewKey, testing::ValuesIn(kNewKeys), kByName);

TEST_F(NewRecords, TestAGeneratedKeyLikeAPostedOne) {
  saving.settings.EditNewPKStatement = "SELECT 'none'";
  saving.Post({{"ID", "77"}, {"Name", "Ida"}});
  EXPECT_FALSE(saving.Insert());
  EXPECT_EQ(saving.Status(), "&nbsp;none is not a number");
}

TEST(NewRecordsOfTwoKeys, HaveOneStatementForEachKey) {
  const TemporaryDatabase two("CREATE TABLE T(A INT NOT NULL, B INT NOT NULL, C TEXT, PRIMARY KEY(A,B))");
  Saving adding(two);
  adding.settings.EditPrimaryKeys = "A, b";
  adding.settings.EditNewPKStatement = "SELECT 1";
  adding.Post({{"A", "7"}, {"B", "8"}, {"C", "x"}});
  EXPECT_FALSE(adding.Insert());
  EXPECT_EQ(adding.Message(), "EditNewPKStatement has fewer items than EditPrimaryKeys in UpdateRecord.<br>");
  EXPECT_EQ(two.Value("SELECT count(*) FROM T"), "0");

  adding.settings.EditNewPKStatement = " ,SELECT 42";
  EXPECT_TRUE(adding.Update()) << adding.Message();
  EXPECT_EQ(two.Value("SELECT A||','||B||','||C FROM T"), "7,42,x");
}

TEST_F(NewRecords, DoNotAskForStatementsOnUpdates) {
  saving.settings.EditNewPKStatement = "autoincrement";
  saving.settings.EditSQL = "SELECT ID, Name FROM T";
  saving.Post({{"ID", "1"}, {"Name", "Eve"}});
  EXPECT_TRUE(saving.Save());
  saving.settings.EditNewPKStatement = "SELECT 99";
  saving.page.form[1].value = "Ada";
  EXPECT_TRUE(saving.Update());
  EXPECT_EQ(database.Value("SELECT group_concat(ID||Name) FROM T"), "1Ada,2Bert");
}

TEST_F(NewRecords, CannotBeAddedToSeveralTablesAtOnce) {
  database.Run("CREATE TABLE U(X INT); INSERT INTO U VALUES(1)");
  saving.settings.EditSQL = "SELECT T.ID, T.Name, U.X FROM T, U";
  saving.Post({{"ID", "9"}, {"Name", "Ida"}, {"X", "1"}});
  EXPECT_FALSE(saving.Insert());
  EXPECT_EQ(saving.Message().substr(0, 48), "Recordset does not support the AddNew method. Th")
      << saving.Message();
  EXPECT_TRUE(saving.Message().ends_with("<br>"));
  EXPECT_EQ(saving.Status(), "");
  EXPECT_EQ(database.Value("SELECT count(*) FROM T"), "2");
}

TEST_F(NewRecords, ReportThatTheTableCannotBeOpened) {
  database.Run("CREATE TABLE V(ID INT)");
  saving.settings.EditSQL = "SELECT (SELECT max(ID) FROM V WHERE 1=1) AS M, T.* FROM T";
  saving.settings.EditPrimaryKeys = "M";
  saving.Post({{"ID", "9"}, {"Name", "Ida"}});
  EXPECT_FALSE(saving.Insert());
  EXPECT_EQ(saving.Message(),
            "Unable to open recordset. sql='SELECT (SELECT max(ID) FROM V' incomplete input<br>");
}

}  // namespace

}  // namespace dralo::tests
