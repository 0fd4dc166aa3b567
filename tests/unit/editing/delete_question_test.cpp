#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/contains.h"
#include "support/form_digests.h"
#include "support/view_page.h"

namespace dralo::editing {
namespace {

/// A hardened page that asks, without a script, before it deletes record 2 of 3.
struct TheQuestionBeforeADelete : testing::Test, tests::ViewPage {
  TheQuestionBeforeADelete() : ViewPage(ItemsTable(3)) {
    Set({{"sql", "SELECT ID, Name FROM Items"},
         {"EditOptions", "UPDATE DELETE"},
         {"EditPrimaryKeys", "ID"},
         {"EditConfirmDeleteString", "Sure?"},
         {"DeleteSQL", "DELETE FROM Items"},
         {"Hardened", true}});
    Ask({{"FormDisplay", "formOneRec"}, {"FormEdit", "1"}, {"PK", "2"}});
    shown_ = Render();
    page.query.clear();
  }

  /// Posts the form that was shown last with one of its buttons.
  std::string Press(std::string_view button) {
    page.form.clear();
    page.Memory() = nullptr;
    for (auto& [name, value] : tests::DigestsIn(shown_))
      page.form.push_back({std::move(name), std::move(value)});
    Post({{"FormDisplay", "formOneRec"}, {"PK", "2"}, {button, "Delete"}});
    return shown_ = Render();
  }

  std::string Names() { return database.Value("SELECT group_concat(Name) FROM Items"); }

  std::string shown_;
};

TEST_F(TheQuestionBeforeADelete, CarriesTheDigestsOfTheForm) {
  const auto of_form = tests::DigestsIn(shown_);
  database.Run("UPDATE Items SET Name = 'Newer' WHERE ID = 2");
  const std::string question = Press("FormDelete");
  EXPECT_TRUE(tests::Contains(question, "Sure?&nbsp;")) << question;
  EXPECT_EQ(tests::DigestsIn(question), of_form);
}

TEST_F(TheQuestionBeforeADelete, IsAskedOnceMoreWhenTheRecordChangedSinceTheForm) {
  database.Run("UPDATE Items SET Name = 'Newer' WHERE ID = 2");
  Press("FormDelete");
  const std::string refusal = Press("FormDeleteConfirmed");
  EXPECT_TRUE(tests::Contains(refusal, "it was changed meanwhile")) << refusal;
  EXPECT_EQ(Names(), "Item 1,Newer,Item 3");
  Press("FormDelete");
  Press("FormDeleteConfirmed");
  EXPECT_EQ(Names(), "Item 1,Item 3");
}

TEST_F(TheQuestionBeforeADelete, LeadsToTheDeleteOfAnUnchangedRecord) {
  Press("FormDelete");
  EXPECT_EQ(Names(), "Item 1,Item 2,Item 3");
  Press("FormDeleteConfirmed");
  EXPECT_EQ(Names(), "Item 1,Item 3");
}

}  // namespace
}  // namespace dralo::editing
