#include "kept_pages.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace serve {
namespace {

TableList NewList() { return std::make_shared<const std::vector<Table>>(); }

Answer PageOf(std::size_t size) { return {.body = std::string(size, 'x')}; }

/// Pages beside one list of tables.
class KeptPagesTest : public testing::Test {
 protected:
  bool Has(const std::string& request, Sighting now = {9, 0}) {
    return pages_.Find(tables_, now, request) != nullptr;
  }

  void Keep(const std::string& request, const Answer& page, Sighting before = {5, 0}) {
    pages_.Keep(tables_, before, request, page);
  }

  const TableList tables_ = NewList();
  KeptPages pages_;
};

TEST_F(KeptPagesTest, GivesAllOfAnAnswer) {
  Keep("/a", {.status = 201, .type = "text/plain", .headers = {{"A", "b"}}, .body = "page"});
  const auto kept = pages_.Find(tables_, {9, 0}, "/a");
  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(kept->status, 201);
  EXPECT_EQ(kept->type, "text/plain");
  EXPECT_EQ(kept->headers, (Headers{{"A", "b"}}));
  EXPECT_EQ(kept->body, "page");
  EXPECT_FALSE(Has("/b"));
}

TEST_F(KeptPagesTest, GivesNoPageThatWasBegunBeforeAChange) {
  Keep("/a", PageOf(1), {5, 0});
  EXPECT_TRUE(Has("/a", {6, 5}));
  EXPECT_FALSE(Has("/a", {7, 6}));
}

TEST_F(KeptPagesTest, GivesThePageThatWasKeptLast) {
  Keep("/a", PageOf(1), {5, 0});
  Keep("/a", PageOf(2), {8, 7});
  const auto kept = pages_.Find(tables_, {9, 7}, "/a");
  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(kept->body.size(), 2U);
}

TEST_F(KeptPagesTest, GivesNoPageBesideAnotherListOfTables) {
  Keep("/a", PageOf(1));
  EXPECT_EQ(pages_.Find(NewList(), {9, 0}, "/a"), nullptr);
  pages_.Keep(NewList(), {5, 0}, "/b", PageOf(1));
  EXPECT_FALSE(Has("/a"));
  EXPECT_FALSE(Has("/b"));
}

TEST_F(KeptPagesTest, KeepsNoLongPage) {
  Keep("/long", PageOf(KeptPages::kLongestPage));
  Keep("/longer", PageOf(KeptPages::kLongestPage + 1));
  EXPECT_TRUE(Has("/long"));
  EXPECT_FALSE(Has("/longer"));
}

TEST_F(KeptPagesTest, DropsTheOthersWhenThereAreTooMany) {
  const auto name = [](std::size_t number) { return "/" + std::to_string(number); };
  for (std::size_t i = 0; i < KeptPages::kMostPages; ++i) Keep(name(i), PageOf(1));
  Keep(name(0), PageOf(1));
  EXPECT_TRUE(Has(name(1)));
  Keep("/one more", PageOf(1));
  for (std::size_t i = 0; i < KeptPages::kMostPages; ++i) EXPECT_FALSE(Has(name(i)));
  EXPECT_TRUE(Has("/one more"));
}

TEST_F(KeptPagesTest, DropsTheOthersWhenTheyAreTooLong) {
  constexpr std::size_t kNumber = KeptPages::kMostBytes / KeptPages::kLongestPage;
  const Answer page = PageOf(KeptPages::kLongestPage - 1);  // Each is asked for by one character.
  const auto name = [](std::size_t number) { return std::string(1, static_cast<char>('!' + number)); };
  for (std::size_t i = 0; i < kNumber; ++i) Keep(name(i), page);
  for (std::size_t i = 0; i < kNumber; ++i) Keep(name(i), page);
  for (std::size_t i = 0; i < kNumber; ++i) EXPECT_TRUE(Has(name(i)));
  Keep("~", PageOf(0));
  EXPECT_FALSE(Has("!"));
  EXPECT_TRUE(Has("~"));
}

TEST_F(KeptPagesTest, KnowsWhatIsAskedAgain) {
  EXPECT_FALSE(pages_.IsAskedAgain(tables_, "/a"));
  EXPECT_FALSE(pages_.IsAskedAgain(tables_, "/b"));
  EXPECT_TRUE(pages_.IsAskedAgain(tables_, "/a"));
  EXPECT_FALSE(pages_.IsAskedAgain(NewList(), "/a"));
}

TEST_F(KeptPagesTest, KnowsNotForEverWhatWasAsked) {
  EXPECT_FALSE(pages_.IsAskedAgain(tables_, "/a"));
  for (std::size_t i = 0; i < KeptPages::kMostAsked; ++i)
    EXPECT_FALSE(pages_.IsAskedAgain(tables_, std::to_string(i)));
  EXPECT_FALSE(pages_.IsAskedAgain(tables_, "/a"));
}

TEST_F(KeptPagesTest, LetsAPageBeUsedThatIsDroppedMeanwhile) {
  Keep("/a", PageOf(3));
  const auto kept = pages_.Find(tables_, {9, 0}, "/a");
  pages_.Keep(NewList(), {5, 0}, "/b", PageOf(1));
  EXPECT_EQ(kept->body, "xxx");
}

}  // namespace
}  // namespace serve
