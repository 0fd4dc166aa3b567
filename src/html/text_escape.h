#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dralo::html {

/// What stands in a page for the first bytes of a text.
struct Escape {
  std::size_t bytes;    ///< How many bytes it stands for.
  std::string_view by;  ///< Valid for ever.
};

/// How many bytes at the start of `text` stand for themselves in a page's text and in attributes between
/// quotes: all UTF-8 but "&", "<", ">", both quotes and NUL.
std::size_t PlainBytes(std::string_view text);

/// What stands for the start of `text`, which is not empty and whose PlainBytes() are 0: a character
/// reference, or U+FFFD for NUL and for bytes that are no UTF-8, as browsers count them.
Escape FirstEscape(std::string_view text);

/// `text` as it stands in a page's text and in attributes between quotes: `text` itself when nothing is to be
/// replaced, else in `to`, whose content is replaced and which must not hold `text`.
std::string_view Escaped(std::string_view text, std::string& to);

/// Appends the same.
void AppendEscaped(std::string& to, std::string_view text);

}  // namespace dralo::html
