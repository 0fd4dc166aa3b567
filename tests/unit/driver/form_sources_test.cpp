#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/view_page.h"

/// Which record a form shows when the view pages through a command or a recordset of the page's own.
namespace dralo::driver {
namespace {

constexpr char kFewCustomers[] =
    "CREATE TABLE Customers(ID INTEGER PRIMARY KEY, Name VARCHAR(40) NOT NULL);"
    "INSERT INTO Customers VALUES(1,'Ada'),(2,'Bo'),(3,'Cy'),(4,'Di')";
constexpr char kEditSql[] = "SELECT ID, Name FROM Customers";

struct FormSources : testing::Test, tests::ViewPage {
  std::string body;

  FormSources() : ViewPage(kFewCustomers) {
    Set("EditSQL", kEditSql);
    Set("EditOptions", "UPDATE");
    Set("EditPrimaryKeys", "ID");
  }

  /// A recordset of all customers that the page opened.
  std::shared_ptr<platform::Recordset> Supply() {
    auto supplied = OpenRecordset("SELECT ID, Name FROM Customers ORDER BY ID");
    Set("ADORecordset", supplied);
    return supplied;
  }

  /// Opens the one-record view by the key and the number that a link of the grid carries.
  void Open(const char* key, const char* number, bool edit = false) {
    page.query.clear();
    Ask({{"FormDisplay", "formOneRec"}, {"PK", key}, {"CurrRecord", number}});
    if (edit) Ask("FormEdit", "1");
    body = Render();
  }

  bool Has(std::string_view text) const { return body.find(text) != body.npos; }
};

TEST_F(FormSources, OfCommandsAreViewedByTheNumber) {
  const std::pair<const char*, const char*> commands[] = {
      {"WITH c AS (SELECT * FROM Customers) SELECT ID, Name FROM c", "<td>Bo</td>"},
      {"VALUES(1,'Ada'),(2,'Bo'),(3,'Cy')", "<td>Bo</td>"},
      {"PRAGMA table_info(Customers)", "<td>Name</td>"}};
  for (const auto& [command, shown] : commands) {
    Set("FormSQL", "");
    Set("EditSQL", kEditSql);
    Set("sql", command);
    Open("4", "2");
    EXPECT_TRUE(Has(shown)) << command << body;
    EXPECT_TRUE(Has("</form>")) << command;
    EXPECT_EQ(ErrorMessage().find(" in GetSqlPK"), std::string::npos) << ErrorMessage();
    EXPECT_EQ(ErrorMessage().find(" in WriteHTMLTable"), std::string::npos) << ErrorMessage();
  }
}

TEST_F(FormSources, OfCommandsAreEditedByTheKey) {
  for (const char* command : {"WITH c AS (SELECT * FROM Customers) SELECT ID, Name FROM c",
                              "VALUES(1,'Ada'),(2,'Bo'),(3,'Cy')", "PRAGMA table_info(Customers)"}) {
    Set("FormSQL", "");
    Set("EditSQL", kEditSql);
    Set("sql", command);
    Open("4", "2", true);
    EXPECT_TRUE(Has("value=\"Di\"")) << command << body;
    EXPECT_EQ(ErrorMessage(), "") << command;
  }
}

TEST_F(FormSources, OfASuppliedRecordsetAreViewedByTheNumberAndEditedByTheKey) {
  Supply();
  Open("4", "2");
  EXPECT_TRUE(Has("<td>Bo</td>")) << body;
  EXPECT_EQ(ErrorMessage(), "");

  Supply();
  Open("4", "2", true);
  EXPECT_TRUE(Has("value=\"Di\"")) << body;
  EXPECT_EQ(ErrorMessage(), "");
}

TEST_F(FormSources, AreNotMovedWhenTheKeySaysWhatIsShown) {
  const auto supplied = Supply();
  Open("4", "3", true);
  EXPECT_EQ(platform::Own(supplied->Fields()[0]->Value()), platform::Variant(std::int64_t{1}));
  EXPECT_EQ(view.GetSettings().FromRow, 3);
}

TEST_F(FormSources, AreNotCutToTheCountWhenTheKeySaysWhatIsShown) {
  Set("sql", "WITH c AS (SELECT * FROM Customers) SELECT ID, Name FROM c");
  Open("4", "9", true);
  EXPECT_TRUE(Has("value=\"Di\"")) << body;
  EXPECT_TRUE(Has("name=\"Morvu1CurrRecord\" value=\"9\"")) << body;
}

}  // namespace
}  // namespace dralo::driver
