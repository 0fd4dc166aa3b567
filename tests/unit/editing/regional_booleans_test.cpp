#include <gtest/gtest.h>

#include <string>

#include "component/db_connection.h"
#include "component/db_view.h"
#include "dralo/page.h"
#include "editing/primary_keys.h"
#include "support/contains.h"
#include "unit/editing/edited_view.h"

/// Booleans are shown in the regional language; what is posted and stored knows nothing of it.
namespace dralo::tests {
namespace {

constexpr char kTruths[] =
    "CREATE TABLE T(ID INTEGER PRIMARY KEY, Name VARCHAR(20) NOT NULL, Active BOOLEAN NOT NULL);"
    "INSERT INTO T VALUES(1,'Ada',1),(2,'Bo',0);"
    "CREATE TABLE Changes(N); CREATE TRIGGER Noted AFTER UPDATE ON T BEGIN INSERT INTO Changes VALUES(1); "
    "END;"
    "CREATE TABLE Choices(V BOOLEAN, Name BOOLEAN); INSERT INTO Choices VALUES(1,1),(0,0)";

/// A German page with the records of a table of booleans.
struct GermanPage {
  host::Environment environment{"de-DE"};
  TemporaryDatabase database{kTruths};

  std::string Body(std::string_view query, std::string_view form, auto&& configure) {
    dralo::Page page("/p", query, form);
    component::DbView view(environment);
    view.OnStartPage(page);
    view.Set("ConnectionString", database.ConnectionString());
    view.Set("sql", std::string("SELECT * FROM T"));
    view.Set("EditOptions", std::string("ALL"));
    view.Set("EditPrimaryKeys", std::string("ID"));
    configure(view);
    view.WriteHtmlTable();
    EXPECT_EQ(view.GetSettings().ErrorMessage, "");
    view.OnEndPage();
    return page.Body();
  }
  std::string Body(std::string_view query, std::string_view form = "") {
    return Body(query, form, [](component::DbView&) {});
  }
};

TEST(RegionalBooleans, AreShownInTheLanguage) {
  GermanPage page;
  const std::string body = page.Body("");
  EXPECT_TRUE(Contains(body, ">Wahr</td>"));
  EXPECT_TRUE(Contains(body, ">Falsch</td>"));
  EXPECT_FALSE(Contains(body, "True"));
}

TEST(RegionalBooleans, HaveTheirTextInTheFormsWhateverTheLanguage) {
  GermanPage page;
  const auto read_only = [](component::DbView& view) {
    view.Set("EditFieldsReadOnly", std::string("Active"));
  };
  const std::string body =
      page.Body("Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1FormEdit=1", "", read_only);
  EXPECT_TRUE(Contains(body, R"(name="Morvu1_Form_Active" checked >)"));
  EXPECT_TRUE(Contains(body, R"(<input type="hidden" name="Morvu1_Form_Active" value="True">)"));
  const std::string failed =
      page.Body("Morvu1FormDisplay=formOneRec",
                "Morvu1FormUpdate=Save&Morvu1PK=1&Morvu1_Form_ID=1&Morvu1_Form_Name=&Morvu1_Form_Active=True",
                read_only);
  EXPECT_TRUE(Contains(failed, R"(name="Morvu1_Form_Active" checked >)"));
}

TEST(RegionalBooleans, ThatAreUntouchedAreNotWritten) {
  GermanPage page;
  page.Body("",
            "Morvu1FormUpdate=Save&Morvu1PK=1&Morvu1_Form_ID=1&Morvu1_Form_Name=Ada&Morvu1_Form_Active=on");
  page.Body("", "Morvu1FormUpdate=Save&Morvu1PK=2&Morvu1_Form_ID=2&Morvu1_Form_Name=Bo");
  EXPECT_EQ(page.database.Value("SELECT count(*) FROM Changes"), "0");
  page.Body("", "Morvu1FormUpdate=Save&Morvu1PK=1&Morvu1_Form_ID=1&Morvu1_Form_Name=Ada");
  EXPECT_EQ(page.database.Value("SELECT Active FROM T WHERE ID=1"), "0");
}

TEST(RegionalBooleans, AreOfferedAndChosenInListsByTheirText) {
  GermanPage page;
  const std::string body = page.Body(
      "Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1FormEdit=1", "",
      [](component::DbView& view) { view.AddEditLookup("Active", "Choices", "V", "Name", "", false); });
  EXPECT_TRUE(
      Contains(body, "<option  selected  value=\"True\">Wahr\r\n<option  value=\"False\">Falsch\r\n"));
}

TEST(RegionalBooleans, AreKeysWhateverTheLanguage) {
  host::Environment german("de-DE");
  EditedView view(kTruths, german);
  const auto key = [&](std::string_view statement) {
    return view.Rendered([&](state::Render& render) { return editing::GetNewPKValue(render, statement); });
  };
  EXPECT_EQ(key("SELECT Active FROM T WHERE ID=1"), "True");
  EXPECT_EQ(key("SELECT Active FROM T WHERE ID=2"), "False");
  EXPECT_EQ(key("SELECT 1.5"), "1,5");
}

}  // namespace
}  // namespace dralo::tests
