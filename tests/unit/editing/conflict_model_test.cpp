#include <string>
#include <vector>

#include "unit/editing/model_visitor.h"

namespace dralo::tests {

namespace {

Texts Stored(const SharedForm& shop) {
  Texts texts;
  for (const std::string& field : kModelFields) {
    const std::string value = shop.database.Value("SELECT coalesce(" + field + ", '') FROM T WHERE ID=1");
    texts[field] = field != "Active" ? value : value == "1" ? "on" : "";
  }
  return texts;
}

class ConflictModel : public testing::TestWithParam<unsigned> {};

TEST_P(ConflictModel, NoValueIsOverwrittenThatItsWriterHasNotSeen) {
  unsigned seed = GetParam();
  int saves = 0;
  int refusals = 0;
  const auto run = [&](const std::vector<int>& order) {
    SharedForm shop;
    std::vector<ModelVisitor> visitors;
    for (int visitor = 0; visitor < 3; ++visitor) visitors.emplace_back(++seed);
    std::string trace;
    for (const int visitor : order) {
      trace += std::to_string(visitor);
      SCOPED_TRACE("visitors " + trace + " before seed " + std::to_string(seed));
      visitors[static_cast<std::size_t>(visitor)].Step(shop, [&] { return Stored(shop); });
    }
    for (const ModelVisitor& visitor : visitors) {
      saves += visitor.saves;
      refusals += visitor.refusals;
    }
  };
  for (const std::vector<int>& steps : {std::vector{3, 3}, std::vector{2, 4}, std::vector{2, 2, 2}}) {
    ForEachInterleaving(steps, {}, run);
  }
  EXPECT_GT(saves, 50);
  EXPECT_GT(refusals, 20) << "too few conflicts to prove something";
}

INSTANTIATE_TEST_SUITE_P(Seeds, ConflictModel, testing::Values(1, 10'000));

}  // namespace

}  // namespace dralo::tests
