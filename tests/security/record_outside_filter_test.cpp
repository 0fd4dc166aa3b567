#include "security/attack.h"

namespace dralo::tests {
namespace {

class RecordOutsideFilter : public Attack {
 protected:
  /// The page without the key that was asked for.
  std::string Neutral(std::string page, const std::string& key) {
    for (std::size_t at = page.find("value=\"" + key + "\""); at != page.npos;
         at = page.find("value=\"" + key + "\"", at + 1))
      page.erase(at, key.size() + 8);
    return page;
  }
};
INSTANTIATE_TEST_SUITE_P(Targets, RecordOutsideFilter, kTargets, TargetName);

TEST_P(RecordOutsideFilter, IsSaved) {
  Post({{"FormUpdate", "Save"},
        {"PK", "3"},
        {"_Form_ID", "3"},
        {"_Form_Title", "taken"},
        {"_Form_Body", "x"}});
  EXPECT_EQ(Stored("SELECT Title FROM Notes WHERE ID = 3"), Lines{IsHardened() ? "'third'" : "'taken'"});
}

TEST_P(RecordOutsideFilter, IsDeleted) {
  Set({{"EditOptions", "UPDATE DELETE"}});
  Post({{"FormDelete", "Delete"}, {"PK", "3"}, {"_Form_ID", "3"}});
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM Notes"), Lines{IsHardened() ? "4" : "3"});
}

TEST_P(RecordOutsideFilter, IsShownByAFormWithoutTheFilter) {
  Set({{"FormSQL", "SELECT ID, Title, Body FROM Notes"}, {"FormFieldsHide", ""}});
  EXPECT_EQ(Contains(Get({{"FormDisplay", "formOneRec"}, {"PK", "3"}}), "theirs"), !IsHardened());
  EXPECT_TRUE(Contains(Get({{"FormDisplay", "formOneRec"}, {"PK", "2"}}), "mine"));
  Set({{"RecordsOutsideSql", true}});
  EXPECT_TRUE(Contains(Get({{"FormDisplay", "formOneRec"}, {"PK", "3"}}), "theirs"));
}

TEST_P(RecordOutsideFilter, IsSavedByAFormWithoutTheFilter) {
  Set({{"EditSQL", "SELECT ID, Title, Body FROM Notes"}});
  Post({{"FormUpdate", "Save"},
        {"PK", "3"},
        {"_Form_ID", "3"},
        {"_Form_Title", "taken"},
        {"_Form_Body", "x"}});
  EXPECT_EQ(Stored("SELECT Title FROM Notes WHERE ID = 3"), Lines{IsHardened() ? "'third'" : "'taken'"});
}

/// A record of others and one that nobody has must not be told apart.
TEST_P(RecordOutsideFilter, IsToldFromNoRecord) {
  Set({{"EditOptions", "ALL"}, {"EditSQL", "SELECT ID, Title, Body FROM Notes"}});
  const Asked requests[] = {{{"FormDisplay", "formOneRec"}},
                            {{"FormDisplay", "formOneRec"}, {"FormEdit", "1"}},
                            {{"FormUpdate", "Save"}, {"_Form_Title", "taken"}, {"FormDisplay", "formOneRec"}},
                            {{"FormDelete", "Delete"}, {"FormDisplay", "formOneRec"}}};
  if (!IsHardened()) return;
  for (Asked request : requests) {
    SCOPED_TRACE(request.front().first);
    const Lines before = Outside();
    std::string pages[2];
    std::string messages[2];
    for (const std::string key : {"3", "9"}) {
      Asked asked = request;
      asked.emplace_back("PK", key);
      asked.emplace_back("_Form_ID", key);
      const std::size_t index = key == "3" ? 0 : 1;
      pages[index] = Neutral(Post(asked), key);
      messages[index] = message_;
    }
    EXPECT_EQ(pages[0], pages[1]);
    EXPECT_EQ(messages[0], messages[1]);
    EXPECT_EQ(messages[0], "Message 18: There is no such record.<br>");
    EXPECT_EQ(Outside(), before);
  }
}

TEST_P(RecordOutsideFilter, IsFoundByASecondKey) {
  if (!IsHardened()) return;
  FakePage page;
  Post({{"FormUpdate", "Save"}, {"PK", "1"}, {"PK", "2"}, {"_Form_Title", "taken"}});
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM Notes WHERE Title = 'taken'"), Lines{"0"});
}

/// What the page is for.
TEST_P(RecordOutsideFilter, LeavesThoseInsideAlone) {
  Post({{"FormUpdate", "Save"},
        {"PK", "2"},
        {"_Form_ID", "2"},
        {"_Form_Title", "new"},
        {"_Form_Body", "mine"}});
  EXPECT_EQ(message_, "");
  EXPECT_EQ(Stored("SELECT Title, Body, Price FROM Notes WHERE ID = 2"), Lines{"'new' 'mine' 20"});
  Set({{"EditOptions", "UPDATE DELETE"}});
  Post({{"FormDelete", "Delete"}, {"PK", "2"}, {"_Form_ID", "2"}});
  EXPECT_EQ(message_, "");
  EXPECT_EQ(Stored("SELECT ID FROM Notes ORDER BY ID"), (Lines{"1", "3", "4"}));
}

}  // namespace
}  // namespace dralo::tests
