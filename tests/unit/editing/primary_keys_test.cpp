#include "editing/primary_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "settings/open_connection.h"
#include "support/named_cases.h"
#include "unit/editing/edited_view.h"

namespace dralo::tests {
namespace {

constexpr std::string_view kTable = R"(
    CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Line INTEGER);
    INSERT INTO T VALUES (5, 'Ann', 1), (6, 'O''Neil', 2), (NULL, NULL, 3))";

/// A view of kTable that is edited by the keys.
struct KeyedView : EditedView {
  explicit KeyedView(std::string_view keys, std::string_view engine = "MSSQL") : EditedView(kTable) {
    Settings().EditPrimaryKeys = keys;
    Settings().DrConnection->SetEngineName(engine);
  }

  std::string Restricted(std::string_view sql) {
    return Rendered([&](state::Render& render) { return editing::GetSqlPK(render, sql); });
  }

  /// `sql` restricted to the record on which the recordset of `shown` stands after so many moves.
  std::string RestrictedToShown(std::string_view sql, std::string_view shown, int moves) {
    const auto records = platform::Create<platform::Recordset>(AmericanEnvironment(), "ADODB.Recordset");
    records->Open(shown, settings::OpenConnection(Settings()));
    records->Move(moves);
    return Rendered([&](state::Render& render) { return editing::GetSqlPK(render, sql, {}, records.get()); });
  }

  std::string NewKey(std::string_view statement) {
    return Rendered([&](state::Render& render) { return editing::GetNewPKValue(render, statement); });
  }
};

struct PostedKeyCase {
  std::string_view name, keys, posted, sql, restricted;
  std::string_view message = "";
};

class KeyOfTheRequest : public testing::TestWithParam<PostedKeyCase> {};

TEST_P(KeyOfTheRequest, RestrictsTheStatement) {
  KeyedView view(GetParam().keys);
  view.Post("PK", GetParam().posted);
  EXPECT_EQ(view.Restricted(GetParam().sql), GetParam().restricted);
  EXPECT_EQ(view.ErrorMessage(), GetParam().message);
}

constexpr PostedKeyCase kStatements[] = {
    {"IsAddedAsACondition", "ID", "5", "SELECT * FROM T", "SELECT * FROM T WHERE ([ID]=5)"},
    {"SelectsFromAStatementThatHasAConditionOfItsOwn", "ID", "5", "SELECT * FROM T WHERE Line=1",
     "SELECT * FROM (SELECT * FROM T WHERE Line=1) DRTEMPTABLE WHERE ([ID]=5)"},
    {"SelectsFromAStatementThatHasAConditionInSmallLettersAndAnOrder", "ID", "5",
     "select * from T where Line=1 order by ID",
     "SELECT * FROM (select * from T where Line=1 order by ID) DRTEMPTABLE WHERE ([ID]=5)"},
    {"TakesOnlyAWhereBetweenBlanksForACondition", "ID", "5", "SELECT * FROM T\nWHERE Line=1",
     "SELECT * FROM T\nWHERE Line=1 WHERE ([ID]=5)"},
    {"LeavesAnOrderBeforeTheCondition", "ID", "5", "SELECT * FROM T ORDER BY ID",
     "SELECT * FROM T ORDER BY ID WHERE ([ID]=5)"},
    {"IsEmptyWithoutAMessageWhenTheStatementYieldsNoRow", "ID", "5", "SELECT * FROM T WHERE 1=0", ""},
    {"ReportsAStatementThatDoesNotOpen", "ID", "5", "SELECT * FROM Missing", "",
     "no such table: Missing in GetSqlPK.<br>"},
};

