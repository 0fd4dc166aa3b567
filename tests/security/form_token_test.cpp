#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "dralo/error.h"
#include "dralo/token_callback.h"
#include "security/visited_notes.h"

namespace dralo::security {
namespace {

constexpr const char* kToken = "visitor's <own>";
constexpr const char* kTokenOfForm = "&Morvu1Token=visitor%27s+%3Cown%3E";
constexpr const char* kInput = R"(name="Morvu1Token" value="visitor&#39;s &lt;own&gt;")";
constexpr const char* kSave =
    "Morvu1FormEdit=1&Morvu1FormUpdate=1&Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1_Form_ID=1"
    "&Morvu1_Form_Title=Typed&Morvu1_Form_Body=a";
constexpr std::string_view kSaved = "1:Typed:10 2:Two:20 3:Three:30 4:Four:40";

/// A page whose function knows one token.
struct TokenPage : VisitedNotes {
  explicit TokenPage(bool is_hardened = true) : VisitedNotes(is_hardened) {
    Ask([this](const Variant& token) -> Variant {
      if (std::holds_alternative<platform::Null>(token)) return std::string(kToken);
      asked.push_back(std::get<std::string>(token));
      return asked.back() == kToken;
    });
  }

  void Ask(std::function<Variant(const Variant&)> function) {
    script = [function = std::move(function)](component::DbView& view) {
      view.Set("TokenCallback", platform::ObjectPtr(MakeTokenCallback(function)));
    };
  }

  Answer Post(std::string_view token, std::string_view query = {}) {
    return Send({.method = "POST", .query = std::string(query), .body = std::string(kSave).append(token)});
  }

  Answer Ask(std::string_view query) { return Send({.query = std::string(query)}); }

