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

constexpr char kUnchanged[] = "Ada Oslo,Bo Bergen,Cy Moss,Di Narvik";
constexpr char kCustomersByCommand[] = "WITH c AS (SELECT * FROM Customers) SELECT ID, Name FROM c";
constexpr char kSecrets[] = "SELECT ID, Secret FROM Customers";

tests::Asked Record(const char* id, const char* name, const char* city, tests::Asked more) {
  more.insert(more.end(), {{"_Form_ID", id}, {"_Form_Name", name}, {"_Form_City", city}});
  return more;
}

/// What the Save button posts for a record with these values, with some more.
tests::Asked Saved(const char* id, const char* name, const char* city, tests::Asked more) {
  more.emplace_back("FormUpdate", "Save");
  return Record(id, name, city, std::move(more));
}

tests::Asked Deleted(const char* id, const char* name, const char* city, tests::Asked more) {
  more.insert(more.end(), {{"FormDelete", "Delete"}, {"PK", id}});
  return Record(id, name, city, std::move(more));
}

std::string HiddenKey(const std::string& value) {
  return "<input type=\"hidden\" name=\"Morvu1PK\" value=\"" + value + "\">\r\n";
}

struct Forms : testing::Test, tests::ViewPage {
  std::string body;

  Forms() : ViewPage(kCustomers) {
    Set("sql", "SELECT ID, Name, City FROM Customers");
    Set("EditOptions", "ADD UPDATE DELETE");
    Set("EditPrimaryKeys", "ID");
    Set("DeleteSQL", "DELETE FROM Customers");
    Ask("FormDisplay", "formOneRec");
  }

  void Show() { body = Render(); }
  bool Has(std::string_view text) const { return body.find(text) != body.npos; }
  std::string_view Mode() const { return view.CurrentMode(); }
  std::string Stored() const {
    return database.Value("SELECT group_concat(Name || ' ' || coalesce(City, 'NULL')) FROM Customers");
  }

  /// Whether the one-record view, or the edit form, shows that name and no other.
  bool ShowsName(const std::string& name) const {
    for (const char* other : {"Ada", "Bo", "Cy", "Di"}) {
      const bool is_shown =
          Has("<td>" + std::string(other) + "</td>") || Has("value=\"" + std::string(other) + "\"");
      if (is_shown != (name == other)) return false;
    }
    return true;
  }
};

struct Journey {
  const char* name;
  tests::Script script;
  tests::Asked asked;
  tests::Asked posted;
  const char* mode;
  const char* shown;  ///< The one name; empty for none.
  std::vector<std::string> parts = {};
  std::vector<std::string> missing = {};
  const char* stored = kUnchanged;
};

class FormsOfJourneys : public Forms, public testing::WithParamInterface<Journey> {};

TEST_P(FormsOfJourneys, ShowTheirRecordAndSaveNothingElse) {
  Set(GetParam().script);
  Ask(GetParam().asked);
  Post(GetParam().posted);
  Show();
  EXPECT_EQ(Mode(), GetParam().mode);
  EXPECT_TRUE(ShowsName(GetParam().shown)) << body;
  for (const std::string& part : GetParam().parts) EXPECT_TRUE(Has(part)) << part << " in " << body;
  for (const std::string& part : GetParam().missing) EXPECT_FALSE(Has(part)) << part << " in " << body;
  EXPECT_EQ(Stored(), GetParam().stored);
  EXPECT_EQ(ErrorMessage(), "");
}

