#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "security/notes_page.h"

namespace dralo::tests {
namespace {

void OfferEverything(NotesPage& page) {
  page.Set({{"EditOptions", "ADD UPDATE DELETE"},
            {"DeleteSQL", "DELETE FROM Notes"},
            {"EditConfirmDeleteString", "Sure, \"1\"?"},
            {"DisplayRecordsPerPageSelect", true}});
}

bool HasScript(const std::string& html) {
  return Contains(html, " onclick=") || Contains(html, " onchange=") || Contains(html, "<script") ||
         Contains(html, "javascript:") || Contains(html, " style=");
}

/// A policy of the page that forbids scripts within it must cost none of its buttons.
TEST(ScriptOfThePage, IsInNoMarkupOfAHardenedOne) {
  for (const std::string_view key : {"", "FormView", "FormEdit", "FormAdd"}) {
    for (const bool is_hardened : {false, true}) {
      NotesPage page(is_hardened);
      OfferEverything(page);
      if (!key.empty()) page.AskForRecord(key);
      EXPECT_EQ(HasScript(page.Render()), !is_hardened) << key;
      EXPECT_EQ(page.ErrorMessage(), "");
    }
  }
}

TEST(ScriptOfThePage, GivesWayToALinkThatAdds) {
  NotesPage page(true);
  OfferEverything(page);
  EXPECT_TRUE(Contains(page.Render(),
                       "<tr><td colspan=2 class=\"DraloEditBtnBar\"><a class=\"DraloInputBtn\" "
                       "href=\"/p?Morvu1FormDisplay=formOneRec&amp;Morvu1FormAdd=1&amp;"));
}

TEST(ScriptOfThePage, GivesWayToButtonsThatHaveTheirKeys) {
  NotesPage page(true);
  page.Set({{"DisplayType", "form"}, {"RecordsPerPage", 2}});
  const std::string html = page.Render();
  for (const std::string_view key : {"1", "2"}) {
    EXPECT_TRUE(
        Contains(html, "<button class=\"DraloInputBtn\" type=\"submit\" name=\"Morvu1EditPK\" value=\"" +
                           std::string(key) + "\">Edit</button>"))
        << html;
  }
  EXPECT_FALSE(Contains(html, "name=\"Morvu1PK\""));
}

TEST(ScriptOfThePage, IsNotNeededToEditTheRecordOfAButton) {
  for (const bool is_hardened : {false, true}) {
    NotesPage page(is_hardened);
    page.Post({{"EditPK", "2"}, {"FormDisplay", "formOneRec"}, {"CurrRecord", "1"}});
    const std::string html = page.Render();
    EXPECT_EQ(Contains(html, "name=\"Morvu1_Form_Title\" value=\"Two\""), is_hardened) << html;
    EXPECT_EQ(Contains(html, "name=\"Morvu1PK\" value=\"2\""), is_hardened) << html;
  }
}

TEST(ScriptOfThePage, GivesWayToAQuestionBeforeARecordIsDeleted) {
  NotesPage page(true);
  OfferEverything(page);
  page.AskForRecord("FormEdit");
  EXPECT_TRUE(
      Contains(page.Render(),
               "type=\"submit\" data-confirm=\"Sure, &quot;1&quot;?\" "
               "data-confirmed=\"Morvu1FormDeleteConfirmed\" name=\"Morvu1FormDelete\" value=\"Delete\">"));

  page.page.query.clear();
  page.Post({{"FormDelete", "Delete"}, {"FormDisplay", "formOneRec"}, {"PK", "1"}, {"_Form_ID", "1"}});
  const std::string question = page.Render();
  EXPECT_TRUE(Contains(question,
                       "Sure, &quot;1&quot;?&nbsp;<input class=\"DraloInputBtn\" type=\"submit\" "
                       "name=\"Morvu1FormDeleteConfirmed\" value=\"Delete\">"))
      << question;
  EXPECT_TRUE(Contains(question, "value=\"One\""));
  EXPECT_FALSE(Contains(question, "Morvu1FormUpdate"));
  EXPECT_EQ(page.database.Value("SELECT count(*) FROM Notes"), "4");
}

TEST(ScriptOfThePage, GivesWayToAButtonForThePageSize) {
  NotesPage page(true);
  OfferEverything(page);
  const std::string html = page.Render();
  EXPECT_TRUE(Contains(html, "<select data-submit class=\"DRLOTableRecPerPage\" name=\"Morvu1maxrecords\">"));
  EXPECT_TRUE(Contains(html,
                       "</select><noscript>&nbsp;<input class=\"DraloInputBtn\" type=\"submit\" value=\"OK\">"
                       "</noscript>"));
}

TEST(ScriptOfThePage, HasAnAddressOfThisSite) {
  for (const char* name :
       {"//evil.example/p", "/\\evil.example/p", "/\t/evil.example/p", " /\r\n/evil.example/p"}) {
    NotesPage page(true);
    page.page.script_name = name;
    const std::string html = page.Render();
    EXPECT_TRUE(Contains(html, "action=\"/evil.example/p\"")) << name;
    EXPECT_FALSE(Contains(html, "\"//")) << name;
  }
}

TEST(ScriptOfThePage, IsInNoTag) {
  for (const bool is_hardened : {false, true}) {
    for (const char* tag : {"x\"y", "", "a b", "\xC3\xA9", "a_b"}) {
      NotesPage page(is_hardened);
      page.Set("Tag", tag);
      EXPECT_EQ(page.Render() == "", is_hardened) << tag;
      EXPECT_EQ(page.ErrorMessage() == "", !is_hardened) << tag;
    }
  }
}

}  // namespace
}  // namespace dralo::tests
