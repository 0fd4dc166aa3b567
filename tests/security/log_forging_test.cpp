#include <gtest/gtest.h>

#include <algorithm>

#include "security/visited_notes.h"

namespace dralo::security {
namespace {

constexpr const char* kOrder = "Morvu1OrderByFields=Nobody%0Aadmin+logged+in%1B[2J%E2%80%A8";

TEST(LogForging, WritesASecondLineWhereAPlainPageLogsItsMessage) {
  VisitedNotes page(false);
  page.script = [](component::DbView& view) { view.Set("DisplayDebug", true); };
  EXPECT_TRUE(page.Send({.query = kOrder}).message.find("\nadmin logged in") != std::string::npos);
}

TEST(LogForging, WritesNoSecondLineIntoTheLogOfAHardenedPage) {
  VisitedNotes page(true);
  page.Send(
      {.method = "POST",
       .body = "Morvu1FormDelete=1",
       .headers = {{"Referer", "https://a\nadmin logged in"}, {"Content-Type", "multipart/form-data"}}});
  ASSERT_FALSE(page.Log().empty());
  for (const std::string& line : page.Log()) {
    EXPECT_TRUE(std::ranges::all_of(line, [](char c) { return static_cast<unsigned char>(c) >= 0x20; }))
        << line;
    EXPECT_LE(line.size(), 2'000U);
  }
  EXPECT_NE(page.Log().front().find("\\x0Aadmin logged in"), std::string::npos) << page.Log().front();
}

}  // namespace
}  // namespace dralo::security
