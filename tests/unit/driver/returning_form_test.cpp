#include <gtest/gtest.h>

#include <string>

#include "support/view_page.h"

/// Forms come back with what was typed, whatever became of the record or of the statement.
namespace dralo::driver {
namespace {

constexpr char kThreeCustomers[] =
    "CREATE TABLE Customers(ID INTEGER PRIMARY KEY, Name VARCHAR(40) NOT NULL, Secret VARCHAR(40));"
    "INSERT INTO Customers VALUES(1,'Ada','s1'),(2,'Bo','s2'),(3,'Cy','s3')";

struct ReturningForm : testing::Test, tests::ViewPage {
  std::string body;

  ReturningForm() : ViewPage(kThreeCustomers) {
    Set("sql", "SELECT ID, Name FROM Customers");
    Set("EditSQL", "SELECT ID, Name, Secret FROM Customers");
    Set("EditOptions", "ADD UPDATE");
    Set("EditPrimaryKeys", "ID");
    Ask("FormDisplay", "formOneRec");
  }

  void Save(const char* id, const char* name, const char* secret) {
    Post({{"FormUpdate", "Save"},
          {"FormEdit", ""},
          {"_Form_ID", id},
          {"_Form_Name", name},
          {"_Form_Secret", secret}});
    body = Render();
  }

  bool Has(std::string_view text) const { return body.find(text) != body.npos; }

  bool ShowsTyped(const std::string& id, const std::string& name, const std::string& secret) const {
    return Has("name=\"Morvu1_Form_ID\" value=\"" + id) && Has("name=\"Morvu1_Form_Name\" value=\"" + name) &&
           Has("name=\"Morvu1_Form_Secret\" value=\"" + secret) && Has("</form>");
  }
};

TEST_F(ReturningForm, ToAddIsShownWhereNothingCanBeAdded) {
  Set("EditSQL", "SELECT c.ID, c.Name, d.Secret FROM Customers c, Customers d WHERE c.ID = d.ID");
  Post("FormAdd", "Add");
  body = Render();
  EXPECT_TRUE(ShowsTyped("", "", "")) << body;
  EXPECT_NE(ErrorMessage().find(" in WriteHTMLTable.<br>"), std::string::npos) << ErrorMessage();

  page.form.clear();
  Post("FormInsert", "1");
  Save("9", "Ed", "mine");
  EXPECT_TRUE(ShowsTyped("9", "Ed", "mine")) << body;
  EXPECT_NE(ErrorMessage().find("Recordset does not support the AddNew method. "), std::string::npos);
}

TEST_F(ReturningForm, OfAKeyThatTheDatabaseRefusesHasWhatWasTyped) {
  Post("PK", "no number");
  Save("no number", "Ed", "mine");
  EXPECT_TRUE(ShowsTyped("no number", "Ed", "mine")) << body;
  EXPECT_TRUE(Has("name=\"Morvu1PK\" value=\"no number\"")) << body;
}

TEST_F(ReturningForm, OfARecordThatIsGoneWithAllOthersHasWhatWasTyped) {
  database.Run("DELETE FROM Customers");
  Post("PK", "2");
  Save("2", "Ed", "mine");
  EXPECT_TRUE(ShowsTyped("2", "Ed", "mine")) << body;
  EXPECT_TRUE(Has("name=\"Morvu1PK\" value=\"2\"")) << body;
}

TEST_F(ReturningForm, OfAPageWithoutKeysHasWhatWasTyped) {
  Set("EditPrimaryKeys", "");
  Save("2", "Ed", "mine");
  EXPECT_TRUE(ShowsTyped("2", "Ed", "mine")) << body;
  EXPECT_EQ(ErrorMessage(), "Dralo property EditPrimaryKeys must be set!<br>");
}

TEST_F(ReturningForm, OfTwoEqualRecordsSaysThatNoneWasChanged) {
  database.Run("CREATE TABLE Notes(ID INT, Name TEXT); INSERT INTO Notes VALUES(1,'a'),(1,'a')");
  Set("sql", "SELECT ID, Name FROM Notes");
  Set("EditSQL", "SELECT ID, Name FROM Notes");
  Post("PK", "1");
  Save("1", "b", "");
  EXPECT_TRUE(Has("<textarea") && Has(">b</textarea>") && Has("</form>")) << body;
  EXPECT_TRUE(ErrorMessage().starts_with("Update failed: Several records are equal")) << ErrorMessage();
  EXPECT_EQ(database.Value("SELECT group_concat(Name) FROM Notes"), "a,a");
}

TEST(EditFormByNumber, HasControlsForTheTypesOfItsOwnRecord) {
  tests::ViewPage shop("CREATE TABLE T(ID INTEGER PRIMARY KEY, V); INSERT INTO T VALUES(1,'text'),(2,5)");
  shop.Set("sql", "SELECT ID, V FROM T");
  shop.Set("EditOptions", "UPDATE NOVIEW");
  shop.Ask("FormDisplay", "formOneRec");
  shop.Ask("CurrRecord", "2");
  const std::string number = shop.Render();
  EXPECT_NE(number.find("size=20 type=\"text\" id=\"Morvu1_Form_V\""), number.npos) << number;
  shop.page.query.back().value = "1";
  const std::string text = shop.Render();
  EXPECT_NE(text.find("size=60 type=\"text\" id=\"Morvu1_Form_V\""), text.npos) << text;
}

}  // namespace
}  // namespace dralo::driver
