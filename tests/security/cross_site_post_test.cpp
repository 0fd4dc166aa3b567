#include <gtest/gtest.h>

#include <ostream>

#include "security/visited_notes.h"
#include "support/named_cases.h"

namespace dralo::security {
namespace {

constexpr const char* kDeletePost = "Morvu1FormDelete=1&Morvu1_Form_ID=1&Morvu1PK=1";
constexpr std::string_view kAfterDelete = "2:Two:20 3:Three:30 4:Four:40";
constexpr const char* kRelation = "Sec-Fetch-Site";

/// A row of the table: who may change, by the headers that came besides Host and Content-Type.
struct Row {
  std::string name;
  Headers headers;
  bool is_allowed;

  friend std::ostream& operator<<(std::ostream& out, const Row& row) { return out << row.name; }
};

Visit Post(const Headers& headers) {
  Visit visit{.method = "POST",
              .body = kDeletePost,
              .headers = {{"Host", "notes.example"}, {"Content-Type", "application/x-www-form-urlencoded"}}};
  visit.headers.insert(visit.headers.end(), headers.begin(), headers.end());
  return visit;
}

class CrossSitePost : public testing::TestWithParam<Row> {};

TEST_P(CrossSitePost, ChangesAPlainPage) {
  VisitedNotes page(false);
  EXPECT_EQ(page.Send(Post(GetParam().headers)).status, 200);
  EXPECT_EQ(page.Notes(), kAfterDelete);
}

TEST_P(CrossSitePost, ChangesAHardenedPageOnlyWhenAllowed) {
  VisitedNotes page(true);
  page.Site().trusted_origins = {"https://partner.example"};
  const Answer answer = page.Send(Post(GetParam().headers));

  EXPECT_EQ(page.Notes(), GetParam().is_allowed ? kAfterDelete : VisitedNotes::kUnchanged);
  EXPECT_EQ(answer.status == 403, !GetParam().is_allowed);
  EXPECT_EQ(answer.message.empty(), GetParam().is_allowed);
}

INSTANTIATE_TEST_SUITE_P(
    Table, CrossSitePost,
    testing::Values(
        Row{"OwnPage", {{kRelation, "same-origin"}}, true}, Row{"AddressBar", {{kRelation, "none"}}, true},
        Row{"OwnPageUnderNoReferrer", {{kRelation, "same-origin"}, {"Origin", "null"}}, true},
        Row{"TrustedOrigin", {{kRelation, "cross-site"}, {"Origin", "https://partner.example"}}, true},
        Row{"EvilOrigin", {{kRelation, "cross-site"}, {"Origin", "https://evil.example"}}, false},
        Row{"Subdomain", {{kRelation, "same-site"}, {"Origin", "https://www.notes.example"}}, false},
        Row{"Sandbox", {{kRelation, "cross-site"}, {"Origin", "null"}}, false},
        Row{"UnknownWord", {{kRelation, "friendly"}}, false},
        Row{"OldBrowserOwnOrigin", {{"Origin", "http://notes.example"}}, true},
        Row{"OldBrowserTrustedOrigin", {{"Origin", "https://partner.example"}}, true},
        Row{"OldBrowserEvilOrigin", {{"Origin", "https://evil.example"}}, false},
        Row{"OldBrowserNullOrigin", {{"Origin", "null"}}, false},
        Row{"OldBrowserOwnReferer", {{"Referer", "https://notes.example/notes"}}, true},
        Row{"OldBrowserEvilReferer", {{"Referer", "https://evil.example/notes.example"}}, false},
        Row{"NoBrowser", {}, false},
        Row{"TwoOrigins", {{"Origin", "https://notes.example"}, {"Origin", "https://evil.example"}}, false},
        Row{"TwoHosts", {{kRelation, "same-origin"}, {"Host", "evil.example"}}, false}),
    tests::kByName);

TEST(HostName, OfAnotherIsAnsweredByAPlainPage) {
  VisitedNotes page(false);
  page.Site().hosts = {"notes.example"};
  const Answer answer = page.Send({.headers = {{"Host", "rebound.example"}, {kRelation, "same-origin"}}});
  EXPECT_EQ(answer.status, 200);
  EXPECT_TRUE(answer.Shows("One"));
}

TEST(HostName, OfAnotherIsNotAnsweredByAHardenedPage) {
  VisitedNotes page(true);
  page.Site().hosts = {"notes.example"};
  for (const char* query : {"", "Morvu1ToExcel.x=1", "Morvu1FormDisplay=formOneRec&Morvu1PK=1"}) {
    const Answer answer =
        page.Send({.query = query, .headers = {{"Host", "rebound.example"}, {kRelation, "same-origin"}}});
    EXPECT_EQ(answer.status, 421) << query;
    EXPECT_EQ(answer.body, "") << query;
  }
  Visit visit = Post({{kRelation, "same-origin"}});
  visit.headers.front().second = "rebound.example";
  EXPECT_EQ(page.Send(visit).status, 421);
  EXPECT_EQ(page.Notes(), VisitedNotes::kUnchanged);
  EXPECT_EQ(page.Send({}).status, 200);
}

}  // namespace
}  // namespace dralo::security
