#include "security/attack.h"

namespace dralo::tests {
namespace {

class ChangeWithoutWord : public Attack {
 protected:
  ChangeWithoutWord() { Set({{"EditFieldsReadOnly", ""}}); }

  void Insert() {
    Post({{"FormUpdate", "Save"}, {"FormInsert", "1"}, {"_Form_ID", "5"}, {"_Form_Title", "new"}});
  }
  void Update() {
    Post({{"FormUpdate", "Save"}, {"PK", "1"}, {"_Form_ID", "1"}, {"_Form_Title", "changed"}});
  }
  void Delete() { Post({{"FormDelete", "Delete"}, {"PK", "2"}, {"_Form_ID", "2"}}); }

  Lines Titles() { return Stored("SELECT Title FROM Notes WHERE Owner = 7 OR Owner IS NULL ORDER BY ID"); }
};
INSTANTIATE_TEST_SUITE_P(Targets, ChangeWithoutWord, kTargets, TargetName);

TEST_P(ChangeWithoutWord, Adds) {
  Insert();
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM Notes"), Lines{IsHardened() ? "4" : "5"});
}

TEST_P(ChangeWithoutWord, Deletes) {
  Delete();
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM Notes"), Lines{IsHardened() ? "4" : "3"});
}

/// Hardened, each word allows its own change and no other.
TEST_P(ChangeWithoutWord, IsAllowedByItsOwnWordOnly) {
  if (!IsHardened()) return;
  Set({{"EditOptions", "DELETE"}});
  Insert();
  Update();
  EXPECT_EQ(Titles(), (Lines{"'first'", "'second'"}));
  Delete();
  EXPECT_EQ(Titles(), Lines{"'first'"}) << message_;
  Set({{"EditOptions", "ADD"}, {"EditSQL", "SELECT ID, Title FROM Notes"}, {"RecordsOutsideSql", true}});
  Update();
  EXPECT_EQ(Titles(), Lines{"'first'"});
  Insert();
  EXPECT_EQ(Titles(), (Lines{"'first'", "'new'"})) << message_;
}

}  // namespace
}  // namespace dralo::tests
