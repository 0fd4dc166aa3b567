#include "html/character_reference.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "text/ascii.h"

namespace dralo::html {
namespace {

/// The names that HTML reads without a semicolon after them. None of them begins another.
constexpr auto kNamesWithoutSemicolon = std::to_array<std::string_view>({
    "AElig",  "AMP",    "Aacute", "Acirc",  "Agrave", "Aring",  "Atilde", "Auml",  "COPY",   "Ccedil",
    "ETH",    "Eacute", "Ecirc",  "Egrave", "Euml",   "GT",     "Iacute", "Icirc", "Igrave", "Iuml",
    "LT",     "Ntilde", "Oacute", "Ocirc",  "Ograve", "Oslash", "Otilde", "Ouml",  "QUOT",   "REG",
    "THORN",  "Uacute", "Ucirc",  "Ugrave", "Uuml",   "Yacute", "aacute", "acirc", "acute",  "aelig",
    "agrave", "amp",    "aring",  "atilde", "auml",   "brvbar", "ccedil", "cedil", "cent",   "copy",
    "curren", "deg",    "divide", "eacute", "ecirc",  "egrave", "eth",    "euml",  "frac12", "frac14",
    "frac34", "gt",     "iacute", "icirc",  "iexcl",  "igrave", "iquest", "iuml",  "laquo",  "lt",
    "macr",   "micro",  "middot", "nbsp",   "not",    "ntilde", "oacute", "ocirc", "ograve", "ordf",
    "ordm",   "oslash", "otilde", "ouml",   "para",   "plusmn", "pound",  "quot",  "raquo",  "reg",
    "sect",   "shy",    "sup1",   "sup2",   "sup3",   "szlig",  "thorn",  "times", "uacute", "ucirc",
    "ugrave", "uml",    "uuml",   "yacute", "yen",    "yuml",
});
constexpr std::size_t kShortestName = 2;
constexpr std::size_t kLongestName = 6;

static_assert(std::ranges::is_sorted(kNamesWithoutSemicolon), "names are searched by halves");

bool NeedsNoSemicolon(std::string_view name) {
  return std::ranges::binary_search(kNamesWithoutSemicolon, name);
}

bool BeginsWithNameWithoutSemicolon(std::string_view text) {
  const std::size_t longest = std::min(text.size(), kLongestName);
  for (std::size_t size = kShortestName; size <= longest; ++size) {
    if (NeedsNoSemicolon(text.substr(0, size))) return true;
  }
  return false;
}

}  // namespace

bool BeginsCharacterReference(std::string_view text, TextPlace place) {
  text.remove_prefix(1);
  if (text.starts_with('#')) return true;
  if (text.empty() || !text::IsLetter(text[0])) return false;
  const auto end = std::ranges::find_if_not(text, text::IsLetterOrDigit);
  const std::string_view name(text.begin(), end);
  const char behind = end == text.end() ? '\0' : *end;
  if (behind == ';') return true;
  if (place == TextPlace::kElement) return BeginsWithNameWithoutSemicolon(name);
  // Browsers leave the addresses of old pages, such as "?a=1&copy=2", alone in attributes.
  return behind != '=' && NeedsNoSemicolon(name);
}

}  // namespace dralo::html
