#include "security/attack.h"

namespace dralo::tests {
namespace {

class RecordLeavesFilter : public Attack {
 protected:
  RecordLeavesFilter() {
    Set({{"EditSQL", "SELECT ID, Owner, Title FROM Notes WHERE Owner = 7"},
         {"EditOptions", "ADD UPDATE"},
         {"EditFieldsReadOnly", ""}});
  }
};
INSTANTIATE_TEST_SUITE_P(Targets, RecordLeavesFilter, kTargets, TargetName);

TEST_P(RecordLeavesFilter, ByASave) {
  Post({{"FormUpdate", "Save"},
        {"PK", "1"},
        {"_Form_ID", "1"},
        {"_Form_Owner", "8"},
        {"_Form_Title", "gift"}});
  EXPECT_EQ(Stored("SELECT Owner, Title FROM Notes WHERE ID = 1"),
            Lines{IsHardened() ? "7 'first'" : "8 'gift'"});
  EXPECT_EQ(message_,
            IsHardened()
                ? "Message 19: Nothing was saved: the record would not be one of this page any more.<br>"
                : "");
}

TEST_P(RecordLeavesFilter, ByANewRecord) {
  const auto add = [&](const char* id, const char* owner) {
    Post({{"FormUpdate", "Save"},
          {"FormInsert", "1"},
          {"_Form_ID", id},
          {"_Form_Owner", owner},
          {"_Form_Title", "new"}});
  };
  add("5", "8");
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM Notes WHERE ID = 5"), Lines{IsHardened() ? "0" : "1"});
  add("6", "7");
  EXPECT_EQ(Stored("SELECT Owner, Title FROM Notes WHERE ID = 6"), Lines{"7 'new'"}) << message_;
}

}  // namespace
}  // namespace dralo::tests
