#include "settings/setters.h"

#include <gtest/gtest.h>

#include "component/db_connection.h"
#include "support/view_page.h"

namespace dralo::settings {
namespace {

using tests::TestEnvironment;

struct SettersTest : ::testing::Test {
  Settings settings;
  void SetSqlTo(std::string value) { SetSql(settings, TestEnvironment(), std::move(value)); }
};

using Sql = SettersTest;

TEST_F(Sql, AlsoBecomesTheFormAndEditStatements) {
  SetSqlTo("SELECT 1");
  EXPECT_EQ(settings.FormSQL, "SELECT 1");
  EXPECT_EQ(settings.EditSQL, "SELECT 1");
}

TEST_F(Sql, LeavesAFormStatementThatWasSetBefore) {
  SetFormSql(settings, "SELECT 2");
  SetSqlTo("SELECT 1");
  EXPECT_EQ(settings.FormSQL, "SELECT 2");
}

TEST_F(Sql, ReplacesAFormStatementOfBlanks) {
  settings.FormSQL = "  ";
  SetSqlTo("SELECT 1");
  EXPECT_EQ(settings.FormSQL, "SELECT 1");
}

TEST_F(Sql, SetTwiceLeavesTheFirstTextInTheFormAndEditStatements) {
  SetSqlTo("SELECT 1");
  SetSqlTo("SELECT 2");
  EXPECT_EQ(settings.FormSQL, "SELECT 1");
  EXPECT_EQ(settings.EditSQL, "SELECT 1");
}

TEST_F(Sql, CopiesDoNotSwitchTheFormattingOfTheFormOff) {
  SetSqlTo("SELECT 1");
  EXPECT_TRUE(settings.ApplyCellFormattingToForm);
  EXPECT_TRUE(settings.ApplyColFormattingToForm);
}

TEST_F(Sql, ThatBeginsWithExecIsACommand) {
  SetSqlTo("EXEC Top10");
  EXPECT_TRUE(settings.has_stored_procedure);
  EXPECT_EQ(settings.StoredProcCommand->command_text, "EXEC Top10");
}

TEST_F(Sql, ThatBeginsWithSelectInLowerCaseIsAQuery) {
  SetSqlTo("  select 1");
  EXPECT_FALSE(settings.has_stored_procedure);
}

TEST_F(Sql, WithALineBreakDirectlyBehindSelectIsACommand) {
  SetSqlTo("SELECT\n1");
  EXPECT_TRUE(settings.has_stored_procedure);
}

TEST_F(Sql, ThatIsEmptyIsACommand) {
  SetSqlTo("");
  EXPECT_TRUE(settings.has_stored_procedure);
}

TEST_F(Sql, ThatIsAQueryTakesTheCommandBack) {
  SetSqlTo("EXEC Top10");
  SetSqlTo("SELECT 1");
  EXPECT_FALSE(settings.has_stored_procedure);
}

using FormSql = SettersTest;

TEST_F(FormSql, SwitchesTheFormattingOfTheFormOff) {
  SetFormSql(settings, "SELECT 2");
  EXPECT_FALSE(settings.ApplyCellFormattingToForm);
  EXPECT_FALSE(settings.ApplyColFormattingToForm);
}

TEST_F(FormSql, BecomesTheEditStatementThatIsStillTheGrids) {
  SetSqlTo("SELECT 1");
  SetFormSql(settings, "SELECT 2");
  EXPECT_EQ(settings.EditSQL, "SELECT 2");
}

TEST_F(FormSql, LeavesAnEditStatementOfItsOwn) {
  SetSqlTo("SELECT 1");
  settings.EditSQL = "SELECT 3";
  SetFormSql(settings, "SELECT 2");
  EXPECT_EQ(settings.EditSQL, "SELECT 3");
}

TEST_F(FormSql, AfterSqlWasSetTwiceFindsTheFirstTextInTheEditStatementAndKeepsIt) {
  SetSqlTo("SELECT 1");
  SetSqlTo("SELECT 2");
  SetFormSql(settings, "SELECT 3");
  EXPECT_EQ(settings.EditSQL, "SELECT 1");
}

TEST(EditOptions, AllInLowerCaseReadsBackWithTheWordsItStandsFor) {
  Settings settings;
  SetEditOptions(settings, "all");
  EXPECT_EQ(settings.EditOptions, "ALL ADD UPDATE DELETE");
}

TEST(EditOptions, AreTrimmedAndWrittenInCapitals) {
  Settings settings;
  SetEditOptions(settings, " add update ");
  EXPECT_EQ(settings.EditOptions, "ADD UPDATE");
}

TEST(Width, LosesQuotesOfBothKinds) {
  Settings settings;
  SetWidth(settings, "50%\"");
  EXPECT_EQ(settings.Width, "50%");
  SetWidth(settings, "'600'");
  EXPECT_EQ(settings.Width, "600");
}

TEST(TableTag, GetsCellSpacingInFrontWhenItHasNone) {
  Settings settings;
  SetTableTag(settings, R"(border="1")");
  EXPECT_EQ(settings.TableTag, R"(cellspacing="0" border="1")");
}

TEST(TableTag, KeepsACellSpacingOfItsOwn) {
  Settings settings;
  SetTableTag(settings, R"(CellSpacing=4)");
  EXPECT_EQ(settings.TableTag, R"(CellSpacing=4)");
}

TEST(TableTag, GivesItsWidthToTheView) {
  Settings settings;
  SetTableTag(settings, R"(border="1" width = "80%" bgcolor="red")");
  EXPECT_EQ(settings.Width, "80%");
}

TEST(GridTableTag, GivesItsWidthToTheViewWithoutQuotes) {
  Settings settings;
  SetGridTableTag(settings, "Width='600' border=0");
  EXPECT_EQ(settings.Width, "600");
  EXPECT_EQ(settings.GridTableTag, "Width='600' border=0");
}

TEST(GridTableTag, GivesItsWidthBehindLettersWhoseCapitalsTakeFewerBytes) {
  Settings settings;
  SetGridTableTag(settings, "title='ıııııııııı' a=1 width=600");
  EXPECT_EQ(settings.Width, "600");
}

TEST(GridTableTag, NeverOverwritesAWidthThatWasSet) {
  Settings settings;
  SetWidth(settings, "50%");
  SetGridTableTag(settings, "width=600");
  EXPECT_EQ(settings.Width, "50%");
}

TEST(GridTableTag, WithTheWordWidthButNoValueGivesNone) {
  Settings settings;
  SetGridTableTag(settings, "width");
  EXPECT_EQ(settings.Width, "");
}

TEST(DisplayNavBar, AtTheTopWithALastPageButtonSwitchesCountingOn) {
  for (const char* placement : {"top", " Both ", "TOP"}) {
    Settings settings;
    settings.CountRecords = false;
    SetDisplayNavBar(settings, placement);
    EXPECT_TRUE(settings.CountRecords) << placement;
  }
}

TEST(DisplayNavBar, AtTheBottomOrWithoutALastPageButtonLeavesCountingAsItIs) {
  Settings settings;
  settings.CountRecords = false;
  SetDisplayNavBar(settings, "bottom");
  EXPECT_FALSE(settings.CountRecords);
  SetDisplayNavBarFirstLastBtn(settings, false);
  SetDisplayNavBar(settings, "top");
  EXPECT_FALSE(settings.CountRecords);
}

TEST(DisplayNavBarFirstLastBtn, SwitchesCountingOnAtEveryAssignment) {
  Settings settings;
  settings.CountRecords = false;
  SetDisplayNavBarFirstLastBtn(settings, true);
  EXPECT_TRUE(settings.CountRecords);
}

TEST(RecordsPerPage, AtTheRecordLimitIsIgnored) {
  Settings settings;
  SetRecordsPerPage(settings, 1'000'000);
  EXPECT_EQ(settings.RecordsPerPage, 20);
  settings.RecordsMaxLimit = 50;
  SetRecordsPerPage(settings, 50);
  EXPECT_EQ(settings.RecordsPerPage, 20);
  SetRecordsPerPage(settings, 49);
  EXPECT_EQ(settings.RecordsPerPage, 49);
}

TEST(RecordsPerPage, BeyondSixteenBitsIsIgnored) {
  Settings settings;
  SetRecordsPerPage(settings, 40'000);
  SetRecordsPerPage(settings, -40'000);
  EXPECT_EQ(settings.RecordsPerPage, 20);
}

TEST(AdoRecordset, IsShownInsteadOfAQueryAndNotCounted) {
  Settings settings;
  const auto recordset = platform::Create<platform::Recordset>(TestEnvironment(), "ADODB.Recordset");
  SetAdoRecordset(settings, recordset);
  EXPECT_TRUE(settings.has_supplied_recordset);
  EXPECT_FALSE(settings.CountRecords);
  SetAdoRecordset(settings, nullptr);
  EXPECT_FALSE(settings.has_supplied_recordset);
}

TEST(StoredProcCommand, IsRunInsteadOfAQuery) {
  Settings settings;
  SetStoredProcCommand(settings, std::make_shared<platform::Command>());
  EXPECT_TRUE(settings.has_stored_procedure);
  SetStoredProcCommand(settings, nullptr);
  EXPECT_FALSE(settings.has_stored_procedure);
}

TEST(ConnectionString, OpensAConnectionOfItsOwnAtOnce) {
  const tests::TemporaryDatabase database;
  Settings settings;
  SetConnectionString(settings, TestEnvironment(), database.ConnectionString());
  EXPECT_TRUE(settings.DrConnection->Connection()->IsOpen());
  EXPECT_TRUE(settings.owns_connection);
}

TEST(ConnectionString, ThatCannotBeOpenedRaises) {
  Settings settings;
  EXPECT_THROW(
      SetConnectionString(settings, TestEnvironment(), "Provider=SQLite;Data Source=/no/such/file.db"),
      platform::Error);
}

TEST(ConnectionString, MakesANewConnectionWhoseEngineIsNotSet) {
  const tests::TemporaryDatabase database;
  Settings settings;
  SetConnectionString(settings, TestEnvironment(), database.ConnectionString());
  settings.DrConnection->SetEngineName("MSSQL");
  SetConnectionString(settings, TestEnvironment(), database.ConnectionString());
  EXPECT_EQ(settings.DrConnection->EngineName(), "ORACLE");
}

TEST(DrConnection, AfterAConnectionStringReplacesThePrivateConnection) {
  const tests::TemporaryDatabase database;
  Settings settings;
  SetConnectionString(settings, TestEnvironment(), database.ConnectionString());
  const std::weak_ptr<platform::PageConnection> replaced = settings.DrConnection;
  SetDrConnection(settings, std::make_shared<component::DBConnection>(TestEnvironment()));
  EXPECT_FALSE(settings.owns_connection);
  EXPECT_TRUE(replaced.expired());
}

std::string Twelve(std::string_view last) { return "a,b,c,d,e,f,g,h,i,j,k," + std::string(last); }

TEST(Language, InLowerCaseLeavesTheTablesAndTheCode) {
  Settings settings;
  SetLanguage(settings, "NOR");
  SetLanguage(settings, "eng");
  EXPECT_EQ(settings.Language, "NOR");
  EXPECT_EQ(settings.language_tables->navigation[kNextPage], "Neste");
}

TEST(Language, ThatIsUnknownIsIgnoredWithoutAMessage) {
  for (const char* code : {"", "eng", "FRA", "ENG ", "Nor"}) {
    Settings settings;
    SetLanguageString(settings, Twelve("Leaf"));
    SetLanguage(settings, code);
    EXPECT_EQ(settings.language_tables->navigation[kPage], "Leaf") << code;
    EXPECT_EQ(settings.Language, "ENG") << code;
    EXPECT_EQ(settings.ErrorMessage, "") << code;
  }
}

TEST(Language, SetAfterACustomListOverwritesIt) {
  Settings settings;
  SetLanguageString(settings, Twelve("Leaf"));
  SetLanguage(settings, "ENG");
  EXPECT_EQ(settings.language_tables->navigation[kPage], "Page");
}

TEST(Language, OverwritesAllThreeCustomListsAtOnce) {
  Settings settings;
  SetLanguageString(settings, Twelve("Leaf"));
  SetLanguageBtnString(settings, "Change,Store,Back,New,Drop");
  SetLangUpdString(settings, "new,saved,gone");
  SetLanguage(settings, "NOR");
  EXPECT_EQ(settings.language_tables->navigation, BuiltInTables("NOR")->navigation);
  EXPECT_EQ(settings.language_tables->buttons, BuiltInTables("NOR")->buttons);
  EXPECT_EQ(settings.language_tables->updates, BuiltInTables("NOR")->updates);
}

TEST(CustomLists, OfOneViewLeaveTheOthersAlone) {
  Settings settings;
  SetLanguageString(settings, Twelve("Leaf"));
  SetLanguageBtnString(settings, "Change,Store,Back,New,Drop");
  SetLangUpdString(settings, "new,saved,gone");
  EXPECT_EQ(BuiltInTables("ENG")->navigation[kPage], "Page");
  EXPECT_EQ(Settings().language_tables->buttons[kEdit], "Edit");
  EXPECT_EQ(Settings().language_tables->Update(kInserted), "[New record saved ok]");
}

TEST(Language, SetBeforeACustomListIsKeptForTheOtherTables) {
  Settings settings;
  SetLanguage(settings, "NOR");
  SetLanguageString(settings, Twelve("Leaf"));
  EXPECT_EQ(settings.language_tables->navigation[kPage], "Leaf");
  EXPECT_EQ(settings.language_tables->buttons[kSave], "Lagre");
}

TEST(LanguageString, WithElevenItemsIsRefusedWithTheNumberTen) {
  Settings settings;
  SetLanguageString(settings, "a,b,c,d,e,f,g,h,i,j,k");
  EXPECT_EQ(settings.ErrorMessage,
            "Wrong number of strings set in the LanguageString. 10 was given. The correct number of strings "
            "separated "
            "by comma is 12!<br>");
  EXPECT_EQ(settings.language_tables->navigation[kNextRecord], "Next");
}

TEST(LanguageString, ThatIsEmptyIsRefusedWithTheNumberZero) {
  Settings settings;
  SetLanguageString(settings, "");
  EXPECT_EQ(settings.ErrorMessage,
            "Wrong number of strings set in the LanguageString. 0 was given. The correct number of strings "
            "separated "
            "by comma is 12!<br>");
  EXPECT_EQ(settings.language_tables, BuiltInTables("ENG"));
}

TEST(LanguageString, OfMoreThanTwelveItemsKeepsThemAll) {
  Settings settings;
  SetLanguageString(settings, Twelve("l,m,n"));
  EXPECT_EQ(settings.ErrorMessage, "");
  EXPECT_EQ(settings.language_tables->navigation.size(), 14U);
  EXPECT_EQ(settings.language_tables->navigation[kPage], "l");
}

TEST(LanguageString, KeepsBlanksAndEmptyItems) {
  Settings settings;
  SetLanguageString(settings, " a,,c,d,e,f,g,h,i,j,k,l");
  EXPECT_EQ(settings.language_tables->navigation[0], " a");
  EXPECT_EQ(settings.language_tables->navigation[1], "");
}

TEST(LanguageBtnString, WithSixItemsIsAccepted) {
  Settings settings;
  SetLanguageBtnString(settings, "Change,Store,Back,New,Drop,Extra");
  EXPECT_EQ(settings.ErrorMessage, "");
  EXPECT_EQ(settings.language_tables->buttons[kDelete], "Drop");
}

TEST(LanguageBtnString, WithFourItemsIsRefusedWithTheNumberThree) {
  Settings settings;
  SetLanguageBtnString(settings, "a,b,c,d");
  EXPECT_EQ(
      settings.ErrorMessage,
      "Wrong number of strings set in the LanguageBtnString. 3 was given. The correct number of strings "
      "separated by comma is 5!<br>");
}

TEST(LangUpdString, WithTwoItemsIsRefusedUnderItsOtherName) {
  Settings settings;
  SetLangUpdString(settings, "a,b");
  EXPECT_EQ(
      settings.ErrorMessage,
      "Wrong number of strings set in the LanguageUpdString. 1 was given. The correct number of strings "
      "separated by comma is 3!<br>");
}

TEST(LangUpdString, WithFourItemsReplacesAllMessages) {
  Settings settings;
  SetLangUpdString(settings, "a,b,c,d");
  EXPECT_EQ(settings.ErrorMessage, "");
  EXPECT_EQ(settings.language_tables->Update(kNotSaved), "d");
}

TEST(LangUpdString, WithThreeItemsHasAnEmptyFourth) {
  Settings settings;
  SetLangUpdString(settings, "a,b,c");
  EXPECT_EQ(settings.ErrorMessage, "");
  EXPECT_EQ(settings.language_tables->Update(kDeleted), "c");
  EXPECT_EQ(settings.language_tables->Update(kNotSaved), "");
}

TEST(RefusedLists, AreReportedOneBehindTheOther) {
  Settings settings;
  SetLangUpdString(settings, "a");
  SetLanguageBtnString(settings, "a");
  EXPECT_NE(settings.ErrorMessage.find("3!<br>Wrong number"), std::string::npos);
}

}  // namespace
}  // namespace dralo::settings
