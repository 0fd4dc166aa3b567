#include <gtest/gtest.h>

#include "security/visited_notes.h"

namespace dralo::security {
namespace {

constexpr const char* kForged = "Morvu1Done=d";
constexpr const char* kDoneText = "[Record deleted]";

TEST(ForgedOutcome, IsNotShownForALinkOfAnotherSite) {
  VisitedNotes page(true);
  for (const char* relation : {"cross-site", "same-site", "none", ""}) {
    EXPECT_FALSE(page.Send({.query = kForged, .headers = {{"Sec-Fetch-Site", relation}}}).Shows(kDoneText))
        << relation;
  }
  EXPECT_FALSE(page.Send({.query = "Morvu1Done=<script>"}).Shows("<script>"));
}

TEST(ForgedOutcome, IsNotKnownToAPlainPage) {
  EXPECT_FALSE(VisitedNotes(false).Send({.query = kForged}).Shows(kDoneText));
}

TEST(TrueOutcome, IsShownBehindTheRedirect) {
  VisitedNotes page(true);
  page.receives_posts = true;
  const Answer redirect = page.Send(
      {.method = "POST", .body = "Morvu1FormDelete=1&Morvu1_Form_ID=1&Morvu1PK=1&Morvu1CurrRecord=1"});
  EXPECT_EQ(redirect.status, 303);
  EXPECT_EQ(redirect.body, "");
  const std::string location = redirect.Header("Location");
  ASSERT_TRUE(location.starts_with("/notes?")) << location;

  const Answer answer = page.Send({.query = location.substr(7)});
  EXPECT_TRUE(answer.Shows(kDoneText)) << location;
  EXPECT_EQ(page.Notes(), "2:Two:20 3:Three:30 4:Four:40");
}

}  // namespace
}  // namespace dralo::security
