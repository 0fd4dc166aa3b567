#include "hosts/cpp/multipart_form.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace dralo::host {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

constexpr std::string_view kFormType = "multipart/form-data; boundary=limit";

Pairs ParsedMultipart(std::string_view body, std::string_view type = kFormType) {
  Pairs pairs;
  for (const platform::RequestField& field : ParseMultipart(type, body))
    pairs.emplace_back(field.name, field.value);
  return pairs;
}

std::string Part(std::string_view disposition, std::string_view value) {
  return std::string("--limit\r\nContent-Disposition: form-data; ")
      .append(disposition)
      .append("\r\n\r\n")
      .append(value)
      .append("\r\n");
}

TEST(ParseMultipart, YieldsFieldsInTheirOrderAndKeepsRepeatedNames) {
  const std::string body =
      Part("name=\"a.b\"", "1") + Part("name=\"c[]\"", "x=1&y") + Part("name=\"a.b\"", "") + "--limit--\r\n";
  EXPECT_EQ(ParsedMultipart(body), (Pairs{{"a.b", "1"}, {"c[]", "x=1&y"}, {"a.b", ""}}));
}

TEST(ParseMultipart, KeepsEveryByteOfAValue) {
  const std::string value("\r\n\r\n--lim \0 \"\\ \r", 17);
  EXPECT_EQ(ParsedMultipart(Part("name=a", value) + "--limit--"), (Pairs{{"a", value}}));
}

TEST(ParseMultipart, LeavesOutFilesAndFieldsWithoutAName) {
  const std::string body = Part("name=\"upload\"; filename=\"a;b.txt\"", "content") + Part("name=\"\"", "1") +
                           Part("title=\"x\"", "2") + Part("name=\"kept\"", "3") + "--limit--";
  EXPECT_EQ(ParsedMultipart(body), (Pairs{{"kept", "3"}}));
}

TEST(ParseMultipart, ReadsQuotedNames) {
  const std::string body = Part(R"(name="a \"b\" \\; c")", "1") + Part("NAME=d ", "2") + "--limit--";
  EXPECT_EQ(ParsedMultipart(body), (Pairs{{"a \"b\" \\; c", "1"}, {"d", "2"}}));
}

TEST(ParseMultipart, TakesOtherHeadersInAnyOrderAndLetterCase) {
  const std::string body =
      "preamble\r\n--limit\r\nContent-Type: text/plain\r\ncontent-disposition: form-data; name=a\r\n"
      "X-Name: b\r\n\r\n1\r\n--limit--";
  EXPECT_EQ(ParsedMultipart(body), (Pairs{{"a", "1"}}));
}

TEST(ParseMultipart, TakesLinesThatEndWithoutCarriageReturn) {
  EXPECT_EQ(ParsedMultipart("--limit\nContent-Disposition: form-data; name=\"a\"\n\n1\n2\n--limit--\n"),
            (Pairs{{"a", "1\n2"}}));
}

TEST(ParseMultipart, LeavesOutAPartThatIsBrokenOff) {
  EXPECT_EQ(ParsedMultipart(Part("name=a", "1") + Part("name=b", "2")), (Pairs{{"a", "1"}}));
  EXPECT_EQ(ParsedMultipart(Part("name=a", "1") + "--limit"), (Pairs{{"a", "1"}}));
  EXPECT_EQ(ParsedMultipart("--limit"), Pairs{});
  EXPECT_EQ(ParsedMultipart(""), Pairs{});
}

TEST(ParseMultipart, TakesTheBoundaryAsTheTypeNamesIt) {
  const std::string body = Part("name=a", "1") + "--limit--";
  const Pairs all{{"a", "1"}};
  EXPECT_EQ(ParsedMultipart(body, "multipart/form-data; charset=utf-8; Boundary=\"limit\""), all);
  EXPECT_EQ(ParsedMultipart(body, "multipart/form-data;boundary=limit ; charset=utf-8"), all);
  EXPECT_EQ(ParsedMultipart(body, "multipart/form-data"), Pairs{});
  EXPECT_EQ(ParsedMultipart(body, "multipart/form-data; boundary="), Pairs{});
  EXPECT_EQ(ParsedMultipart(body, "multipart/form-data; boundary=other"), Pairs{});
}

TEST(IsMultipart, KnowsTheTypeInAnyLetterCase) {
  EXPECT_TRUE(IsMultipart("Multipart/Form-Data; boundary=x"));
  EXPECT_TRUE(IsMultipart("multipart/form-data ;boundary=x"));
  EXPECT_FALSE(IsMultipart("multipart/form-data2; boundary=x"));
  EXPECT_FALSE(IsMultipart("application/x-www-form-urlencoded"));
  EXPECT_FALSE(IsMultipart(""));
}

}  // namespace
}  // namespace dralo::host
