#include "html/control_markup.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "support/named_characters.h"

namespace dralo::tests {
namespace {

std::string InAttribute(std::string_view text) {
  html::HtmlWriter out;
  html::PutAttributeText(out, text);
  return out.Take();
}

std::string InTextarea(std::string_view text) {
  html::HtmlWriter out;
  html::PutTextareaText(out, text);
  return out.Take();
}

void ExpectUnchanged(std::string_view text) {
  EXPECT_EQ(InAttribute(text), text);
  EXPECT_EQ(InTextarea(text), text);
}

TEST(ControlMarkup, LeavesOrdinaryTextsAlone) {
  using namespace std::string_view_literals;
  constexpr std::string_view kTexts[] = {""sv,
                                         "O'Neil"sv,
                                         "Carter, Carter & Co."sv,
                                         "R&D"sv,
                                         "a && b"sv,
                                         "&"sv,
                                         "&;"sv,
                                         "& amp;"sv,
                                         "&1;"sv,
                                         "<b>bold</b>"sv,
                                         "</texta"sv,
                                         "</ textarea>"sv,
                                         "<textarea>"sv,
                                         "a < b"sv,
                                         "{}"sv,
                                         "\xFF\xC3"sv,
                                         "a\0b"sv,
                                         "\t x"sv,
                                         "a\r\nb"sv,
                                         "&\xC3\xA9;"sv};
  for (const std::string_view text : kTexts) {
    ExpectUnchanged(text);
  }
}

TEST(ControlMarkup, ReplacesDoubleQuotes) {
  EXPECT_EQ(InAttribute("\"a\"b\""), "&quot;a&quot;b&quot;");
  EXPECT_EQ(InTextarea("\"a\"b\""), "&quot;a&quot;b&quot;");
}

TEST(ControlMarkup, ReplacesWhatBeginsANumericReferenceOrANameWithASemicolon) {
  for (const std::string_view text : {"&#65;", "&#65", "&#x41;", "&#X41 ", "&#", "&#;", "&amp;", "&nbsp;x",
                                      "&hellip;", "&frac12;", "&notin;", "&made2up;"}) {
    EXPECT_EQ(InAttribute(text), "&amp;" + std::string(text.substr(1)));
    EXPECT_EQ(InTextarea(text), "&amp;" + std::string(text.substr(1)));
  }
  EXPECT_EQ(InAttribute("&amp;quot;&&lt;"), "&amp;amp;quot;&&amp;lt;");
}

TEST(ControlMarkup, ReplacesWhatBeginsAnyNameThatNeedsNoSemicolon) {
  const auto needs_none = [](const NamedCharacter& named) { return !named.name.ends_with(';'); };
  EXPECT_EQ(std::ranges::count_if(kNamedCharacters, needs_none), 106);
  for (const NamedCharacter& named : kNamedCharacters) {
    if (!needs_none(named)) continue;
    const std::string text = "&" + std::string(named.name);
    const std::string replaced = "&amp;" + std::string(named.name);
    for (const std::string behind : {"", " ", "&", ".", "-x", "\r\n", "\xC3\xA9", "<"}) {
      EXPECT_EQ(InAttribute(text + behind), replaced + behind);
      EXPECT_EQ(InTextarea(text + behind), replaced + behind);
    }
    EXPECT_EQ(InAttribute(text + "\""), replaced + "&quot;");
  }
}

TEST(ControlMarkup, LeavesNamesInAddressesAloneButNotInTextareas) {
  for (const std::string_view text : {"?a=1&copy=2", "?a=1&copyright", "?a=1&lt2", "?x&notit"}) {
    EXPECT_EQ(InAttribute(text), text);
    const std::size_t at = text.find('&') + 1;
    EXPECT_EQ(InTextarea(text), std::string(text.substr(0, at)) + "amp;" + std::string(text.substr(at)));
  }
}

TEST(ControlMarkup, LeavesNamesThatNeedASemicolonAndHaveNoneAlone) {
  for (const std::string_view text : {"&hellip", "&apos x", "&Amp", "&NBSP ", "&am", "&zz"})
    ExpectUnchanged(text);
}

TEST(ControlMarkup, KeepsATextInItsTextarea) {
  EXPECT_EQ(InTextarea("a</textarea>b"), "a&lt;/textarea>b");
  EXPECT_EQ(InTextarea("</TextArea </textarea"), "&lt;/TextArea &lt;/textarea");
  EXPECT_EQ(InTextarea("<</textareas>"), "<&lt;/textareas>");
  EXPECT_EQ(InAttribute("a</textarea>b"), "a</textarea>b");
}

TEST(ControlMarkup, DoublesALineBreakAtTheStartOfATextarea) {
  EXPECT_EQ(InTextarea("\na"), "\r\n\na");
  EXPECT_EQ(InTextarea("\r\na"), "\r\n\r\na");
  EXPECT_EQ(InTextarea("\ra"), "\r\n\ra");
  EXPECT_EQ(InTextarea(" \na"), " \na");
  EXPECT_EQ(InAttribute("\na"), "\na");
}

TEST(ControlMarkup, WritesAMegabyteOfWhatIsReplaced) {
  const std::string text(1048576, '"');
  EXPECT_EQ(InTextarea(text).size(), text.size() * 6);
  EXPECT_EQ(InAttribute(std::string(1048576, '&')).size(), 1048576u);
}

}  // namespace
}  // namespace dralo::tests
