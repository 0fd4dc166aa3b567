#include "security/attack.h"

namespace dralo::tests {
namespace {

class AssignHidden : public Attack {};
INSTANTIATE_TEST_SUITE_P(Targets, AssignHidden, kTargets, TargetName);

TEST_P(AssignHidden, BySavingAFieldThatTheFormDoesNotShow) {
  Post({{"FormUpdate", "Save"},
        {"PK", "1"},
        {"_Form_ID", "1"},
        {"_Form_Title", "new"},
        {"_Form_Body", "mine"},
        {"_Form_Link", "theirs"}});
  EXPECT_EQ(Stored("SELECT Title, Link FROM Notes WHERE ID = 1"),
            Lines{IsHardened() ? "'new' 'link 1'" : "'new' 'theirs'"});
}

/// Without its input a field keeps what it has.
TEST_P(AssignHidden, ByLeavingFieldsOut) {
  Post({{"FormUpdate", "Save"}, {"PK", "1"}, {"_Form_ID", "1"}, {"_Form_Title", "new"}});
  EXPECT_EQ(Stored("SELECT Title, Body FROM Notes WHERE ID = 1"),
            Lines{IsHardened() ? "'new' 'mine'" : "'new' null"});
}

/// Nor can a record get the key of another.
TEST_P(AssignHidden, ByChangingTheKey) {
  Set({{"EditFieldsReadOnly", ""}});
  Post({{"FormUpdate", "Save"},
        {"PK", "1"},
        {"_Form_ID", "9"},
        {"_Form_Title", "new"},
        {"_Form_Body", "mine"}});
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM Notes WHERE ID = 9"), Lines{"0"});
  if (IsHardened()) {
    EXPECT_EQ(Stored("SELECT Title FROM Notes WHERE ID = 1"), Lines{"'new'"}) << message_;
  }
}

}  // namespace
}  // namespace dralo::tests