// clang-format off
const Journey kJourneys[] = {
    {"OfALinkWithAKeyShowThatRecord", {}, {{"PK", "3"}}, {}, "formview", "Cy"},
    {"OfAKeyIgnoreTheOrder", {{"DisplayDebug", true}, {"OrderByFields", "Name"}}, {{"PK", "3"}}, {},
     "formview", "Cy", {"SELECT ID, Name, City FROM Customers WHERE (ID=3)</td>"}, {"ORDER BY"}},
    {"OfAKeyCountTheRecordsOfTheGrid", {}, {{"PK", "3"}, {"CurrRecord", "3"}}, {},
     "formview", "Cy", {"Record 3 of 4"}},
    {"OfAKeyShowTheFieldsOfTheFormsStatement", {{"FormSQL", kSecrets}}, {{"PK", "3"}}, {},
     "formview", "", {"<td>s3</td>"}},
    {"ReachedByTheNextButtonShowTheFieldsOfTheFormsStatementToo", {{"FormSQL", kSecrets}}, {},
     {{"CurrRecord", "2"}, {"NEXT.x", "7"}, {"PK", ""}}, "formview", "", {"<td>s3</td>"}},
    {"WithAStatementOfTheirOwnGoOnBeforeTheUncountedEnd", {{"FormSQL", kSecrets}, {"CountRecords", false}},
     {{"CurrRecord", "3"}}, {}, "formview", "", {"nextpg.gif"}},
    {"WithAStatementOfTheirOwnFindTheUncountedEnd", {{"FormSQL", kSecrets}, {"CountRecords", false}},
     {{"CurrRecord", "4"}}, {}, "formview", "", {"<td>s4</td>", "nextpgd.gif"}},
    {"ForEditingGoOnBeforeTheUncountedEnd", {{"CountRecords", false}, {"EditOptions", "UPDATE NOVIEW"}},
     {{"CurrRecord", "3"}}, {}, "formedit", "Cy", {"nextpg.gif"}},
    {"ForEditingFindTheUncountedEnd", {{"CountRecords", false}, {"EditOptions", "UPDATE NOVIEW"}},
     {{"CurrRecord", "4"}}, {}, "formedit", "Di", {"nextpgd.gif"}},
    {"WithoutKeysShowTheRecordByItsNumberInTheGridsFields", {{"EditPrimaryKeys", ""}, {"FormSQL", kSecrets}},
     {{"BookMark", "2"}}, {}, "formview", "Bo"},
    {"OfAKeyThatNoRecordHasOfferToAddOne", {}, {{"PK", "99"}}, {},
     "formview", "", {"name=\"Morvu1FormAdd\""}, {"name=\"Morvu1FormEdit\""}},
    {"OfACommandAreNotAddressedByKey",
     {{"FormSQL", ""}, {"EditSQL", ""}, {"sql", kCustomersByCommand}},
     {{"PK", "3"}}, {}, "formview", "Ada"},
    {"OfACommandAreAddressedByKeyInAStatementOfTheirOwn",
     {{"FormSQL", "SELECT ID, Name, City FROM Customers"}, {"EditSQL", ""}, {"sql", kCustomersByCommand}},
     {{"PK", "3"}}, {}, "formview", "Cy"},
    {"ForEditingCarryThePostedKey", {}, {}, {{"PK", "3"}, {"FormEdit", "Edit"}},
     "formedit", "Cy", {HiddenKey("3")}},
    {"ForEditingCarryTheKeyOfARecordReachedByItsNumber", {}, {}, {{"CurrRecord", "2"}, {"FormEdit", "Edit"}},
     "formedit", "Bo", {HiddenKey("2")}},
    {"ForAddingCarryNoKey", {}, {}, {{"FormAdd", "Add"}, {"PK", "3"}},
     "formadd", "", {}, {"name=\"Morvu1PK\""}},
    {"WithoutKeysCarryNone", {{"EditPrimaryKeys", ""}}, {}, {{"FormEdit", "Edit"}},
     "formedit", "Ada", {}, {"name=\"Morvu1PK\""}},
    {"ForAddingShowTheFieldsOfTheEditStatementEmpty", {{"EditSQL", "SELECT ID, Name, Secret FROM Customers"}},
     {}, {{"FormAdd", "Add"}, {"CurrRecord", "3"}},
     "formadd", "", {"name=\"Morvu1_Form_Secret\" value=\"\""}, {"Morvu1_Form_City"}},
    {"AfterASaveShowTheRecordAndTheMessage", {}, {},
     Saved("3", "Cyril", "Moss", {{"PK", "3"}, {"FormEdit", ""}}),
     "formview", "", {"<td>Cyril</td>", "&nbsp;[Record saved ok]</td></tr>"}, {},
     "Ada Oslo,Bo Bergen,Cyril Moss,Di Narvik"},
    {"AfterASaveWithoutScriptsStayWithTheRecord", {}, {},
     Saved("3", "Cyril", "Moss", {{"PK", "3"}, {"FormEdit", "1"}}),
     "formedit", "", {"value=\"Cyril\"", "&nbsp;[Record saved ok]"}, {},
     "Ada Oslo,Bo Bergen,Cyril Moss,Di Narvik"},
    {"AfterASaveThatTookTheRecordOutOfTheStatementShowTheOneOfItsNumber",
     {{"EditSQL", "SELECT ID, Name, City FROM Customers WHERE City<>'Hidden'"},
      {"FormSQL", "SELECT ID, Name, City FROM Customers WHERE City<>'Hidden'"}}, {},
     Saved("2", "Bo", "Hidden", {{"PK", "2"}, {"CurrRecord", "3"}, {"FormEdit", ""}}),
     "formview", "Cy", {"&nbsp;[Record saved ok]"}, {}, "Ada Oslo,Bo Hidden,Cy Moss,Di Narvik"},
    {"AfterAFailedSaveComeBackWithWhatWasTyped", {}, {},
     Saved("3", "", "Trondheim", {{"PK", "3"}, {"FormEdit", ""}}), "formedit", "",
     {"value=\"Trondheim\"", "Record WAS NOT SAVED. Fill out all required fields.", HiddenKey("3")}},
    {"AfterAFailedInsertComeBackForAnInsert", {}, {},
     Saved("9", "", "Trondheim", {{"FormInsert", "1"}, {"FormEdit", ""}}), "formadd", "",
     {"value=\"Trondheim\"", "name=\"Morvu1FormInsert\" value=\"1\""}, {"name=\"Morvu1FormDelete\""}},
    {"AfterAnInsertShowTheRecordOfTheNumberAndTheMessage", {}, {},
     Saved("9", "Ed", "Trondheim", {{"FormInsert", "1"}, {"FormEdit", ""}, {"CurrRecord", "2"}}),
     "formview", "Bo", {"&nbsp;[New record saved ok]"}, {},
     "Ada Oslo,Bo Bergen,Cy Moss,Di Narvik,Ed Trondheim"},
    {"AfterADeleteShowTheRecordThatTookItsPlace", {}, {},
     Deleted("2", "Bo", "Bergen", {{"FormEdit", ""}, {"CurrRecord", "2"}}),
     "formview", "Cy", {"&nbsp;[Record deleted]"}, {}, "Ada Oslo,Cy Moss,Di Narvik"},
    {"AfterADeleteOfTheLastRecordShowTheOneBeforeIt", {}, {},
     Deleted("4", "Di", "Narvik", {{"CurrRecord", "4"}}),
     "formview", "Cy", {"Record 3 of 3"}, {}, "Ada Oslo,Bo Bergen,Cy Moss"},
    {"AreLeftForTheViewByTheCloseButton", {}, {},
     {{"PK", "3"}, {"FormEdit", "1"}, {"FormView", "Close"}}, "formview", "Cy"},
    {"WithoutAViewGoOnToTheNextRecordInSpiteOfTheKey", {{"EditOptions", "UPDATE NOVIEW"}}, {},
     {{"PK", "2"}, {"CurrRecord", "2"}, {"NEXT.x", "3"}}, "formedit", "Cy", {HiddenKey("3")}},
    {"IgnorePostsWhenThePageSavesItself", {{"EditPerformUpdates", false}}, {},
     Saved("3", "Cyril", "Moss", {{"PK", "3"}, {"FormEdit", "1"}}), "formedit", "Cy", {"value=\"Cy\""}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Visits, FormsOfJourneys, testing::ValuesIn(kJourneys),
                         [](const auto& journey) { return std::string(journey.param.name); });

TEST_F(Forms, OfAKeyThatFailsShowTheRecordByItsNumber) {
  Set("EditPrimaryKeys", "ID,Name");
  Ask("PK", "3");
  Ask("CurrRecord", "2");
  Show();
  EXPECT_TRUE(ShowsName("Bo"));
  EXPECT_NE(ErrorMessage().find(" in GetSqlPK.<br>"), std::string::npos);
}

TEST_F(Forms, ForEditingCarryAKeyWithQuotesAndLettersAsItIs) {
  database.Run("INSERT INTO Customers VALUES(5,'O''Neil \"Ås\" &lt;, the 2nd','x','y')");
  Set("EditPrimaryKeys", "Name");
  Set("sql", "SELECT Name, City FROM Customers");
  Set("EditSQL", "SELECT Name, City FROM Customers");
  Post("PK", "O'Neil \"Ås\" &lt;, the 2nd");
  Post("FormEdit", "Edit");
  Show();
  EXPECT_TRUE(Has(HiddenKey("O'Neil &quot;Ås&quot; &amp;lt;, the 2nd")));
  EXPECT_TRUE(Has("value=\"O'Neil &quot;Ås&quot; &amp;lt;, the 2nd\""));
}

TEST_F(Forms, ForAddingHaveNoCurrentRecord) {
  Post("FormAdd", "Add");
  Show();
  EXPECT_EQ(view.CurrentRecord(2), platform::Variant(std::string()));
}

TEST_F(Forms, ForEditingAndViewingFillTheCurrentRecord) {
  Post("PK", "3");
  Show();
  EXPECT_EQ(view.CurrentRecord(2), platform::Variant(std::string("Cy")));
  Post("FormEdit", "Edit");
  Show();
  EXPECT_EQ(view.CurrentRecord(2), platform::Variant(std::string("Cy")));
}

TEST_F(Forms, AfterADeleteOfTheOnlyRecordSaySoAndOfferToAddOne) {
  database.Run("DELETE FROM Customers WHERE ID>1");
  Post(Deleted("1", "Ada", "Oslo", {}));
  Show();
  EXPECT_EQ(Stored(), "NULL");
  EXPECT_TRUE(Has("&nbsp;[Record deleted]"));
  EXPECT_TRUE(Has("name=\"Morvu1FormAdd\""));
  EXPECT_FALSE(Has("Morvu1FormEdit"));
  EXPECT_EQ(ErrorMessage(), "");
}

TEST_F(Forms, AfterAFailedDeleteComeBackWithTheRecord) {
  database.Run("CREATE TRIGGER t BEFORE DELETE ON Customers BEGIN SELECT RAISE(ABORT,'not this'); END");
  Post(Deleted("2", "Bo", "Bergen", {{"FormEdit", ""}}));
  Show();
  EXPECT_EQ(Mode(), "formedit");
  EXPECT_TRUE(ShowsName("Bo"));
  EXPECT_TRUE(Has("Delete failed: "));
  EXPECT_EQ(Stored(), kUnchanged);
}

TEST_F(Forms, OfASuppliedRecordsetLeaveItOpen) {
  const auto supplied = OpenRecordset("SELECT ID, Name FROM Customers ORDER BY ID DESC");
  Set("ADORecordset", supplied);
  Ask("PK", "2");
  Show();
  EXPECT_TRUE(ShowsName("Bo"));
  EXPECT_TRUE(supplied->IsOpen());

  page.query.back() = {"Morvu1FormAdd", "1"};
  Show();
  EXPECT_TRUE(Has("name=\"Morvu1_Form_Name\" value=\"\""));
  EXPECT_TRUE(supplied->IsOpen());
  EXPECT_EQ(ErrorMessage(), "");
}

TEST_F(Forms, OfAStatementThatCannotBeAddedToSayWhy) {
  Set("EditSQL", "SELECT count(*) AS N FROM Customers");
  Post("FormAdd", "Add");
  Show();
  EXPECT_NE(ErrorMessage().find(" in WriteHTMLTable.<br>"), std::string::npos);
}

TEST_F(Forms, OfAPressedExportButtonSaveNothing) {
  Post(Saved("3", "Cyril", "Moss", {{"ToExcel.x", "1"}}));
  Show();
  EXPECT_TRUE(body.starts_with("<table>"));
  EXPECT_EQ(Stored(), kUnchanged);
}

}  // namespace
}  // namespace dralo::driver
