#include "state/sender.h"

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <utility>

#include "support/fake_page.h"
#include "support/named_cases.h"

namespace dralo::state {
namespace {

using Headers = std::vector<std::pair<std::string, std::string>>;

const std::array<std::string, 2> kTrusted = {"https://partner.example", "http://lab.example:8080"};

tests::FakePage PageWith(Headers headers) {
  tests::FakePage page;
  page.headers = std::move(headers);
  return page;
}

struct SenderCase {
  std::string name;
  Headers headers;  ///< Besides "Host: shop.example".
  Sender sender;

  friend std::ostream& operator<<(std::ostream& out, const SenderCase& row) { return out << row.name; }
};

class SenderOfPost : public testing::TestWithParam<SenderCase> {};

TEST_P(SenderOfPost, IsWhatItsHeadersSay) {
  Headers headers = GetParam().headers;
  headers.emplace_back("Host", "shop.example");
  const tests::FakePage page = PageWith(headers);

  EXPECT_EQ(SenderOf(page.GetRequest(), kTrusted), GetParam().sender);
}

constexpr const char* kSite = "Sec-Fetch-Site";

INSTANTIATE_TEST_SUITE_P(
    SenderOf, SenderOfPost,
    testing::Values(
        SenderCase{"SameOrigin", {{kSite, "same-origin"}}, Sender::kOwn},
        SenderCase{"SameOriginUnderNoReferrer", {{kSite, "same-origin"}, {"Origin", "null"}}, Sender::kOwn},
        SenderCase{"SameOriginWhateverTheOrigin",
                   {{kSite, "same-origin"}, {"Origin", "https://evil.example"}},
                   Sender::kOwn},
        SenderCase{"TheVisitorHimself", {{kSite, "none"}}, Sender::kOwn},
        SenderCase{"CrossSiteOfATrustedOrigin",
                   {{kSite, "cross-site"}, {"Origin", "https://partner.example"}},
                   Sender::kOwn},
        SenderCase{"SameSiteOfATrustedOrigin",
                   {{kSite, "same-site"}, {"Origin", "http://lab.example:8080"}},
                   Sender::kOwn},
        SenderCase{
            "CrossSite", {{kSite, "cross-site"}, {"Origin", "https://evil.example"}}, Sender::kForeign},
        SenderCase{"CrossSiteWithoutOrigin", {{kSite, "cross-site"}}, Sender::kForeign},
        SenderCase{"CrossSiteOfNobody", {{kSite, "cross-site"}, {"Origin", "null"}}, Sender::kForeign},
        SenderCase{"CrossSiteWithTheOwnOrigin",
                   {{kSite, "cross-site"}, {"Origin", "https://shop.example"}},
                   Sender::kForeign},
        SenderCase{
            "SameSite", {{kSite, "same-site"}, {"Origin", "https://www.shop.example"}}, Sender::kForeign},
        SenderCase{"AnyOtherWord", {{kSite, "same-planet"}}, Sender::kForeign},
        SenderCase{"AnEmptyWord", {{kSite, ""}}, Sender::kForeign},
        SenderCase{"TheWordInOtherLetters", {{kSite, "Same-Origin"}}, Sender::kForeign},
        SenderCase{"TheWordTwiceInOneLine", {{kSite, "same-origin, same-origin"}}, Sender::kForeign},
        SenderCase{"TheWordTwice", {{kSite, "same-origin"}, {kSite, "same-origin"}}, Sender::kForeign}),
    tests::kByName);

INSTANTIATE_TEST_SUITE_P(
    SenderOfOrigin, SenderOfPost,
    testing::Values(
        SenderCase{"OwnOrigin", {{"Origin", "https://shop.example"}}, Sender::kOwn},
        SenderCase{"OwnOriginOverHttp", {{"Origin", "http://SHOP.example:80"}}, Sender::kOwn},
        SenderCase{"OwnOriginWithTheDefaultPort", {{"Origin", "https://shop.example:443"}}, Sender::kOwn},
        SenderCase{"TrustedOrigin", {{"Origin", "https://partner.example"}}, Sender::kOwn},
        SenderCase{"OwnOriginWithForeignReferer",
                   {{"Origin", "https://shop.example"}, {"Referer", "https://evil.example/"}},
                   Sender::kOwn},
        SenderCase{
            "TrustedOriginOverAnotherScheme", {{"Origin", "http://partner.example"}}, Sender::kForeign},
        SenderCase{"TrustedOriginWithASlash", {{"Origin", "https://partner.example/"}}, Sender::kForeign},
        SenderCase{"OtherPort", {{"Origin", "https://shop.example:8443"}}, Sender::kForeign},
        SenderCase{"PortOfTheOtherScheme", {{"Origin", "https://shop.example:80"}}, Sender::kForeign},
        SenderCase{"OtherHost", {{"Origin", "https://shop.example.evil.example"}}, Sender::kForeign},
        SenderCase{"HostAsAName", {{"Origin", "https://shop.example@evil.example"}}, Sender::kForeign},
        SenderCase{"NullOrigin", {{"Origin", "null"}}, Sender::kForeign},
        SenderCase{"NullOriginWithOwnReferer",
                   {{"Origin", "null"}, {"Referer", "https://shop.example/"}},
                   Sender::kForeign},
        SenderCase{"EmptyOrigin", {{"Origin", ""}}, Sender::kForeign},
        SenderCase{"OriginTwiceInOneLine",
                   {{"Origin", "https://shop.example, https://shop.example"}},
                   Sender::kForeign},
        SenderCase{"OriginTwice",
                   {{"Origin", "https://shop.example"}, {"Origin", "https://shop.example"}},
                   Sender::kForeign}),
    tests::kByName);

INSTANTIATE_TEST_SUITE_P(
    SenderOfReferer, SenderOfPost,
    testing::Values(
        SenderCase{"OwnReferer", {{"Referer", "https://shop.example/p?a=1,2"}}, Sender::kOwn},
        SenderCase{"OwnRefererWithoutPath", {{"Referer", "http://shop.example?a"}}, Sender::kOwn},
        SenderCase{
            "OtherReferer", {{"Referer", "https://evil.example/?https://shop.example/"}}, Sender::kForeign},
        SenderCase{"RefererOfAName", {{"Referer", "https://shop.example:x@evil.example/"}}, Sender::kForeign},
        SenderCase{"TrustedReferer", {{"Referer", "https://partner.example/"}}, Sender::kForeign},
        SenderCase{"RefererThatIsNone", {{"Referer", "shop.example"}}, Sender::kForeign},
        SenderCase{"EmptyReferer", {{"Referer", ""}}, Sender::kForeign},
        SenderCase{"RefererTwiceInOneLine",
                   {{"Referer", "https://shop.example/, https://evil.example/"}},
                   Sender::kForeign},
        SenderCase{"RefererTwice",
                   {{"Referer", "https://shop.example/"}, {"Referer", "https://shop.example/"}},
                   Sender::kForeign},
        SenderCase{"Nothing", {}, Sender::kUnknown}),
    tests::kByName);

TEST(SenderOf, IsForeignWhereTheHostIsNoName) {
  for (const std::string host : {"", "shop.example, shop.example", "shop.example/", "shop_example", "a\nb"}) {
    const auto page = PageWith({{kSite, "same-origin"}, {"Host", host}});
    EXPECT_EQ(SenderOf(page.GetRequest(), {}), Sender::kForeign) << host;
  }
  const auto twice = PageWith({{kSite, "same-origin"}, {"Host", "a"}, {"Host", "a"}});
  EXPECT_EQ(SenderOf(twice.GetRequest(), {}), Sender::kForeign);
}

TEST(SenderOf, ComparesHostsWithTheirPorts) {
  const auto sender = [](std::string host, std::string origin) {
    return SenderOf(PageWith({{"Host", std::move(host)}, {"Origin", std::move(origin)}}).GetRequest(), {});
  };
  EXPECT_EQ(sender("127.0.0.1:8080", "http://127.0.0.1:8080"), Sender::kOwn);
  EXPECT_EQ(sender("[::1]:8080", "http://[::1]:8080"), Sender::kOwn);
  EXPECT_EQ(sender("shop.example:443", "https://shop.example"), Sender::kOwn);
  EXPECT_EQ(sender("shop.example:8080", "http://shop.example"), Sender::kForeign);
  EXPECT_EQ(SenderOf(PageWith({{"Origin", "http://shop.example"}}).GetRequest(), {}), Sender::kForeign);
}

TEST(SenderOf, NeverTrustsNobody) {
  const std::array<std::string, 1> trusted = {"null"};
  const auto page = PageWith({{"Host", "a"}, {"Origin", "null"}});
  EXPECT_EQ(SenderOf(page.GetRequest(), trusted), Sender::kForeign);
}

TEST(IsForHost, TakesAnyHostWithoutAList) {
  EXPECT_TRUE(IsForHost(PageWith({{"Host", "evil.example"}}).GetRequest(), {}));
  EXPECT_TRUE(IsForHost(PageWith({}).GetRequest(), {}));
}

TEST(IsForHost, TakesTheHostsOfTheListOnly) {
  const std::array<std::string, 3> hosts = {"shop.example", "lab.example:8080", "[::1]"};
  const auto is_for = [&](Headers headers) {
    return IsForHost(PageWith(std::move(headers)).GetRequest(), hosts);
  };
  EXPECT_TRUE(is_for({{"Host", "Shop.Example"}}));
  EXPECT_TRUE(is_for({{"Host", "shop.example:8443"}}));
  EXPECT_TRUE(is_for({{"Host", "lab.example:8080"}}));
  EXPECT_TRUE(is_for({{"Host", "[::1]"}}));
  EXPECT_TRUE(is_for({{"Host", "[::1]:80"}}));
  EXPECT_FALSE(is_for({{"Host", "lab.example"}}));
  EXPECT_FALSE(is_for({{"Host", "www.shop.example"}}));
  EXPECT_FALSE(is_for({{"Host", "shop.example."}}));
  EXPECT_FALSE(is_for({{"Host", "shop.example"}, {"Host", "shop.example"}}));
  EXPECT_FALSE(is_for({}));
}

}  // namespace
}  // namespace dralo::state
