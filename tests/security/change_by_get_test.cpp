#include <gtest/gtest.h>

#include "security/visited_notes.h"

namespace dralo::security {
namespace {

constexpr const char* kDeleteByLink = "Morvu1FormDelete=1&Morvu1_Form_ID=1&Morvu1PK=1";

std::string NotesAfter(bool is_hardened, const Visit& visit) {
  VisitedNotes page(is_hardened);
  page.Send(visit);
  return page.Notes();
}

TEST(ChangeByLink, DeletesOnAPlainPage) {
  EXPECT_EQ(NotesAfter(false, {.query = kDeleteByLink}), "2:Two:20 3:Three:30 4:Four:40");
}

TEST(ChangeByLink, DoesNothingToAHardenedPage) {
  EXPECT_EQ(NotesAfter(true, {.query = kDeleteByLink}), VisitedNotes::kUnchanged);
  EXPECT_EQ(NotesAfter(true, {.method = "HEAD", .query = kDeleteByLink}), VisitedNotes::kUnchanged);
}

TEST(ChangeByLink, BlanksFieldsOnAPlainPage) {
  VisitedNotes page(false);
  page.Send({.query = "Morvu1FormUpdate=1&Morvu1_Form_ID=1&Morvu1PK=1"});
  EXPECT_EQ(page.Notes(), "2:Two:20 3:Three:30 4:Four:40") << "the note without a title is left out";
}

TEST(ChangeByLink, BlanksNothingOnAHardenedPage) {
  EXPECT_EQ(NotesAfter(true, {.query = "Morvu1FormUpdate=1&Morvu1_Form_ID=1&Morvu1PK=1"}),
            VisitedNotes::kUnchanged);
}

TEST(ChangeByOtherMethod, DeletesOnAPlainPageOnly) {
  for (const char* method : {"GET", "HEAD", "PUT", "PATCH", "DELETE"}) {
    const Visit visit{.method = method, .body = kDeleteByLink};
    EXPECT_EQ(NotesAfter(false, visit), "2:Two:20 3:Three:30 4:Four:40") << method;
    EXPECT_EQ(NotesAfter(true, visit), VisitedNotes::kUnchanged) << method;
  }
}

TEST(ChangeByOtherBody, DeletesOnAPlainPageOnly) {
  Visit visit{.method = "POST", .body = kDeleteByLink};
  visit.headers.back() = {"Content-Type", "text/plain"};
  EXPECT_EQ(NotesAfter(false, visit), "2:Two:20 3:Three:30 4:Four:40");
  EXPECT_EQ(NotesAfter(true, visit), VisitedNotes::kUnchanged);
}

TEST(ChangeByOwnForm, IsMadeInBothModes) {
  for (const bool is_hardened : {false, true}) {
    EXPECT_EQ(NotesAfter(is_hardened, {.method = "POST", .body = kDeleteByLink}),
              "2:Two:20 3:Three:30 4:Four:40");
  }
}

}  // namespace
}  // namespace dralo::security
