#include "state/current_mode.h"

#include <gtest/gtest.h>

#include "support/view_page.h"

namespace dralo::state {
namespace {

struct CurrentModeTest : ::testing::Test {
  tests::ViewPage shop{tests::ViewPage::ItemsTable(3)};
  CurrentModeTest() { shop.view.Set("sql", std::string("SELECT * FROM Items")); }

  void Set(std::string_view name, const char* text) { shop.view.Set(name, std::string(text)); }
  void Set(std::string_view name, std::int64_t number) { shop.view.Set(name, number); }
  std::string_view Mode() const { return shop.view.CurrentMode(); }
};

TEST_F(CurrentModeTest, IsGridByDefault) { EXPECT_EQ(Mode(), "grid"); }

TEST_F(CurrentModeTest, OfAViewWithoutAPageFollowsTheProperties) {
  component::DbView view(tests::TestEnvironment());
  EXPECT_EQ(view.CurrentMode(), "grid");
  view.Set("RecordsPerPage", std::int64_t{0});
  EXPECT_EQ(view.CurrentMode(), "grid");
  view.Set("RecordsPerPage", std::int64_t{1});
  EXPECT_EQ(view.CurrentMode(), "formview");
  view.Set("RecordsPerPage", std::int64_t{20});
  view.Set("DisplayType", std::string("form"));
  EXPECT_EQ(view.CurrentMode(), "formview");
}

TEST_F(CurrentModeTest, WithDefaultTypeAndOneRecordPerPageIsTheFormView) {
  Set("RecordsPerPage", 1);
  EXPECT_EQ(Mode(), "formview");
}

TEST_F(CurrentModeTest, WithGridTypeAndOneRecordPerPageIsAOneRowGrid) {
  Set("DisplayType", "grid");
  Set("RecordsPerPage", 1);
  EXPECT_EQ(Mode(), "grid");
  EXPECT_NE(shop.Render().find("Item 1</td>"), std::string::npos);
}

TEST_F(CurrentModeTest, FollowsTheFormWordOfTheDisplayTypeInAnyCase) {
  Set("DisplayType", "My Form");
  EXPECT_EQ(Mode(), "formview");
}

TEST_F(CurrentModeTest, FollowsTheRequestedDisplayInAnyCase) {
  shop.Ask("FormDisplay", " formonerec ");
  EXPECT_EQ(Mode(), "formview");
}

TEST_F(CurrentModeTest, OfAnyOtherRequestedDisplayIsGrid) {
  for (const char* display : {"grid", "form", "formOneRecord", "1"}) {
    shop.page.query.clear();
    shop.Ask("FormDisplay", display);
    EXPECT_EQ(Mode(), "grid") << display;
    EXPECT_NE(shop.Render().find("Item 3</td>"), std::string::npos) << display;
  }
}

TEST_F(CurrentModeTest, FollowsARequestedPageSizeWithoutTakingIt) {
  shop.Ask("maxrecords", "1");
  EXPECT_EQ(Mode(), "formview");
  EXPECT_EQ(shop.view.GetSettings().RecordsPerPage, 20);
}

TEST_F(CurrentModeTest, IgnoresARequestedPageSizeThatIsNoNumber) {
  shop.Ask("maxrecords", "one");
  EXPECT_EQ(Mode(), "grid");
}

TEST_F(CurrentModeTest, NeedsTheUpdateOptionForTheEditForm) {
  Set("DisplayType", "form");
  shop.Ask("FormEdit", "1");
  EXPECT_EQ(Mode(), "formview");
  Set("EditOptions", "update");
  EXPECT_EQ(Mode(), "formedit");
}

TEST_F(CurrentModeTest, WithNoviewIsTheEditFormAtOnce) {
  Set("DisplayType", "form");
  Set("EditOptions", "UPDATE NOVIEW");
  EXPECT_EQ(Mode(), "formedit");
}

TEST_F(CurrentModeTest, WithNoviewStaysAGridWhenTheTypeIsGrid) {
  Set("DisplayType", "grid");
  Set("RecordsPerPage", 1);
  Set("EditOptions", "UPDATE NOVIEW");
  EXPECT_EQ(Mode(), "grid");
  shop.Render();
  EXPECT_EQ(Mode(), "grid");
}

TEST_F(CurrentModeTest, PrefersTheAddFormToTheEditForm) {
  Set("DisplayType", "form");
  Set("EditOptions", "UPDATE NOVIEW");
  shop.Ask("FormAdd", "1");
  EXPECT_EQ(Mode(), "formadd");
}

TEST_F(CurrentModeTest, NeedsTheUpdateOptionForTheAddFormToo) {
  Set("DisplayType", "form");
  Set("EditOptions", "ADD");
  shop.Ask("FormAdd", "1");
  EXPECT_EQ(Mode(), "formview");
}

TEST_F(CurrentModeTest, OfAGridStaysGridWhenARecordIsToBeAdded) {
  Set("EditOptions", "ADD UPDATE");
  shop.Ask("FormAdd", "1");
  EXPECT_EQ(Mode(), "grid");
}

TEST_F(CurrentModeTest, GoesBackToTheViewWhenTheFormIsClosed) {
  Set("DisplayType", "form");
  Set("EditOptions", "UPDATE");
  shop.Ask("FormEdit", "1");
  shop.Ask("FormView", "Close");
  EXPECT_EQ(Mode(), "formview");
}

TEST_F(CurrentModeTest, GoesBackToTheViewWhenAddingIsClosed) {
  Set("DisplayType", "form");
  Set("EditOptions", "UPDATE");
  shop.Ask("FormAdd", "1");
  shop.Ask("FormView", "Close");
  EXPECT_EQ(Mode(), "formview");
}

/// A view whose last save has failed: nobody may change this table.
struct FailedSave : CurrentModeTest {
  FailedSave() {
    Set("DisplayType", "form");
    Set("EditOptions", "UPDATE");
    Set("EditPrimaryKeys", "ID");
    shop.database.Run(
        "CREATE TRIGGER Refuse BEFORE UPDATE ON Items BEGIN SELECT RAISE(FAIL, 'no'); END;"
        "CREATE TRIGGER Refuse2 BEFORE INSERT ON Items BEGIN SELECT RAISE(FAIL, 'no'); END");
    for (const auto& [name, value] :
         {std::pair("FormUpdate", "Save"), {"_Form_ID", "1"}, {"_Form_Name", "New"}}) {
      shop.page.form.push_back({std::string("Morvu1") + name, value});
    }
  }
};

TEST_F(FailedSave, BringsTheEditFormBack) {
  shop.Render();
  EXPECT_EQ(Mode(), "formedit");
}

TEST_F(FailedSave, OfANewRecordBringsTheAddFormBack) {
  shop.page.form.push_back({"Morvu1FormInsert", "1"});
  shop.Render();
  EXPECT_EQ(Mode(), "formadd");
}

TEST_F(FailedSave, IsForgottenWhenTheNextRenderingSavesNothing) {
  shop.Render();
  shop.page.form.clear();
  shop.Render();
  EXPECT_EQ(Mode(), "formview");
}

TEST_F(CurrentModeTest, TakesAZeroForAPresentValue) {
  Set("DisplayType", "form");
  Set("EditOptions", "UPDATE");
  shop.Ask("FormEdit", "0");
  EXPECT_EQ(Mode(), "formedit");
}

TEST_F(CurrentModeTest, TakesAValueOfBlanksForAnAbsentOne) {
  Set("DisplayType", "form");
  Set("EditOptions", "UPDATE");
  shop.Ask("FormEdit", "  ");
  EXPECT_EQ(Mode(), "formview");
}

TEST(ModeName, IsTheWordThatScriptsRead) {
  EXPECT_EQ(ModeName(Mode::kGrid), "grid");
  EXPECT_EQ(ModeName(Mode::kFormView), "formview");
  EXPECT_EQ(ModeName(Mode::kFormEdit), "formedit");
  EXPECT_EQ(ModeName(Mode::kFormAdd), "formadd");
}

}  // namespace
}  // namespace dralo::state
