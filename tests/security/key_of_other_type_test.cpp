#include "security/attack.h"

namespace dralo::tests {
namespace {

/// Keys that a database converts before it compares them.
class KeyOfOtherType : public Attack {
 protected:
  KeyOfOtherType() {
    Set({{"sql", "SELECT Price, Title, Body FROM Notes WHERE Owner = 7"},
         {"FormSQL", "SELECT Price, Title, Body FROM Notes WHERE Owner = 7"},
         {"EditSQL", "SELECT Price, Title, Body FROM Notes WHERE Owner = 7"},
         {"EditPrimaryKeys", "Title"},
         {"EditFieldsReadOnly", ""}});
  }

  bool Shows(const char* key) {
    return Contains(Get({{"FormDisplay", "formOneRec"}, {"PK", key}}), ">mine<");
  }
};
INSTANTIATE_TEST_SUITE_P(Targets, KeyOfOtherType, kTargets, TargetName);

/// The first column says that the key is a number: MariaDB takes every text without digits for 0.
TEST_P(KeyOfOtherType, IsANumberForAText) {
  const bool converts = GetParam().database == &kMariaDb;
  EXPECT_EQ(Shows("0"), converts && !IsHardened());
  if (IsHardened()) {
    EXPECT_TRUE(Shows("first")) << message_;
  }
}

TEST_P(KeyOfOtherType, IsATextForANumber) {
  Set({{"EditPrimaryKeys", "Price"}});
  EXPECT_TRUE(Shows("10"));
  for (const char* key :
       {"10 OR 1=1", "10abc", "1e1", "0x0a", "+10", "010", "10.0", " 10", "99999999999999999999"}) {
    SCOPED_TRACE(key);
    if (IsHardened()) {
      EXPECT_FALSE(Shows(key));
      EXPECT_EQ(message_, "Message 18: There is no such record.<br>");
    }
  }
  EXPECT_EQ(Shows("10 OR 1=1"), !IsHardened());
}

TEST_P(KeyOfOtherType, IsATextThatOnlySortsAlike) {
  for (const char* key : {"FIRST", "first ", "f\xC3\xAFrst"}) {
    SCOPED_TRACE(key);
    if (IsHardened()) {
      EXPECT_FALSE(Shows(key));
    }
  }
}

}  // namespace
}  // namespace dralo::tests