constexpr PostedKeyCase kKeys[] = {
    {"DoublesQuotesInTextKeys", "Name", "O'Neil", "SELECT Name FROM T",
     "SELECT Name FROM T WHERE ([Name]='O''Neil')"},
    {"DoesNotSplitASingleKey", "Name", " a,b ", "SELECT Name FROM T",
     "SELECT Name FROM T WHERE ([Name]='a,b')"},
    {"SplitsSeveralKeysAndTrimsTheItems", " ID , Name", "5 , Ann ", "SELECT ID, Name FROM T",
     "SELECT ID, Name FROM T WHERE ([ID]=5) AND ([Name]='Ann')"},
    {"IgnoresItemsBeyondTheKeys", "ID,Name", "5,Ann,Lee", "SELECT ID, Name FROM T",
     "SELECT ID, Name FROM T WHERE ([ID]=5) AND ([Name]='Ann')"},
    {"FailsWhenTheRequestHasFewerItemsThanKeys", "ID,Line", "7", "SELECT ID, Line FROM T", "",
     "The request has no value for the key \"Line\" in GetSqlPK.<br>"},
    {"QuotesByTheTypeOfTheColumnAtTheKeysPosition", "ID", "5", "SELECT Name, ID FROM T",
     "SELECT Name, ID FROM T WHERE ([ID]='5')"},
    {"TakesAKeyThatIsNoColumnForANumber", "Code", "5", "SELECT Name FROM T",
     "SELECT Name FROM T WHERE ([Code]=5)"},
    {"FindsKeyColumnsInAnyLetterCase", "nAME", "Ann", "SELECT Name FROM T",
     "SELECT Name FROM T WHERE ([nAME]='Ann')"},
    {"CountsAnEmptyNameAsAKey", "ID,", "5", "SELECT * FROM T", "",
     "The request has no value for the key \"\" in GetSqlPK.<br>"},
    {"FailsWhenColumnsAreMissingForTheKeys", "ID,ID", "5,5", "SELECT ID FROM T", "",
     "EditPrimaryKeys names more keys than there are columns in GetSqlPK.<br>"},
    {"ReportsEmptyKeys", "", "5", "SELECT * FROM T", "", "Dralo property EditPrimaryKeys must be set!<br>"},
    {"ReportsBlankKeys", "  ", "5", "SELECT * FROM T", "", "Dralo property EditPrimaryKeys must be set!<br>"},
};

INSTANTIATE_TEST_SUITE_P(Statements, KeyOfTheRequest, testing::ValuesIn(kStatements), kByName);
INSTANTIATE_TEST_SUITE_P(Keys, KeyOfTheRequest, testing::ValuesIn(kKeys), kByName);

TEST(GetSqlPK, WritesNoBracketsWhenNoEngineIsSet) {
  EditedView view(kTable);
  view.Settings().EditPrimaryKeys = "ID";
  view.Post("PK", "5");
  const std::string sql =
      view.Rendered([](state::Render& render) { return editing::GetSqlPK(render, "SELECT * FROM T"); });
  EXPECT_EQ(sql, "SELECT * FROM T WHERE (ID=5)");
}

TEST(GetSqlPK, TakesBracketsOutOfTheConditionOnly) {
  KeyedView view("Name", "ORACLE");
  view.Post("PK", "a[1]");
  EXPECT_EQ(view.Restricted("SELECT [Name] FROM T"), "SELECT [Name] FROM T WHERE (Name='a1')");
}

TEST(GetSqlPK, AddsToEarlierMessages) {
  KeyedView view("ID");
  view.Settings().ErrorMessage = "Earlier<br>";
  EXPECT_EQ(view.Restricted("SELECT * FROM Missing"), "");
  EXPECT_EQ(view.ErrorMessage(), "Earlier<br>no such table: Missing in GetSqlPK.<br>");
}

TEST(GetSqlPK, TakesTheKeyOfTheViewWithTheSameTag) {
  KeyedView view("ID");
  view.Post("PK", "5");
  view.Settings().Tag = "2";
  view.Post("PK", "6");
  EXPECT_EQ(view.Restricted("SELECT * FROM T"), "SELECT * FROM T WHERE ([ID]=6)");
}

struct ShownKeyCase {
  std::string_view name, keys, sql, shown;
  int moves;
  std::string_view restricted;
  std::string_view message = "";
};

class KeyOfTheShownRecord : public testing::TestWithParam<ShownKeyCase> {};

TEST_P(KeyOfTheShownRecord, RestrictsTheStatementWhateverTheRequestSays) {
  KeyedView view(GetParam().keys);
  view.Post("PK", "never,7");
  EXPECT_EQ(view.RestrictedToShown(GetParam().sql, GetParam().shown, GetParam().moves),
            GetParam().restricted);
  EXPECT_EQ(view.ErrorMessage(), GetParam().message);
}

