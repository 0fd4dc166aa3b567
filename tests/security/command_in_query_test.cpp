#include <gtest/gtest.h>

#include "security/visited_notes.h"

namespace dralo::security {
namespace {

/// A link of the attacker, and in it a form of the page's own without an action, such as its search.
std::string NotesAfterAnInnocentPost(bool is_hardened) {
  VisitedNotes page(is_hardened);
  page.Send(
      {.method = "POST", .query = "Morvu1FormDelete=1&Morvu1_Form_ID=1&Morvu1PK=1", .body = "Search=x"});
  return page.Notes();
}

TEST(CommandInQuery, DeletesByAnInnocentPostToAPlainPage) {
  EXPECT_EQ(NotesAfterAnInnocentPost(false), "2:Two:20 3:Three:30 4:Four:40");
}

TEST(CommandInQuery, DoesNothingToAHardenedPage) {
  EXPECT_EQ(NotesAfterAnInnocentPost(true), VisitedNotes::kUnchanged);
}

/// The command is posted, but the attacker's link says of which record.
std::string NotesAfterAForeignKey(bool is_hardened) {
  VisitedNotes page(is_hardened);
  page.Send({.method = "POST", .query = "Morvu1_Form_ID=1&Morvu1PK=1", .body = "Morvu1FormDelete=1"});
  return page.Notes();
}

TEST(KeyInQuery, IsTheKeyOfACommandOnAPlainPage) {
  EXPECT_EQ(NotesAfterAForeignKey(false), "2:Two:20 3:Three:30 4:Four:40");
}

TEST(KeyInQuery, IsNoKeyOfACommandOnAHardenedPage) {
  EXPECT_EQ(NotesAfterAForeignKey(true), VisitedNotes::kUnchanged);
}

/// A field of the form in two letter cases, of which a filter before the page may have looked at the other.
std::string NotesAfterARepeatedField(bool is_hardened) {
  VisitedNotes page(is_hardened);
  page.Send({.method = "POST",
             .body = "Morvu1FormUpdate=1&Morvu1PK=1&Morvu1_Form_ID=1&Morvu1_Form_Title=Evil"
                     "&Morvu1_Form_Body=a&morvu1_form_title=Good"});
  return page.Notes();
}

TEST(RepeatedField, IsSavedByAPlainPage) {
  EXPECT_EQ(NotesAfterARepeatedField(false), "1:Evil:10 2:Two:20 3:Three:30 4:Four:40");
}

TEST(RepeatedField, IsRefusedByAHardenedPage) {
  EXPECT_EQ(NotesAfterARepeatedField(true), VisitedNotes::kUnchanged);
}

}  // namespace
}  // namespace dralo::security
