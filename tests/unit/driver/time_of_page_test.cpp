#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "dralo/change.h"
#include "platform/statement_clock.h"
#include "support/contains.h"
#include "support/form_digests.h"
#include "support/view_page.h"

namespace dralo::driver {
namespace {

/// A page whose function is called when more than its Query Timeout has gone by.
struct AChangeThatTakesLong : testing::Test, tests::ViewPage {
  AChangeThatTakesLong() : ViewPage(ItemsTable(1)) {
    view.Set("ConnectionString", database.ConnectionString() + ";Query Timeout=1");
    Set({{"Hardened", true},
         {"sql", "SELECT ID, Name FROM Items"},
         {"EditOptions", "UPDATE"},
         {"EditPrimaryKeys", "ID"}});
    view.Set("OnSave", platform::ObjectPtr(platform::MakeHandler([this](platform::Change&) {
               std::this_thread::sleep_for(std::chrono::milliseconds{1100});
               is_over = platform::StatementClock::IsOver();
             })));
    Ask({{"FormDisplay", "formOneRec"}, {"FormEdit", "1"}, {"PK", "1"}});
    digests_ = tests::DigestsIn(Render());
    page.query.clear();
  }

  void Save() {
    for (const auto& [name, value] : digests_) page.form.push_back({name, value});
    Post({{"FormDisplay", "formOneRec"}, {"FormUpdate", "Save"}, {"PK", "1"}, {"_Form_Name", "New"}});
    Render();
  }

  std::optional<bool> is_over;  ///< What the function has found.

 private:
  std::vector<std::pair<std::string, std::string>> digests_;
};

TEST_F(AChangeThatTakesLong, LeavesNoTimeToTheStatementsOfAHardenedPage) {
  Save();
  EXPECT_EQ(is_over, true);
  EXPECT_FALSE(platform::StatementClock::IsOver()) << "the time ends with the page";
}

TEST_F(AChangeThatTakesLong, HasAllTheTimeOnAPlainPage) {
  Set("Hardened", false);
  Save();
  EXPECT_EQ(is_over, false);
}

TEST_F(AChangeThatTakesLong, HasAllTheTimeWhereQueryTimeoutIsNone) {
  view.Set("ConnectionString", database.ConnectionString() + ";Query Timeout=0");
  Save();
  EXPECT_EQ(is_over, false);
}

}  // namespace
}  // namespace dralo::driver
