#include "security/attack.h"

namespace dralo::tests {
namespace {

class DeepPage : public Attack {};
INSTANTIATE_TEST_SUITE_P(Targets, DeepPage, kTargets, TargetName);

/// In neither mode: a page behind the last record is the last one, and without a count the limit ends it.
TEST_P(DeepPage, IsBehindTheLastRecord) {
  EXPECT_TRUE(Contains(Get({{"CurrRecord", "2147483647"}}), ">second<"));
  Set({{"CountRecords", false}, {"RecordsMaxLimit", 100}});
  EXPECT_FALSE(Contains(Get({{"CurrRecord", "2147483647"}}), ">second<"));
  EXPECT_EQ(message_, "");
}

}  // namespace
}  // namespace dralo::tests
