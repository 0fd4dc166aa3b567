#include "editing/primary_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/cpp/environment.h"
#include "settings/open_connection.h"
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
  std::string RestrictedToShown(std::string_view sql, std::string_view shown, int moves = 0) {
    const auto records = platform::Create<platform::Recordset>(AmericanEnvironment(), "ADODB.Recordset");
    records->Open(shown, settings::OpenConnection(Settings()));
    records->Move(moves);
    return Rendered([&](state::Render& render) { return editing::GetSqlPK(render, sql, records.get()); });
  }

  std::string NewKey(std::string_view statement) {
    return Rendered([&](state::Render& render) { return editing::GetNewPKValue(render, statement); });
  }
};

TEST(GetSqlPK, AddsTheKeyOfTheRequestAsACondition) {
  KeyedView view("ID");
  view.Post("PK", "5");
  EXPECT_EQ(view.Restricted("SELECT * FROM T"), "SELECT * FROM T WHERE ([ID]=5)");
  EXPECT_EQ(view.ErrorMessage(), "");
}

TEST(GetSqlPK, SelectsFromAStatementThatHasAConditionOfItsOwn) {
  KeyedView view("ID");
  view.Post("PK", "5");
  EXPECT_EQ(view.Restricted("SELECT * FROM T WHERE Line=1"),
            "SELECT * FROM (SELECT * FROM T WHERE Line=1) DRTEMPTABLE WHERE ([ID]=5)");
  EXPECT_EQ(view.Restricted("select * from T where Line=1 order by ID"),
            "SELECT * FROM (select * from T where Line=1 order by ID) DRTEMPTABLE WHERE ([ID]=5)");
}

TEST(GetSqlPK, TakesOnlyAWhereBetweenBlanksForACondition) {
  KeyedView view("ID");
  view.Post("PK", "5");
  EXPECT_EQ(view.Restricted("SELECT * FROM T\nWHERE Line=1"), "SELECT * FROM T\nWHERE Line=1 WHERE ([ID]=5)");
}

TEST(GetSqlPK, LeavesAnOrderBeforeTheCondition) {
  KeyedView view("ID");
  view.Post("PK", "5");
  EXPECT_EQ(view.Restricted("SELECT * FROM T ORDER BY ID"), "SELECT * FROM T ORDER BY ID WHERE ([ID]=5)");
}

TEST(GetSqlPK, WritesBracketsOnlyForEnginesThatKnowThem) {
  const std::pair<std::string_view, std::string_view> conditions[] = {
      {"MSSQL", "([ID]=5)"}, {"ACCESS", "([ID]=5)"}, {"access", "([ID]=5)"},
      {"ORACLE", "(ID=5)"},  {"SQLA", "(ID=5)"},     {"Other", "(ID=5)"}};
  for (const auto& [engine, condition] : conditions) {
    KeyedView view("ID", engine);
    view.Post("PK", "5");
    EXPECT_EQ(view.Restricted("SELECT * FROM T WHERE Line=1"),
              "SELECT * FROM (SELECT * FROM T WHERE Line=1) DRTEMPTABLE WHERE " + std::string(condition))
        << engine;
  }
}

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

TEST(GetSqlPK, DoublesQuotesInTextKeys) {
  KeyedView view("Name");
  view.Post("PK", "O'Neil");
  EXPECT_EQ(view.Restricted("SELECT Name FROM T"), "SELECT Name FROM T WHERE ([Name]='O''Neil')");
}

TEST(GetSqlPK, DoesNotSplitASingleKey) {
  KeyedView view("Name");
  view.Post("PK", " a,b ");
  EXPECT_EQ(view.Restricted("SELECT Name FROM T"), "SELECT Name FROM T WHERE ([Name]='a,b')");
}

