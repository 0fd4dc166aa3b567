#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// White space: that of ASCII for what machines write, and more for what people write. For settings of a
/// page, where only the blank counts, see text/blanks.h.
namespace dralo::text {

constexpr bool IsAsciiSpace(char c) { return c == ' ' || ('\t' <= c && c <= '\r'); }

/// `text` without the white space of ASCII at both ends.
constexpr std::string_view TrimAsciiSpace(std::string_view text) {
  while (!text.empty() && IsAsciiSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsAsciiSpace(text.back())) text.remove_suffix(1);
  return text;
}

/// How many bytes the white space character at the start of `text` takes; 0 when there is none. White space
/// is that of ASCII and what locales and word processors use as blanks: no-break (U+00A0), figure (U+2007),
/// thin (U+2009), narrow no-break (U+202F) and ideographic (U+3000) space.
std::size_t WhiteSpaceSize(std::string_view text);

/// How many bytes the invisible direction mark at the start of `text` takes (U+061C, U+200E, U+200F); 0 when
/// there is none.
std::size_t DirectionMarkSize(std::string_view text);

/// `text` without white space and direction marks at both ends.
std::string_view TrimWhiteSpace(std::string_view text);

/// `text` trimmed, with each white space as " " and without direction marks: the form in which texts are
/// compared.
std::string PlainWhiteSpace(std::string_view text);

}  // namespace dralo::text
