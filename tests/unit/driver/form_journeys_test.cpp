#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/view_page.h"

/// What the forms show on the way through a visit: which record, from which statement, after which change.
namespace dralo::driver {
namespace {

constexpr char kCustomers[] =
    "CREATE TABLE Customers(ID INTEGER PRIMARY KEY, Name VARCHAR(40) NOT NULL, City VARCHAR(40), Secret "
    "VARCHAR(40));"
    "INSERT INTO Customers VALUES(1,'Ada','Oslo','s1'),(2,'Bo','Bergen','s2'),(3,'Cy','Moss','s3'),"
    "(4,'Di','Narvik','s4')";

struct Forms : ::testing::Test {
  tests::ViewPage shop{kCustomers};
  std::string body;

  Forms() {
    Set("sql", "SELECT ID, Name, City FROM Customers");
    Set("EditOptions", "ADD UPDATE DELETE");
    Set("EditPrimaryKeys", "ID");
    Set("DeleteSQL", "DELETE FROM Customers");
    Ask("FormDisplay", "formOneRec");
  }

  void Set(std::string_view name, const char* text) { shop.view.Set(name, std::string(text)); }
  void Set(std::string_view name, bool flag) { shop.view.Set(name, flag); }
  void Ask(const char* name, const char* value) { shop.Ask(name, value); }
  void Post(const std::string& name, const std::string& value) {
    shop.page.form.push_back({"Morvu1" + name, value});
  }
  void PostRecord(const char* id, const char* name, const char* city) {
    Post("_Form_ID", id);
    Post("_Form_Name", name);
    Post("_Form_City", city);
  }

  void Show() { body = shop.Render(); }
  bool Has(std::string_view text) const { return body.find(text) != body.npos; }
  std::string_view Mode() const { return shop.view.CurrentMode(); }
  std::string Count() const { return shop.database.Value("SELECT count(*) FROM Customers"); }

  /// Whether the one-record view, or the edit form, shows that name and no other.
  bool ShowsName(const std::string& name) const {
    for (const char* other : {"Ada", "Bo", "Cy", "Di"}) {
      const bool is_shown =
          Has("<td>" + std::string(other) + "</td>") || Has("value=\"" + std::string(other) + "\"");
      if (is_shown != (name == other)) return false;
    }
    return true;
  }

