#include <gtest/gtest.h>

#include <string>

#include "security/visited_notes.h"

namespace dralo::security {
namespace {

constexpr std::size_t kMany = 500'000;

/// A search of the page's own, much too long.
std::size_t SizeOfPage(bool is_hardened, const std::string& name, std::size_t bytes) {
  const Visit visit{.method = "POST", .body = name + "=" + std::string(bytes, '<')};
  return VisitedNotes(is_hardened).Send(visit).body.size();
}

TEST(TravellingBudget, IsNoneOnAPlainPage) { EXPECT_GT(SizeOfPage(false, "Search", kMany), 8 * kMany); }

TEST(TravellingBudget, KeepsAHardenedPageSmall) {
  const std::size_t usual = SizeOfPage(true, "Search", 1);
  EXPECT_LT(SizeOfPage(true, "Search", kMany), usual + 100);
  for (const std::size_t bytes : {100U, 1'000U, 4'000U, 10'000U, 21'000U, 60'000U}) {
    EXPECT_LT(SizeOfPage(true, "Search", bytes), usual + 2 * 65'536) << bytes;
  }
}

TEST(TravellingBudget, CountsManySmallFieldsTogether) {
  std::string body;
  for (int i = 0; i < 900; ++i) body += "f" + std::to_string(i) + "=" + std::string(200, 'x') + "&";
  const auto size = [&](bool is_hardened) {
    return VisitedNotes(is_hardened).Send({.method = "POST", .body = body}).body.size();
  };
  EXPECT_GT(size(false), 1'000'000U);
  EXPECT_LT(size(true), 150'000U);
}

TEST(TravellingBudget, CountsNamesToo) {
  const auto travels = [](bool is_hardened, std::size_t bytes) {
    return VisitedNotes(is_hardened).Send({.query = std::string(bytes, 'n') + "=here"}).Shows("=here");
  };
  EXPECT_TRUE(travels(false, 65));
  EXPECT_FALSE(travels(true, 65));
  EXPECT_TRUE(travels(true, 64));
}

}  // namespace
}  // namespace dralo::security
