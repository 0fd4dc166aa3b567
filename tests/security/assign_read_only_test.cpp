#include "security/attack.h"

namespace dralo::tests {
namespace {

class AssignReadOnly : public Attack {};
INSTANTIATE_TEST_SUITE_P(Targets, AssignReadOnly, kTargets, TargetName);

/// In neither mode.
TEST_P(AssignReadOnly, BySavingAFieldThatTheFormOnlyShows) {
  Post({{"FormUpdate", "Save"},
        {"PK", "1"},
        {"_Form_ID", "1"},
        {"_Form_Title", "new"},
        {"_Form_Body", "mine"},
        {"_Form_Price", "99"}});
  EXPECT_EQ(Stored("SELECT Title, Price FROM Notes WHERE ID = 1"), Lines{"'new' 10"});
}

}  // namespace
}  // namespace dralo::tests
