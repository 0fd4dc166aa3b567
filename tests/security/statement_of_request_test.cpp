#include "security/attack.h"

namespace dralo::tests {
namespace {

class StatementOfRequest : public Attack {};
INSTANTIATE_TEST_SUITE_P(Targets, StatementOfRequest, kTargets, TargetName);

TEST_P(StatementOfRequest, ShowsAnotherTable) {
  const std::string page = Get({{"SQL", "SELECT ID, Word FROM Secrets"}});
  EXPECT_EQ(Contains(page, "sesame"), !IsHardened()) << page;
  EXPECT_EQ(Contains(page, ">first<"), IsHardened()) << page;
}

TEST_P(StatementOfRequest, ShowsAnotherTableWhereTheStatementTravels) {
  Set({{"PersistentSQL", true}});
  EXPECT_EQ(Contains(Post({{"SQL", "SELECT Word FROM Secrets"}}), "sesame"), !IsHardened());
  EXPECT_EQ(Contains(Get({}), "Owner"), !IsHardened()) << "the statement stands in the page";
}

}  // namespace
}  // namespace dralo::tests