  bool HasHiddenKey(const std::string& value) const {
    return Has("<input type=\"hidden\" name=\"Morvu1PK\" value=\"" + value + "\">\r\n");
  }
};

TEST_F(Forms, OfALinkWithAKeyShowThatRecord) {
  Ask("PK", "3");
  Show();
  EXPECT_TRUE(ShowsName("Cy"));
  EXPECT_EQ(shop.ErrorMessage(), "");
}

TEST_F(Forms, OfAKeyIgnoreTheOrder) {
  Set("DisplayDebug", true);
  Set("OrderByFields", "Name");
  Ask("PK", "3");
  Show();
  EXPECT_TRUE(Has("SELECT ID, Name, City FROM Customers WHERE (ID=3)</td>"));
  EXPECT_FALSE(Has("ORDER BY"));
  EXPECT_TRUE(ShowsName("Cy"));
}

TEST_F(Forms, OfAKeyCountTheRecordsOfTheGrid) {
  Ask("PK", "3");
  Ask("CurrRecord", "3");
  Show();
  EXPECT_TRUE(Has("Record 3 of 4"));
}

TEST_F(Forms, OfAKeyShowTheFieldsOfTheFormsStatement) {
  Set("FormSQL", "SELECT ID, Secret FROM Customers");
  Ask("PK", "3");
  Show();
  EXPECT_TRUE(Has("<td>s3</td>"));
  EXPECT_FALSE(Has("<td>Cy</td>"));
}

TEST_F(Forms, ReachedByTheNextButtonShowTheFieldsOfTheFormsStatementToo) {
  Set("FormSQL", "SELECT ID, Secret FROM Customers");
  Post("CurrRecord", "2");
  Post("NEXT.x", "7");
  Post("PK", "");
  Show();
  EXPECT_TRUE(Has("<td>s3</td>"));
  EXPECT_FALSE(Has("<td>Cy</td>"));
  EXPECT_EQ(shop.ErrorMessage(), "");
}

TEST_F(Forms, WithAStatementOfTheirOwnFindTheUncountedEnd) {
  Set("FormSQL", "SELECT ID, Secret FROM Customers");
  Set("CountRecords", false);
  Ask("CurrRecord", "3");
  Show();
  EXPECT_TRUE(Has("nextpg.gif"));
  shop.page.query.back().value = "4";
  Show();
  EXPECT_TRUE(Has("<td>s4</td>"));
  EXPECT_TRUE(Has("nextpgd.gif"));
}

TEST_F(Forms, ForEditingFindTheUncountedEnd) {
  Set("CountRecords", false);
  Set("EditOptions", "UPDATE NOVIEW");
  Ask("CurrRecord", "3");
  Show();
  EXPECT_TRUE(Has("nextpg.gif"));
  shop.page.query.back().value = "4";
  Show();
  EXPECT_TRUE(ShowsName("Di"));
  EXPECT_TRUE(Has("nextpgd.gif"));
}

TEST_F(Forms, WithoutKeysShowTheRecordByItsNumberInTheGridsFields) {
  Set("EditPrimaryKeys", "");
  Set("FormSQL", "SELECT ID, Secret FROM Customers");
  Ask("BookMark", "2");
  Show();
  EXPECT_TRUE(Has("<td>Bo</td>"));
  EXPECT_EQ(shop.ErrorMessage(), "");
}

TEST_F(Forms, OfAKeyThatFailsShowTheRecordByItsNumber) {
  Set("EditPrimaryKeys", "ID,Name");
  Ask("PK", "3");
  Ask("CurrRecord", "2");
  Show();
  EXPECT_TRUE(ShowsName("Bo"));
  EXPECT_NE(shop.ErrorMessage().find(" in GetSqlPK.<br>"), std::string::npos);
}

TEST_F(Forms, OfAKeyThatNoRecordHasOfferToAddOne) {
  Ask("PK", "99");
  Show();
  EXPECT_TRUE(ShowsName(""));
  EXPECT_TRUE(Has("name=\"Morvu1FormAdd\""));
  EXPECT_FALSE(Has("name=\"Morvu1FormEdit\""));
  EXPECT_EQ(shop.ErrorMessage(), "");
}

TEST_F(Forms, ForEditingCarryThePostedKey) {
  Post("PK", "3");
  Post("FormEdit", "Edit");
  Show();
  EXPECT_EQ(Mode(), "formedit");
  EXPECT_TRUE(ShowsName("Cy"));
  EXPECT_TRUE(HasHiddenKey("3"));
}

TEST_F(Forms, ForEditingCarryTheKeyOfARecordReachedByItsNumber) {
  Post("CurrRecord", "2");
  Post("FormEdit", "Edit");
  Show();
  EXPECT_TRUE(ShowsName("Bo"));
  EXPECT_TRUE(HasHiddenKey("2"));
}

TEST_F(Forms, ForEditingCarryAKeyWithQuotesAndLettersAsItIs) {
  shop.database.Run("INSERT INTO Customers VALUES(5,'O''Neil \"Ås\" &lt;, the 2nd','x','y')");
  Set("EditPrimaryKeys", "Name");
  Set("sql", "SELECT Name, City FROM Customers");
  Set("EditSQL", "SELECT Name, City FROM Customers");
  Post("PK", "O'Neil \"Ås\" &lt;, the 2nd");
  Post("FormEdit", "Edit");
  Show();
  EXPECT_TRUE(HasHiddenKey("O'Neil &quot;Ås&quot; &amp;lt;, the 2nd"));
  EXPECT_TRUE(Has("value=\"O'Neil &quot;Ås&quot; &amp;lt;, the 2nd\""));
}

TEST_F(Forms, ForAddingCarryNoKey) {
  Post("FormAdd", "Add");
  Post("PK", "3");
  Show();
  EXPECT_EQ(Mode(), "formadd");
  EXPECT_FALSE(Has("name=\"Morvu1PK\""));
}

TEST_F(Forms, WithoutKeysCarryNone) {
  Set("EditPrimaryKeys", "");
  Post("FormEdit", "Edit");
  Show();
  EXPECT_EQ(Mode(), "formedit");
  EXPECT_FALSE(Has("name=\"Morvu1PK\""));
}

TEST_F(Forms, ForAddingShowTheFieldsOfTheEditStatementEmptyAndSaveNothing) {
  Set("EditSQL", "SELECT ID, Name, Secret FROM Customers");
  Post("FormAdd", "Add");
  Post("CurrRecord", "3");
  Show();
  EXPECT_TRUE(Has("name=\"Morvu1_Form_Secret\" value=\"\""));
  EXPECT_FALSE(Has("Morvu1_Form_City"));
  EXPECT_TRUE(ShowsName(""));
  EXPECT_EQ(Count(), "4");
  EXPECT_EQ(shop.ErrorMessage(), "");
}

TEST_F(Forms, ForAddingHaveNoCurrentRecord) {
  Post("FormAdd", "Add");
  Show();
  EXPECT_EQ(shop.view.CurrentRecord(2), platform::Variant(std::string()));
}

TEST_F(Forms, ForEditingAndViewingFillTheCurrentRecord) {
  Post("PK", "3");
  Show();
  EXPECT_EQ(shop.view.CurrentRecord(2), platform::Variant(std::string("Cy")));
  Post("FormEdit", "Edit");
  Show();
  EXPECT_EQ(shop.view.CurrentRecord(2), platform::Variant(std::string("Cy")));
}

TEST_F(Forms, AfterASaveShowTheRecordAndTheMessage) {
  Post("PK", "3");
  Post("FormUpdate", "Save");
  Post("FormEdit", "");
  PostRecord("3", "Cyril", "Moss");
  Show();
  EXPECT_EQ(Mode(), "formview");
  EXPECT_TRUE(Has("<td>Cyril</td>"));
  EXPECT_TRUE(Has("&nbsp;[Record saved ok]</td></tr>"));
  EXPECT_EQ(shop.database.Value("SELECT Name FROM Customers WHERE ID=3"), "Cyril");
}

TEST_F(Forms, AfterASaveWithoutScriptsStayWithTheRecord) {
  Post("PK", "3");
  Post("FormUpdate", "Save");
  Post("FormEdit", "1");
  PostRecord("3", "Cyril", "Moss");
  Show();
  EXPECT_EQ(Mode(), "formedit");
  EXPECT_TRUE(Has("value=\"Cyril\""));
  EXPECT_TRUE(Has("&nbsp;[Record saved ok]"));
}

TEST_F(Forms, AfterASaveThatTookTheRecordOutOfTheStatementShowTheOneOfItsNumber) {
  Set("EditSQL", "SELECT ID, Name, City FROM Customers WHERE City<>'Hidden'");
  Set("FormSQL", "SELECT ID, Name, City FROM Customers WHERE City<>'Hidden'");
  Post("PK", "2");
  Post("CurrRecord", "3");
  Post("FormUpdate", "Save");
  Post("FormEdit", "");
  PostRecord("2", "Bo", "Hidden");
  Show();
  EXPECT_TRUE(ShowsName("Cy"));
  EXPECT_TRUE(Has("&nbsp;[Record saved ok]"));
  EXPECT_EQ(shop.ErrorMessage(), "");
}

TEST_F(Forms, AfterAFailedSaveComeBackWithWhatWasTyped) {
  Post("PK", "3");
  Post("FormUpdate", "Save");
  Post("FormEdit", "");
  PostRecord("3", "", "Trondheim");
  Show();
  EXPECT_EQ(Mode(), "formedit");
  EXPECT_TRUE(Has("value=\"Trondheim\""));
  EXPECT_TRUE(Has("Record WAS NOT SAVED. Fill out all required fields."));
  EXPECT_TRUE(HasHiddenKey("3"));
  EXPECT_EQ(shop.database.Value("SELECT City FROM Customers WHERE ID=3"), "Moss");
}

TEST_F(Forms, AfterAFailedInsertComeBackForAnInsert) {
  Post("FormInsert", "1");
  Post("FormUpdate", "Save");
  Post("FormEdit", "");
  PostRecord("9", "", "Trondheim");
  Show();
  EXPECT_EQ(Mode(), "formadd");
  EXPECT_TRUE(Has("value=\"Trondheim\""));
  EXPECT_TRUE(Has("name=\"Morvu1FormInsert\" value=\"1\""));
  EXPECT_FALSE(Has("name=\"Morvu1FormDelete\""));
  EXPECT_EQ(Count(), "4");
}

TEST_F(Forms, AfterAnInsertShowTheRecordOfTheNumberAndTheMessage) {
  Post("FormInsert", "1");
  Post("FormUpdate", "Save");
  Post("FormEdit", "");
  Post("CurrRecord", "2");
  PostRecord("9", "Ed", "Trondheim");
  Show();
  EXPECT_EQ(Mode(), "formview");
  EXPECT_TRUE(ShowsName("Bo"));
  EXPECT_TRUE(Has("&nbsp;[New record saved ok]"));
  EXPECT_EQ(Count(), "5");
}

TEST_F(Forms, AfterADeleteShowTheRecordThatTookItsPlace) {
  Post("FormDelete", "Delete");
  Post("FormEdit", "");
  Post("PK", "2");
  Post("CurrRecord", "2");
  PostRecord("2", "Bo", "Bergen");
  Show();
  EXPECT_EQ(Mode(), "formview");
  EXPECT_TRUE(ShowsName("Cy"));
  EXPECT_TRUE(Has("&nbsp;[Record deleted]"));
  EXPECT_EQ(Count(), "3");
}

TEST_F(Forms, AfterADeleteOfTheLastRecordShowTheOneBeforeIt) {
  Post("FormDelete", "Delete");
  Post("PK", "4");
  Post("CurrRecord", "4");
  PostRecord("4", "Di", "Narvik");
  Show();
  EXPECT_TRUE(ShowsName("Cy"));
  EXPECT_TRUE(Has("Record 3 of 3"));
}

TEST_F(Forms, AfterADeleteOfTheOnlyRecordSaySoAndOfferToAddOne) {
  shop.database.Run("DELETE FROM Customers WHERE ID>1");
  Post("FormDelete", "Delete");
  Post("PK", "1");
  PostRecord("1", "Ada", "Oslo");
  Show();
  EXPECT_EQ(Count(), "0");
  EXPECT_TRUE(Has("&nbsp;[Record deleted]"));
  EXPECT_TRUE(Has("name=\"Morvu1FormAdd\""));
  EXPECT_EQ(shop.ErrorMessage(), "");
}

TEST_F(Forms, AfterAFailedDeleteComeBackWithTheRecord) {
  shop.database.Run("CREATE TRIGGER t BEFORE DELETE ON Customers BEGIN SELECT RAISE(ABORT,'not this'); END");
  Post("FormDelete", "Delete");
  Post("FormEdit", "");
  Post("PK", "2");
  PostRecord("2", "Bo", "Bergen");
  Show();
  EXPECT_EQ(Mode(), "formedit");
  EXPECT_TRUE(ShowsName("Bo"));
  EXPECT_TRUE(Has("Delete failed: "));
  EXPECT_EQ(Count(), "4");
}

TEST_F(Forms, AreLeftForTheViewByTheCloseButton) {
  Post("PK", "3");
  Post("FormEdit", "1");
  Post("FormView", "Close");
  Show();
  EXPECT_EQ(Mode(), "formview");
  EXPECT_TRUE(ShowsName("Cy"));
}

TEST_F(Forms, WithoutAViewGoOnToTheNextRecordInSpiteOfTheKey) {
  Set("EditOptions", "UPDATE NOVIEW");
  Post("PK", "2");
  Post("CurrRecord", "2");
  Post("NEXT.x", "3");
  Show();
  EXPECT_EQ(Mode(), "formedit");
  EXPECT_TRUE(ShowsName("Cy"));
  EXPECT_TRUE(HasHiddenKey("3"));
}

TEST_F(Forms, IgnorePostsWhenThePageSavesItself) {
  Set("EditPerformUpdates", false);
  Post("PK", "3");
  Post("FormUpdate", "Save");
  Post("FormEdit", "1");
  PostRecord("3", "Cyril", "Moss");
  Show();
  EXPECT_EQ(Mode(), "formedit");
  EXPECT_TRUE(Has("value=\"Cy\""));
  EXPECT_EQ(shop.database.Value("SELECT Name FROM Customers WHERE ID=3"), "Cy");
}

TEST_F(Forms, OfASuppliedRecordsetLeaveItOpen) {
  auto connection = platform::Create<platform::Connection>(tests::TestEnvironment(), "ADODB.Connection");
  connection->Open(shop.database.ConnectionString());
  auto supplied = platform::Create<platform::Recordset>(tests::TestEnvironment(), "ADODB.Recordset");
  supplied->Open("SELECT ID, Name FROM Customers ORDER BY ID DESC", connection);
  shop.view.Set("ADORecordset", platform::ObjectPtr(supplied));
  Ask("PK", "2");
  Show();
  EXPECT_TRUE(ShowsName("Bo"));
  EXPECT_TRUE(supplied->IsOpen());

  shop.page.query.back() = {"Morvu1FormAdd", "1"};
  Show();
  EXPECT_TRUE(Has("name=\"Morvu1_Form_Name\" value=\"\""));
  EXPECT_TRUE(supplied->IsOpen());
  EXPECT_EQ(shop.ErrorMessage(), "");
}

TEST_F(Forms, OfACommandAreAddressedByKeyOnlyInAStatementOfTheirOwn) {
  Set("FormSQL", "");
  Set("EditSQL", "");
  Set("sql", "WITH c AS (SELECT * FROM Customers) SELECT ID, Name FROM c");
  Ask("PK", "3");
  Show();
  EXPECT_TRUE(ShowsName("Ada"));
  EXPECT_EQ(shop.ErrorMessage(), "");

  Set("FormSQL", "SELECT ID, Name, City FROM Customers");
  Show();
  EXPECT_TRUE(ShowsName("Cy"));
  EXPECT_EQ(shop.ErrorMessage(), "");
}

TEST_F(Forms, OfAStatementThatCannotBeAddedToSayWhy) {
  Set("EditSQL", "SELECT count(*) AS N FROM Customers");
  Post("FormAdd", "Add");
  Show();
  EXPECT_NE(shop.ErrorMessage().find(" in WriteHTMLTable.<br>"), std::string::npos);
}

TEST_F(Forms, OfAPressedExportButtonSaveNothing) {
  Post("ToExcel.x", "1");
  Post("FormUpdate", "Save");
  PostRecord("3", "Cyril", "Moss");
  Show();
  EXPECT_TRUE(body.starts_with("<table>"));
  EXPECT_EQ(shop.database.Value("SELECT Name FROM Customers WHERE ID=3"), "Cy");
}

}  // namespace
}  // namespace dralo::driver
