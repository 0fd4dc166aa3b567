#include <gtest/gtest.h>

#include "security/visited_notes.h"

namespace dralo::security {
namespace {

/// A page with a mistake of its author, which its visitors meet.
Answer Broken(VisitedNotes& page) {
  page.script = [](component::DbView& view) {
    view.Set("sql", std::string("SELECT ID FROM Notes WHERE Ower = 7"));
    view.Set("DisplayDebug", true);
  };
  return page.Send({});
}

TEST(MessageDisclosure, ShowsTheStatementOnAPlainPage) {
  VisitedNotes page(false);
  EXPECT_TRUE(Broken(page).Shows("SELECT ID FROM Notes WHERE Ower = 7"));
}

TEST(MessageDisclosure, ShowsANumberedTextOnAHardenedPage) {
  VisitedNotes page(true);
  const Answer answer = Broken(page);

  EXPECT_EQ(answer.message, "Message 2: The request could not be carried out.<br>");
  EXPECT_FALSE(answer.Shows("Ower"));
  EXPECT_NE(answer.detail.find("Ower"), std::string::npos);
  ASSERT_EQ(page.Log().size(), 1U);
  EXPECT_EQ(page.Log().front() + "\n", answer.detail);
}

TEST(MessageDisclosure, TellsNothingOfAStatementThatCannotDelete) {
  const auto failed_delete = [](bool is_hardened) {
    VisitedNotes page(is_hardened);
    page.script = [](component::DbView& view) { view.Set("DeleteSQL", std::string("DELETE FROM Nots")); };
    return page.Send({.method = "POST",
                      .body = "Morvu1FormDelete=1&Morvu1_Form_ID=1&Morvu1PK=1&Morvu1FormDisplay=formOneRec"});
  };
  EXPECT_TRUE(failed_delete(false).Shows("Nots"));
  EXPECT_FALSE(failed_delete(true).Shows("Nots"));
  EXPECT_NE(failed_delete(true).detail.find("Nots"), std::string::npos);
}

TEST(MessageDisclosure, TellsTheAuthorThatRecordsNeedKeys) {
  VisitedNotes page(true);
  page.script = [](component::DbView& view) { view.Set("EditPrimaryKeys", std::string()); };
  const Answer answer = page.Answered({.query = "Morvu1FormDisplay=formOneRec&Morvu1PK=1"});
  EXPECT_NE(answer.detail.find("EditPrimaryKeys must name the fields that identify a record"),
            std::string::npos)
      << answer.detail;
}

}  // namespace
}  // namespace dralo::security
