#include <gtest/gtest.h>

#include <string>

#include "support/contains.h"
#include "unit/editing/shared_form.h"

namespace dralo::tests {

namespace {

/// A page whose new records get their keys from the database; `statement` says how.
struct AddPage : SharedForm {
  explicit AddPage(bool is_hardened, std::string statement = "autoincrement") {
    settings = {{"EditDetectConflicts", false},
                {"EditNewPKStatement", std::move(statement)},
                {"FormFieldsHide", std::string("ID")},
                {"Hardened", is_hardened}};
  }

  std::string Count() const { return database.Value("SELECT count(*) FROM T"); }
};

Form NewEve(AddPage& page) {
  return Typed(page.OpenNew(), {{"Name", "Eve"}, {"Stock", "5"}, {"Since", "5/3/2024"}});
}

TEST(ReplayedInsert, AddsTwoRecordsWithoutHardened) {
  AddPage page(false);
  const Form form = NewEve(page);
  page.Page(form);
  page.Page(form);
  EXPECT_EQ(page.Count(), "4") << page.error;
}

TEST(ReplayedInsert, AsksWhenHardened) {
  for (const char* statement : {"autoincrement", "SELECT max(ID)+10 FROM T"}) {
    AddPage page(true, statement);
    const Form form = NewEve(page);
    EXPECT_TRUE(Contains(page.Page(form), "[New record saved ok]")) << page.error;
    const std::string question = page.Page(form);
    EXPECT_TRUE(Contains(question, "Such a record was added already. Save once more to add another one."));
    EXPECT_EQ(page.Count(), "3") << page.error;
    EXPECT_TRUE(Contains(page.Page(PostedByBrowser(question, "Morvu1FormUpdate")), "[New record saved ok]"));
    EXPECT_EQ(page.Count(), "4") << page.error;
  }
}

TEST(ReplayedInsert, IsNoneWhenSomethingElseWasTyped) {
  AddPage page(true);
  Form form = NewEve(page);
  page.Page(form);
  TypeInto(form, "Stock", "6");
  EXPECT_TRUE(Contains(page.Page(form), "[New record saved ok]")) << page.error;
}

TEST(ReplayedInsert, IsNoneOfARecordThatWasThereBefore) {
  AddPage page(true);
  page.Page(NewEve(page));
  EXPECT_TRUE(Contains(page.Page(NewEve(page)), "[New record saved ok]")) << page.error;
}

TEST(ReplayedInsert, IsFoundInATableThatWasEmpty) {
  AddPage page(true);
  page.database.Run("DELETE FROM T");
  const Form form = NewEve(page);
  page.Page(form);
  page.Page(form);
  EXPECT_EQ(page.Count(), "1") << page.error;
}

/// A question would tell that there is an equal record, whoever may see it.
TEST(ReplayedInsert, IsNoneOfARecordOutside) {
  AddPage page(true);
  page.settings.emplace_back("sql", std::string("SELECT * FROM T WHERE Name <> 'Eve'"));
  const Form form = NewEve(page);
  page.Page(form);
  EXPECT_TRUE(Contains(page.Page(form), "[New record saved ok]")) << page.error;
  EXPECT_EQ(page.Count(), "4") << page.error;
}

}  // namespace

}  // namespace dralo::tests
