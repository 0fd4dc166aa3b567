#include "html/value_place.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>

namespace dralo::tests {
namespace {

using html::PlaceKind;
using namespace std::string_view_literals;

std::string In(const html::ValuePlace& place, std::string_view value) {
  std::string text = "<";
  html::AppendInPlace(text, value, place);
  return text.substr(1);
}

std::string In(PlaceKind kind, std::string_view value) { return In(html::ValuePlace{.kind = kind}, value); }

std::string Unquoted(PlaceKind kind, std::string_view value) {
  return In(html::ValuePlace{.kind = kind, .is_unquoted = true, .is_whole_value = true}, value);
}

TEST(ValuePlace, EscapesTextAndAttributes) {
  for (const PlaceKind kind : {PlaceKind::kText, PlaceKind::kAttribute}) {
    EXPECT_EQ(In(kind, "a<b> \"c\" 'd' & \0\xFF"sv),
              "a&lt;b&gt; &quot;c&quot; &#39;d&#39; &amp; \xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(In(kind, ""), "");
  }
}

TEST(ValuePlace, WritesNumbersOfCharactersWhereNoQuotesStand) {
  EXPECT_EQ(Unquoted(PlaceKind::kAttribute, "a.B-9_"), "a.B-9_");
  EXPECT_EQ(Unquoted(PlaceKind::kAttribute, "x onmouseover=f()>"), "x&#32;onmouseover&#61;f&#40;&#41;&#62;");
  EXPECT_EQ(Unquoted(PlaceKind::kAttribute, "\"'`\t&\0\xFF\xC3\xB8\xF0\x9F\x98\x80"sv),
            "&#34;&#39;&#96;&#9;&#38;&#65533;&#65533;&#248;&#128512;");
}

TEST(ValuePlace, WritesCharactersThatHaveNoNumberAsTheyAre) {
  EXPECT_EQ(Unquoted(PlaceKind::kAttribute, "\xC2\x85"), "\xC2\x85");
}

TEST(ValuePlace, PutsQuotesInPlaceOfAnEmptyWholeValue) {
  for (const PlaceKind kind : {PlaceKind::kAttribute, PlaceKind::kAddress, PlaceKind::kAddressPart,
                               PlaceKind::kStyle, PlaceKind::kNothing}) {
    EXPECT_EQ(Unquoted(kind, ""), "\"\"");
  }
  EXPECT_EQ(Unquoted(PlaceKind::kStyle, ";"), "\"\"");
  EXPECT_EQ(Unquoted(PlaceKind::kNothing, "x"), "\"\"");
  EXPECT_EQ(In(html::ValuePlace{.kind = PlaceKind::kAttribute, .is_unquoted = true}, ""), "");
}

TEST(ValuePlace, KeepsAddressesThatRunNothing) {
  for (const std::string_view address :
       {"http://a.example/?b=c#d", "https://a.example", "HTTPS://x", "mailto:a@b.example", "tel:+1",
        "page.php", "/a/b", "//a.example", "?a=b:c", "#a:b", "a/b:c", ""}) {
    EXPECT_EQ(In(PlaceKind::kAddress, address), address);
  }
  EXPECT_EQ(In(PlaceKind::kAddress, "?a=1&b='"), "?a=1&amp;b=&#39;");
  EXPECT_EQ(Unquoted(PlaceKind::kAddress, "a?b"), "a&#63;b");
}

TEST(ValuePlace, PutsANumberSignInPlaceOfOtherAddresses) {
  for (const std::string_view address :
       {"javascript:f()", " java\tscript:f()", "\x01\x1Fjavascript:f()", "java\r\nscript:f()",
        "JavaScript:f()", "javascript\t:f()", "vbscript:f()", "data:text/html,x", "file:/etc/passwd",
        "blob:x", "averylongscheme:x", "\xC2\xA0javascript:f()", "x:", ":"}) {
    EXPECT_EQ(In(PlaceKind::kAddress, address), "#") << address;
  }
  EXPECT_EQ(In(PlaceKind::kAddress, "javascript&colon;f()"), "javascript&amp;colon;f()");
  EXPECT_EQ(In(PlaceKind::kAddress, "\0javascript:f()"sv), "#");
}

TEST(ValuePlace, LeavesOutWhatBrowsersPassOverInAddresses) {
  EXPECT_EQ(In(PlaceKind::kAddress, " \x01 ht\ttp:/\r\n/x"), "http://x");
}

TEST(ValuePlace, PostsFormsToThisSiteOnly) {
  for (const std::string_view address : {"page.php", "/a", "?b", "", "a//b"})
    EXPECT_EQ(In(PlaceKind::kRelativeAddress, address), address);
  for (const std::string_view address :
       {"http://a.example", "//a.example", "/\\a.example", "\\\\a", " /\t/a", "javascript:f()", "mailto:a"})
    EXPECT_EQ(In(PlaceKind::kRelativeAddress, address), "#") << address;
}

TEST(ValuePlace, EncodesPartsOfAddresses) {
  EXPECT_EQ(In(PlaceKind::kAddressPart, "a/b-c.d_e~9"), "a/b-c.d_e~9");
  EXPECT_EQ(In(PlaceKind::kAddressPart, "a b&c=d#e:f\\\"\xFF"), "a%20b%26c%3Dd%23e%3Af%5C%22%FF");
  EXPECT_EQ(In(PlaceKind::kRelativeAddressPart, "/a"), "%2Fa");
}

TEST(ValuePlace, SpellsAllButLettersAndDigitsInScriptStrings) {
  EXPECT_EQ(In(PlaceKind::kScriptString, "aZ9"), "aZ9");
  EXPECT_EQ(In(PlaceKind::kScriptString, "'+f()+'"), "\\u0027\\u002bf\\u0028\\u0029\\u002b\\u0027");
  EXPECT_EQ(In(PlaceKind::kScriptString, "\\\"</&#39;\n"),
            "\\u005c\\u0022\\u003c\\u002f\\u0026\\u002339\\u003b\\u000a");
  EXPECT_EQ(In(PlaceKind::kScriptString, "\xE2\x80\xA8\xF0\x9F\x98\x80\xFF\0"sv),
            "\\u2028\\ud83d\\ude00\\ufffd\\u0000");
}

TEST(ValuePlace, KeepsOnlyNumbersInScripts) {
  for (const std::string_view number : {"0", "-1", "10.50", "1e5", "-0.1E-7", "12e+3"})
    EXPECT_EQ(In(PlaceKind::kScriptValue, number), number);
  for (const std::string_view other :
       {"", "01", "1.", ".5", "+1", "1e", "0x1F", "f()", "1;f()", "NaN", "1 ", "-"})
    EXPECT_EQ(In(PlaceKind::kScriptValue, other), "null");
}

TEST(ValuePlace, KeepsOnlyWordsInStyles) {
  for (const std::string_view word : {"red", "#fF0", "12.5px", "100%", "-1em", "1e+3"})
    EXPECT_EQ(In(PlaceKind::kStyle, word), word);
  for (const std::string_view other : {"red;position:fixed", "url(x)", "a b", "\"", "/*", "\xC3\xB8"})
    EXPECT_EQ(In(PlaceKind::kStyle, other), "");
}

TEST(ValuePlace, PutsNothingWhereNothingIsSafe) { EXPECT_EQ(In(PlaceKind::kNothing, "x"), ""); }

}  // namespace
}  // namespace dralo::tests
