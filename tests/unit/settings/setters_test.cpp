#include "settings/setters.h"

#include <gtest/gtest.h>

#include "component/db_connection.h"
#include "support/named_cases.h"
#include "support/view_page.h"

namespace dralo::settings {
namespace {

using tests::TestEnvironment;

struct Setters : ::testing::Test {
  Settings settings;
  void SetSqlTo(std::string value) { SetSql(settings, TestEnvironment(), std::move(value)); }
};

using Sql = Setters;

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

TEST_F(Sql, IsACommandUnlessItBeginsWithSelectAndABlank) {
  for (const char* command : {"EXEC Top10", "SELECT\n1", ""}) {
    SetSqlTo(command);
    EXPECT_TRUE(settings.has_stored_procedure) << command;
    EXPECT_EQ(settings.StoredProcCommand->command_text, command);
  }
  SetSqlTo("  select 1");
  EXPECT_FALSE(settings.has_stored_procedure);
}

using FormSql = Setters;

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

TEST_F(Setters, EditOptionsAreTrimmedAndWrittenInCapitals) {
  SetEditOptions(settings, " add update ");
  EXPECT_EQ(settings.EditOptions, "ADD UPDATE");
  SetEditOptions(settings, "all");
  EXPECT_EQ(settings.EditOptions, "ALL ADD UPDATE DELETE") << "with the words that it stands for";
}

struct WidthCase {
  std::string_view name, width, grid_tag, width_after;
};

class WidthOf : public testing::TestWithParam<WidthCase> {};

TEST_P(WidthOf, AGridTableTagBecomesTheViewsWhereThatHasNone) {
  Settings settings;
  SetWidth(settings, GetParam().width);
  SetGridTableTag(settings, std::string(GetParam().grid_tag));
  EXPECT_EQ(settings.Width, GetParam().width_after);
  EXPECT_EQ(settings.GridTableTag, GetParam().grid_tag);
}

constexpr WidthCase kWidths[] = {
    {"WithoutDoubleQuotesWhereThePageSetIt", "50%\"", "", "50%"},
    {"WithoutSingleQuotesWhereThePageSetIt", "'600'", "", "600"},
    {"WithoutQuotes", "", "Width='600' border=0", "600"},
    {"BehindLettersWhoseCapitalsTakeFewerBytes", "", "title='ıııııııııı' a=1 width=600", "600"},
    {"NeverWhereThePageSetIt", "50%", "width=600", "50%"},
    {"NeverWithTheWordWidthButNoValue", "", "width", ""},
};

INSTANTIATE_TEST_SUITE_P(Tags, WidthOf, testing::ValuesIn(kWidths), tests::kByName);

TEST_F(Setters, TableTagGetsCellSpacingInFrontWhenItHasNone) {
  SetTableTag(settings, R"(border="1")");
  EXPECT_EQ(settings.TableTag, R"(cellspacing="0" border="1")");
  SetTableTag(settings, R"(CellSpacing=4)");
  EXPECT_EQ(settings.TableTag, R"(CellSpacing=4)") << "one of its own";
}

TEST_F(Setters, TableTagGivesItsWidthToTheView) {
  SetTableTag(settings, R"(border="1" width = "80%" bgcolor="red")");
  EXPECT_EQ(settings.Width, "80%");
}

TEST(DisplayNavBar, AtTheTopWithALastPageButtonSwitchesCountingOn) {
  for (const char* placement : {"top", " Both ", "TOP"}) {
    Settings settings;
    settings.CountRecords = false;
    SetDisplayNavBar(settings, placement);
    EXPECT_TRUE(settings.CountRecords) << placement;
  }
}

TEST_F(Setters, DisplayNavBarAtTheBottomOrWithoutALastPageButtonLeavesCountingAsItIs) {
  settings.CountRecords = false;
  SetDisplayNavBar(settings, "bottom");
  EXPECT_FALSE(settings.CountRecords);
  SetDisplayNavBarFirstLastBtn(settings, false);
  SetDisplayNavBar(settings, "top");
  EXPECT_FALSE(settings.CountRecords);
}

TEST_F(Setters, DisplayNavBarFirstLastBtnSwitchesCountingOnAtEveryAssignment) {
  settings.CountRecords = false;
  SetDisplayNavBarFirstLastBtn(settings, true);
  EXPECT_TRUE(settings.CountRecords);
}

TEST_F(Setters, RecordsPerPageAtTheRecordLimitIsIgnored) {
  SetRecordsPerPage(settings, 1'000'000);
  EXPECT_EQ(settings.RecordsPerPage, 20);
  settings.RecordsMaxLimit = 50;
  SetRecordsPerPage(settings, 50);
  EXPECT_EQ(settings.RecordsPerPage, 20);
  SetRecordsPerPage(settings, 49);
  EXPECT_EQ(settings.RecordsPerPage, 49);
}

TEST_F(Setters, RecordsPerPageBeyondSixteenBitsIsIgnored) {
  SetRecordsPerPage(settings, 40'000);
  SetRecordsPerPage(settings, -40'000);
  EXPECT_EQ(settings.RecordsPerPage, 20);
}

TEST_F(Setters, AdoRecordsetIsShownInsteadOfAQueryAndNotCounted) {
  const auto recordset = platform::Create<platform::Recordset>(TestEnvironment(), "ADODB.Recordset");
  SetAdoRecordset(settings, recordset);
  EXPECT_TRUE(settings.has_supplied_recordset);
  EXPECT_FALSE(settings.CountRecords);
  SetAdoRecordset(settings, nullptr);
  EXPECT_FALSE(settings.has_supplied_recordset);
}

TEST_F(Setters, StoredProcCommandIsRunInsteadOfAQuery) {
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

TEST_F(Setters, ConnectionStringThatCannotBeOpenedRaises) {
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

}  // namespace
}  // namespace dralo::settings
