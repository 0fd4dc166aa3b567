#include "hosts/cpp/url_encoded.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace dralo::host {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

Pairs Parsed(std::string_view text) {
  Pairs pairs;
  for (const platform::RequestField& field : ParseUrlEncoded(text))
    pairs.emplace_back(field.name, field.value);
  return pairs;
}

TEST(ParseUrlEncoded, YieldsFieldsInTheirOrderAndKeepsRepeatedNames) {
  EXPECT_EQ(Parsed("b=1&a=2&b=3"), (Pairs{{"b", "1"}, {"a", "2"}, {"b", "3"}}));
}

TEST(ParseUrlEncoded, KeepsNamesAsTheyAre) {
  EXPECT_EQ(Parsed("Morvu1NEXT.x=0&a[]=1&a b=2&%20c=3"),
            (Pairs{{"Morvu1NEXT.x", "0"}, {"a[]", "1"}, {"a b", "2"}, {" c", "3"}}));
}

TEST(ParseUrlEncoded, DecodesNamesAndValues) {
  EXPECT_EQ(Parsed("S%C3%B8k=O%27Hara+%26+S%c3%b8n%2B"), (Pairs{{"Søk", "O'Hara & Søn+"}}));
}

TEST(ParseUrlEncoded, SkipsEmptyPairs) {
  EXPECT_EQ(Parsed("&a=b"), (Pairs{{"a", "b"}}));
  EXPECT_EQ(Parsed("a=1&&b=2&"), (Pairs{{"a", "1"}, {"b", "2"}}));
  EXPECT_EQ(Parsed("&&&"), Pairs{});
  EXPECT_EQ(Parsed(""), Pairs{});
}

TEST(ParseUrlEncoded, SkipsFieldsWithoutAName) { EXPECT_EQ(Parsed("=1&a=2&="), (Pairs{{"a", "2"}})); }

TEST(ParseUrlEncoded, GivesANameWithoutValueAnEmptyOne) {
  EXPECT_EQ(Parsed("a&b=&c"), (Pairs{{"a", ""}, {"b", ""}, {"c", ""}}));
}

TEST(ParseUrlEncoded, SplitsAtTheFirstEqualsSignOnly) {
  EXPECT_EQ(Parsed("a=b=c&d=="), (Pairs{{"a", "b=c"}, {"d", "="}}));
  EXPECT_EQ(Parsed("a%3Db=c%26d"), (Pairs{{"a=b", "c&d"}}));
}

TEST(ParseUrlEncoded, KeepsAPercentSignThatNoTwoHexadecimalDigitsFollow) {
  EXPECT_EQ(Parsed("a=%&b=%4&c=%zz&d=%4z&e=100%25&f=%%41&g=%+1&h=%-1&i=%0x"), (Pairs{{"a", "%"},
                                                                                     {"b", "%4"},
                                                                                     {"c", "%zz"},
                                                                                     {"d", "%4z"},
                                                                                     {"e", "100%"},
                                                                                     {"f", "%A"},
                                                                                     {"g", "% 1"},
                                                                                     {"h", "%-1"},
                                                                                     {"i", "%0x"}}));
}

TEST(ParseUrlEncoded, AcceptsAnyBytes) {
  const std::string text("\xFF\x00=\x80%00%FF\r\n", 12);
  const std::string name("\xFF\x00", 2);
  const std::string value("\x80\x00\xFF\r\n", 5);

  EXPECT_EQ(Parsed(text), (Pairs{{name, value}}));
}

TEST(ParseUrlEncoded, DecodesWhatTheViewsEncode) {
  for (int byte = 0; byte < 256; ++byte) {
    char escape[8];
    std::snprintf(escape, sizeof escape, "a=%%%02x", static_cast<unsigned>(byte));
    EXPECT_EQ(Parsed(escape), (Pairs{{"a", std::string(1, static_cast<char>(byte))}}));
  }
}

}  // namespace
}  // namespace dralo::host
