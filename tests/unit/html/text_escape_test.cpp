#include "html/text_escape.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

#include "html/html_writer.h"
#include "unit/html/escaped_one_by_one.h"

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

TEST(TextEscape, FindsEveryByteWhereverItStands) {
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    for (std::size_t size = 1; size < 36; ++size) {
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

TEST(TextEscape, TakesCharactersOfSeveralBytesAndBrokenOnesWhereverTheyStand) {
  constexpr std::string_view kPieces[] = {
      "a",   "abcdefg", "\xC3\xB6", "\xD0\x96", "\xDF\xBF", "\xE2\x82\xAC", "\xF0\x9F\x98\x80",
      "<",   "\xC3",    "\xBF",     "\xC1\xBF", "\xE2\x82", "\xED\xA0\x80", "\xE0\x9F\xBF",
      "\xFF"};
  std::minstd_rand random(7);  // NOLINT(cert-msc51-cpp): the same texts each time
  for (int round = 0; round < 20'000; ++round) {
    std::string text;
    for (auto pieces = random() % 9; pieces > 0; --pieces) text += kPieces[random() % std::size(kPieces)];
    ASSERT_EQ(EscapedText(text), EscapedOneByOne(text)) << testing::PrintToString(text);
  }
}

TEST(TextEscape, ReplacesEveryByteOfALongText) {
  EXPECT_EQ(EscapedText(std::string(65536, '<')).size(), 262144U);
  EXPECT_EQ(EscapedText(std::string(65536, '\xFF')).size(), 196608U);
}

}  // namespace
}  // namespace dralo::tests
