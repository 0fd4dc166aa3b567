#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/contains.h"
#include "support/view_page.h"

namespace dralo::driver {
namespace {

using Values = std::vector<platform::Variant>;

constexpr char kGoods[] =
    "CREATE TABLE Goods(ID INTEGER PRIMARY KEY, Name VARCHAR(20), Shelf VARCHAR(20), Price INTEGER);"
    "INSERT INTO Goods VALUES(1,'Anvil','it''s',5),(2,'Bell','it''s',3),(3,'Cup','other',1),"
    "(4,'Drum','it''s',9)";
constexpr char kOfShelf[] = "SELECT ID, Name, Shelf FROM Goods WHERE Shelf = ? AND Price < ?";

struct SqlParameters : testing::Test, tests::ViewPage {
  SqlParameters() : ViewPage(kGoods) {
    Set({{"sql", kOfShelf}, {"EditPrimaryKeys", "ID"}, {"OrderByFields", "1"}});
    Give("SqlParameters", {std::string("it's"), std::int64_t{6}});
  }

  void Give(std::string_view property, Values values) { view.Set(property, std::move(values)); }

  std::string Shown() {
    const std::string body = Render();
    EXPECT_EQ(ErrorMessage(), "");
    return body;
  }
};

TEST_F(SqlParameters, AreBoundInTheGridAndItsCount) {
  const std::string body = Shown();
  EXPECT_TRUE(tests::Contains(body, ">Anvil<") && tests::Contains(body, ">Bell<")) << body;
  EXPECT_FALSE(tests::Contains(body, ">Cup<") || tests::Contains(body, ">Drum<")) << body;
  EXPECT_TRUE(tests::Contains(body, "Records (1..2) of 2")) << body;
  EXPECT_TRUE(tests::Contains(body, "Morvu1OrderByFields=2")) << "no sort links: " << body;
}

TEST_F(SqlParameters, AreBoundOnTheLastPageAndBehindItsEnd) {
  Set("RecordsPerPage", 1);
  Set("DisplayType", "grid");
  Post("LAST.x", "1");
  EXPECT_TRUE(tests::Contains(Shown(), ">Bell<"));
  page.form.clear();
  Ask("CurrRecord", "9");
  EXPECT_TRUE(tests::Contains(Shown(), ">Bell<"));
}

TEST_F(SqlParameters, AreBoundInTheSpreadsheet) {
  Post("ToExcel.x", "1");
  Render();
  EXPECT_TRUE(tests::Contains(page.body, "Anvil") && !tests::Contains(page.body, "Cup")) << page.body;
}

TEST_F(SqlParameters, AreBoundWhereTheStatementShowsOneRecord) {
  Set("EditOptions", "UPDATE");
  Ask({{"FormDisplay", "formOneRec"}, {"PK", "2"}});
  EXPECT_TRUE(tests::Contains(Shown(), "Bell"));
  Ask("FormEdit", "1");
  EXPECT_TRUE(tests::Contains(Shown(), "value=\"Bell\""));
}

TEST_F(SqlParameters, AreBoundInTheStatementsOfForms) {
  Set({{"FormSQL", "SELECT ID, Name || ? AS N FROM Goods WHERE Price < ?"},
       {"EditSQL", "SELECT ID, Name, ? AS Hint FROM Goods WHERE Price < ?"},
       {"EditOptions", "UPDATE"}});
  Give("FormSqlParameters", {std::string("!"), std::int64_t{100}});
  Give("EditSqlParameters", {std::string("typed"), std::int64_t{100}});
  Ask({{"FormDisplay", "formOneRec"}, {"PK", "4"}});
  EXPECT_TRUE(tests::Contains(Shown(), "Drum!"));
  Ask("FormEdit", "1");
  const std::string form = Shown();
  EXPECT_TRUE(tests::Contains(form, "value=\"Drum\"") && tests::Contains(form, "value=\"typed\"")) << form;
}

TEST_F(SqlParameters, AreBoundWhereARecordIsSaved) {
  Set({{"EditSQL", "SELECT ID, Name, ? AS Hint FROM Goods WHERE Price < ?"}, {"EditOptions", "UPDATE"}});
  Give("EditSqlParameters", {std::string("typed"), std::int64_t{100}});
  Post({{"FormUpdate", "Save"}, {"_Form_ID", "2"}, {"_Form_Name", "Big bell"}, {"_Form_Hint", "typed"}});
  Shown();
  EXPECT_EQ(database.Value("SELECT Name FROM Goods WHERE ID = 2"), "Big bell");
}

TEST_F(SqlParameters, AreBoundWhereARecordIsDeleted) {
  Set({{"DeleteSQL", "UPDATE Goods SET Name = ?"}, {"EditOptions", "ALL"}});
  Give("DeleteSqlParameters", {std::string("gone?")});
  Post({{"FormDelete", "Delete"}, {"_Form_ID", "2"}});
  Shown();
  EXPECT_EQ(database.Value("SELECT Name FROM Goods WHERE ID = 2"), "gone?");
  EXPECT_EQ(database.Value("SELECT COUNT(*) FROM Goods WHERE Name = 'gone?'"), "1");
}

TEST_F(SqlParameters, AreBoundInAStatementThatIsRunAsACommand) {
  Set("sql", "WITH g AS (SELECT * FROM Goods WHERE Shelf = ?) SELECT Name FROM g");
  Set("EditPrimaryKeys", "");
  Give("SqlParameters", {std::string("other")});
  const std::string body = Shown();
  EXPECT_TRUE(tests::Contains(body, ">Cup<") && !tests::Contains(body, ">Bell<")) << body;
}

TEST_F(SqlParameters, OfAWrongNumberAreOneMessage) {
  for (const bool is_counted : {true, false}) {
    SCOPED_TRACE(is_counted);
    Set("CountRecords", is_counted);
    Give("SqlParameters", {std::string("it's")});
    const std::string before = ErrorMessage();
    Render();
    EXPECT_EQ(ErrorMessage().substr(before.size()),
              "The statement expects 2 parameter values, but 1 was given in WriteHTMLTable.<br>");
  }
}

}  // namespace
}  // namespace dralo::driver
