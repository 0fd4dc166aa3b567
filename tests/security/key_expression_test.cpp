#include "security/attack.h"

namespace dralo::tests {
namespace {

class KeyExpression : public Attack {};
INSTANTIATE_TEST_SUITE_P(Targets, KeyExpression, kTargets, TargetName);

TEST_P(KeyExpression, ShowsAnotherTable) {
  const std::string page = Get({{"FormDisplay", "formOneRec"},
                                {"PK", "0) UNION SELECT ID, Word, Word, 1, Word FROM Secrets WHERE (1=1"}});
  EXPECT_EQ(Contains(page, "sesame"), !IsHardened()) << page << message_;
}

TEST_P(KeyExpression, ChangesAnotherRecord) {
  const char* const key = "(SELECT 3 FROM Secrets)";
  Asked form = {{"FormUpdate", "Save"}, {"_Form_ID", key}, {"_Form_Title", "taken"}, {"_Form_Body", "x"}};
  // By default the inputs count where the form was opened without a key.
  if (IsHardened()) form.emplace_back("PK", key);
  Post(form);
  EXPECT_EQ(Stored("SELECT Title FROM Notes WHERE ID = 3"), Lines{IsHardened() ? "'third'" : "'taken'"});
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM Notes WHERE Title = 'taken'"), Lines{IsHardened() ? "0" : "1"});
}

TEST_P(KeyExpression, DeletesAnotherRecord) {
  Set({{"EditOptions", "UPDATE DELETE"}});
  const char* const key = "1) AND (1=2) OR (ID=4";
  Post({{"FormDelete", "Delete"}, {"PK", key}, {"_Form_ID", key}});
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM Notes"), Lines{IsHardened() ? "4" : "3"}) << message_;
}

}  // namespace
}  // namespace dralo::tests