TEST(GetSqlPK, SplitsSeveralKeysAndTrimsTheItems) {
  KeyedView view(" ID , Name");
  view.Post("PK", "5 , Ann ");
  EXPECT_EQ(view.Restricted("SELECT ID, Name FROM T"),
            "SELECT ID, Name FROM T WHERE ([ID]=5) AND ([Name]='Ann')");
}

TEST(GetSqlPK, IgnoresItemsBeyondTheKeys) {
  KeyedView view("ID,Name");
  view.Post("PK", "5,Ann,Lee");
  EXPECT_EQ(view.Restricted("SELECT ID, Name FROM T"),
            "SELECT ID, Name FROM T WHERE ([ID]=5) AND ([Name]='Ann')");
}

TEST(GetSqlPK, FailsWhenTheRequestHasFewerItemsThanKeys) {
  KeyedView view("ID,Line");
  view.Post("PK", "7");
  EXPECT_EQ(view.Restricted("SELECT ID, Line FROM T"), "");
  EXPECT_EQ(view.ErrorMessage(), "The request has no value for the key \"Line\" in GetSqlPK.<br>");
}

TEST(GetSqlPK, QuotesByTheTypeOfTheColumnAtTheKeysPosition) {
  KeyedView view("ID");
  view.Post("PK", "5");
  EXPECT_EQ(view.Restricted("SELECT Name, ID FROM T"), "SELECT Name, ID FROM T WHERE ([ID]='5')");
}

TEST(GetSqlPK, TakesAKeyThatIsNoColumnForANumber) {
  KeyedView view("Code");
  view.Post("PK", "5");
  EXPECT_EQ(view.Restricted("SELECT Name FROM T"), "SELECT Name FROM T WHERE ([Code]=5)");
}

TEST(GetSqlPK, FindsKeyColumnsInAnyLetterCase) {
  KeyedView view("nAME");
  view.Post("PK", "Ann");
  EXPECT_EQ(view.Restricted("SELECT Name FROM T"), "SELECT Name FROM T WHERE ([nAME]='Ann')");
}

TEST(GetSqlPK, CountsAnEmptyNameAsAKey) {
  KeyedView view("ID,");
  view.Post("PK", "5");
  EXPECT_EQ(view.Restricted("SELECT * FROM T"), "");
  EXPECT_EQ(view.ErrorMessage(), "The request has no value for the key \"\" in GetSqlPK.<br>");
}

TEST(GetSqlPK, FailsWhenColumnsAreMissingForTheKeys) {
  KeyedView view("ID,ID");
  view.Post("PK", "5,5");
  EXPECT_EQ(view.Restricted("SELECT ID FROM T"), "");
  EXPECT_EQ(view.ErrorMessage(), "EditPrimaryKeys names more keys than there are columns in GetSqlPK.<br>");
}

TEST(GetSqlPK, ReportsMissingKeys) {
  for (const std::string_view keys : {"", "  "}) {
    KeyedView view(keys);
    view.Post("PK", "5");
    EXPECT_EQ(view.Restricted("SELECT * FROM T"), "");
    EXPECT_EQ(view.ErrorMessage(), "Dralo property EditPrimaryKeys must be set!<br>");
  }
}

TEST(GetSqlPK, IsEmptyWithoutAMessageWhenTheStatementYieldsNoRow) {
  KeyedView view("ID");
  view.Post("PK", "5");
  EXPECT_EQ(view.Restricted("SELECT * FROM T WHERE 1=0"), "");
  EXPECT_EQ(view.ErrorMessage(), "");
}

