#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "security/notes_page.h"

namespace dralo::tests {
namespace {

/// Whether a link that brings the field makes it travel into the form that its visitor posts.
bool Travels(bool is_hardened, std::string_view name) {
  NotesPage page(is_hardened);
  page.AskForRecord("FormEdit");
  page.page.query.push_back({std::string(name), "planted"});
  return Contains(page.Render(), "value=\"planted\"");
}

TEST(PlantedFields, TravelIntoTheFormOfThePlainPageAlone) {
  for (const std::string_view name :
       {"morvu1_Form_Approved", "MORVU1_FORM_LINK", "mOrvu1PK", "morvu1FormInsert", "Morvu2_Form_Link",
        "morvu2PK", "Morvu2FormInsert", "Morvu2EditPK", "Morvu2_Was_Link", "Morvu2FormDeleteConfirmed"}) {
    EXPECT_TRUE(Travels(false, name)) << name;
    EXPECT_FALSE(Travels(true, name)) << name;
  }
}

TEST(PlantedFields, LeaveThePagesOwnFieldsAndTheLookOfOtherViews) {
  for (const std::string_view name : {"Search", "Morv", "Morvu2CurrRecord", "Morvu2OrderByFields",
                                      "Morvu2FormDisplay", "morvu2maxrecords", "XMorvu1PK", "a_Form_b"}) {
    EXPECT_TRUE(Travels(true, name)) << name;
  }
}

TEST(PlantedFields, StayInTheirAttributesAndLinks) {
  NotesPage page(true);
  page.page.query.push_back({"a\"'<b", "\"'<c"});
  const std::string html = page.Render();
  EXPECT_TRUE(Contains(html, "name=\"a&quot;&#39;&lt;b\" value=\"&quot;&#39;&lt;c\"")) << html;
  EXPECT_TRUE(Contains(html, "&amp;a%22%27%3Cb=%22%27%3Cc")) << html;
}

}  // namespace
}  // namespace dralo::tests
