#include "security/attack.h"

namespace dralo::tests {
namespace {

class LookupValue : public Attack {
 protected:
  LookupValue() { lookups_ = {{"Title", "Secrets", "Word", "Word"}}; }

  void Save(const char* title) {
    Post({{"FormUpdate", "Save"},
          {"PK", "1"},
          {"_Form_ID", "1"},
          {"_Form_Title", title},
          {"_Form_Body", "mine"},
          {"FormDisplay", "formOneRec"}});
  }
  std::string Title() { return Stored("SELECT Title FROM Notes WHERE ID = 1").front(); }
};
INSTANTIATE_TEST_SUITE_P(Targets, LookupValue, kTargets, TargetName);

TEST_P(LookupValue, IsNoneOfItsOptions) {
  Save("anything");
  EXPECT_EQ(Title(), IsHardened() ? "'first'" : "'anything'");
  Save("");
  EXPECT_EQ(Title(), IsHardened() ? "'first'" : "null");
}

TEST_P(LookupValue, IsOneOfThemOrTheStoredOne) {
  Save("first");
  EXPECT_EQ(Title(), "'first'");
  EXPECT_EQ(message_, "");
  Save("sesame");
  EXPECT_EQ(Title(), "'sesame'");
}

/// Without the stored value among the options a form that nobody touches would change it.
TEST_P(LookupValue, IsAlwaysAnOption) {
  const std::string page = Get({{"FormDisplay", "formOneRec"}, {"PK", "1"}, {"FormEdit", "1"}});
  EXPECT_EQ(Contains(page, "selected value=\"first\""), IsHardened()) << page;
}

}  // namespace
}  // namespace dralo::tests