  std::vector<std::string> asked;  ///< The tokens that were posted.
};

TEST(FormToken, StandsInEachFormThatChangesARecord) {
  TokenPage page;
  EXPECT_TRUE(page.Ask("Morvu1FormDisplay=formOneRec&Morvu1FormEdit=1&Morvu1PK=1").Shows(kInput));
  EXPECT_TRUE(page.Ask("Morvu1FormDisplay=formOneRec&Morvu1FormAdd=1").Shows(kInput));
  page.script = [script = page.script](component::DbView& view) {
    view.Set("EditConfirmDeleteString", std::string("Really?"));
    script(view);
  };
  const Answer question = page.Post("&Morvu1FormDelete=1");
  EXPECT_TRUE(question.Shows("Really?&nbsp;"));
  EXPECT_TRUE(question.Shows(kInput));
}

TEST(FormToken, StandsNeitherInAGridNorInARecordNorInALink) {
  TokenPage page;
  EXPECT_FALSE(page.Ask("").Shows("Token"));
  EXPECT_FALSE(page.Ask("Morvu1FormDisplay=formOneRec&Morvu1PK=1").Shows("Token"));
  EXPECT_FALSE(page.Ask("Morvu1Token=x&morvu1token=x&Morvu2Token=x").Shows("Token"));
  page.receives_posts = true;
  const std::string location = page.Post(kTokenOfForm).Header("Location");
  EXPECT_TRUE(location.starts_with("/notes?")) << location;
  EXPECT_EQ(location.find("Token"), location.npos) << location;
}

TEST(FormToken, LetsTheVisitorsOwnFormChangeARecord) {
  TokenPage page;
  EXPECT_EQ(page.Post(kTokenOfForm).message, "");
  EXPECT_EQ(page.Notes(), kSaved);
  EXPECT_EQ(page.asked, std::vector<std::string>{kToken});
}

TEST(FormToken, RefusesAFormWithoutItAndKeepsWhatWasTyped) {
  TokenPage page;
  for (const char* token : {"", "&Morvu1Token=", "&Morvu1Token=guess"}) {
    const Answer answer = page.Post(token);
    EXPECT_EQ(answer.status, 403);
    EXPECT_EQ(answer.message.substr(0, 66),
              "Message 22: Nothing was changed: the form has expired. Send it aga");
    EXPECT_TRUE(answer.Shows("\"Typed\"")) << answer.body;
    EXPECT_TRUE(answer.Shows(kInput));
  }
  EXPECT_EQ(page.Notes(), VisitedNotes::kUnchanged);
}

TEST(FormToken, IsReadFromTheFormAloneAndOnce) {
  TokenPage page;
  EXPECT_EQ(page.Post("", std::string_view(kTokenOfForm).substr(1)).status, 403);
  EXPECT_EQ(page.Post(std::string(kTokenOfForm) + "&morvu1TOKEN=guess").status, 403);
  EXPECT_EQ(page.Notes(), VisitedNotes::kUnchanged);
}

TEST(FormToken, IsAskedForADeleteToo) {
  TokenPage page;
  const std::string body = "Morvu1FormDelete=1&Morvu1PK=1&Morvu1_Form_ID=1";
  EXPECT_EQ(page.Send({.method = "POST", .body = body}).status, 403);
  EXPECT_EQ(page.Notes(), VisitedNotes::kUnchanged);
  EXPECT_EQ(page.Send({.method = "POST", .body = body + kTokenOfForm}).message, "");
  EXPECT_EQ(page.Notes(), "2:Two:20 3:Three:30 4:Four:40");
}

TEST(FormToken, OfAnotherSiteIsNotLookedAt) {
  TokenPage page;
  const Answer answer =
      page.Send({.method = "POST", .body = std::string(kSave) + kTokenOfForm, .headers = FromEvilPage()});
  EXPECT_TRUE(answer.Shows("Message 12:"));
  EXPECT_EQ(page.Notes(), VisitedNotes::kUnchanged);
  EXPECT_TRUE(page.asked.empty());
}

TEST(FormToken, IsNoneOnAPlainPage) {
  TokenPage page(false);
  EXPECT_FALSE(page.Ask("Morvu1FormDisplay=formOneRec&Morvu1FormEdit=1&Morvu1PK=1").Shows("Token"));
  page.Post("");
  EXPECT_EQ(page.Notes(), kSaved);
  EXPECT_TRUE(page.asked.empty());
}

TEST(FormToken, FunctionThatFailsKnowsNoTokenAndLeavesThePageStanding) {
  TokenPage page;
  page.Ask([](const Variant&) -> Variant { throw platform::Error("no session"); });
  const Answer form = page.Ask("Morvu1FormDisplay=formOneRec&Morvu1FormEdit=1&Morvu1PK=1");
  EXPECT_TRUE(form.Shows("\"One\""));
  EXPECT_FALSE(form.Shows("Token"));
  EXPECT_NE(form.detail.find("no session in TokenCallback"), form.detail.npos) << form.detail;
  EXPECT_EQ(page.Post(kTokenOfForm).status, 403);
  EXPECT_EQ(page.Notes(), VisitedNotes::kUnchanged);
}

TEST(FormToken, OnlyATextIsATokenAndOnlyTrueKnowsOne) {
  TokenPage page;
  page.Ask([](const Variant&) -> Variant { return std::int64_t{1}; });
  const Answer form = page.Ask("Morvu1FormDisplay=formOneRec&Morvu1FormEdit=1&Morvu1PK=1");
  EXPECT_NE(form.detail.find("TokenCallback returned no token for null"), form.detail.npos) << form.detail;
  const Answer answer = page.Post(kTokenOfForm);
  EXPECT_EQ(answer.status, 403);
  EXPECT_NE(answer.detail.find("TokenCallback returned neither true nor false for a token"),
            answer.detail.npos)
      << answer.detail;
  EXPECT_EQ(page.Notes(), VisitedNotes::kUnchanged);
}

}  // namespace
}  // namespace dralo::security
