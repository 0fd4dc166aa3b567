#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dralo::html {

/// What is written for the first bytes of a text.
struct Escape {
  std::size_t bytes;    ///< How many bytes it replaces.
  std::string_view by;  ///< A constant.
};

/// What is written for bytes that are no text: U+FFFD.
inline constexpr std::string_view kReplacementText = "\xEF\xBF\xBD";

/// What is written for a character of ASCII; empty when it stays as it is.
constexpr std::string_view EscapeOf(char c) {
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
    case '\0':
      return kReplacementText;
    default:
      return {};
  }
}

/// How many bytes at the start of `text` can be written as they are into a page's text and into attributes
/// between quotes: all UTF-8 but "&", "<", ">", both quotes and NUL.
std::size_t PlainBytes(std::string_view text);

/// What must be written for the start of `text`, which is not empty and whose PlainBytes() are 0: a character
/// reference, or U+FFFD for NUL and for bytes that are no UTF-8, one for as many bytes as browsers replace by
/// one.
Escape FirstEscape(std::string_view text);

/// `text` escaped for a page's text and for attributes between quotes: `text` itself when nothing must be
/// replaced, else in `to`, whose content is replaced and which must not hold `text`.
std::string_view Escaped(std::string_view text, std::string& to);

/// Appends the same text.
void AppendEscaped(std::string& to, std::string_view text);

}  // namespace dralo::html
