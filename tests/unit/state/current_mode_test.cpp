#include "state/current_mode.h"

#include <gtest/gtest.h>

#include "support/named_cases.h"
#include "support/view_page.h"

namespace dralo::state {
namespace {

struct CurrentModeTest : ::testing::Test {
  tests::ViewPage shop{tests::ViewPage::ItemsTable(3)};
  CurrentModeTest() { shop.view.Set("sql", std::string("SELECT * FROM Items")); }

  void Set(std::string_view name, std::string_view text) { shop.view.Set(name, std::string(text)); }
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

struct ModeCase {
  std::string_view name, type, options;
  std::vector<std::pair<std::string_view, std::string_view>> asked;
  std::string_view mode;
};

class ModeOf : public CurrentModeTest, public testing::WithParamInterface<ModeCase> {};

TEST_P(ModeOf, AViewFollowsItsPropertiesAndTheRequest) {
  Set("DisplayType", GetParam().type);
  Set("EditOptions", GetParam().options);
  for (const auto& [key, value] : GetParam().asked) shop.Ask(key, value);
  EXPECT_EQ(Mode(), GetParam().mode);
}

const ModeCase kModes[] = {
    {"TheFormWordOfTheDisplayTypeInAnyCase", "My Form", "", {}, "formview"},
    {"TheRequestedDisplayInAnyCase", "default", "", {{"FormDisplay", " formonerec "}}, "formview"},
    {"NoRequestedPageSizeThatIsNoNumber", "default", "", {{"maxrecords", "one"}}, "grid"},
    {"NoEditButtonWithoutTheUpdateOption", "form", "", {{"FormEdit", "1"}}, "formview"},
    {"TheEditButtonWithTheUpdateOption", "form", "update", {{"FormEdit", "1"}}, "formedit"},
    {"NoviewToTheEditFormAtOnce", "form", "UPDATE NOVIEW", {}, "formedit"},
    {"TheAddButtonBeforeNoview", "form", "UPDATE NOVIEW", {{"FormAdd", "1"}}, "formadd"},
    {"NoAddButtonWithoutTheUpdateOption", "form", "ADD", {{"FormAdd", "1"}}, "formview"},
    {"NoAddButtonInAGrid", "default", "ADD UPDATE", {{"FormAdd", "1"}}, "grid"},
    {"TheCloseButtonOfAnEditForm", "form", "UPDATE", {{"FormEdit", "1"}, {"FormView", "Close"}}, "formview"},
    {"TheCloseButtonOfAnAddForm", "form", "UPDATE", {{"FormAdd", "1"}, {"FormView", "Close"}}, "formview"},
    {"AZeroAsAPresentValue", "form", "UPDATE", {{"FormEdit", "0"}}, "formedit"},
    {"BlanksAsAnAbsentValue", "form", "UPDATE", {{"FormEdit", "  "}}, "formview"},
};

INSTANTIATE_TEST_SUITE_P(Rules, ModeOf, testing::ValuesIn(kModes), tests::kByName);

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

TEST_F(CurrentModeTest, WithNoviewStaysAGridWhenTheTypeIsGrid) {
  Set("DisplayType", "grid");
  Set("RecordsPerPage", 1);
  Set("EditOptions", "UPDATE NOVIEW");
  EXPECT_EQ(Mode(), "grid");
  shop.Render();
  EXPECT_EQ(Mode(), "grid");
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

TEST(ModeName, IsTheWordThatScriptsRead) {
  EXPECT_EQ(ModeName(Mode::kGrid), "grid");
  EXPECT_EQ(ModeName(Mode::kFormView), "formview");
  EXPECT_EQ(ModeName(Mode::kFormEdit), "formedit");
  EXPECT_EQ(ModeName(Mode::kFormAdd), "formadd");
}

}  // namespace
}  // namespace dralo::state
