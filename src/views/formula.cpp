#include "views/formula.h"

#include <algorithm>
#include <array>

#include "text/ascii.h"

namespace dralo::views {
namespace {

/// The blank, the line feed, the no-break space as a character and as HTML, the ideographic space, the byte
/// order mark and the zero-width space.
constexpr auto kPassedOver = std::to_array<std::string_view>(
    {" ", "\n", "\xC2\xA0", "&nbsp;", "\xE3\x80\x80", "\xEF\xBB\xBF", "\xE2\x80\x8B"});

constexpr auto kSigns = std::to_array<std::string_view>(
    {"=", "+", "-", "@", "\t", "\r", "\xEF\xBC\x9D", "\xEF\xBC\x8B", "\xEF\xBC\x8D", "\xEF\xBC\xA0"});

}  // namespace

bool BeginsFormula(std::string_view text) {
  // Nearly all texts.
  if (text.empty() || text::IsLetterOrDigit(text[0])) return false;
  const auto begins = [&](std::string_view part) { return text.starts_with(part); };
  for (const auto* blank = std::ranges::find_if(kPassedOver, begins); blank != kPassedOver.end();
       blank = std::ranges::find_if(kPassedOver, begins)) {
    text.remove_prefix(blank->size());
  }
  return std::ranges::any_of(kSigns, begins);
}

}  // namespace dralo::views
