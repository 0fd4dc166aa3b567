#include "dralo/page.h"

#include <gtest/gtest.h>

#include <exception>
#include <type_traits>

#include "dralo/error.h"

namespace dralo {
namespace {

// Renderers catch std::exception: what ends a page has to pass them.
static_assert(!std::is_base_of_v<std::exception, Page::Ended>);

TEST(Page, OffersTheFieldsOfQueryStringAndPostedForm) {
  const Page page("/shop.php", "a=1&b=2", "c=3");
  const Request& request = page.GetRequest();

  ASSERT_EQ(request.QueryString().size(), 2U);
  EXPECT_EQ(request.QueryString()[1].name, "b");
  EXPECT_EQ(request.QueryString()[1].value, "2");
  ASSERT_EQ(request.Form().size(), 1U);
  EXPECT_EQ(request.Form()[0].name, "c");
}

TEST(Page, HasNoPostedFormUnlessOneCame) {
  const Page page("/shop.php", "");

  EXPECT_TRUE(page.GetRequest().Form().empty());
  EXPECT_TRUE(page.GetRequest().QueryString().empty());
}

TEST(Page, KnowsItsAddressAndNoOtherServerVariable) {
  const Page page("/shop.php", "");

  EXPECT_EQ(page.GetRequest().ServerVariable("SCRIPT_NAME"), "/shop.php");
  EXPECT_EQ(page.GetRequest().ServerVariable("HTTP_HOST"), "");
}

TEST(Page, TellsMethodAndHeadersThatTheProgramHasSet) {
  Page page("/shop.php", "");
  EXPECT_EQ(page.GetRequest().Method(), "");
  EXPECT_TRUE(page.GetRequest().HeaderValues("Host").empty());

  page.method = "POST";
  page.request_headers = {{"host", "a"}, {"Origin", "b"}, {"HOST", "c"}};

  EXPECT_EQ(page.GetRequest().Method(), "POST");
  EXPECT_EQ(page.GetRequest().HeaderValues("Host"), (std::vector<std::string>{"a", "c"}));
}

/// What a rendering does with its page.
struct WrittenPage : testing::Test {
  Page page{"/shop.php", ""};
  Response& response = page.GetResponse();
};

TEST_F(WrittenPage, CollectsWhatIsWritten) {
  response.Write("<p>");
  response.Write("1</p>");

  EXPECT_EQ(page.Body(), "<p>1</p>");
}

TEST_F(WrittenPage, GivesAwayWhatWasCollectedWithoutACopy) {
  response.Write(std::string(1000, 'x'));
  const char* const collected = page.Body().data();
  const std::string taken = page.TakeBody();

  EXPECT_EQ(taken, std::string(1000, 'x'));
  EXPECT_EQ(taken.data(), collected);
  EXPECT_EQ(page.Body(), "");
}

TEST_F(WrittenPage, DropsWhatWasCollectedWhenCleared) {
  response.Write("<p>");
  response.Clear();
  response.Write("<b>");

  EXPECT_EQ(page.Body(), "<b>");
}

TEST_F(WrittenPage, IsHtmlUntilToldOtherwise) {
  EXPECT_EQ(page.ContentType(), "text/html; charset=utf-8");

  response.SetContentType("application/vnd.ms-excel");
  EXPECT_EQ(page.ContentType(), "application/vnd.ms-excel");
}

TEST_F(WrittenPage, KeepsHeadersInTheirOrder) {
  response.AddHeader("X-B", "1");
  response.AddHeader("X-A", "2");

  using Headers = std::vector<std::pair<std::string, std::string>>;
  EXPECT_EQ(page.Headers(), (Headers{{"X-B", "1"}, {"X-A", "2"}}));
}

TEST_F(WrittenPage, EndsByAnExceptionThatKeepsWhatWasWritten) {
  response.Write("<p>");

  EXPECT_THROW(response.End(), Page::Ended);
  EXPECT_EQ(page.Body(), "<p>");
}

TEST_F(WrittenPage, HasAStatus) {
  EXPECT_EQ(page.Status(), 200);

  response.SetStatus(404);
  EXPECT_EQ(page.Status(), 404);
}

TEST_F(WrittenPage, IsEndedByARedirectThatDropsWhatWasWritten) {
  response.Write("<p>");

  EXPECT_THROW(response.Redirect("/shop.php?a=1"), Page::Ended);

  using Headers = std::vector<std::pair<std::string, std::string>>;
  EXPECT_EQ(page.Status(), 303);
  EXPECT_EQ(page.Headers(), (Headers{{"Location", "/shop.php?a=1"}}));
  EXPECT_EQ(page.Body(), "");
}

TEST_F(WrittenPage, SendsPiecesOnWithHeadersCompleteInsteadOfCollectingThem) {
  std::vector<std::string> pieces;
  page.send = [&](const Page& sent, std::string_view piece) {
    EXPECT_EQ(sent.ContentType(), "text/plain");
    pieces.emplace_back(piece);
  };
  response.SetContentType("text/plain");
  response.Write("one");
  response.Write("two");

  EXPECT_EQ(pieces, (std::vector<std::string>{"one", "two"}));
  EXPECT_EQ(page.Body(), "");
}

TEST_F(WrittenPage, ChangesNeitherHeadersNorBodyOnceSomethingWasSent) {
  page.send = [](const Page&, std::string_view) {};
  response.Clear();
  EXPECT_TRUE(response.HasUnsentHeaders());
  response.Write("one");

  EXPECT_FALSE(response.HasUnsentHeaders());
  EXPECT_THROW(response.SetStatus(404), Error);
  EXPECT_THROW(response.Redirect("/"), Error);
  EXPECT_EQ(page.Status(), 200);
  EXPECT_THROW(response.Clear(), Error);
  EXPECT_THROW(response.SetContentType("text/plain"), Error);
  EXPECT_THROW(response.AddHeader("X-A", "1"), Error);
  EXPECT_EQ(page.ContentType(), "text/html; charset=utf-8");
  EXPECT_TRUE(page.Headers().empty());
}

TEST_F(WrittenPage, CountsAsSentWhenSendingFailed) {
  page.send = [](const Page&, std::string_view) { throw std::runtime_error("the client is gone"); };

  EXPECT_THROW(response.Write("one"), std::runtime_error);
  EXPECT_THROW(response.Clear(), Error);
}

}  // namespace
}  // namespace dralo
