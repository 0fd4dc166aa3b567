#include "html/text_escape.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "html/html_writer.h"

namespace dralo::tests {
namespace {

/// All three ways must say the same.
std::string EscapedText(std::string_view text) {
  html::HtmlWriter out;
  out.Write(html::Text{text});
  std::string scratch = "from before";
  EXPECT_EQ(html::Escaped(text, scratch), out.Collected());
  std::string appended;
  html::AppendEscaped(appended, text);
  EXPECT_EQ(appended, out.Collected());
  return out.Take();
}

TEST(TextEscape, LeavesOrdinaryTextsWhereTheyAre) {
  for (const std::string_view text : {"", " ", "Carter, Co. (1%) = #1; `x` /\\ {}", "\t\r\n",
                                      "S\xC3\xB8n \xE2\x82\xAC", "\xF0\x9F\x98\x80", "\x7F\x01"}) {
    std::string scratch;
    EXPECT_EQ(html::Escaped(text, scratch).data(), text.data());
    EXPECT_EQ(EscapedText(text), text);
  }
}

TEST(TextEscape, ReplacesTheFiveCharactersOfMarkup) {
  EXPECT_EQ(EscapedText("<a href=\"x\" id='y'>&amp;"),
            "&lt;a href=&quot;x&quot; id=&#39;y&#39;&gt;&amp;amp;");
  EXPECT_EQ(EscapedText("&&"), "&amp;&amp;");
}

TEST(TextEscape, PutsAReplacementCharacterForNulAndForWhatIsNoUtf8) {
  using namespace std::string_view_literals;
  EXPECT_EQ(EscapedText("a\0b"sv),
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(EscapedText("\xFF<"), "\xEF\xBF\xBD&lt;");
  EXPECT_EQ(EscapedText("\xC3"), "\xEF\xBF\xBD");
  EXPECT_EQ(EscapedText("\xE2\x82<"), "\xEF\xBF\xBD&lt;");
  EXPECT_EQ(EscapedText("\xC0\xBC"), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(EscapedText("\xC3\"\xA9"), "\xEF\xBF\xBD&quot;\xEF\xBF\xBD");
}

TEST(TextEscape, ReplacesEveryByteOfALongText) {
  EXPECT_EQ(EscapedText(std::string(65536, '<')).size(), 262144U);
  EXPECT_EQ(EscapedText(std::string(65536, '\xFF')).size(), 196608U);
}

}  // namespace
}  // namespace dralo::tests
