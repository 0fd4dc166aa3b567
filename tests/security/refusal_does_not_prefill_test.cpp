#include <gtest/gtest.h>

#include "security/visited_notes.h"

namespace dralo::security {
namespace {

constexpr const char* kSave =
    "Morvu1FormEdit=1&Morvu1FormUpdate=1&Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1_Form_ID=1"
    "&Morvu1_Form_Title=Typed+elsewhere&Morvu1_Form_Body=a";

/// A refusal whose form held what the attacker typed would need one click of the visitor to be saved.
TEST(Refusal, ShowsTheRecordAsItIsStored) {
  VisitedNotes page(true);
  const Answer answer = page.Send({.method = "POST", .body = kSave, .headers = FromEvilPage()});

  EXPECT_EQ(answer.status, 403);
  EXPECT_EQ(page.Notes(), VisitedNotes::kUnchanged);
  EXPECT_FALSE(answer.Shows("Typed elsewhere"));
  EXPECT_TRUE(answer.Shows("\"One\"")) << answer.body;
  EXPECT_TRUE(answer.Shows("Message 12:"));
}

TEST(Refusal, ShowsNoNewRecordThatAnotherSiteTyped) {
  VisitedNotes page(true);
  const Answer answer =
      page.Send({.method = "POST",
                 .body = "Morvu1FormEdit=1&Morvu1FormInsert=1&Morvu1FormUpdate=1&Morvu1FormAdd=1"
                         "&Morvu1FormDisplay=formOneRec&Morvu1_Form_Title=Typed+elsewhere",
                 .headers = FromEvilPage()});

  EXPECT_EQ(answer.status, 403);
  EXPECT_FALSE(answer.Shows("Typed elsewhere"));
}

TEST(Refusal, ReturnsWhatAScriptWithoutHeadersTyped) {
  VisitedNotes page(true);
  const Answer answer = page.Send(
      {.method = "POST",
       .body = kSave,
       .headers = {{"Host", "notes.example"}, {"Content-Type", "application/x-www-form-urlencoded"}}});

  EXPECT_EQ(answer.status, 403);
  EXPECT_EQ(page.Notes(), VisitedNotes::kUnchanged);
  EXPECT_TRUE(answer.Shows("Typed elsewhere"));
  EXPECT_TRUE(answer.Shows("Message 13:"));
}

TEST(Refusal, IsNoneOnAPlainPage) {
  VisitedNotes page(false);
  EXPECT_EQ(page.Send({.method = "POST", .body = kSave, .headers = FromEvilPage()}).status, 200);
  EXPECT_EQ(page.Notes(), "1:Typed elsewhere:10 2:Two:20 3:Three:30 4:Four:40");
}

}  // namespace
}  // namespace dralo::security
