#include "html/text_escape.h"

#include <gtest/gtest.h>

#include <cstddef>
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

std::string Replacement(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return c > 0 ? std::string(1, c) : "\xEF\xBF\xBD";
  }
}

TEST(TextEscape, FindsEveryByteWhereverItStands) {
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    for (std::size_t size = 1; size < 20; ++size) {
      for (std::size_t at = 0; at < size; ++at) {
        std::string text(size, 'x');
        text[at] = c;
        std::string scratch;
        ASSERT_EQ(html::Escaped(text, scratch),
                  std::string(at, 'x') + Replacement(c) + std::string(size - at - 1, 'x'));
      }
    }
  }
}

TEST(TextEscape, ReplacesEveryByteOfALongText) {
  EXPECT_EQ(EscapedText(std::string(65536, '<')).size(), 262144U);
  EXPECT_EQ(EscapedText(std::string(65536, '\xFF')).size(), 196608U);
}

}  // namespace
}  // namespace dralo::tests
