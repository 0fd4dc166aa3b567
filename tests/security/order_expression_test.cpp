#include "security/attack.h"

namespace dralo::tests {
namespace {

class OrderExpression : public Attack {
 protected:
  /// Whether the second note stands above the first.
  bool IsTurned(const Asked& request) {
    const std::string page = Get(request);
    return page.find(">second<") < page.find(">first<");
  }
};
INSTANTIATE_TEST_SUITE_P(Targets, OrderExpression, kTargets, TargetName);

TEST_P(OrderExpression, AsksForASecret) {
  Set({{"OrderByFields", "ID"}});
  const auto starts_with = [&](const char* letters) {
    const std::string order = "CASE WHEN (SELECT Word FROM Secrets WHERE ID = 1) LIKE '" +
                              std::string(letters) + "%' THEN -ID ELSE ID END";
    return IsTurned({{"OrderByFields", order}});
  };
  EXPECT_EQ(starts_with("ses"), !IsHardened());
  EXPECT_FALSE(starts_with("abc"));
}

TEST_P(OrderExpression, IsNoneThatThePageOffers) {
  Set({{"OrderByFields", "ID"}, {"GridColsNoSort", "Body"}});
  EXPECT_TRUE(IsTurned({{"OrderByFields", "1"}, {"OrderByDesc", "True"}})) << "an order that is offered";
  EXPECT_TRUE(IsTurned({{"OrderByFields", "ID"}, {"OrderByDesc", "True"}})) << "the page's own";
  for (const char* order : {"-ID", "ID DESC", "1 DESC", "01", "1,1", "Price*-1"}) {
    SCOPED_TRACE(order);
    if (IsHardened()) {
      EXPECT_FALSE(IsTurned({{"OrderByFields", order}, {"OrderByDesc", "True"}}));
    }
  }
  if (IsHardened()) {
    EXPECT_EQ(message_, "");
  }
}

}  // namespace
}  // namespace dralo::tests
