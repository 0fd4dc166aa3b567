#include "security/attack.h"

namespace dralo::tests {
namespace {

class OrderHiddenColumn : public Attack {};
INSTANTIATE_TEST_SUITE_P(Targets, OrderHiddenColumn, kTargets, TargetName);

TEST_P(OrderHiddenColumn, TellsAboutItsValues) {
  Set({{"GridFieldsHide", "Price"}, {"OrderByFields", "ID"}});
  const std::string page = Get({{"OrderByFields", "4"}, {"OrderByDesc", "True"}});
  EXPECT_EQ(page.find(">second<") < page.find(">first<"), !IsHardened());
}

}  // namespace
}  // namespace dralo::tests
