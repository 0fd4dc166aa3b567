#include "state/value_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/rendering.h"

namespace dralo::tests {
namespace {

using Put = void (*)(html::HtmlWriter& out, const state::Render& render, std::string_view text);

std::string Written(Put put, std::string_view text, bool is_hardened) {
  Rendering rendering;
  rendering.settings.Hardened = is_hardened;
  return rendering.Text([&](html::HtmlWriter& out, state::Render& render) { put(out, render, text); });
}

constexpr std::string_view kText = "&lt; R&D <\"'";

TEST(ValueText, IsEscapedOnHardenedPages) {
  for (const Put put : {state::PutInAttribute, state::PutInTextarea, state::PutInText})
    EXPECT_EQ(Written(put, kText, true), "&amp;lt; R&amp;D &lt;&quot;&#39;");
}

TEST(ValueText, ReplacesOnOthersWhatItsPlaceNeeds) {
  EXPECT_EQ(Written(state::PutInAttribute, kText, false), "&amp;lt; R&D <&quot;'");
  EXPECT_EQ(Written(state::PutInTextarea, kText, false), "&amp;lt; R&D <&quot;'");
  EXPECT_EQ(Written(state::PutInText, kText, false), kText);
}

TEST(ValueText, KeepsALineBreakAtTheStartOfATextarea) {
  for (const bool is_hardened : {false, true})
    EXPECT_EQ(Written(state::PutInTextarea, "\na", is_hardened), "\r\n\na");
}

}  // namespace
}  // namespace dralo::tests
