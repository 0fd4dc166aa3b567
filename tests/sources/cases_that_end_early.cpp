// Cases that end in all ways; run_cases_test.py looks at what is made of them.

#include <gtest/gtest.h>

#include <cstdlib>

namespace dralo::tests {

namespace {

TEST(Ends, Well) { SUCCEED(); }
TEST(Ends, WithAFailure) { EXPECT_TRUE(false) << "the reason"; }
TEST(Ends, Skipped) { GTEST_SKIP(); }
TEST(Ends, ByASignal) { std::abort(); }
TEST(Ends, WithTheProgram) { std::_Exit(0); }
TEST(Ends, DISABLED_Never) { SUCCEED(); }
TEST(Ends, WellBehindTheOthers) { SUCCEED(); }
TEST(Leaves, ATrace) {
  std::atexit([] { std::_Exit(9); });
}

class Numbered : public ::testing::TestWithParam<int> {};
TEST_P(Numbered, Fails) { EXPECT_EQ(GetParam(), 0); }
INSTANTIATE_TEST_SUITE_P(Parameter, Numbered, ::testing::Values(1));

}  // namespace

}  // namespace dralo::tests
