#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/contains.h"
#include "support/form_digests.h"
#include "support/view_page.h"

namespace dralo::editing {
namespace {

using tests::Contains;

/// A hardened page whose records can be deleted, and nothing else.
struct APageThatOnlyDeletes : testing::Test, tests::ViewPage {
  APageThatOnlyDeletes() : ViewPage(ItemsTable(3)) {
    Set({{"sql", "SELECT ID, Name FROM Items"},
         {"EditOptions", "DELETE"},
         {"EditPrimaryKeys", "ID"},
         {"DeleteSQL", "DELETE FROM Items"},
         {"Hardened", true}});
  }

  std::string Form() {
    Ask({{"FormDisplay", "formOneRec"}, {"EditPK", "2"}});
    std::string form = Render();
    page.query.clear();
    return form;
  }
};

TEST_F(APageThatOnlyDeletes, LeadsFromTheRecordToItsForm) {
  Ask({{"FormDisplay", "formOneRec"}, {"PK", "2"}});
  const std::string record = Render();
  EXPECT_TRUE(Contains(record, R"( type="submit" name="Morvu1EditPK" value="2">Delete</button>)")) << record;
}

TEST_F(APageThatOnlyDeletes, ShowsTheRecordWithNothingToSave) {
  const std::string form = Form();
  EXPECT_TRUE(Contains(form, R"(name="Morvu1FormDelete" value="Delete">)")) << form;
  EXPECT_FALSE(Contains(form, "Morvu1FormUpdate"));
  EXPECT_TRUE(
      Contains(form, R"(<input  disabled class="DraloInput" size=42 type="text" id="Morvu1_Form_Name")"))
      << form;
}

TEST_F(APageThatOnlyDeletes, DeletesTheRecordThatItsFormHasShown) {
  for (auto& [name, value] : tests::DigestsIn(Form()))
    page.form.push_back({std::move(name), std::move(value)});
  Post({{"FormDisplay", "formOneRec"}, {"PK", "2"}, {"FormDelete", "Delete"}});
  Render();
  EXPECT_EQ(ErrorMessage(), "");
  EXPECT_EQ(database.Value("SELECT group_concat(ID) FROM Items"), "1,3");
}

TEST_F(APageThatOnlyDeletes, SavesNothing) {
  Post({{"FormDisplay", "formOneRec"}, {"PK", "2"}, {"FormUpdate", "Save"}, {"_Form_Name", "New"}});
  Render();
  EXPECT_EQ(database.Value("SELECT group_concat(Name) FROM Items"), "Item 1,Item 2,Item 3");
}

TEST_F(APageThatOnlyDeletes, HasNoButtonWithoutDeleteSql) {
  Set("DeleteSQL", "");
  Ask({{"FormDisplay", "formOneRec"}, {"EditPK", "2"}});
  EXPECT_FALSE(Contains(Render(), "<button"));
}

TEST_F(APageThatOnlyDeletes, HasNoButtonByDefault) {
  Set("Hardened", false);
  Ask({{"FormDisplay", "formOneRec"}, {"PK", "2"}, {"FormEdit", "1"}});
  EXPECT_FALSE(Contains(Render(), "submit"));
}

TEST_F(APageThatOnlyDeletes, AddsWhenOnlyThatIsAllowed) {
  Set("EditOptions", "ADD");
  Ask({{"FormDisplay", "formOneRec"}, {"PK", "2"}});
  const std::string record = Render();
  EXPECT_TRUE(Contains(record, R"(name="Morvu1FormAdd" value="Add")")) << record;
  EXPECT_FALSE(Contains(record, "<button")) << record;
}

}  // namespace
}  // namespace dralo::editing
