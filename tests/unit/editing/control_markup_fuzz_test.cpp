#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

#include "editing/control_text.h"
#include "html/control_markup.h"
#include "support/browser_form.h"
#include "support/html_elements.h"

namespace dralo::tests {
namespace {

using namespace std::string_view_literals;

/// Texts made of what browsers treat in a way of their own. The same ones for the same seed.
class MarkupTexts {
 public:
  explicit MarkupTexts(unsigned seed) : random_(seed) {}

  std::string Next() {
    std::string text;
    for (std::size_t pieces = Below(12); pieces > 0; --pieces) {
      if (Below(8) == 0) {
        text += static_cast<char>(Below(256));
      } else {
        text += kPieces[Below(std::size(kPieces))];
      }
    }
    return text;
  }

  std::size_t Below(std::size_t limit) { return random_() % limit; }

 private:
  static constexpr std::string_view kPieces[] = {"&"sv,
                                                 "&"sv,
                                                 "&"sv,
                                                 "#"sv,
                                                 "#x"sv,
                                                 "65"sv,
                                                 "amp"sv,
                                                 "AMP"sv,
                                                 "copy"sv,
                                                 "copysr"sv,
                                                 "not"sv,
                                                 "notin"sv,
                                                 "it"sv,
                                                 "lt"sv,
                                                 "ltcc"sv,
                                                 "hellip"sv,
                                                 "quot"sv,
                                                 "apos"sv,
                                                 "sup1"sv,
                                                 "frac12"sv,
                                                 ";"sv,
                                                 ";"sv,
                                                 "="sv,
                                                 " "sv,
                                                 "a"sv,
                                                 "\""sv,
                                                 "'"sv,
                                                 "<"sv,
                                                 "</"sv,
                                                 "/textarea"sv,
                                                 "</TextArea"sv,
                                                 ">"sv,
                                                 "\r"sv,
                                                 "\n"sv,
                                                 "\r\n"sv,
                                                 "\t"sv,
                                                 "\0"sv,
                                                 "<!--"sv,
                                                 "-->"sv,
                                                 "</form>"sv,
                                                 "\xC3"sv,
                                                 "\xA9"sv,
                                                 "\xE2\x82"sv,
                                                 "\xED\xA0\x80"sv,
                                                 "\xF0\x9F"sv,
                                                 "\x98\x80"sv,
                                                 "\xF4\x90"sv,
                                                 "\xFF"sv,
                                                 "\xEF\xBB\xBF"sv,
                                                 "\xF0\x9F\x98\x80"sv};

  std::mt19937 random_;
};

/// A page that shows the text in every kind of control.
std::string PageWith(std::string_view text) {
  html::HtmlWriter out;
  out.Put(R"(<form><input type="text" name="line" value=")");
  html::PutAttributeText(out, text);
  out.Put(R"("><input type="hidden" name="hidden" value=")");
  html::PutAttributeText(out, text);
  out.Put(R"("><textarea name="memo">)");
  html::PutTextareaText(out, text);
  out.Put("</textarea><input type=\"hidden\" name=\"end\" value=\"\"></form>");
  return out.Take();
}

/// The text as a person knows it: what is no text replaced, every line break as browsers post it.
std::string AsPosted(std::string_view text) {
  std::string posted;
  for (const char c : AsReadByBrowser(text)) {
    if (c == '\n') posted += '\r';
    posted += c;
  }
  return posted;
}

TEST(AnyText, ComesBackFromEveryControlAsItWas) {
  MarkupTexts texts(1);
  for (int i = 0; i < 8000; ++i) {
    const std::string text = texts.Next();
    const std::string page = PageWith(text);
    const auto form = PostedByBrowser(page);
    ASSERT_EQ(form.size(), 4u) << page;
    const std::string posted = AsPosted(text);
    std::string one_line = posted;
    std::erase_if(one_line, [](char c) { return c == '\r' || c == '\n'; });

    ASSERT_EQ(form[0].value, one_line) << page;
    ASSERT_EQ(form[1].value, posted) << page;
    ASSERT_EQ(form[2].value, posted) << page;
    ASSERT_EQ(form[3].name, "end") << page;
    ASSERT_TRUE(editing::IsUntouched(form[0].value, text, true)) << page;
    ASSERT_TRUE(editing::IsUntouched(form[1].value, text, false)) << page;
    ASSERT_TRUE(editing::IsUntouched(form[2].value, text, false)) << page;
  }
}

TEST(AnyText, IsTouchedWhenBrowsersShowAnother) {
  MarkupTexts texts(2);
  for (int i = 0; i < 8000; ++i) {
    const std::string text = texts.Next();
    const std::string other = texts.Below(2) == 0 ? texts.Next() : text + texts.Next();
    ASSERT_EQ(editing::IsUntouched(other, text, false), AsPosted(other) == AsPosted(text))
        << text << '|' << other;
  }
}

TEST(AnyText, IsWrittenWithNoMoreReplacementsThanBrowsersNeed) {
  MarkupTexts texts(3);
  for (int i = 0; i < 8000; ++i) {
    const std::string text = texts.Next();
    html::HtmlWriter out;
    html::PutAttributeText(out, text);
    const std::string written = out.Take();
    if (text.find('"') != text.npos || text.find("&#") != text.npos || text.find(';') != text.npos) continue;
    const bool is_misread =
        PostedByBrowser("<input type=hidden value=\"" + text + "\">")[0].value != AsPosted(text);
    ASSERT_EQ(written != text, is_misread) << text;
  }
}

}  // namespace
}  // namespace dralo::tests