TEST(GetSqlPK, ReportsAStatementThatDoesNotOpen) {
  KeyedView view("ID");
  view.Post("PK", "5");
  EXPECT_EQ(view.Restricted("SELECT * FROM Missing"), "");
  EXPECT_EQ(view.ErrorMessage(), "no such table: Missing in GetSqlPK.<br>");
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

TEST(GetSqlPK, TakesTheKeyOfTheShownRecord) {
  KeyedView view("name,ID");
  view.Post("PK", "never,7");
  EXPECT_EQ(view.RestrictedToShown("SELECT Name, ID, Line FROM T", "SELECT ID, Name FROM T ORDER BY Line", 1),
            "SELECT Name, ID, Line FROM T WHERE ([name]='O''Neil') AND ([ID]=6)");
  EXPECT_EQ(view.ErrorMessage(), "");
}

TEST(GetSqlPK, KeepsCommasAndBlanksOfTheShownRecord) {
  KeyedView view("Name,ID");
  EXPECT_EQ(view.RestrictedToShown("SELECT Name, ID FROM T", "SELECT ' a,b ' AS Name, 5 AS ID"),
            "SELECT Name, ID FROM T WHERE ([Name]=' a,b ') AND ([ID]=5)");
}

TEST(GetSqlPK, IsEmptyWithoutAMessageWhenNoRecordIsShown) {
  KeyedView view("ID");
  EXPECT_EQ(view.RestrictedToShown("SELECT * FROM T", "SELECT * FROM T WHERE 1=0"), "");
  EXPECT_EQ(view.ErrorMessage(), "");
}

TEST(GetSqlPK, ReportsAKeyThatTheShownRecordDoesNotHave) {
  KeyedView view("ID");
  EXPECT_EQ(view.RestrictedToShown("SELECT * FROM T", "SELECT Name FROM T"), "");
  EXPECT_EQ(view.ErrorMessage(), "The record has no field named \"ID\" in GetSqlPK.<br>");
}

TEST(GetSqlPK, ReportsAnEmptyKeyOfTheShownRecord) {
  KeyedView view("ID");
  EXPECT_EQ(view.RestrictedToShown("SELECT * FROM T", "SELECT * FROM T ORDER BY Line", 2), "");
  EXPECT_EQ(view.ErrorMessage(), "The key \"ID\" of the record is empty in GetSqlPK.<br>");
}

TEST(GetNewPKValue, IsTheFirstColumnOfTheFirstRow) {
  KeyedView view("ID");
  EXPECT_EQ(view.NewKey("SELECT max(ID)+1, 'x' FROM T"), "7");
  EXPECT_EQ(view.NewKey("SELECT Name FROM T ORDER BY ID DESC"), "O'Neil");
  EXPECT_EQ(view.ErrorMessage(), "");
}

TEST(GetNewPKValue, ComesInTheRegionalTextLikePostedValues) {
  host::Environment german("de-DE");
  EditedView view("", german);
  const std::string key =
      view.Rendered([](state::Render& render) { return editing::GetNewPKValue(render, "SELECT 1.5"); });
  EXPECT_EQ(key, "1,5");
}

TEST(GetNewPKValue, RunsAStatementThatChangesData) {
  KeyedView view("ID");
  view.database.Run("CREATE TABLE Last (ID INTEGER); INSERT INTO Last VALUES (41)");
  EXPECT_EQ(view.NewKey("UPDATE Last SET ID = ID + 1 RETURNING ID"), "42");
  EXPECT_EQ(view.database.Value("SELECT ID FROM Last"), "42");
}

TEST(GetNewPKValue, ReportsAStatementThatFails) {
  KeyedView view("ID");
  EXPECT_EQ(view.NewKey("SELECT * FROM Missing"), "");
  EXPECT_EQ(view.ErrorMessage(), "no such table: Missing in GetNewPKValue.<br>");
}

TEST(GetNewPKValue, ShowsTheStatementInMessagesForDebugging) {
  KeyedView view("ID");
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
  EXPECT_EQ(records->sql, "SELECT max(ID) FROM T");
  EXPECT_EQ(records->max_records, 1);
  EXPECT_EQ(records->location, platform::CursorLocation::kClient);
  EXPECT_EQ(records->cursor, platform::CursorType::kForwardOnly);
  EXPECT_EQ(records->lock, platform::LockType::kReadOnly);
  EXPECT_EQ(records->closed, 1);
}

}  // namespace
}  // namespace dralo::tests
