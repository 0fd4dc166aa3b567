#include "views/formula.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace dralo::views {
namespace {

/// The no-break space as HTML.
constexpr std::string_view kHtmlBlank = "&nbsp;";

/// The blank, the line feed, the no-break space as a character, the ideographic space, the byte order mark
/// and the zero-width space.
constexpr auto kPassedOver =
    std::to_array<std::string_view>({" ", "\n", "\xC2\xA0", "\xE3\x80\x80", "\xEF\xBB\xBF", "\xE2\x80\x8B"});

constexpr auto kSigns = std::to_array<std::string_view>(
    {"=", "+", "-", "@", "\t", "\r", "\xEF\xBC\x9D", "\xEF\xBC\x8B", "\xEF\xBC\x8D", "\xEF\xBC\xA0"});

/// How many bytes of the blank that `text` begins with; 0 when it begins with none.
std::size_t BlankBytes(std::string_view text, bool is_html) {
  if (is_html && text.starts_with(kHtmlBlank)) return kHtmlBlank.size();
  const auto* blank =
      std::ranges::find_if(kPassedOver, [&](std::string_view part) { return text.starts_with(part); });
  return blank == kPassedOver.end() ? 0 : blank->size();
}

}  // namespace

bool FormulaFollows(std::string_view text, bool is_html) {
  while (const std::size_t bytes = BlankBytes(text, is_html)) {
    text.remove_prefix(bytes);
    if (text.empty()) return false;
  }
  return std::ranges::any_of(kSigns, [&](std::string_view sign) { return text.starts_with(sign); });
}

}  // namespace dralo::views