constexpr ShownKeyCase kShownRecords[] = {
    {"IsTaken", "name,ID", "SELECT Name, ID, Line FROM T", "SELECT ID, Name FROM T ORDER BY Line", 1,
     "SELECT Name, ID, Line FROM T WHERE ([name]='O''Neil') AND ([ID]=6)"},
    {"KeepsItsCommasAndBlanks", "Name,ID", "SELECT Name, ID FROM T", "SELECT ' a,b ' AS Name, 5 AS ID", 0,
     "SELECT Name, ID FROM T WHERE ([Name]=' a,b ') AND ([ID]=5)"},
    {"IsEmptyWithoutAMessageWhenNoRecordIsShown", "ID", "SELECT * FROM T", "SELECT * FROM T WHERE 1=0", 0,
     ""},
    {"IsReportedWhenTheRecordDoesNotHaveIt", "ID", "SELECT * FROM T", "SELECT Name FROM T", 0, "",
     "The record has no field named \"ID\" in GetSqlPK.<br>"},
    {"IsReportedWhenItIsEmpty", "ID", "SELECT * FROM T", "SELECT * FROM T ORDER BY Line", 2, "",
     "The key \"ID\" of the record is empty in GetSqlPK.<br>"},
};

INSTANTIATE_TEST_SUITE_P(Records, KeyOfTheShownRecord, testing::ValuesIn(kShownRecords), kByName);

TEST(GetNewPKValue, IsTheFirstColumnOfTheFirstRow) {
  KeyedView view("ID");
  EXPECT_EQ(view.NewKey("SELECT max(ID)+1, 'x' FROM T"), "7");
  EXPECT_EQ(view.NewKey("SELECT Name FROM T ORDER BY ID DESC"), "O'Neil");
  EXPECT_EQ(view.ErrorMessage(), "");
}

TEST(GetNewPKValue, IsFoundByTheParametersOfTheView) {
  KeyedView view("ID");
  view.Settings().SqlParameters = {std::int64_t{6}};
  EXPECT_EQ(view.NewKey("SELECT count(*) + 40 FROM T WHERE ID < ?"), "41");
  EXPECT_EQ(view.NewKey("SELECT max(ID) + 1 FROM T"), "7");
  EXPECT_EQ(view.ErrorMessage(), "");
}

TEST(GetNewPKValue, RunsAStatementThatChangesData) {
  KeyedView view("ID");
  view.database.Run("CREATE TABLE Last (ID INTEGER); INSERT INTO Last VALUES (41)");
  EXPECT_EQ(view.NewKey("UPDATE Last SET ID = ID + 1 RETURNING ID"), "42");
  EXPECT_EQ(view.database.Value("SELECT ID FROM Last"), "42");
}

TEST(GetNewPKValue, ReportsAStatementThatFailsAndShowsItForDebugging) {
  KeyedView view("ID");
  EXPECT_EQ(view.NewKey("SELECT * FROM Missing"), "");
  EXPECT_EQ(view.ErrorMessage(), "no such table: Missing in GetNewPKValue.<br>");
  view.Settings().ErrorMessage.clear();
  view.Settings().DisplayDebug = true;
  EXPECT_EQ(view.NewKey("SELECT * FROM Missing"), "");
  EXPECT_EQ(view.ErrorMessage(), "no such table: Missing in GetNewPKValue. sql='SELECT * FROM Missing'<br>");
}

TEST(GetNewPKValue, ReportsAStatementWithoutAValue) {
  for (const std::string_view statement :
       {"SELECT ID FROM T WHERE 1=0", "SELECT NULL", "UPDATE T SET ID = 1 WHERE 1=0"}) {
    KeyedView view("ID");
    EXPECT_EQ(view.NewKey(statement), "") << statement;
    EXPECT_THAT(view.ErrorMessage(), testing::EndsWith(" in GetNewPKValue.<br>")) << statement;
    EXPECT_THAT(view.ErrorMessage(), testing::Not(testing::StartsWith(" in"))) << statement;
  }
}

TEST(GetNewPKValue, ReadsAtMostOneRowOnTheClientForwardAndReadOnly) {
  const auto records = std::make_shared<OpenedRecords>(1);
  records->Add("ID", platform::TypeCode::kInteger, [] { return platform::VariantView(std::int64_t{9}); });
  PreparedEnvironment environment(records);
  EditedView view("", environment);
  const std::string key = view.Rendered(
      [](state::Render& render) { return editing::GetNewPKValue(render, "SELECT max(ID) FROM T"); });
  EXPECT_EQ(key, "9");
  ExpectReadForOneRow(*records, "SELECT max(ID) FROM T");
}

}  // namespace
}  // namespace dralo::tests
