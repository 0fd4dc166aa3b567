#include <gtest/gtest.h>

#include <memory>

#include "component/db_connection.h"
#include "dralo/page.h"
#include "support/contains.h"
#include "support/view_page.h"

namespace dralo::driver {
namespace {

constexpr char kTable[] =
    "CREATE TABLE T(ID INTEGER PRIMARY KEY, Name VARCHAR(40) NOT NULL, City VARCHAR(40));"
    "INSERT INTO T VALUES(1,'Ada','Oslo'),(2,'Bo','Bergen'),(3,'Cy','Moss')";
constexpr char kInsert[] = "Morvu1FormInsert=1&Morvu1FormUpdate=Save&Morvu1_Form_Name=";
constexpr char kDelete[] = "Morvu1FormDelete=Delete&Morvu1_Form_ID=2&Morvu1PK=2";

/// Pages whose scripts make views of one table.
struct Pages : ::testing::Test {
  tests::TemporaryDatabase database{kTable};
  std::shared_ptr<component::DBConnection> connection =
      std::make_shared<component::DBConnection>(tests::TestEnvironment());

  Pages() { connection->Connection()->Open(database.ConnectionString()); }

  static void Set(component::DbView& view, std::string_view name, const char* text) {
    view.Set(name, std::string(text));
  }

  std::unique_ptr<component::DbView> View(dralo::Page& page, const char* tag = "1") const {
    auto view = std::make_unique<component::DbView>(tests::TestEnvironment());
    view->OnStartPage(page);
    view->Set("DrConnection", platform::ObjectPtr(connection));
    Set(*view, "Tag", tag);
    Set(*view, "sql", "SELECT * FROM T");
    Set(*view, "EditOptions", "ALL");
    Set(*view, "EditPrimaryKeys", "ID");
    Set(*view, "EditNewPKStatement", "autoincrement");
    Set(*view, "DeleteSQL", "DELETE FROM T");
    Set(*view, "DisplayType", "form");
    return view;
  }

  /// What a further rendering writes.
  static std::string Written(dralo::Page& page, component::DbView& view) {
    const std::size_t before = page.Body().size();
    view.WriteHtmlTable();
    return page.Body().substr(before);
  }

  static const std::string& ErrorMessage(const component::DbView& view) {
    return view.GetSettings().ErrorMessage;
  }
  std::string Names() const { return database.Value("SELECT group_concat(Name) FROM T"); }
};

using OnePostedChange = Pages;

TEST_F(OnePostedChange, IsCarriedOutOnceByAViewThatIsWrittenTwice) {
  dralo::Page page("/p", "", std::string(kInsert) + "Di");
  const auto view = View(page);
  const std::string first = Written(page, *view);
  const std::string second = Written(page, *view);
  EXPECT_EQ(Names(), "Ada,Bo,Cy,Di");
  EXPECT_EQ(second, first);
  EXPECT_EQ(ErrorMessage(*view), "");
}

TEST_F(OnePostedChange, IsCarriedOutOnceByTwoViewsOfOneTagWhichBothTellOfIt) {
  dralo::Page page("/p", "", std::string(kInsert) + "Di");
  const auto first = View(page);
  const auto second = View(page);
  const std::string html = Written(page, *first);
  EXPECT_NE(first->LatestOutcome().status_message, "");
  EXPECT_TRUE(tests::Contains(html, first->LatestOutcome().status_message));
  EXPECT_EQ(Written(page, *second), html);
  EXPECT_EQ(Names(), "Ada,Bo,Cy,Di");
}

TEST_F(OnePostedChange, ThatDeletesIsNoFailureInTheSecondWriting) {
  dralo::Page page("/p", "", kDelete);
  const auto first = View(page);
  const auto second = View(page);
  const std::string html = Written(page, *first);
  EXPECT_EQ(Written(page, *first), html);
  EXPECT_EQ(Written(page, *second), html);
  EXPECT_EQ(Names(), "Ada,Cy");
  EXPECT_EQ(ErrorMessage(*first) + ErrorMessage(*second), "");
}

TEST_F(OnePostedChange, ThatFailedComesBackAsTheFormEveryTime) {
  dralo::Page page("/p", "", "Morvu1_Form_City=Narvik&" + std::string(kInsert));
  const auto first = View(page);
  const std::string html = Written(page, *first);
  EXPECT_TRUE(tests::Contains(html, R"(value="Narvik")"));
  EXPECT_EQ(Written(page, *first), html);
  const auto second = View(page);
  EXPECT_EQ(Written(page, *second), html);
  EXPECT_EQ(second->CurrentMode(), "formadd");
  EXPECT_EQ(Names(), "Ada,Bo,Cy");
}

TEST_F(OnePostedChange, HasItsErrorsOnceInTheMessageOfEachView) {
  database.Run("CREATE TRIGGER Never BEFORE INSERT ON T BEGIN SELECT raise(ABORT, 'never'); END");
  dralo::Page page("/p", "", std::string(kInsert) + "Di");
  const auto first = View(page);
  first->WriteHtmlTable();
  EXPECT_EQ(ErrorMessage(*first), "Update failed: never<br>");
  first->WriteHtmlTable();
  EXPECT_EQ(ErrorMessage(*first), "Update failed: never<br>");
  const auto second = View(page);
  second->WriteHtmlTable();
  second->WriteHtmlTable();
  EXPECT_EQ(ErrorMessage(*second), "Update failed: never<br>");
}

TEST_F(OnePostedChange, OfEveryTagIsCarriedOut) {
  dralo::Page page("/p", "",
                   std::string(kInsert) + "Di&Morvu2FormInsert=1&Morvu2FormUpdate=Save&Morvu2_Form_Name=Ed");
  const auto first = View(page);
  const auto second = View(page, "2");
  first->WriteHtmlTable();
  second->WriteHtmlTable();
  first->WriteHtmlTable();
  EXPECT_EQ(Names(), "Ada,Bo,Cy,Di,Ed");
}

TEST_F(OnePostedChange, IsTheSameForTagsThatReadTheSameKeys) {
  dralo::Page page("/p", "", "MorvuaFormInsert=1&MorvuaFormUpdate=Save&Morvua_Form_Name=Di");
  View(page, "a")->WriteHtmlTable();
  View(page, "A")->WriteHtmlTable();
  EXPECT_EQ(Names(), "Ada,Bo,Cy,Di");
}

TEST_F(OnePostedChange, IsLeftToTheViewThatMayCarryItOut) {
  dralo::Page page("/p", "", std::string(kInsert) + "Di");
  const auto reader = View(page);
  Set(*reader, "EditOptions", "");
  const auto closed = View(page);
  closed->Set("EditPerformUpdates", false);
  reader->WriteHtmlTable();
  closed->WriteHtmlTable();
  EXPECT_EQ(Names(), "Ada,Bo,Cy");
  View(page)->WriteHtmlTable();
  EXPECT_EQ(Names(), "Ada,Bo,Cy,Di");
}

TEST_F(OnePostedChange, OfAnotherPageIsAnother) {
  for (const char* name : {"Di", "Ed"}) {
    dralo::Page page("/p", "", kInsert + std::string(name));
    View(page)->WriteHtmlTable();
  }
  EXPECT_EQ(Names(), "Ada,Bo,Cy,Di,Ed");
}

}  // namespace
}  // namespace dralo::driver
